#include <gtest/gtest.h>

#include "demo/DemoTiles.h"
#include "gfx/TileSheet.h"

namespace kartova::demo {
namespace {

// Tiles drawn with the demo's canvas come out of the editor's tile decoder where the block
// data expects them: data tile 96 and up at sheet tiles 0x80 and up, each with its palette.
TEST(TileArtTest, TilesDecodeAtTheirSheetNumbersWithTheirPalettes) {
  TilesetArt art;
  const PixelCanvas ramp = PixelCanvas::FromRows({
      "01230123", "10000003", "20000003", "30000003",
      "00000000", "00000000", "00000000", "33333332",
  });
  std::vector<int> numbers;
  for (int i = 0; i < 100; ++i) {
    PixelCanvas tile = ramp;
    tile.Set(4, 4, static_cast<std::uint8_t>(i % 4));  // every tile its own
    tile.Set(5, 4, static_cast<std::uint8_t>(i / 4 % 4));
    tile.Set(6, 4, static_cast<std::uint8_t>(i / 16 % 4));
    tile.Set(7, 4, static_cast<std::uint8_t>(i / 64 % 4));
    numbers.push_back(art.AddTile(tile, i % 8));
  }
  EXPECT_EQ(numbers[95], 0x5F);
  EXPECT_EQ(numbers[96], 0x80);
  EXPECT_EQ(numbers[99], 0x83);
  EXPECT_EQ(art.AddTile(ramp, 0), numbers[0]) << "an equal tile is stored once";
  EXPECT_NE(art.AddTile(ramp, 1), numbers[0]) << "the same pixels in another palette are not";
  const BlockTiles a{1, 2, 3}, b{3, 2, 1};
  EXPECT_EQ(art.AddBlock(a), 0);
  EXPECT_EQ(art.AddBlock(b), 1);
  EXPECT_EQ(art.AddBlock(a), 0);
  EXPECT_EQ(art.BlockData().size(), 32u);

  const std::vector<std::uint8_t> graphics = art.Graphics();
  GraphicsBuffer buffer{};
  std::copy(graphics.begin(), graphics.end(), buffer.begin());
  const auto map = art.PaletteMap();
  PaletteMap palette_map{};
  std::copy(map.begin(), map.end(), palette_map.begin());
  auto sheet = std::make_unique<TileSheet>();
  auto wide = std::make_unique<TileSheetWide>();
  DecodeTiles(buffer, static_cast<std::int64_t>(graphics.size()), palette_map, *sheet, *wide);

  for (int i : {0, 1, 7, 95, 96, 99}) {
    SCOPED_TRACE(i);
    const int t = numbers[static_cast<std::size_t>(i)];
    const int x0 = (t & 15) * 8, y0 = (t >> 4) * 8;
    const int palette = (i % 8) * 4;
    EXPECT_EQ(sheet->At(x0, y0), palette + 0);
    EXPECT_EQ(sheet->At(x0 + 3, y0), palette + 3);  // bit 7 is the leftmost pixel
    EXPECT_EQ(sheet->At(x0 + 7, y0 + 7), palette + 2);
    EXPECT_EQ(sheet->At(x0, y0 + 3), palette + 3);
    EXPECT_EQ(sheet->At(x0 + 4, y0 + 4), palette + i % 4);
    EXPECT_EQ(sheet->At(x0 + 7, y0 + 4), palette + i / 64 % 4);
  }
}

}  // namespace
}  // namespace kartova::demo
