#include "rom/RomDefinition.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "demo/RomBuilder.h"
#include "rom/RuntimeError.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

const std::string kAb = "4142" + std::string(28, '0');  // title "AB", 14 zero bytes

int RuntimeErrorOf(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

class RomDefinitionTest : public ::testing::Test {
 protected:
  RomDefinitionTest() { test::WriteFileBytes(rom_, RomBuilder().Title("AB").Build()); }
  RomDefinition Read() { return ReadRomDefinition(rom_, settings_); }
  std::vector<std::string> List() { return ReadNameList(settings_, kAb, "TimeNames"); }

  test::TempDir dir_;
  std::string rom_ = dir_.File("ab.gbc");
  test::MemorySettings settings_;
};

TEST_F(RomDefinitionTest, ValuesComeFromTheTitleSectionThenSettingsThenDefaults) {
  RomDefinition def = Read();
  EXPECT_EQ(def.section, kAb);
  EXPECT_EQ(def.map_name_table, 0x92384);
  EXPECT_EQ(def.tileset_base, 0x2DFA);

  settings_.Set(kAb, "MapNameTable", "1234");
  settings_.Set(kAb, "TilesetBase", "");  // empty counts as absent
  settings_.Set("Settings", "HeaderLengthA", "12.5 bytes");  // rounds half to even
  settings_.Set("Settings", "MapNameTable", "9999");
  settings_.Set("Settings", "TilesetBase", "FFFF");  // four digits are signed 16-bit
  def = Read();
  EXPECT_EQ(def.map_name_table, 0x1234);
  EXPECT_EQ(def.header_length, 12);
  EXPECT_EQ(def.tileset_base, -1);

  settings_.Set(kAb, "TilesetBase", "123456789");
  EXPECT_EQ(RuntimeErrorOf([&] { Read(); }), RuntimeError::kOverflow);
}

TEST_F(RomDefinitionTest, HeaderLengthSetsTheExtraByteNamesAndTheSelector) {
  settings_.Set(kAb, "HeaderLengthA", "12");
  settings_.Set(kAb, "ResName0", "Flags");
  settings_.Set(kAb, "ResName2", "");
  settings_.Set(kAb, "ResName3", "beyond");
  settings_.Set("Settings", "ResName1", "no fallback for names");
  RomDefinition def = Read();
  EXPECT_EQ(def.extra_byte_max, 3);
  EXPECT_TRUE(def.extra_bytes_visible);
  EXPECT_EQ(std::vector(def.extra_header_byte_names.begin(), def.extra_header_byte_names.begin() + 4),
            (std::vector<std::string>{"Flags:", "Res:", ":", "Res:"}));

  settings_.Set(kAb, "HeaderLengthA", "7");  // the selector limit is taken before the clamp
  def = Read();
  EXPECT_EQ(def.extra_byte_max, -2);
  EXPECT_EQ(def.header_length, 9);
  EXPECT_FALSE(def.extra_bytes_visible);

  settings_.Set(kAb, "HeaderLengthA", "30");
  EXPECT_EQ(Read().extra_byte_max, 21);
  settings_.Set(kAb, "HeaderLengthA", "31");
  EXPECT_EQ(RuntimeErrorOf([&] { Read(); }), RuntimeError::kSubscriptOutOfRange);
}

TEST_F(RomDefinitionTest, TitleBytesMissingFromTheFileReadAsZero) {
  std::vector<std::uint8_t> bytes(0x136, 0xFF);
  bytes[0x134] = 0x4B;
  bytes[0x135] = 0x41;
  test::WriteFileBytes(rom_, bytes);
  EXPECT_EQ(Read().section, "4B41" + std::string(28, '0'));

  rom_ = dir_.File("missing.gbc");
  EXPECT_EQ(Read().section, std::string(32, '0'));
  EXPECT_EQ(std::filesystem::file_size(rom_), 0u);  // created empty, as every open does
}

TEST_F(RomDefinitionTest, NameListsAreFoundThroughTheDefinitionOrSettings) {
  settings_.Set(kAb, "TilesetNames", "Tilesets AB");
  settings_.Set("Settings", "TilesetNames", "Tilesets default");
  settings_.Set("Settings", "MusicNames", "Music");
  settings_.Set("Tilesets AB", "count", "2");
  settings_.Set("Tilesets AB", "00", "Cave");
  settings_.Set("Music", "count", "1");
  settings_.Set("Music", "00", "Route 1");
  settings_.Set("?", "count", "1");  // where unnamed lists are looked for
  const RomDefinition def = Read();
  using Items = std::vector<std::string>;
  EXPECT_EQ(def.name_lists[RomDefinition::kTilesetNames], (Items{"00 - Cave", "01 - ?"}));
  EXPECT_EQ(def.name_lists[RomDefinition::kMusicNames], (Items{"00 - Route 1"}));
  EXPECT_EQ(def.name_lists[RomDefinition::kAbilityNames], (Items{"00 - ?"}));
  EXPECT_EQ(def.name_lists[RomDefinition::kTimeNames], (Items{"00 - ?"}));
  EXPECT_TRUE(def.name_lists[RomDefinition::kLocationNames].empty());
}

TEST_F(RomDefinitionTest, ListCountsAreHexAndKeysRepeatAfterFF) {
  settings_.Set("Settings", "TimeNames", "Times");
  settings_.Set("Times", "count", "1A");
  settings_.Set("Times", "0A", "Cave");
  std::vector<std::string> items = List();
  ASSERT_EQ(items.size(), 26u);
  EXPECT_EQ(items[10], "0A - Cave");
  EXPECT_EQ(items[25], "19 - ?");

  // Up to the largest count the 16-bit index allows; each repeating text is read only once.
  settings_.Set("Times", "count", "7FFF");
  const int reads_before = settings_.reads();
  items = List();
  ASSERT_EQ(items.size(), 0x7FFFu);
  EXPECT_EQ(items[0x10A], "0A - Cave");
  EXPECT_LE(settings_.reads() - reads_before, 0x100 + 3);

  for (const char* count : {"", "zz", "0", "FFFF", "-5"}) {
    settings_.Set("Times", "count", count);
    EXPECT_TRUE(List().empty()) << count;
  }
  settings_.Set("Times", "count", "8000");  // -32768 - 1 does not fit the index
  EXPECT_EQ(RuntimeErrorOf([&] { List(); }), RuntimeError::kOverflow);
}

}  // namespace
}  // namespace kartova
