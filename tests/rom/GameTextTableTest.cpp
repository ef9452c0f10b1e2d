#include "rom/GameTextTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

std::string Decoded(const std::vector<std::uint8_t>& bytes) {
  return GameTextTable().Decode(bytes.data(), bytes.size());
}

TEST(GameTextTableTest, DecodesTheGermanCharacterSet) {
  EXPECT_EQ(Decoded({0x80, 0x81, 0xA0, 0x50, 0x81}), "ABa");  // nothing after the terminator
  EXPECT_EQ(Decoded({0x99, 0xB9, 0xF6, 0xFF, 0x9A, 0xBA, 0xBB}), "Zz09({");
  // "Straße, Höhle! ÄÖÜäü" with both blanks and the comma.
  EXPECT_EQ(Decoded({0x92, 0xB3, 0xB1, 0xA0, 0xBE, 0xA4, 0xF4, 0x7F, 0x87, 0xC4, 0xA7, 0xAB, 0xA4,
                     0xE7, 0x1F, 0xC0, 0xC1, 0xC2, 0xC3, 0xC5}),
            "Stra\xC3\x9F" "e, H\xC3\xB6hle! \xC3\x84\xC3\x96\xC3\x9C\xC3\xA4\xC3\xBC");
  EXPECT_EQ(Decoded({0x54, 0xE1, 0xE2, 0xEF, 0xF5, 0xD0, 0xD1, 0xD2, 0xD3, 0xD4, 0xD5, 0xD6, 0xE0}),
            "FUX\xC3\xA9QXZR(m)(f)'d'l'm'r's't'v'");
  EXPECT_EQ(Decoded({0x9B, 0x9C, 0x9D, 0x9E, 0x9F, 0xE3, 0xE6, 0xE8, 0xE9, 0xF0, 0xF1, 0xF2, 0xF3}),
            "):;[]-?.&$*./");
  // Bytes without an entry add nothing.
  EXPECT_EQ(Decoded({0x00, 0x1E, 0x20, 0x4F, 0x51, 0x7E, 0xBC, 0xBF, 0xC6, 0xCF, 0xD7, 0xDF, 0xE4,
                     0xEA, 0xEE}),
            "");
}

TEST(GameTextTableTest, ReadStringStopsAtTheTerminatorOrTheEndOfTheFile) {
  test::TempDir dir;
  test::WriteFileBytes(dir.File("n.bin"), {0x87, 0xA0, 0xA5, 0xA4, 0x50, 0x92, 0xA4, 0xA4});
  const GameTextTable table;
  RomFile file = RomFile::OpenForRead(dir.File("n.bin"));
  EXPECT_EQ(table.ReadString(file), "Hafe");
  EXPECT_EQ(file.Position(), 5);
  EXPECT_EQ(table.ReadString(file), "See");
  EXPECT_EQ(table.ReadString(file), "");
  RomFile dead = RomFile::OpenForRead(dir.path().string());  // a directory cannot be opened
  EXPECT_EQ(table.ReadString(dead), "");
}

}  // namespace
}  // namespace kartova
