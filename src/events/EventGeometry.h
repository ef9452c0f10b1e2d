#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace kartova {

class MapEventSet;

// The event view's arithmetic: tiles under the mouse, where the selection frame goes, which
// events a click hits, and where a moved event may go. A tile is half a block; the view shows
// the map with a margin of 6 tiles, and people are stored 4 tiles further on.
inline constexpr int kEventMarginTiles = 6;
inline constexpr int kPeopleOffset = 4;
inline constexpr int kNoEventIndex = 255;

struct EventViewport {
  int h_scroll = 0;  // HScroll3, pixels
  int v_scroll = 0;  // VScroll3
  int width = 0;     // Picture3
  int height = 0;
  int cell = 16;     // tile size in pixels: event block size / 2
};

struct EventTile {
  int column = 0;
  int row = 0;
  bool operator==(const EventTile&) const = default;
};

// The tile under a mouse position, in map tiles (negative in the margin).
EventTile TileUnderMouse(const EventViewport& view, int mx, int my);

// The stored X and Y of a record of kind 0..3 (warp bytes 1/0, trigger 2/1, signpost 1/0,
// people 2/1); for people with their offset of 4, as stored. The subscript error for an index
// outside the list or a kind outside 0..3.
EventTile StoredPosition(const MapEventSet& events, int kind, int index);

// Where the selection frame's top-left corner goes in the picture, or nullopt when it goes off
// the picture: for the scripts, for index 255, and for an event outside the visible tiles.
struct PixelPoint {
  int x = 0;
  int y = 0;
  bool operator==(const PixelPoint&) const = default;
};
std::optional<PixelPoint> SelectionMarkerPosition(const MapEventSet& events, int kind, int index,
                                                  const EventViewport& view);
// Whether a stored position of a kind lies in the visible tiles (bounds included).
bool StoredPositionVisible(int kind, EventTile stored, const EventViewport& view);
// Where the cell of a stored position of a kind lies in the picture (may be partly outside).
PixelPoint CellOnPicture(int kind, EventTile stored, const EventViewport& view);

// A click on a tile (in map tiles): for each of the kinds 0..3 the last record that lies there
// (the list ends on it), and the first hit in the order warps, triggers, signposts, people, each
// from index 0 (the one that is selected).
struct EventHits {
  std::array<int, 4> last_in_kind{-1, -1, -1, -1};
  int first_kind = -1;
  int first_index = -1;
  bool Any() const { return first_kind >= 0; }
};
EventHits HitTest(const MapEventSet& events, EventTile tile);

// A move of the selected event to map tile (x, y) (people without their offset): clamped to the
// map and its margin (0 .. width * 2 + 5, people 0 .. width * 2 + 9 stored), written into the
// X byte when it differs from the drag origin's column and into the Y byte when it differs from
// its row. `changed` is false when neither was written.
struct EventMove {
  EventTile stored;  // the new stored position
  bool x_written = false;
  bool y_written = false;
  bool Changed() const { return x_written || y_written; }
};
EventMove MoveEvent(int kind, std::span<std::uint8_t> record, int x, int y, EventTile drag_origin,
                    int map_width, int map_height);

// The scroll values that centre a stored position of a kind in the view, clamped to 0 and the
// maxima (the warp jump's centring).
struct ScrollPair {
  int h = 0;
  int v = 0;
};
ScrollPair CentreOn(EventTile stored, const EventViewport& view, int h_max, int v_max);

}  // namespace kartova
