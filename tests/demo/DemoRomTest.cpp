#include <gtest/gtest.h>

#include <set>

#include "demo/DemoRom.h"
#include "demo/RomReading.h"
#include "gfx/GraphicsDecompressor.h"
#include "maps/RomDocument.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::Byte;
using test::Bytes;
using test::Word;
using Record = std::vector<std::uint8_t>;

struct DemoMap {
  int bank, number;
  std::int64_t primary, secondary;
  int width, height;
};

// The demo as the editor finds it: opened, counted and every map loaded by the editor's own
// document, so a strip that would land outside a grid fails the load.
struct Demo {
  BuiltRom built = DemoRomBuilder().BuildWithLayout();
  const test::Image& rom = built.bytes;
  MapCounts counts{};
  std::vector<DemoMap> maps;

  Demo() {
    test::TempDir dir;
    test::WriteFileBytes(dir.File("demo.gbc"), rom);
    RomDocument doc;
    doc.OpenRom(dir.File("demo.gbc"), test::MemorySettings());
    counts = doc.MapCountPerBank();
    for (int b = 0; b < kMapBankCount; ++b) {
      const MapList list = doc.FillMapList(b);
      EXPECT_EQ(list.entries.size(), counts[static_cast<std::size_t>(b)]);
      EXPECT_FALSE(list.error);
      for (int n = 0; n < counts[static_cast<std::size_t>(b)]; ++n) {
        const MapLayout& at = built.layout.Map(b + 1, n + 1);
        EXPECT_TRUE(doc.LoadSelectedMap(b, n).headers_read);
        EXPECT_EQ(doc.HeaderOffset(b, n), at.primary_header);
        EXPECT_TRUE(std::equal(doc.Primary().bytes.begin(), doc.Primary().bytes.end(), rom.begin() + at.primary_header));
        EXPECT_TRUE(std::equal(doc.Secondary().bytes.begin(), doc.Secondary().bytes.end(), rom.begin() + at.secondary_header));
        EXPECT_EQ(doc.Secondary().BlockDataFileOffset(), at.blocks);
        maps.push_back({b + 1, n + 1, at.primary_header, at.secondary_header, doc.MapWidth(), doc.MapHeight()});
        for (int d = 0; d < kDirectionCount; ++d) {
          // Strips lie in the border ring, never over the map itself.
          const ConnectionRect r = doc.Grid().Connection(d).rect;
          for (int y = r.y1; y <= r.y2; ++y)
            for (int x = r.x1; x <= r.x2; ++x)
              EXPECT_FALSE(x >= 3 && x < doc.MapWidth() + 3 && y >= 3 && y < doc.MapHeight() + 3);
        }
      }
    }
  }
  const DemoMap* Find(int bank, int number) const {
    for (const DemoMap& m : maps)
      if (m.bank == bank && m.number == number) return &m;
    return nullptr;
  }
  // The event header's records of one kind: 0 warps (5 bytes) .. 3 people (13 bytes).
  std::vector<Record> Events(const DemoMap& m, int kind) const {
    const int sizes[] = {5, 8, 5, 13};
    std::int64_t at = test::EventHeaderAt(rom, m.secondary) + 2;
    for (int k = 0;; ++k) {
      const int count = Byte(rom, at++);
      std::vector<Record> records;
      for (int i = 0; i < count; ++i, at += sizes[k]) records.push_back(Bytes(rom, at, sizes[k]));
      if (k == kind) return records;
    }
  }
};

const Demo& TheDemo() {
  static const Demo demo;
  return demo;
}

TEST(DemoRomTest, HasTownsRoutesInteriorsAndACaveInThreeBanksWithLightings) {
  const Demo& demo = TheDemo();
  const std::vector<std::uint8_t> title(kDemoTitle.begin(), kDemoTitle.end());
  EXPECT_EQ(Bytes(demo.rom, 0x134, static_cast<std::int64_t>(title.size())), title);
  MapCounts expected{};
  expected[0] = 6;
  expected[1] = 5;
  expected[2] = 2;
  EXPECT_EQ(demo.counts, expected);
  int smallest = 1 << 20, largest = 0;
  for (const DemoMap& m : demo.maps) {
    smallest = std::min(smallest, m.width * m.height);
    largest = std::max(largest, m.width * m.height);
    EXPECT_TRUE(m.width >= 4 && m.width <= 30 && m.height >= 4 && m.height <= 20);
    EXPECT_LT(Byte(demo.rom, m.primary + 5), 13);  // a named location
  }
  EXPECT_EQ(smallest, 4 * 4);
  EXPECT_EQ(largest, 30 * 20);

  // Outdoor maps use lighting table 0: each of the four lightings has its own colours.
  const int q = Word(demo.rom, 0xB6CE);
  std::set<std::vector<std::uint8_t>> grass;
  for (int t = 0; t < 4; ++t)
    grass.insert(Bytes(demo.rom, 0xB75E + Byte(demo.rom, (q & 0x3FFF) + 0x8000 + t * 8) * 8, 8));
  EXPECT_EQ(grass.size(), 4u);
  // Palette 6 differs by map bank.
  EXPECT_NE(Bytes(demo.rom, 0xB9AE + 1 * 8, 4), Bytes(demo.rom, 0xB9AE + 2 * 8, 4));
}

TEST(DemoRomTest, EveryMapDrawsWithDecodedTilesOfItsCompressedTileset) {
  const Demo& demo = TheDemo();
  const auto& rom = demo.rom;
  ASSERT_EQ(demo.built.layout.tilesets.size(), 3u);
  for (const auto& [number, at] : demo.built.layout.tilesets) {
    const auto stream = std::span(rom).subspan(static_cast<std::size_t>(at.graphics),
                                               static_cast<std::size_t>(at.graphics_size));
    GraphicsBuffer buffer{};
    EXPECT_EQ(stream.back(), 0xFF);
    EXPECT_LT(at.graphics_size, DecompressGraphics(stream, buffer)) << number;
  }
  std::set<int> special_sets;
  for (const DemoMap& m : demo.maps) {
    SCOPED_TRACE(testing::Message() << m.bank << "." << m.number);
    const std::int64_t record = test::TilesetRecordAt(rom, Byte(rom, m.primary + 1));
    const std::int64_t graphics = Byte(rom, record) * 0x4000 + (Word(rom, record + 1) & 0x3FFF);
    GraphicsBuffer buffer{};
    const std::int64_t length = DecompressGraphics(std::span(rom).subspan(graphics), buffer);
    ASSERT_GT(length, 0);
    ASSERT_EQ(length % 16, 0);
    const std::int64_t blocks = BankPointerToOffset(Byte(rom, record + 3), Word(rom, record + 4));
    special_sets.insert(Byte(rom, record + 12));

    // Every block the map uses names only sheet tiles the decoder fills.
    const std::int64_t map_blocks = test::BlocksAt(rom, m.secondary);
    std::set<int> used(rom.begin() + map_blocks, rom.begin() + map_blocks + m.width * m.height);
    used.insert(Byte(rom, m.secondary));  // the border
    for (int block : used) {
      for (int t : Bytes(rom, blocks + block * 16, 16)) {
        ASSERT_TRUE(t < 0x60 || t >= 0x80) << "block " << block;
        ASSERT_LT(t < 0x60 ? t : t - 0x80 + 96, length / 16) << "block " << block;
      }
    }
  }
  EXPECT_EQ(special_sets, (std::set<int>{0, 1}));
}

// Every kind of event stands on at least two maps, and every warp leads to a warp that leads
// back: a double click on a warp jumps to its target.
TEST(DemoRomTest, EventsLieOnTheirMapsAndWarpsLeadBothWays) {
  const Demo& demo = TheDemo();
  int counts[4] = {}, maps_with[6] = {};
  for (const DemoMap& m : demo.maps) {
    SCOPED_TRACE(testing::Message() << m.bank << "." << m.number);
    // Position bytes (y, x) of each kind; people are stored 4 further on.
    const int y_at[] = {0, 1, 0, 1}, shift[] = {0, 0, 0, 4};
    for (int kind = 0; kind < 4; ++kind) {
      maps_with[kind] += !demo.Events(m, kind).empty();
      for (const Record& e : demo.Events(m, kind)) {
        ++counts[kind];
        EXPECT_GE(e[y_at[kind]], shift[kind]);
        EXPECT_LT(e[y_at[kind]] - shift[kind], 2 * m.height);
        EXPECT_LT(e[y_at[kind] + 1] - shift[kind], 2 * m.width);
      }
    }
    for (const Record& w : demo.Events(m, 0)) {
      const DemoMap* target = demo.Find(w[3], w[4]);
      ASSERT_NE(target, nullptr);
      const auto back = demo.Events(*target, 0);
      ASSERT_GE(w[2], 1);
      ASSERT_LE(w[2], static_cast<int>(back.size()));
      EXPECT_EQ(back[w[2] - 1u][3], m.bank);
      EXPECT_EQ(back[w[2] - 1u][4], m.number);
    }
    const std::int64_t header = test::ScriptHeaderAt(demo.rom, m.secondary);
    const int enter = Byte(demo.rom, header);
    maps_with[4] += enter > 0;
    maps_with[5] += Byte(demo.rom, header + 1 + 4 * enter) > 0;
  }
  EXPECT_GE(counts[0], 14);
  EXPECT_GT(counts[1], 3);
  EXPECT_GT(counts[2], 5);
  EXPECT_GT(counts[3], 10);
  for (int kind = 0; kind < 6; ++kind) EXPECT_GE(maps_with[kind], 2) << "kind " << kind;
}

TEST(DemoRomTest, ConnectionsComeFromNeighboursThatConnectBack) {
  const Demo& demo = TheDemo();
  int connections = 0;
  for (const DemoMap& m : demo.maps) {
    const int flags = Byte(demo.rom, m.secondary + 11);
    int slot = 0;
    for (int d = 0; d < 4; ++d) {
      if (!(flags & (0x08 >> d))) continue;
      SCOPED_TRACE(testing::Message() << m.bank << "." << m.number << " direction " << d);
      ++connections;
      const Record record = Bytes(demo.rom, m.secondary + 12 + 12 * slot++, 12);
      const DemoMap* n = demo.Find(record[0], record[1]);
      ASSERT_NE(n, nullptr);
      EXPECT_EQ(record[7], n->width);
      const std::int64_t source =
          BankPointerToOffset(Byte(demo.rom, n->secondary + 3), record[2] | (record[3] << 8));
      const std::int64_t blocks = test::BlocksAt(demo.rom, n->secondary);
      EXPECT_GE(source, blocks);
      EXPECT_LT(source, blocks + n->width * n->height);
      EXPECT_TRUE(Byte(demo.rom, n->secondary + 11) & (0x08 >> (d ^ 1)));
    }
  }
  EXPECT_GE(connections, 10);
}

}  // namespace
}  // namespace kartova
