#include "gfx/MarkerBlend.h"

#include <algorithm>
#include <utility>

#include "events/EventGeometry.h"
#include "events/MapEventSet.h"

namespace kartova {

namespace {

// x / 255 for x up to 255 * 255, on two 16-bit lanes at once (red and blue, or green alone):
// (x + 1 + (x >> 8)) >> 8 is exact there, and no lane carries into the other.
constexpr std::uint32_t DivideLanesBy255(std::uint32_t x) {
  return ((x + 0x00010001u + ((x >> 8) & 0x00FF00FFu)) >> 8) & 0x00FF00FFu;
}

// n pixels of one picture line from column x on, as the picture shows them.
void ShownRow(const ShownPicture& picture, int x, int y, int n, std::uint32_t* out) {
  std::fill(out, out + n, picture.background);
  const IndexedImage* buffer = picture.buffer;
  if (!buffer || !picture.colours || y < 0 || y >= picture.window_height) return;
  const long long line = static_cast<long long>(picture.source_y) + y;
  if (line < 0 || line >= buffer->height) return;
  // Columns of the picture that show the buffer: inside the window and inside the buffer.
  const long long first = std::max({0LL, static_cast<long long>(x), -static_cast<long long>(picture.source_x)});
  const long long end = std::min({static_cast<long long>(x) + n, static_cast<long long>(picture.window_width),
                                  static_cast<long long>(buffer->width) - picture.source_x});
  const std::uint8_t* row = buffer->Row(static_cast<int>(line));
  for (long long px = first; px < end; ++px) out[px - x] = (*picture.colours)[row[px + picture.source_x]] | 0xFF000000u;
}

}  // namespace

std::uint32_t ShownPicture::PixelAt(int x, int y) const {
  if (x < 0 || x >= width || y < 0 || y >= height) return background;
  std::uint32_t pixel = background;
  ShownRow(*this, x, y, 1, &pixel);
  return pixel;
}

std::uint32_t MixMarkerPixel(std::uint32_t marker, std::uint32_t under) {
  constexpr std::uint32_t kUnder = 255 - kMarkerAlpha;
  const std::uint32_t red_blue = (marker & 0x00FF00FFu) * kMarkerAlpha + (under & 0x00FF00FFu) * kUnder;
  const std::uint32_t green = ((marker >> 8) & 0xFFu) * kMarkerAlpha + ((under >> 8) & 0xFFu) * kUnder;
  return 0xFF000000u | DivideLanesBy255(red_blue) | DivideLanesBy255(green) << 8;
}

std::optional<BlendedCell> BlendMarker(const MarkerSet& markers, const ShownPicture& picture, int cell, int kind, int x,
                                       int y) {
  if (cell < 1) return std::nullopt;
  const MarkerPicture& marker = markers[static_cast<std::size_t>(kind >= 0 && kind < kMarkerKindCount ? kind : 0)];
  if (!marker.Valid()) return std::nullopt;
  long long left = x, top = y, start_column = 0, start_row = 0;
  if (left < 0) {
    start_column = -left;
    left = 0;
  }
  if (top < 0) {
    start_row = -top;
    top = 0;
  }
  const long long width = std::min(cell - start_column, static_cast<long long>(picture.width) - left);
  const long long height = std::min(cell - start_row, static_cast<long long>(picture.height) - top);
  if (width < 1 || height < 1) return std::nullopt;

  BlendedCell out;
  out.x = static_cast<int>(left);
  out.y = static_cast<int>(top);
  out.width = static_cast<int>(width);
  out.height = static_cast<int>(height);
  out.pixels.resize(static_cast<std::size_t>(width * height));
  // The marker's column for each column of the cell: itself unless the sizes differ.
  const long long size = marker.size;
  std::vector<std::uint32_t> scaled_row;
  if (size != cell) scaled_row.resize(static_cast<std::size_t>(width));
  for (int r = 0; r < out.height; ++r) {
    std::uint32_t* line = out.pixels.data() + static_cast<std::size_t>(r) * static_cast<std::size_t>(out.width);
    ShownRow(picture, out.x, out.y + r, out.width, line);
    const std::uint32_t* marker_row = marker.pixels.data() + (start_row + r) * size / cell * size;
    const std::uint32_t* source = marker_row + start_column;
    if (size != cell) {
      for (int c = 0; c < out.width; ++c)
        scaled_row[static_cast<std::size_t>(c)] = marker_row[(start_column + c) * size / cell];
      source = scaled_row.data();
    }
    for (int c = 0; c < out.width; ++c) line[c] = MixMarkerPixel(source[c], line[c]);
  }
  return out;
}

std::vector<BlendedCell> BlendEventMarkers(const MarkerSet& markers, const ShownPicture& picture,
                                           const MapEventSet& events, const EventViewport& view) {
  std::vector<BlendedCell> cells;
  for (int marker_kind = 0; marker_kind < kMarkerKindCount; ++marker_kind) {
    // Both numberings run through the same four kinds in opposite order.
    const int event_kind = kMarkerKindCount - 1 - marker_kind;
    for (int index = 0; index < events.Count(event_kind); ++index) {
      const PixelPoint at = CellOnPicture(event_kind, StoredPosition(events, event_kind, index), view);
      if (auto blended = BlendMarker(markers, picture, view.cell, marker_kind, at.x, at.y))
        cells.push_back(std::move(*blended));
    }
  }
  return cells;
}

}  // namespace kartova
