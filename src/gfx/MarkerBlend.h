#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "gfx/IndexedImage.h"

namespace kartova {

class MapEventSet;
struct EventViewport;

// The event view marks every event that stands on the map with a small picture laid over its
// cell at half strength, so that the ground stays readable under it. Marker kinds: 0 people,
// 1 signposts, 2 triggers, 3 warps; any other kind shows the people's marker.
inline constexpr int kMarkerKindCount = 4;
inline constexpr int kMarkerPeople = 0;
inline constexpr int kMarkerSignpost = 1;
inline constexpr int kMarkerTrigger = 2;
inline constexpr int kMarkerWarp = 3;
// The marker's constant strength out of 255; the pictures carry no alpha of their own.
inline constexpr int kMarkerAlpha = 128;

// A square marker picture, 0xRRGGBB pixels row by row (the top byte is not read).
struct MarkerPicture {
  int size = 0;
  std::vector<std::uint32_t> pixels;

  bool Valid() const {
    return size > 0 && pixels.size() == static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
  }
};
using MarkerSet = std::array<MarkerPicture, kMarkerKindCount>;

// What a picture box shows: the part of an indexed buffer from (source_x, source_y), at most
// window_width × window_height pixels, at the picture's top-left corner, seen through a colour
// lookup; wherever neither the window nor the buffer reaches, the background.
struct ShownPicture {
  const IndexedImage* buffer = nullptr;
  int source_x = 0;
  int source_y = 0;
  int window_width = 0;
  int window_height = 0;
  int width = 0;  // the picture
  int height = 0;
  const std::array<std::uint32_t, 256>* colours = nullptr;
  std::uint32_t background = 0xFF404040u;

  // The colour shown at picture pixel (x, y), as 0xFFRRGGBB.
  std::uint32_t PixelAt(int x, int y) const;
};

// The part of a cell that lies on the picture, mixed: width × height pixels 0xFFRRGGBB, row by
// row, whose top-left pixel goes to (x, y) on the picture.
struct BlendedCell {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;
};

// (marker × 128 + under × 127) / 255 per channel, the fraction dropped.
std::uint32_t MixMarkerPixel(std::uint32_t marker, std::uint32_t under);

// The marker of a kind over the cell × cell square whose corner is at picture position (x, y).
// A square reaching past the left or top edge starts that far into the marker; one reaching
// past the right or bottom edge is cut there. nullopt when nothing of it is on the picture or
// the kind's marker is missing. A marker of another size than the cell is scaled to it.
std::optional<BlendedCell> BlendMarker(const MarkerSet& markers, const ShownPicture& picture, int cell, int kind, int x,
                                       int y);

// The markers of one map's events over the picture, in drawing order: people, signposts,
// triggers, warps, each list from its first record; only cells with a part on the picture.
std::vector<BlendedCell> BlendEventMarkers(const MarkerSet& markers, const ShownPicture& picture,
                                           const MapEventSet& events, const EventViewport& view);

}  // namespace kartova
