#include <gtest/gtest.h>

#include <map>
#include <set>

#include "demo/DemoRom.h"
#include "demo/RomReading.h"
#include "gfx/GraphicsDecompressor.h"
#include "maps/MapBankTable.h"
#include "rom/GameTextTable.h"
#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::Byte;
using test::Bytes;
using test::Word;

// The demo as the editor finds it: every map reached through the group table and counted
// with the editor's own walk.
struct DemoMap {
  int bank, number;
  std::int64_t primary, secondary;
  int width, height;
};

class DemoRomTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    rom_ = new std::vector<std::uint8_t>(BuildDemoRom());
    test::TempDir dir;
    test::WriteFileBytes(dir.File("demo.gbc"), *rom_);
    RomFile file = RomFile::OpenForRead(dir.File("demo.gbc"));
    const MapGroupPointers groups = ReadMapGroupTable(file);
    maps_ = new std::vector<DemoMap>;
    for (int b = 0; b < kMapBankCount; ++b) {
      counts_[static_cast<std::size_t>(b)] = CountMapsInBank(file, groups, b, 9);
      for (int n = 1; n <= counts_[static_cast<std::size_t>(b)]; ++n) {
        const std::int64_t primary = test::PrimaryHeaderAt(*rom_, b + 1, n);
        const std::int64_t secondary = test::SecondaryHeaderAt(*rom_, primary);
        maps_->push_back({b + 1, n, primary, secondary, Byte(*rom_, secondary + 2),
                          Byte(*rom_, secondary + 1)});
      }
    }
  }
  static void TearDownTestSuite() {
    delete rom_;
    delete maps_;
  }
  static const DemoMap* Find(int bank, int number) {
    for (const DemoMap& m : *maps_) {
      if (m.bank == bank && m.number == number) return &m;
    }
    return nullptr;
  }
  // The event header's counts and records: kind 0 warps (5 bytes) .. 3 people (13 bytes).
  static std::vector<std::vector<std::uint8_t>> Events(const DemoMap& m, int kind) {
    const int sizes[] = {5, 8, 5, 13};
    std::int64_t at = test::EventHeaderAt(*rom_, m.secondary) + 2;
    for (int k = 0;; ++k) {
      const int count = Byte(*rom_, at++);
      std::vector<std::vector<std::uint8_t>> records;
      for (int i = 0; i < count; ++i, at += sizes[k]) records.push_back(Bytes(*rom_, at, sizes[k]));
      if (k == kind) return records;
    }
  }

  static std::vector<std::uint8_t>* rom_;
  static std::vector<DemoMap>* maps_;
  static MapCounts counts_;
};

std::vector<std::uint8_t>* DemoRomTest::rom_ = nullptr;
std::vector<DemoMap>* DemoRomTest::maps_ = nullptr;
MapCounts DemoRomTest::counts_{};

TEST_F(DemoRomTest, HasTownsRoutesInteriorsAndACaveInThreeBanks) {
  const std::vector<std::uint8_t> title(kDemoTitle.begin(), kDemoTitle.end());
  EXPECT_EQ(Bytes(*rom_, 0x134, static_cast<std::int64_t>(title.size())), title);
  MapCounts expected{};
  expected[0] = 6;
  expected[1] = 5;
  expected[2] = 2;
  EXPECT_EQ(counts_, expected);
  int smallest = 1 << 20, largest = 0;
  for (const DemoMap& m : *maps_) {
    smallest = std::min(smallest, m.width * m.height);
    largest = std::max(largest, m.width * m.height);
    EXPECT_GE(m.width, 4);
    EXPECT_LE(m.width, 30);
    EXPECT_GE(m.height, 4);
    EXPECT_LE(m.height, 20);
  }
  EXPECT_EQ(smallest, 4 * 4);
  EXPECT_EQ(largest, 30 * 20);
}

TEST_F(DemoRomTest, EveryMapDrawsWithDecodedTilesOfItsTileset) {
  std::set<int> special_sets;
  for (const DemoMap& m : *maps_) {
    SCOPED_TRACE(testing::Message() << m.bank << "." << m.number);
    const std::int64_t record = test::TilesetRecordAt(*rom_, Byte(*rom_, m.primary + 1));
    const std::int64_t graphics = Byte(*rom_, record) * 0x4000 +
                                  ((Byte(*rom_, record + 2) & 0x3F) * 256 + Byte(*rom_, record + 1));
    GraphicsBuffer buffer{};
    const std::int64_t length = DecompressGraphics(std::span(*rom_).subspan(graphics), buffer);
    ASSERT_GT(length, 0);
    ASSERT_EQ(length % 16, 0);
    const int tiles = static_cast<int>(length / 16);
    const std::int64_t blocks = BankPointerToOffset(Byte(*rom_, record + 3), Word(*rom_, record + 4));
    special_sets.insert(Byte(*rom_, record + 12));

    // Every block the map uses names only sheet tiles the decoder fills.
    const std::int64_t map_blocks = test::BlocksAt(*rom_, m.secondary);
    std::set<int> used(rom_->begin() + map_blocks, rom_->begin() + map_blocks + m.width * m.height);
    used.insert(Byte(*rom_, m.secondary));  // the border
    for (int block : used) {
      for (int t : Bytes(*rom_, blocks + block * 16, 16)) {
        const int data_tile = t < 0x60 ? t : t - 0x80 + 96;
        ASSERT_TRUE(t < 0x60 || t >= 0x80) << "block " << block;
        ASSERT_LT(data_tile, tiles) << "block " << block;
      }
    }
  }
  EXPECT_EQ(special_sets, (std::set<int>{0, 1}));
}

TEST(DemoGraphicsTest, CompressedStreamsAreSmallerThanTheirTiles) {
  const BuiltRom built = DemoRomBuilder().BuildWithLayout();
  ASSERT_EQ(built.layout.tilesets.size(), 3u);
  for (const auto& [number, at] : built.layout.tilesets) {
    SCOPED_TRACE(number);
    GraphicsBuffer buffer{};
    const auto stream = std::span(built.bytes).subspan(static_cast<std::size_t>(at.graphics),
                                                       static_cast<std::size_t>(at.graphics_size));
    const std::int64_t length = DecompressGraphics(stream, buffer);
    EXPECT_EQ(stream.back(), 0xFF);
    EXPECT_EQ(length % 16, 0);
    EXPECT_LT(at.graphics_size, length);
  }
}

TEST_F(DemoRomTest, WarpsLeadBothWays) {
  int warps = 0;
  for (const DemoMap& m : *maps_) {
    for (const auto& w : Events(m, 0)) {
      SCOPED_TRACE(testing::Message() << m.bank << "." << m.number);
      ++warps;
      EXPECT_LT(w[0], 2 * m.height);
      EXPECT_LT(w[1], 2 * m.width);
      const DemoMap* target = Find(w[3], w[4]);
      ASSERT_NE(target, nullptr);
      const auto back = Events(*target, 0);
      ASSERT_GE(w[2], 1);
      ASSERT_LE(w[2], static_cast<int>(back.size()));
      const auto& return_warp = back[static_cast<std::size_t>(w[2] - 1)];
      EXPECT_EQ(return_warp[3], m.bank);
      EXPECT_EQ(return_warp[4], m.number);
    }
  }
  EXPECT_GE(warps, 14);
}

TEST_F(DemoRomTest, EventsLieOnTheirMaps) {
  int people = 0, signs = 0, triggers = 0, scripts = 0;
  for (const DemoMap& m : *maps_) {
    SCOPED_TRACE(testing::Message() << m.bank << "." << m.number);
    for (const auto& t : Events(m, 1)) {
      EXPECT_LT(t[1], 2 * m.height);
      EXPECT_LT(t[2], 2 * m.width);
      ++triggers;
    }
    for (const auto& s : Events(m, 2)) {
      EXPECT_LT(s[0], 2 * m.height);
      EXPECT_LT(s[1], 2 * m.width);
      ++signs;
    }
    for (const auto& p : Events(m, 3)) {
      EXPECT_GE(p[1], 4);
      EXPECT_LT(p[1] - 4, 2 * m.height);
      EXPECT_LT(p[2] - 4, 2 * m.width);
      ++people;
    }
    const std::int64_t header = test::ScriptHeaderAt(*rom_, m.secondary);
    const int enter = Byte(*rom_, header);
    scripts += enter + Byte(*rom_, header + 1 + 4 * enter);
  }
  EXPECT_GT(people, 10);
  EXPECT_GT(signs, 5);
  EXPECT_GT(triggers, 3);
  EXPECT_GT(scripts, 5);
}

TEST_F(DemoRomTest, ConnectionsLineUpWithNeighboursThatConnectBack) {
  int connections = 0;
  for (const DemoMap& m : *maps_) {
    const int flags = Byte(*rom_, m.secondary + 11);
    int slot = 0;
    for (int d = 0; d < 4; ++d) {
      if (!(flags & (0x08 >> d))) continue;
      SCOPED_TRACE(testing::Message() << m.bank << "." << m.number << " direction " << d);
      ++connections;
      std::array<std::uint8_t, 12> record{};
      std::copy_n(rom_->begin() + m.secondary + 12 + 12 * slot++, 12, record.begin());
      const DemoMap* n = Find(record[0], record[1]);
      ASSERT_NE(n, nullptr);
      EXPECT_EQ(record[7], n->width);
      // The strip comes from the neighbour's block data and lands in the working copy.
      const std::int64_t source = BankPointerToOffset(Byte(*rom_, n->secondary + 3),
                                                      record[2] | (record[3] << 8));
      const std::int64_t blocks = test::BlocksAt(*rom_, n->secondary);
      EXPECT_GE(source, blocks);
      EXPECT_LT(source, blocks + n->width * n->height);
      for (const auto& c : test::ReadStrip(*rom_, record, d, m.width)) {
        ASSERT_TRUE(c.column >= 0 && c.column < m.width + 6 && c.row >= 0 && c.row < m.height + 6);
        ASSERT_FALSE(c.column >= 3 && c.column < m.width + 3 && c.row >= 3 && c.row < m.height + 3);
      }
      // The neighbour connects back in the opposite direction.
      const int back_flag = 0x08 >> (d ^ 1);
      ASSERT_TRUE(Byte(*rom_, n->secondary + 11) & back_flag);
    }
  }
  EXPECT_GE(connections, 10);
}

TEST_F(DemoRomTest, LightingsChangeTheColoursAndNamesUseUmlauts) {
  // Outdoor maps use lighting table 0: each of the four lightings has its own colours.
  const int q = Word(*rom_, 0xB6CE);
  std::set<std::vector<std::uint8_t>> grass;
  for (int t = 0; t < 4; ++t) {
    const int palette = Byte(*rom_, (q & 0x3FFF) + 0x8000 + t * 8);
    grass.insert(Bytes(*rom_, 0xB75E + palette * 8, 8));
  }
  EXPECT_EQ(grass.size(), 4u);
  // Palette 6 differs by map bank.
  EXPECT_NE(Bytes(*rom_, 0xB9AE + 1 * 8, 4), Bytes(*rom_, 0xB9AE + 2 * 8, 4));

  const GameTextTable table;
  std::set<std::string> names;
  for (int i = 0; i < 95; ++i) {
    const std::int64_t at = SameBankOffset(0x92384, Word(*rom_, 0x92384 + 4 * i));
    names.insert(table.Decode(rom_->data() + at, rom_->size() - static_cast<std::size_t>(at)));
  }
  for (const char* name : {"MÜHLENTAL", "NORD HAFEN-STADT", "WEIßENSEE", "WEG 12"}) {
    EXPECT_TRUE(names.count(name)) << name;
  }
  for (const DemoMap& m : *maps_) EXPECT_LT(Byte(*rom_, m.primary + 5), 13);
}

TEST(DemoDefinitionTest, NamesTheTitleSectionAndItsLists) {
  const std::string ini = DemoDefinitionIni();
  EXPECT_EQ(DemoDefinitionSection(), "4B4152544F56412044454D4F00000000");
  EXPECT_NE(ini.find("[4B4152544F56412044454D4F00000000]\n"), std::string::npos);
  for (const char* key : {"HeaderLengthA=9", "MapNameTable=92384", "TilesetBase=2DFA",
                          "TilesetNames=", "AbilityNames=", "MusicNames=", "TimeNames=",
                          "count=8\n", "02=Nacht / Höhle"}) {
    EXPECT_NE(ini.find(key), std::string::npos) << key;
  }
}

}  // namespace
}  // namespace kartova
