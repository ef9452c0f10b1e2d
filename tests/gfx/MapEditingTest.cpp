#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "demo/RomBuilder.h"
#include "gfx/MapEditing.h"

namespace kartova {
namespace {

// A 10 x 8 map (grid 16 x 14) with a west strip three cells wide from row 5 to row 9 leading
// to map 1.2, and a south strip leading to map 3.4.
ExtendedMap GridWithStrips() {
  ExtendedMap grid;
  grid.Reset(10, 8, 7);
  grid.Connection(kDirectionWest) = {true, {0, 5, 2, 9}, 1, 2};
  grid.Connection(kDirectionSouth) = {true, {3, 11, 12, 13}, 3, 4};
  return grid;
}

TEST(MapEditingTest, CellsFromPositionsAreLimitedToTheGrid) {
  const ExtendedMap grid = GridWithStrips();
  const MapViewport view{.h_scroll = 40, .v_scroll = 8, .block_size = 32};
  EXPECT_EQ(CellAtPosition(grid, view, 0, 0), (MapCell{1, 0}));
  EXPECT_EQ(CellAtPosition(grid, view, 23, 23), (MapCell{1, 0}));
  EXPECT_EQ(CellAtPosition(grid, view, 24, 24), (MapCell{2, 1}));
  EXPECT_EQ(CellAtPosition(grid, view, -500, -500), (MapCell{0, 0}));
  EXPECT_EQ(CellAtPosition(grid, view, 100000, 100000), (MapCell{15, 13}));
  EXPECT_EQ(CellAtPosition(grid, {.block_size = 64}, 130, 64), (MapCell{2, 1}));
  EXPECT_EQ(CellAtPosition(grid, {.block_size = 0}, 3, 3), (MapCell{3, 3}));  // no division by 0

  for (const MapCell cell : {MapCell{2, 5}, MapCell{13, 10}, MapCell{12, 11}}) EXPECT_TRUE(IsMarginCell(grid, cell));
  EXPECT_FALSE(IsMarginCell(grid, {3, 3}) || IsMarginCell(grid, {12, 10}));
  EXPECT_EQ(ColumnText(0) + " " + RowText(13), "X: -3 Y: 10");
  EXPECT_EQ(ColumnText(3) + " " + RowText(10), "X: 0 Y: 7");
}

TEST(MapEditingTest, OffsetTextNamesTheBlockByteOfTheCellInTheRom) {
  const BuiltRom world = RomBuilder().Map(1, {}).Map(1, {.width = 11, .height = 9}).BuildWithLayout();
  const auto secondary = static_cast<std::size_t>(world.layout.Map(1, 2).secondary_header);
  const std::uint8_t bank = world.bytes[secondary + 3];
  const auto pointer = static_cast<std::uint16_t>(world.bytes[secondary + 4] | world.bytes[secondary + 5] << 8);
  const std::int64_t blocks = world.layout.Map(1, 2).blocks;
  for (const MapCell cell : {MapCell{3, 3}, MapCell{13, 3}, MapCell{7, 8}, MapCell{13, 11}})
    EXPECT_EQ(BlockFileOffset(bank, pointer, 11, cell), blocks + (cell.y - 3) * 11 + (cell.x - 3));
  ExtendedMap grid;
  grid.Reset(11, 9, 0);
  char expected[32];
  std::snprintf(expected, sizeof expected, "Offset: %06llX", static_cast<long long>(blocks + 5 * 11 + 4));
  EXPECT_EQ(CellInfoText(grid, bank, pointer, {7, 8}), expected);
  EXPECT_EQ(CellInfoText(grid, bank, pointer, {14, 8}), "Rand-Block");
  EXPECT_EQ(CellInfoText(grid, bank, pointer, {7, 2}), "Rand-Block");
}

TEST(MapEditingTest, StripsUnderCellsAndOnThePicture) {
  const ExtendedMap grid = GridWithStrips();
  const std::pair<MapCell, int> cells[] = {
      {{0, 5}, kDirectionWest}, {{2, 9}, kDirectionWest}, {{2, 10}, -1}, {{12, 13}, kDirectionSouth}, {{13, 13}, -1}};
  for (const auto& [cell, direction] : cells) EXPECT_EQ(ConnectionAt(grid, cell), direction) << cell.x << "," << cell.y;
  EXPECT_EQ(ConnectionAt(ExtendedMap(), {0, 0}), -1);  // absent strips hold no cells
  EXPECT_EQ(StripOnPicture(grid.Connection(kDirectionWest).rect, {.h_scroll = 10, .v_scroll = 20}),
            (PixelRect{-10, 140, 96, 160}));
}

TEST(MapEditingTest, LinesBetweenCellsHaveNoGaps) {
  EXPECT_TRUE(CellsOnLine({4, 4}, {4, 4}).empty());
  EXPECT_EQ(CellsOnLine({3, 3}, {6, 3}), (std::vector<MapCell>{{4, 3}, {5, 3}, {6, 3}}));
  EXPECT_EQ(CellsOnLine({5, 5}, {3, 3}), (std::vector<MapCell>{{4, 4}, {3, 3}}));
  const std::vector<MapCell> steep = CellsOnLine({10, 2}, {7, 12});
  ASSERT_EQ(steep.size(), 10u);
  MapCell at{10, 2};
  for (const MapCell& next : steep) {
    EXPECT_LE(std::abs(next.x - at.x) + std::abs(next.y - at.y), 2);
    EXPECT_EQ(next.y, at.y + 1);
    at = next;
  }
  EXPECT_EQ(at, (MapCell{7, 12}));
}

TEST(MapEditingTest, ArrivalCentresTheStripBackOrShowsTheEdgeWeCameFrom) {
  const ExtendedMap grid = GridWithStrips();
  const MapViewport view{.h_max = 512 - 200, .v_max = 448 - 100, .block_size = 32, .width = 200, .height = 100};
  // Travelling east we arrive through the new map's west strip, which leads back to 1.2.
  EXPECT_EQ(ArrivalScroll(grid, kDirectionEast, 1, 2, view), (ScrollValues{0, 240 - 50}));
  EXPECT_EQ(ArrivalScroll(grid, kDirectionNorth, 3, 4, view), (ScrollValues{156, 348}));
  // Any strip back is used when the opposite one leads elsewhere.
  EXPECT_EQ(ArrivalScroll(grid, kDirectionEast, 3, 4, view), (ScrollValues{156, 348}));
  // No strip back: the edge facing where we came from.
  EXPECT_EQ(ArrivalScroll(grid, kDirectionNorth, 9, 9, view), (ScrollValues{156, 348}));
  EXPECT_EQ(ArrivalScroll(grid, kDirectionSouth, 9, 9, view), (ScrollValues{156, 0}));
  EXPECT_EQ(ArrivalScroll(grid, kDirectionWest, 9, 9, view), (ScrollValues{312, 174}));
  EXPECT_EQ(ArrivalScroll(grid, kDirectionEast, 9, 9, view), (ScrollValues{0, 174}));
  EXPECT_EQ(ArrivalScroll(grid, kDirectionEast, 9, 9, {.h_max = -5}), (ScrollValues{0, 0}));
}

}  // namespace
}  // namespace kartova
