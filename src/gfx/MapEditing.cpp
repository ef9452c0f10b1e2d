#include "gfx/MapEditing.h"

#include <algorithm>
#include <cstdlib>

#include "rom/Address.h"
#include "rom/HexText.h"

namespace kartova {

namespace {

int BlockSize(const MapViewport& view) { return std::max(view.block_size, 1); }

int CellIndex(long long pixel, int block_size, int cells) {
  return static_cast<int>(std::clamp<long long>(pixel / block_size, 0, cells - 1));
}

int Clamped(long long value, int maximum) {
  return static_cast<int>(std::clamp<long long>(value, 0, std::max(maximum, 0)));
}

// Scroll value that puts the middle of cells first..last into the middle of a picture
// `picture` pixels long.
int CentredScroll(int first, int last, int block_size, int picture, int maximum) {
  const long long middle = (static_cast<long long>(first) + last + 1) * block_size / 2;
  return Clamped(middle - picture / 2, maximum);
}

const GridConnection* StripBackTo(const ExtendedMap& grid, int travelled, int bank, int map) {
  auto leads_back = [&](int d) {
    const GridConnection& c = grid.Connection(d);
    return c.present && c.bank == bank && c.map == map;
  };
  if (travelled >= 0 && travelled < kDirectionCount && leads_back(OppositeDirection(travelled)))
    return &grid.Connection(OppositeDirection(travelled));
  for (int d = 0; d < kDirectionCount; ++d)
    if (leads_back(d)) return &grid.Connection(d);
  return nullptr;
}

}  // namespace

MapCell CellAtPosition(const ExtendedMap& grid, const MapViewport& view, int x, int y) {
  const int s = BlockSize(view);
  return {CellIndex(static_cast<long long>(x) + view.h_scroll, s, grid.Width()),
          CellIndex(static_cast<long long>(y) + view.v_scroll, s, grid.Height())};
}

bool IsMarginCell(const ExtendedMap& grid, MapCell cell) { return !grid.IsMapCell(cell.x, cell.y); }

std::int64_t BlockFileOffset(std::uint8_t bank, std::uint16_t pointer, int map_width, MapCell cell) {
  const std::int64_t row = cell.y - ExtendedMap::kMargin;
  const std::int64_t column = cell.x - ExtendedMap::kMargin;
  return BankPointerToOffset(bank, pointer) + row * map_width + column;
}

std::string ColumnText(int cx) { return "X: " + Dec(cx - ExtendedMap::kMargin); }

std::string RowText(int cy) { return "Y: " + Dec(cy - ExtendedMap::kMargin); }

std::string CellInfoText(const ExtendedMap& grid, std::uint8_t bank, std::uint16_t pointer, MapCell cell) {
  if (IsMarginCell(grid, cell)) return kMarginHoverText;
  return "Offset: " + Hex6(BlockFileOffset(bank, pointer, grid.MapWidth(), cell));
}

int ConnectionAt(const ExtendedMap& grid, MapCell cell) {
  for (int d = 0; d < kDirectionCount; ++d) {
    const GridConnection& c = grid.Connection(d);
    if (c.present && c.rect.Contains(cell.x, cell.y)) return d;
  }
  return -1;
}

PixelRect StripOnPicture(const ConnectionRect& rect, const MapViewport& view) {
  const int s = BlockSize(view);
  return {rect.x1 * s - view.h_scroll, rect.y1 * s - view.v_scroll, (rect.x2 - rect.x1 + 1) * s,
          (rect.y2 - rect.y1 + 1) * s};
}

std::vector<MapCell> CellsOnLine(MapCell from, MapCell to) {
  std::vector<MapCell> cells;
  const int dx = std::abs(to.x - from.x);
  const int dy = -std::abs(to.y - from.y);
  const int step_x = from.x < to.x ? 1 : -1;
  const int step_y = from.y < to.y ? 1 : -1;
  int error = dx + dy;
  MapCell at = from;
  cells.reserve(static_cast<std::size_t>(std::max(dx, -dy)));
  while (at != to) {
    const int twice = 2 * error;
    if (twice >= dy) {
      error += dy;
      at.x += step_x;
    }
    if (twice <= dx) {
      error += dx;
      at.y += step_y;
    }
    cells.push_back(at);
  }
  return cells;
}

ScrollValues ArrivalScroll(const ExtendedMap& grid, int travelled, int left_bank, int left_map,
                           const MapViewport& view) {
  const int s = BlockSize(view);
  if (const GridConnection* strip = StripBackTo(grid, travelled, left_bank, left_map)) {
    const ConnectionRect& r = strip->rect;
    return {CentredScroll(r.x1, r.x2, s, view.width, view.h_max),
            CentredScroll(r.y1, r.y2, s, view.height, view.v_max)};
  }
  // Going north we arrive at the new map's southern edge, and so on.
  ScrollValues at{Clamped(view.h_max / 2, view.h_max), Clamped(view.v_max / 2, view.v_max)};
  if (travelled == kDirectionNorth) at.v = Clamped(view.v_max, view.v_max);
  if (travelled == kDirectionSouth) at.v = 0;
  if (travelled == kDirectionWest) at.h = Clamped(view.h_max, view.h_max);
  if (travelled == kDirectionEast) at.h = 0;
  return at;
}

}  // namespace kartova
