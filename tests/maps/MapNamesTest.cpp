#include <gtest/gtest.h>

#include "maps/MapNames.h"
#include "support/ByteImage.h"
#include "rom/GameTextTable.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

TEST(FormatMapNameTest, WordsStartAfterBlanksAndHyphensOnly) {
  EXPECT_EQ(FormatMapName("NORD HAFEN-STADT"), "Nord Hafen-Stadt");
  EXPECT_EQ(FormatMapName("WEG 12"), "Weg 12");
  EXPECT_EQ(FormatMapName("ST.BERGHEIM"), "St.bergheim");
  EXPECT_EQ(FormatMapName("A- B"), "A-B");
  EXPECT_EQ(FormatMapName("A-  B"), "A- B");  // one pass of the replacement
  EXPECT_EQ(FormatMapName("ÖDE MÜHLE  "), "Öde Mühle");
  EXPECT_EQ(FormatMapName("GROßE STRAßE"), "Große Straße");
  EXPECT_EQ(FormatMapName("  ZWEI"), "  Zwei");
  // The positions are counted in a byte: characters, not UTF-8 bytes.
  std::string umlauts;
  for (int i = 0; i < 254; ++i) umlauts += "Ä";
  EXPECT_NO_THROW(FormatMapName(umlauts));
  EXPECT_THROW(FormatMapName(std::string(255, 'A')), RuntimeError);
}

TEST(LocationNamesTest, PointersStayInTheTablesBankAndStringsEndAtTerminatorOrFileEnd) {
  constexpr std::int32_t kTable = 0x90000;
  test::ByteImage image(0x90000 + 0x400);
  for (int i = 0; i < kLocationCount; ++i) image.Word(kTable + 4 * i, 0x43FC);  // the end of the file
  image.Word(kTable + 4, 0xC200);  // bank bits masked off: 0x90200
  const std::uint8_t weg[] = {0x96, 0x84, 0x86, 0x7F, 0xF7, 0xF8, 0x50, 0x80};  // "WEG 12"
  std::copy(std::begin(weg), std::end(weg), image.bytes.begin() + 0x90200);
  for (int k = 0; k < 4; ++k) image.bytes[0x903FC + k] = static_cast<std::uint8_t>(0x80 + k);  // ABCD
  test::TempDir dir;
  RomFile rom = RomFile::OpenForRead(image.Save(dir));
  GameTextTable text;
  LocationNames names = ReadLocationNames(rom, kTable, text);
  EXPECT_EQ(names[0], "Abcd");
  EXPECT_EQ(names[1], "Weg 12");
  EXPECT_EQ(LocationItems(names)[94], "5E - Abcd");
  EXPECT_EQ(ReadLocationNames(rom, 0x7FFF0000, text)[50], "");  // a table beyond the file
  EXPECT_THROW(ReadLocationNames(rom, 0x7FFFFF00, text), RuntimeError);
}

TEST(LocationNamesTest, StretchesWithoutTextAreSkippedAndNamesOverflowWhereTheyPass254Characters) {
  constexpr std::int32_t kTable = 0x90000;
  test::ByteImage image(0x94000);
  for (int i = 0; i < kLocationCount; ++i) image.Word(kTable + 4 * i, 0x4200);
  // "AB", 15 KiB of bytes without a glyph, "C", the terminator.
  image.Put(0x90200, {0x80, 0x81}).Put(0x93E00, {0x82, 0x50});
  image.Word(kTable + 4, 0x4300);  // inside the stretch, read before the stretch's start is known
  image.Word(kTable + 8, 0x4201);  // runs into the stretch just found
  image.Word(kTable + 12, 0x4250);  // inside the stretch as it is known now
  // 63 glyphs of four characters and two of one, each after a control byte: 254 characters.
  for (int k = 0; k < 63; ++k) image.Put(0x93F00 + 2 * k, {0x00, 0x54});
  image.Put(0x93F00 + 126, {0x80, 0x00, 0x80, 0x50});
  image.Word(kTable + 16, 0x7F00);
  test::TempDir dir;
  RomFile rom = RomFile::OpenForRead(image.Save(dir));
  GameTextTable text;
  LocationNames names = ReadLocationNames(rom, kTable, text);
  EXPECT_EQ(names[0], "Abc");
  EXPECT_EQ(names[1], "C");
  EXPECT_EQ(names[2], "Bc");
  EXPECT_EQ(names[3], "C");
  EXPECT_EQ(names[4].size(), 63 * 5 + 2u);  // "Fuxé" of five bytes, 63 times, and "Aa"
  EXPECT_EQ(names[94], "Abc");

  // One character more overflows.
  image.Put(0x93F00 + 129, {0x80, 0x50});
  RomFile longer = RomFile::OpenForRead(image.Save(dir, "longer.gbc"));
  EXPECT_THROW(ReadLocationNames(longer, kTable, text), RuntimeError);

  // A name of glyphs without a terminator overflows at once, not at the end of the file.
  test::ByteImage glyphs(0x400000);
  std::fill(glyphs.bytes.begin() + 0x90200, glyphs.bytes.end(), 0x80);
  glyphs.Word(kTable, 0x4200);
  RomFile endless = RomFile::OpenForRead(glyphs.Save(dir, "endless.gbc"));
  EXPECT_THROW(ReadLocationNames(endless, kTable, text), RuntimeError);
  EXPECT_LE(endless.SystemReads(), 2);
}

}  // namespace
}  // namespace kartova
