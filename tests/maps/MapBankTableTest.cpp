#include <gtest/gtest.h>

#include "maps/MapBankTable.h"
#include "maps/MapTestImages.h"
#include "rom/RomFile.h"

namespace kartova {
namespace {

using test::HandImage;

constexpr std::uint16_t kList = 0x4200;

int Count(const HandImage& image, int bank, int header_length = 9) {
  test::TempDir dir;
  RomFile rom = RomFile::OpenForRead(image.Write(dir));
  return CountMapsInBank(rom, ReadMapGroupTable(rom), bank, header_length);
}

TEST(CountMapsInBankTest, EachCheckedFieldEndsTheWalkJustPastItsLimit) {
  struct Case {
    int offset, passing, failing;
  } cases[] = {{1, 0x28, 0x29}, {4, 0x40, 0x3F}, {4, 0x7F, 0x80}, {5, 0x5E, 0x5F}, {8, 0x0D, 0x0E}};
  for (const Case& c : cases) {
    for (bool pass : {true, false}) {
      HandImage image;
      image.AllGroups(kList);
      image.List(kList, 1);
      image.bytes[MapGroupOffset(kList) + c.offset] = static_cast<std::uint8_t>(pass ? c.passing : c.failing);
      EXPECT_EQ(Count(image, 0), pass ? 1 : 0) << "byte " << c.offset << " pass " << pass;
    }
  }
  // Bytes 0, 2, 6, 7 and the record's tail are not checked; the stride is HeaderLength.
  HandImage image;
  image.AllGroups(kList);
  image.List(kList, 3, 12);
  for (int i = 0; i < 3; ++i)
    for (int k : {0, 2, 6, 7, 9, 10, 11}) image.bytes[MapGroupOffset(kList) + i * 12 + k] = 0xFF;
  EXPECT_EQ(Count(image, 0, 12), 3);
  EXPECT_EQ(Count(image, 0, 9), 1);
}

TEST(CountMapsInBankTest, TheOverlapTestStepsHeaderLengthLessOnePerMap) {
  // Ten valid records; bank 2 starts 40 bytes in. The walk stops at the first n with
  // 40 < 8n (n = 6) and counts five maps; a product of 9n would count four.
  HandImage image;
  image.AllGroups(0x4000);
  image.Group(1, kList);
  image.Group(2, kList + 40);
  image.List(kList, 10);
  EXPECT_EQ(Count(image, 0), 5);
  // Eight maps straight before the next list: 72 < 8n only from n = 10, so the next bank's
  // first map is counted too. Two maps before it: 18 < 8 * 3 stops at the list's start.
  image.Group(2, kList + 72);
  EXPECT_EQ(Count(image, 0), 9);
  EXPECT_EQ(Count(image, 1), 2);
  image.Group(2, kList + 18);
  EXPECT_EQ(Count(image, 0), 2);
  // Equal pointers never stop each other: the other list must start strictly behind.
  image.AllGroups(kList);
  EXPECT_EQ(Count(image, 0), 10);
  EXPECT_EQ(Count(image, 25), 10);
}

TEST(CountMapsInBankTest, WalkEndsAtTheEndOfTheFileAndOverflowsPast255) {
  HandImage cut(static_cast<std::size_t>(MapGroupOffset(kList) + 3 * 9 + 5));
  cut.AllGroups(kList);
  cut.List(kList, 4);  // the fourth record's fishing byte lies past the end and reads 0
  EXPECT_EQ(Count(cut, 0), 4);
  HandImage image;
  image.AllGroups(kList);
  image.List(kList, 255);
  EXPECT_EQ(Count(image, 0), 255);
  image.List(kList, 300);
  try {
    Count(image, 0);
    ADD_FAILURE() << "no overflow";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), RuntimeError::kOverflow);
  }
  EXPECT_THROW(Count(image, 26), RuntimeError);
}

TEST(MapListTest, ALocationAbove94EndsTheListAfterTheMapsBeforeIt) {
  HandImage image;
  image.AllGroups(kList);
  image.List(kList, 4, 10);
  image.bytes[MapGroupOffset(kList) + 10 + 5] = 94;
  image.bytes[MapGroupOffset(kList) + 20 + 5] = 95;
  test::TempDir dir;
  RomFile rom = RomFile::OpenForRead(image.Write(dir));
  LocationNames names;
  names[0] = "Dorf";
  names[94] = "Höhle";
  MapCounts counts{};
  counts[23] = 4;
  MapList list = ReadMapList(rom, ReadMapGroupTable(rom), counts, 23, 10, names);
  EXPECT_EQ(list.entries, (std::vector<std::string>{"Dorf - 24.1", "Höhle - 24.2"}));
  ASSERT_TRUE(list.error);
  EXPECT_EQ(list.error->number(), RuntimeError::kSubscriptOutOfRange);
}

}  // namespace
}  // namespace kartova
