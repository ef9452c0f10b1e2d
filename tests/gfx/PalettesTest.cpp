#include <gtest/gtest.h>

#include "support/ByteImage.h"
#include "gfx/Palettes.h"
#include "rom/RomFile.h"

namespace kartova {
namespace {

using test::ByteImage;
using test::TempDir;

// Palette n of a test ROM: red = n, blue = colour number.
std::int16_t Word(int n, int j) { return static_cast<std::int16_t>((n & 31) | (j << 10)); }

void PutPalette(ByteImage& rom, std::int64_t offset, int n) {
  for (int j = 0; j < 4; ++j) rom.Word(offset + 2 * j, static_cast<std::uint16_t>(Word(n, j)));
}

TEST(PalettesTest, ConvertsColourWordsAsSigned16Bit) {
  EXPECT_EQ(ConvertColour(0x7FFF), (ColourEntry{255, 255, 255, 0}));
  EXPECT_EQ(ConvertColour(0x0421), (ColourEntry{8, 8, 8, 0}));
  // Bit 15 makes the word negative; dividing toward zero leaves only red.
  EXPECT_EQ(ConvertColour(static_cast<std::int16_t>(0xFFFF)), (ColourEntry{0, 0, 255, 0}));
  ColourTable t;
  t.SetEntry(3, ConvertColour(0x001F));
  EXPECT_EQ(t.Argb(3), 0xFFFF0000u);
}

TEST(PalettesTest, TimeOfDayTablesSpecialSetsAndTheMapBankColoursInPalette6) {
  ByteImage rom(0x150043 + 0x400);
  rom.Word(0xB6CE + 2 * 2, 0x4100);  // sprite set 0x0A AND 7 = 2
  rom.Put(0x8100 + 3 * 8, {10, 11, 12, 13, 14, 15, 16, 17})
      .Put(0x8100 + 6 * 8, std::vector<std::uint8_t>(8, 20));
  for (int n : {10, 11, 12, 13, 14, 15, 16, 17, 20}) PutPalette(rom, 0xB75E + n * 8, n);
  rom.Word(0xB9AE + 4 * 8 + 2, 0x7FFF).Word(0xB9AE + 4 * 8 + 6, 0x7C00);
  for (int i = 0; i < 8; ++i) PutPalette(rom, 0x150043 + 192 + 4 * 64 + i * 8, 40 + i);
  TempDir dir;
  RomFile file = RomFile::OpenForRead(rom.Save(dir));
  PaletteSelection s{
      .time_of_day = kTimeOfDayAuto, .sprite_set = 0x0A, .lighting = 0x0B, .map_bank = 4};
  EXPECT_EQ(LightingRow(s), 3);
  ColourTable table;
  LoadPalettes(file, s, table);
  for (int k = 0; k < 32; ++k) {
    if (k == 25 || k == 26) continue;
    EXPECT_EQ(table.Entry(k), ConvertColour(Word(10 + k / 4, k % 4))) << k;
  }
  EXPECT_EQ(table.Entry(25), ConvertColour(0));
  EXPECT_EQ(table.Entry(26), ConvertColour(0x7FFF));
  EXPECT_EQ(table.Entry(32), ColourEntry{});

  s.time_of_day = 6;  // t AND 3 = 2: the night half of the map bank colours
  LoadPalettes(file, s, table);
  EXPECT_EQ(table.Entry(0), ConvertColour(Word(20, 0)));
  EXPECT_EQ(table.Entry(26), ConvertColour(0x7C00));

  // Set 2 at row 4: 192 bytes a set, 64 a row, so this reads into set 3.
  LoadPalettes(file, {.time_of_day = 4, .special_set = 2, .map_bank = 4}, table);
  for (int k = 0; k < 32; ++k) {
    if (k == 25 || k == 26) continue;
    EXPECT_EQ(table.Entry(k), ConvertColour(Word(40 + k / 4, k % 4))) << k;
  }
  EXPECT_EQ(table.Entry(26), ConvertColour(0x7FFF));
}

}  // namespace
}  // namespace kartova
