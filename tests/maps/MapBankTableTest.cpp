#include <gtest/gtest.h>

#include "maps/MapBankTable.h"
#include "support/ByteImage.h"
#include "rom/RomFile.h"

namespace kartova {
namespace {

using test::ByteImage;

// Header lists start at 0x4200: pointers 0x40ED-0x4120 would land on the group table itself.
constexpr std::uint16_t kList = 0x4200;

void Group(ByteImage& image, int bank, std::uint16_t pointer) {
  image.Word(kMapGroupTableOffset + (bank - 1) * 2, pointer);
}
// Every bank's list at `pointer`, holding `count` records that pass every check of the
// counting walk (all zero but the secondary header pointer).
ByteImage Lists(std::uint16_t pointer, int count, int stride = 9, std::size_t size = 0x98000) {
  ByteImage image(size);
  for (int b = 1; b <= kMapBankCount; ++b) Group(image, b, pointer);
  for (int i = 0; i < count; ++i) image.Word(MapGroupOffset(pointer) + i * stride + 3, 0x4000);
  return image;
}

int Count(const ByteImage& image, int bank, int header_length = 9) {
  test::TempDir dir;
  RomFile rom = RomFile::OpenForRead(image.Save(dir));
  return CountMapsInBank(rom, ReadMapGroupTable(rom), bank, header_length);
}

TEST(CountMapsInBankTest, EachCheckedFieldEndsTheWalkJustPastItsLimit) {
  struct Case {
    int offset, passing, failing;
  } cases[] = {{1, 0x28, 0x29}, {4, 0x40, 0x3F}, {4, 0x7F, 0x80}, {5, 0x5E, 0x5F}, {8, 0x0D, 0x0E}};
  for (const Case& c : cases) {
    for (bool pass : {true, false}) {
      ByteImage image = Lists(kList, 1);
      image.bytes[MapGroupOffset(kList) + c.offset] = static_cast<std::uint8_t>(pass ? c.passing : c.failing);
      EXPECT_EQ(Count(image, 0), pass ? 1 : 0) << "byte " << c.offset << " pass " << pass;
    }
  }
  // Bytes 0, 2, 6, 7 and the record's tail are not checked; the stride is HeaderLength.
  ByteImage image = Lists(kList, 3, 12);
  for (int i = 0; i < 3; ++i)
    for (int k : {0, 2, 6, 7, 9, 10, 11}) image.bytes[MapGroupOffset(kList) + i * 12 + k] = 0xFF;
  EXPECT_EQ(Count(image, 0, 12), 3);
  EXPECT_EQ(Count(image, 0, 9), 1);
}

TEST(CountMapsInBankTest, TheOverlapTestStepsHeaderLengthLessOnePerMap) {
  // Ten valid records; bank 2 starts 40 bytes in. The walk stops at the first n with
  // 40 < 8n (n = 6) and counts five maps; a product of 9n would count four.
  ByteImage image = Lists(kList, 10);
  for (int b = 3; b <= kMapBankCount; ++b) Group(image, b, 0x4000);
  Group(image, 2, kList + 40);
  EXPECT_EQ(Count(image, 0), 5);
  // Eight maps straight before the next list: 72 < 8n only from n = 10, so the next bank's
  // first map is counted too. Two maps before it: 18 < 8 * 3 stops at the list's start.
  Group(image, 2, kList + 72);
  EXPECT_EQ(Count(image, 0), 9);
  EXPECT_EQ(Count(image, 1), 2);
  Group(image, 2, kList + 18);
  EXPECT_EQ(Count(image, 0), 2);
  // Equal pointers never stop each other: the other list must start strictly behind.
  for (int b = 2; b <= kMapBankCount; ++b) Group(image, b, kList);
  EXPECT_EQ(Count(image, 0), 10);
  EXPECT_EQ(Count(image, 25), 10);
}

TEST(CountMapsInBankTest, WalkEndsAtTheEndOfTheFileAndOverflowsPast255) {
  // The fourth record's fishing byte lies past the end and reads 0.
  EXPECT_EQ(Count(Lists(kList, 4, 9, static_cast<std::size_t>(MapGroupOffset(kList) + 3 * 9 + 5)), 0), 4);
  EXPECT_EQ(Count(Lists(kList, 255), 0), 255);
  const ByteImage image = Lists(kList, 300);
  try {
    Count(image, 0);
    ADD_FAILURE() << "no overflow";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), RuntimeError::kOverflow);
  }
  EXPECT_THROW(Count(image, 26), RuntimeError);
}

TEST(MapListTest, ALocationAbove94EndsTheListAfterTheMapsBeforeIt) {
  ByteImage image = Lists(kList, 4, 10);
  image.bytes[MapGroupOffset(kList) + 10 + 5] = 94;
  image.bytes[MapGroupOffset(kList) + 20 + 5] = 95;
  test::TempDir dir;
  RomFile rom = RomFile::OpenForRead(image.Save(dir));
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
