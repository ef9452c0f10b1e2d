#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gfx/ExtendedMap.h"

// The arithmetic behind painting and picking on the map view: which cell of the bordered grid
// lies under the mouse, what the status bar says about it, the neighbour strip under it, and
// where the view of a neighbour is scrolled when one is opened through its strip.
namespace kartova {

// A cell of the bordered grid, (0, 0) at the top-left corner of the margin.
struct MapCell {
  int x = 0;
  int y = 0;
  bool operator==(const MapCell&) const = default;
};

// Where the map view stands over the grid: scroll values and their maxima, the block size at
// the view's zoom and the picture's size, all in pixels.
struct MapViewport {
  int h_scroll = 0;
  int v_scroll = 0;
  int h_max = 0;
  int v_max = 0;
  int block_size = 32;
  int width = 0;
  int height = 0;
};

// A rectangle on the picture, in pixels.
struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const PixelRect&) const = default;
};

// Shown in the status bar while the mouse is over a neighbour's strip.
inline constexpr const char* kStripHoverText = "Anbindung";
// Shown for a cell of the margin, which is not stored with the map.
inline constexpr const char* kMarginHoverText = "Rand-Block";

// The cell under the picture position (x, y), limited to the grid, so that a drag past the
// picture's edge keeps acting on the outermost cell.
MapCell CellAtPosition(const ExtendedMap& grid, const MapViewport& view, int x, int y);
// A cell of the three-block margin (border block or a neighbour's strip).
bool IsMarginCell(const ExtendedMap& grid, MapCell cell);
// File offset of the map's block byte for a map cell: the block rows start at the pointer in
// the bank of secondary header byte 3 (bytes 4-5), one row of map_width bytes after another.
std::int64_t BlockFileOffset(std::uint8_t bank, std::uint16_t pointer, int map_width, MapCell cell);

// Status bar panels 2 and 3: the map's own column and row, so the margin gives -3..-1 and
// width..width+2.
std::string ColumnText(int cx);
std::string RowText(int cy);
// Status bar panel 1 for a cell outside the strips: "Rand-Block" in the margin, else
// "Offset: " and six hex digits of the block byte's file offset.
std::string CellInfoText(const ExtendedMap& grid, std::uint8_t bank, std::uint16_t pointer, MapCell cell);

// The direction (0..3) of the neighbour strip that holds the cell, or -1.
int ConnectionAt(const ExtendedMap& grid, MapCell cell);
// Where a strip lies on the picture at the view's scroll values.
PixelRect StripOnPicture(const ConnectionRect& rect, const MapViewport& view);
// North and south, west and east swap.
constexpr int OppositeDirection(int direction) { return direction ^ 1; }

// The cells a straight drag from `from` to `to` crosses, `from` left out and `to` last, so
// that a fast mouse leaves no gaps in a stroke.
std::vector<MapCell> CellsOnLine(MapCell from, MapCell to);

// Scroll values for the view of a map just opened by leaving map `left_map` (1-based) of map
// bank `left_bank` (1..26) in direction `travelled`: the strip of the map left behind centred
// on the picture (the strip facing back preferred, any other strip of that map next), or,
// without such a strip, the edge of the map on the side we came from. The grid is the new
// map's; the result lies in 0..h_max and 0..v_max.
struct ScrollValues {
  int h = 0;
  int v = 0;
  bool operator==(const ScrollValues&) const = default;
};
ScrollValues ArrivalScroll(const ExtendedMap& grid, int travelled, int left_bank, int left_map,
                           const MapViewport& view);

}  // namespace kartova
