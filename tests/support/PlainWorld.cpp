#include "support/PlainWorld.h"

namespace kartova::test {

namespace {

TilesetDecl PlainTileset() {
  TilesetDecl t;
  for (int tile = 0; tile < 4; ++tile) {
    for (int row = 0; row < 8; ++row) {
      t.graphics.push_back(tile & 1 ? 0xFF : 0x00);
      t.graphics.push_back(tile & 2 ? 0xFF : 0x00);
    }
  }
  SetTilePalette(t.palette_map, 1, 2);
  SetTilePalette(t.palette_map, 2, 5);
  SetTilePalette(t.palette_map, 3, 7);
  for (int block = 0; block < 4; ++block)
    t.blocks.insert(t.blocks.end(), 16, static_cast<std::uint8_t>(block));
  return t;
}

}  // namespace

RomBuilder PlainWorld() {
  constexpr std::uint16_t kRed = 0x001F, kGreen = 0x03E0, kBlue = 0x7C00, kWhite = 0x7FFF;
  std::array<PaletteNumbers, 8> table{};
  for (auto& row : table) row = {0, 1, 2, 3, 4, 5, 6, 7};
  table[1][2] = 12;
  RomBuilder b;
  b.Tileset(0, PlainTileset())
      .Palette(0, {0x0421, 0, 0, 0})
      .Palette(2, {0, kRed, 0, 0})
      .Palette(5, {0, 0, kGreen, 0})
      .Palette(7, {0, 0, 0, kBlue})
      .Palette(12, {0, kWhite, 0, 0})
      .LightingTable(0, table)
      .MapBankColours(2, {kRed, kRed}, {kBlue, kBlue});
  b.Map(2, {.border = 3, .width = 3, .height = 4, .blocks = {0, 1, 2, 2, 1, 0, 3, 3, 3, 0, 0, 0}});
  b.Map(2, {.border = 1,
            .width = 4,
            .height = 4,
            .connections = {{.direction = Direction::kNorth, .target = {2, 1}}}});
  return b;
}

}  // namespace kartova::test
