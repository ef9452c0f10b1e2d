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

}  // namespace
}  // namespace kartova
