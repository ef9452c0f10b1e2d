#include <gtest/gtest.h>

#include <numeric>

#include "demo/GameTextEncoder.h"
#include "demo/RomBuilder.h"
#include "demo/RomReading.h"
#include "gfx/GraphicsDecompressor.h"
#include "maps/RomDocument.h"
#include "rom/GameTextTable.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::Byte;
using test::Bytes;
using test::Word;

std::vector<std::uint8_t> Counting(int n) {
  std::vector<std::uint8_t> v(static_cast<std::size_t>(n));
  std::iota(v.begin(), v.end(), std::uint8_t{0});
  return v;
}

// Opens the image with the editor's document, the definition giving `header_length`.
RomDocument Opened(const std::vector<std::uint8_t>& rom, const test::TempDir& dir, int header_length = 9) {
  test::WriteFileBytes(dir.File("rom.gbc"), rom);
  test::MemorySettings settings;
  settings.Set("Settings", "HeaderLengthA", std::to_string(header_length));
  RomDocument doc;
  doc.OpenRom(dir.File("rom.gbc"), settings);
  return doc;
}

class HeaderListTest : public ::testing::TestWithParam<int> {};

TEST_P(HeaderListTest, EveryBankCountsExactlyItsDeclaredMaps) {
  const int length = GetParam();
  RomBuilder builder;
  builder.HeaderLength(length);
  MapCounts declared{};
  // Bank 1 is long enough that its list cannot sit before the group table; the short ones can.
  const std::pair<int, int> banks[] = {{1, 30}, {2, 1}, {5, 3}, {26, 2}};
  for (auto [bank, n] : banks) {
    for (int i = 0; i < n; ++i) {
      builder.Map(bank, {.tileset = 0x28, .ability = 3, .location = static_cast<std::uint8_t>(i),
                         .music = 7, .lighting = 2, .fishing = 0x0D,
                         .extra_header_bytes = std::vector<std::uint8_t>(length - 9, 0xAB),
                         .width = 2, .height = 2});
    }
    declared[static_cast<std::size_t>(bank - 1)] = static_cast<std::uint8_t>(n);
  }
  const auto rom = builder.Build();
  test::TempDir dir;
  EXPECT_EQ(Opened(rom, dir, length).MapCountPerBank(), declared);

  const std::int64_t header = test::PrimaryHeaderAt(rom, 5, 3, length);
  EXPECT_EQ(header / kBankSize, 0x25);
  std::vector<std::uint8_t> fields = {0x28, 3, 0, 0, 2, 7, 2, 0x0D};
  fields.resize(static_cast<std::size_t>(length - 1), 0xAB);
  fields[2] = static_cast<std::uint8_t>(Byte(rom, header + 3));  // the secondary header pointer
  fields[3] = static_cast<std::uint8_t>(Byte(rom, header + 4));
  EXPECT_EQ(Bytes(rom, header + 1, length - 1), fields);
  EXPECT_TRUE(Word(rom, header + 3) >= 0x4000 && Word(rom, header + 3) <= 0x7FFF);
}

INSTANTIATE_TEST_SUITE_P(Lengths, HeaderListTest, ::testing::Values(9, 12, 30));

TEST(RomBuilderTest, SecondaryHeaderLeadsToBlocksScriptsAndEvents) {
  const auto rom =
      RomBuilder()
          .Map(3, {.border = 0x0A, .width = 5, .height = 3, .blocks = Counting(15),
                   .enter_scripts = {{.script = 0x5234, .res1 = 1, .res2 = 2}},
                   .time_scripts = {{.condition = 9, .script = 0x6001}, {.condition = 8}},
                   .warps = {{.y = 7, .x = 4, .target_warp = 2, .target_bank = 3, .target_map = 1}},
                   .triggers = {{.status = 1, .y = 2, .x = 3, .res1 = 4, .script = 0x4567,
                                 .res2 = 5, .res3 = 6}},
                   .signposts = {{.y = 1, .x = 2, .type = 3, .script = 0x4ABC}},
                   .people = {{.picture = 0x21, .y = 5, .x = 6, .facing = 1, .movement = 2,
                               .time_dependence = 3, .time_range = 4, .function = 5,
                               .sight_range = 6, .script = 0x4321, .visibility = 0x00FF}},
                   .script_bank = 0x40})
          .Build();
  const std::int64_t secondary = test::SecondaryHeaderAt(rom, test::PrimaryHeaderAt(rom, 3, 1));
  EXPECT_EQ(Bytes(rom, secondary, 3), (std::vector<std::uint8_t>{0x0A, 3, 5}));
  EXPECT_EQ(Bytes(rom, test::BlocksAt(rom, secondary), 15), Counting(15));
  EXPECT_EQ(Byte(rom, secondary + 11), 0);

  EXPECT_EQ(Byte(rom, secondary + 6), 0x40);
  const std::int64_t scripts = test::ScriptHeaderAt(rom, secondary);
  EXPECT_EQ(Bytes(rom, scripts, 12),
            (std::vector<std::uint8_t>{1, 0x34, 0x52, 1, 2, 2, 9, 0x01, 0x60, 8, 0x00, 0x40}));
  const std::int64_t events = test::EventHeaderAt(rom, secondary) + 2;
  const std::vector<std::uint8_t> expected = {
      1, 7, 4, 2, 3, 1,                                     // warps
      1, 1, 2, 3, 4, 0x67, 0x45, 5, 6,                      // triggers
      1, 1, 2, 3, 0xBC, 0x4A,                               // signposts
      1, 0x21, 9, 10, 1, 2, 3, 4, 5, 6, 0x21, 0x43, 0xFF, 0x00};  // people, stored + 4
  EXPECT_EQ(Bytes(rom, events, static_cast<std::int64_t>(expected.size())), expected);
}

// The neighbours number their blocks, so that a strip cell shows where it was taken from.
TEST(RomBuilderTest, ConnectionsArePackedInSlotOrderAndTheirStripsLineUp) {
  auto neighbour = [](std::uint8_t w, std::uint8_t h) { return MapDecl{.width = w, .height = h, .blocks = Counting(w * h)}; };
  RomBuilder builder;
  builder.Map(1, neighbour(10, 8))   // 1.1 north, shifted left past the working copy
      .Map(1, neighbour(16, 5))      // 1.2 south, wider than the map
      .Map(1, neighbour(4, 12))      // 1.3 west, shifted down
      .Map(1, neighbour(6, 4))       // 1.4 east, shorter than the map
      .Map(2, {.width = 6, .height = 5,
               .connections = {{.direction = Direction::kEast, .target = {1, 4}, .offset = 1},
                               {.direction = Direction::kNorth, .target = {1, 1}, .offset = -5},
                               {.direction = Direction::kWest, .target = {1, 3}, .offset = -2},
                               {.direction = Direction::kSouth, .target = {1, 2}, .offset = -4}}});
  const auto rom = builder.Build();
  const std::int64_t secondary = test::SecondaryHeaderAt(rom, test::PrimaryHeaderAt(rom, 2, 1));
  EXPECT_EQ(Byte(rom, secondary + 11), 0x0F);

  // The editor's own map load: each strip fills the whole of the 12 x 11 working copy's border
  // it can reach, and its middle and far corner (which no later strip covers) show the
  // neighbour's block there.
  test::TempDir dir;
  RomDocument doc = Opened(rom, dir);
  doc.LoadSelectedMap(1, 0);
  struct Expect {
    int width, height, offset;
    ConnectionRect rect;
  };
  const Expect slots[] = {{10, 8, -5, {0, 0, 7, 2}},  {16, 5, -4, {0, 8, 11, 10}},
                          {4, 12, -2, {0, 1, 2, 10}}, {6, 4, 1, {9, 4, 11, 7}}};
  for (int d = 0; d < 4; ++d) {
    SCOPED_TRACE(d);
    const Expect& e = slots[d];
    const ConnectionRect rect = doc.Grid().Connection(d).rect;
    EXPECT_EQ(rect, e.rect);
    EXPECT_EQ(Bytes(rom, secondary + 12 + 12 * d, 2), (std::vector<std::uint8_t>{1, std::uint8_t(d + 1)}));
    EXPECT_EQ(Byte(rom, secondary + 12 + 12 * d + 7), e.width);
    for (auto [column, row] : {std::pair{(rect.x1 + rect.x2) / 2, (rect.y1 + rect.y2) / 2}, {rect.x2, rect.y2}}) {
      // Working copy (column, row) -> map (column - 3, row - 3) -> neighbour cell.
      const int nx = column - 3 + (d < 2 ? -e.offset : d == 2 ? e.width : -6);
      const int ny = row - 3 + (d >= 2 ? -e.offset : d == 0 ? e.height : -5);
      EXPECT_EQ(doc.Grid().At(column, row), ny * e.width + nx) << column << "," << row;
    }
  }
}

TEST(RomBuilderTest, RawConnectionsAndFlagOverridesAreWrittenAsGiven) {
  const std::array<std::uint8_t, 12> raw = {9, 9, 0, 0x80, 0xFF, 0xFF, 200, 1, 2, 3, 4, 5};
  const auto rom = RomBuilder()
                       .Map(1, {.connections = {{.direction = Direction::kWest, .raw = raw}}, .connection_flags = 0x0F})
                       .Build();
  const std::int64_t secondary = test::SecondaryHeaderAt(rom, test::PrimaryHeaderAt(rom, 1, 1));
  EXPECT_EQ(Bytes(rom, secondary + 11, 13), (std::vector<std::uint8_t>{0x0F, 9, 9, 0, 0x80, 0xFF, 0xFF, 200, 1, 2, 3, 4, 5}));
}

TEST(RomBuilderTest, TilesetsAreFoundThroughTilesetBase) {
  std::vector<std::uint8_t> graphics(224 * 16);
  for (std::size_t i = 0; i < graphics.size(); ++i) graphics[i] = static_cast<std::uint8_t>(i * 7 / 5);
  TilesetDecl first{.graphics = graphics, .blocks = Counting(40), .special_palette_set = 2};
  SetTilePalette(first.palette_map, 0x00, 3);
  SetTilePalette(first.palette_map, 0x5F, 5);
  SetTilePalette(first.palette_map, 0x80, 7);
  SetTilePalette(first.palette_map, 0xFF, 1);
  for (std::int64_t base : {std::int64_t{0x2DFA}, std::int64_t{0x3100}}) {
    SCOPED_TRACE(base);
    const auto rom = RomBuilder()
                         .TilesetBase(base)
                         .Tileset(2, first)
                         .Tileset(4, {.compressed_graphics = std::vector<std::uint8_t>{0xFF}})
                         .Map(1, {.tileset = 6, .width = 1, .height = 1})
                         .Build();
    const std::int64_t record = test::TilesetRecordAt(rom, 2, base);
    GraphicsBuffer buffer{};
    const std::int64_t graphics_at = Byte(rom, record) * 0x4000 + (Word(rom, record + 1) & 0x3FFF);
    EXPECT_EQ(DecompressGraphics(std::span(rom).subspan(graphics_at), buffer),
              static_cast<std::int64_t>(graphics.size()));
    EXPECT_TRUE(std::equal(graphics.begin(), graphics.end(), buffer.begin()));

    const std::int64_t blocks = BankPointerToOffset(Byte(rom, record + 3), Word(rom, record + 4));
    EXPECT_EQ(Bytes(rom, blocks, 40), Counting(40));
    EXPECT_EQ(Bytes(rom, blocks + 40, 4056), std::vector<std::uint8_t>(4056, 0));
    EXPECT_EQ(Byte(rom, record + 12), 2);

    const std::int64_t palette_map =
        BankPointerToOffset(Byte(rom, kPaletteMapBankOffset), Word(rom, record + 13));
    for (auto [at, value] : {std::pair{0, 0x03}, {47, 0x50}, {64, 0x07}, {127, 0x10}})
      EXPECT_EQ(Byte(rom, palette_map + at), value) << at;

    // Numbers without a tileset of their own, up to the highest a map uses, repeat the lowest.
    for (int n : {0, 1, 3, 5, 6})
      EXPECT_EQ(Bytes(rom, test::TilesetRecordAt(rom, n, base), 15), Bytes(rom, record, 15)) << n;
    const std::int64_t empty = test::TilesetRecordAt(rom, 4, base);
    EXPECT_EQ(Byte(rom, Byte(rom, empty) * 0x4000 + (Word(rom, empty + 1) & 0x3FFF)), 0xFF);
  }
}

TEST(RomBuilderTest, PalettesLieAtTheirFixedPlaces) {
  PaletteSet lighting{};
  for (int i = 0; i < 8; ++i) lighting[static_cast<std::size_t>(i)] = {std::uint16_t(i), 1, 2, 0x7FFF};
  std::array<PaletteNumbers, 8> table{};
  for (int t = 0; t < 8; ++t) table[static_cast<std::size_t>(t)] = {std::uint8_t(t), 1, 2, 3, 4, 5, 6, 0xFF};
  const auto rom = RomBuilder()
                       .Palette(3, {0x1111, 0x2222, 0x3333, 0x4444})
                       .Palette(255, {1, 2, 3, 4})
                       .LightingTable(5, table)
                       .MapBankColours(7, {0xAAAA, 0xBBBB}, {0xCCCC, 0xDDDD})
                       .SpecialPaletteSet(1, {lighting, lighting, lighting})
                       .SpecialPaletteSet(2, std::vector<PaletteSet>(8, lighting))
                       .Build();
  EXPECT_EQ(Word(rom, 0xB75E + 3 * 8 + 6), 0x4444);
  EXPECT_EQ(Word(rom, 0xB75E + 255 * 8), 1);
  const int q = Word(rom, 0xB6CE + 5 * 2), other = Word(rom, 0xB6CE + 2);
  for (int t = 0; t < 8; ++t) {
    EXPECT_EQ(Bytes(rom, (q & 0x3FFF) + 0x8000 + t * 8, 8), std::vector<std::uint8_t>(table[t].begin(), table[t].end()));
    EXPECT_EQ(Bytes(rom, (other & 0x3FFF) + 0x8000 + t * 8, 8), Counting(8));  // undeclared: 0..7
  }
  EXPECT_EQ(Bytes(rom, 0xB9AE + 7 * 8 + 2, 4), (std::vector<std::uint8_t>{0xBB, 0xBB, 0xCC, 0xCC}));
  // Set 1 lighting 4 palette 5 lies in set 2; the last set is written through lighting 7.
  EXPECT_EQ(Word(rom, 0x150043 + 0 * 192 + 4 * 64 + 5 * 8), 5);
  EXPECT_EQ(Word(rom, 0x150043 + 1 * 192 + 7 * 64 + 7 * 8 + 6), 0x7FFF);
}

TEST(RomBuilderTest, LocationNamesDecodeThroughTheGameTextTable) {
  const auto built = RomBuilder()
                         .MapNameTable(0x92384)
                         .LocationName(17, "NORD HAFEN-STADT")
                         .LocationName(94, "WEG 12, ÄÖÜäöüß ()[]:;'?!.&$*/")
                         .BuildWithLayout();
  const GameTextTable table;
  auto name = [&](int i) {
    const int pointer = Word(built.bytes, 0x92384 + 4 * i);
    const std::int64_t at = SameBankOffset(0x92384, pointer);
    EXPECT_EQ(at, built.layout.names[static_cast<std::size_t>(i)]);
    return table.Decode(built.bytes.data() + at, built.bytes.size() - static_cast<std::size_t>(at));
  };
  EXPECT_EQ(name(17), "NORD HAFEN-STADT");
  EXPECT_EQ(name(94), "WEG 12, ÄÖÜäöüß ()[]:;'?!.&$*/");
  EXPECT_EQ(name(50), "");
  EXPECT_EQ(EncodeGameText("a-z 09"),
            (std::vector<std::uint8_t>{0xA0, 0xE3, 0xB9, 0x7F, 0xF6, 0xFF}));
  EXPECT_THROW(EncodeGameText("é"), RomBuildError);
  EXPECT_THROW(EncodeGameText("#"), RomBuildError);
}

TEST(RomBuilderTest, TitleCartridgeHeaderSizeAndPatches) {
  const auto rom = RomBuilder()
                       .Title("KARTOVA DEMO")
                       .ImageSize(0x400000)
                       .ReplacementTiles(0x25, std::vector<std::uint8_t>(336, 0x5A))
                       .Data(0x3F0000, {1, 2, 3})
                       .Patch(0x940ED, {0xEE, 0xEE})
                       .Build();
  ASSERT_EQ(rom.size(), 0x400000u);
  EXPECT_EQ(std::string(rom.begin() + 0x134, rom.begin() + 0x140), "KARTOVA DEMO");
  EXPECT_EQ(Byte(rom, 0x140), 0);
  EXPECT_EQ(Byte(rom, 0x148), 7);  // 4 MiB
  EXPECT_EQ(Bytes(rom, 0x208817 + 0x25 * 336, 336), std::vector<std::uint8_t>(336, 0x5A));
  EXPECT_EQ(Bytes(rom, 0x3F0000, 3), (std::vector<std::uint8_t>{1, 2, 3}));
  EXPECT_EQ(Word(rom, 0x940ED), 0xEEEE);
}

TEST(RomBuilderTest, WhatCannotBeLaidOutThrows) {
  auto fails = [](RomBuilder b) { EXPECT_THROW(b.Build(), RomBuildError); };
  fails(RomBuilder().Data(0x94100, {1}));                               // on the group table
  fails(RomBuilder().Data(0x8000, {1, 2}).Data(0x8001, {3}));           // two data at one place
  fails(RomBuilder().Map(1, {.tileset = 0x29}));                        // would not be counted
  fails(RomBuilder().Map(1, {.location = 0x5F}));
  fails(RomBuilder().Map(1, {.fishing = 0x0E}));
  fails(RomBuilder().Map(1, {.extra_header_bytes = {1}}));              // header length 9
  fails(RomBuilder().Map(1, {.width = 3, .height = 3, .blocks = {1, 2}}));
  fails(RomBuilder().Map(1, {.width = 200, .height = 100, .block_bank = 0x30}));
  fails(RomBuilder()
            .Map(1, {.width = 100, .height = 100, .block_bank = 0x30})
            .Map(1, {.width = 100, .height = 100, .block_bank = 0x30}));
  fails(RomBuilder().Map(1, {.connections = {{.target = {2, 1}}}}));   // undeclared neighbour
  fails(RomBuilder()
            .Map(1, {.width = 4, .height = 4})
            .Map(1, {.width = 4, .height = 4,
                     .connections = {{.direction = Direction::kNorth, .target = {1, 1},
                                      .offset = 20}}}));  // the maps do not meet
  fails(RomBuilder()
            .Map(1, {.width = 4, .height = 2})
            .Map(1, {.width = 4, .height = 4,
                     .connections = {{.direction = Direction::kSouth, .target = {1, 1}}}}));
  fails(RomBuilder().Map(1, {.connections = {{.direction = Direction::kWest, .raw = std::array<std::uint8_t, 12>{}},
                                             {.direction = Direction::kWest, .raw = std::array<std::uint8_t, 12>{}}}}));
  fails(RomBuilder().ReplacementTiles(0, std::vector<std::uint8_t>(336)));  // 2 MiB image
  fails(RomBuilder().Palette(80, {}).MapBankColours(6, {}, {}));
  fails(RomBuilder().SpecialPaletteSet(1, std::vector<PaletteSet>(4)).SpecialPaletteSet(2, {PaletteSet{}}));
  fails(RomBuilder().Patch(0x1FFFFF, {1, 2}));
  fails(RomBuilder().ImageSize(0x800000).Map(1, {.script_bank = 0x100}));  // no bank byte for it
  EXPECT_THROW(RomBuilder().Title("SEVENTEEN LETTERS"), RomBuildError);
  EXPECT_THROW(RomBuilder().HeaderLength(31), RomBuildError);
  EXPECT_THROW(RomBuilder().ImageSize(0x100000), RomBuildError);
  EXPECT_THROW(RomBuilder().Map(27, {}), RomBuildError);
}

}  // namespace
}  // namespace kartova
