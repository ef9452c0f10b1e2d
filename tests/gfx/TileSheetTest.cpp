#include <gtest/gtest.h>

#include <random>

#include "gfx/BlockSet.h"
#include "gfx/TileSheet.h"

namespace kartova {
namespace {

// Line y of data tile n is at bytes n × 16 + 2y (low plane) and + 1 (high plane).
void PutLine(GraphicsBuffer& b, int tile, int y, std::uint8_t lo, std::uint8_t hi) {
  b[tile * 16 + y * 2] = lo;
  b[tile * 16 + y * 2 + 1] = hi;
}

TEST(TileSheetTest, DecodesPlanesPaletteNibblesAndJumpsFromRow5ToRow8) {
  GraphicsBuffer buffer{};
  PaletteMap map{};
  map[0] = 0x52;                      // tile 0 palette 2, tile 1 palette 5
  map[48] = 0x77;                     // passed over
  map[64] = 0x03;                     // sheet tile 0x80 palette 3
  map[127] = 0x90;                    // tile 0xFF palette 9 = palette 1
  PutLine(buffer, 0, 0, 0x81, 0xC0);  // pixel 0 both planes, 1 high only, 7 low only
  PutLine(buffer, 1, 3, 0xFF, 0x00);
  PutLine(buffer, 96, 0, 0x80, 0x80);
  PutLine(buffer, 223, 7, 0x01, 0x01);
  TileSheet sheet;
  TileSheetWide wide;
  sheet.Set(0, 48, 0xEE);
  DecodeTiles(buffer, 3, map, sheet, wide);  // an odd length: all 224 slots

  // Colour index = palette × 4 + the two plane bits.
  const int pixels[][3] = {{0, 0, 2 * 4 + 3}, {1, 0, 2 * 4 + 2}, {2, 0, 2 * 4 + 0}, {7, 0, 2 * 4 + 1},
                           {8, 3, 5 * 4 + 1}, {0, 64, 3 * 4 + 3}, {127, 127, 1 * 4 + 3}};
  for (const auto& [x, y, want] : pixels)
    EXPECT_EQ(sheet.At(x, y), want) << x << "," << y;
  EXPECT_EQ(wide.At(14, 0), 2 * 4 + 1);
  EXPECT_EQ(wide.At(15, 0), 2 * 4 + 1);
  EXPECT_EQ(sheet.At(0, 48), 0xEE);  // tiles 0x60..0x7F are never decoded
}

TEST(TileSheetTest, StopsWhenThePositionMeetsTheLengthAndKeepsTheRest) {
  GraphicsBuffer ones;
  ones.fill(0xFF);
  GraphicsBuffer zero{};
  PaletteMap map{};
  TileSheet sheet;
  TileSheetWide wide;
  DecodeTiles(ones, 1, map, sheet, wide);
  DecodeTiles(zero, 0, map, sheet, wide);  // a stream that ended at once
  EXPECT_EQ(sheet.At(0, 0), 3);
  DecodeTiles(zero, 6, map, sheet, wide);  // three lines of tile 0
  EXPECT_EQ(sheet.At(0, 2), 0);
  EXPECT_EQ(sheet.At(0, 3), 3);
  EXPECT_EQ(wide.At(1, 3), 3);
  DecodeTiles(zero, 0x10000, map, sheet, wide);  // never met
  EXPECT_EQ(sheet.At(127, 127), 0);
}

TEST(BlockSetTest, EveryTileOfEveryBlockLandsAtItsColumnsInBothStrips) {
  std::mt19937 rng(7);
  GraphicsBuffer buffer;
  PaletteMap map;
  BlockData data;
  for (auto& b : buffer) b = static_cast<std::uint8_t>(rng());
  for (auto& b : map) b = static_cast<std::uint8_t>(rng());
  for (auto& b : data) b = static_cast<std::uint8_t>(rng());
  TileSheet sheet;
  TileSheetWide wide;
  DecodeTiles(buffer, 1, map, sheet, wide);
  BlockSet blocks;
  ComposeBlocks(data, sheet, wide, blocks);

  for (int b = 0; b < 256; ++b) {
    for (int p = 0; p < 32 * 32; ++p) {
      const int x = p % 32, y = p / 32, t = data[b * 16 + y / 8 * 4 + x / 8];
      const std::uint8_t want = sheet.At(t % 16 * 8 + x % 8, t / 16 * 8 + y % 8);
      ASSERT_EQ(blocks.StripRow(y)[b * 32 + x], want) << b;
      ASSERT_EQ(blocks.WideStripRow(y)[b * 64 + 2 * x], want) << b;
      ASSERT_EQ(blocks.WideStripRow(y)[b * 64 + 2 * x + 1], want) << b;
    }
  }
  std::vector<std::uint8_t> square(64 * 64);
  blocks.DrawBlock(200, 2, square.data(), 64);
  for (int p = 0; p < 64 * 64; ++p)
    ASSERT_EQ(square[p], blocks.WideStripRow(p / 128)[200 * 64 + p % 64]);
}

}  // namespace
}  // namespace kartova
