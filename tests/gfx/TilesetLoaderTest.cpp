#include <gtest/gtest.h>

#include "demo/RomBuilder.h"
#include "gfx/ExtendedMap.h"
#include "gfx/TilesetLoader.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::TempDir;

// The map, tileset 1 and its neighbour to the north, as RomBuilder lays them out, loaded the
// way a map load does: headers, tileset stage, grid.
TEST(TilesetLoaderTest, LoadsAMapLaidOutByRomBuilder) {
  TilesetDecl tiles;
  tiles.graphics.assign(96 * 16, 0);
  tiles.graphics[5 * 16] = 0x80;  // tile 5, pixel 0: colour 1
  SetTilePalette(tiles.palette_map, 5, 3);
  tiles.blocks = {9, 9, 9, 9, 9, 5};  // block 0: tile 5 at column 1, row 1
  std::vector<std::uint8_t> north(10 * 8), shared(336);
  for (std::size_t i = 0; i < north.size(); ++i) north[i] = static_cast<std::uint8_t>(100 + i);
  shared[0] = 0xFF;  // shared tile set 2: tile 75, line 0
  RomBuilder builder;
  builder.ImageSize(0x300000).HeaderLength(10).Tileset(1, tiles).Palette(3, {0, 0x7FFF, 0, 0});
  builder.ReplacementTiles(2, shared).Map(1, {.width = 10, .height = 8, .blocks = north});
  builder.Map(1, {.tileset = 1,
                  .extra_header_bytes = {2},
                  .width = 10,
                  .height = 4,
                  .connections = {{.direction = Direction::kNorth, .target = {1, 1}}}});
  const BuiltRom rom = builder.BuildWithLayout();
  TempDir dir;
  test::WriteFileBytes(dir.File("rom.gbc"), rom.bytes);
  RomFile file = RomFile::OpenForRead(dir.File("rom.gbc"));
  TilesetRequest request{.time_of_day = 0};
  std::array<std::uint8_t, 60> secondary{};
  file.Seek(rom.layout.Map(1, 2).primary_header);
  file.ReadBytes(request.primary.data(), 30);
  file.Seek(rom.layout.Map(1, 2).secondary_header);
  file.ReadBytes(secondary.data(), 60);
  TilesetGraphics g;
  LoadTilesetGraphics(file, request, g);
  ExtendedMap grid;
  BuildExtendedMap(file, secondary, 10, grid);

  EXPECT_EQ(g.length, 96 * 16);
  EXPECT_EQ(g.sheet.At(5 * 8, 0), 3 * 4 + 1);
  EXPECT_EQ(g.sheet.At(5 * 8 + 1, 0), 3 * 4 + 0);
  EXPECT_EQ(g.sheet.At(11 * 8, 4 * 8), 1);
  EXPECT_EQ(g.blocks.StripRow(8)[8], 3 * 4 + 1);
  EXPECT_EQ(g.blocks.WideStripRow(8)[17], 3 * 4 + 1);
  EXPECT_EQ(g.colours.Entry(13), (ColourEntry{255, 255, 255, 0}));
  for (int i = 0; i < 30; ++i) EXPECT_EQ(grid.At(3 + i % 10, i / 10), north[50 + i]) << i;
  EXPECT_EQ(grid.ConnectionItems(), std::vector<std::string>{"1 (Oben)"});
}

TEST(TilesetLoaderTest, SurvivesAnEmptyFileAndRaisesOverflowForAWildTilesetBase) {
  TempDir dir;
  RomFile file = RomFile::OpenForRead(dir.File("empty.gbc"));
  TilesetGraphics g;
  TilesetRequest request{.primary = {0, 0xFF}};
  LoadTilesetGraphics(file, request, g);
  EXPECT_EQ(g.length, 0);
  request.tileset_base = 0x7FFFFFFF;
  EXPECT_THROW(LoadTilesetGraphics(file, request, g), RuntimeError);
}

}  // namespace
}  // namespace kartova
