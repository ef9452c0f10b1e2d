#include <gtest/gtest.h>

#include "support/ByteImage.h"
#include "gfx/ExtendedMap.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

using test::ByteImage;
using test::TempDir;
using Bytes = std::vector<std::uint8_t>;

constexpr std::int64_t kOwnBlocks = 0x31 * 0x4000;  // the map's rows: bank 0x31, pointer 0x4000

std::uint8_t V(int n, int x, int y) { return static_cast<std::uint8_t>(n * 50 + y * 12 + x); }

// Neighbour n as the game finds it: bank table entry, primary header (stride 9), secondary
// header in bank 0x26, blocks V(n, x, y) in bank 0x30. Returns the pointer of its block data.
std::uint16_t Neighbour(ByteImage& rom, int n, int bank, int map, int width, int height) {
  const int group = 0x4200 + bank * 0x40, secondary = 0x4000 + bank * 0x100 + map * 0x10;
  rom.Word(0x940ED + (bank - 1) * 2, static_cast<std::uint16_t>(group));
  rom.Put(0x90000 + group + (map - 1) * 9, {0x26, 0, 0})
      .Word(0x90000 + group + (map - 1) * 9 + 3, static_cast<std::uint16_t>(secondary));
  rom.Put(0x26 * 0x4000 + (secondary & 0x3FFF), {0, 0, 0, 0x30});
  for (int i = 0; i < width * height; ++i)
    rom.Put(0x30 * 0x4000 + 0x400 * n + i, {V(n, i % width, i / width)});
  return static_cast<std::uint16_t>(0x4000 + 0x400 * n);
}

Bytes Record(int bank, int map, int src, int dst, int length, int width) {
  Bytes r(12, 0);
  const int v[] = {bank, map, src, src >> 8, dst, dst >> 8, length, width};
  for (int i = 0; i < 8; ++i) r[i] = static_cast<std::uint8_t>(v[i]);
  return r;
}

// Builds the grid of a w × h map with border block 1 and the given connection records.
void BuildInto(ExtendedMap& grid, const ByteImage& rom, int w, int h, std::uint8_t flags,
               std::vector<Bytes> records) {
  std::array<std::uint8_t, 60> s{
      1, static_cast<std::uint8_t>(h), static_cast<std::uint8_t>(w), 0x31, 0x00, 0x40};
  s[11] = flags;
  for (std::size_t k = 0; k < records.size(); ++k)
    std::copy(records[k].begin(), records[k].end(), s.begin() + 12 + 12 * k);
  TempDir dir;
  RomFile file = RomFile::OpenForRead(rom.Save(dir));
  BuildExtendedMap(file, s, 9, grid);
}

TEST(ExtendedMapTest, CopiesTheStripsOfAllFourNeighbours) {
  ByteImage rom(0xC8000);
  const int north = Neighbour(rom, 1, 2, 3, 12, 6);
  const int south = Neighbour(rom, 2, 2, 1, 4, 1);
  // The south neighbour is 4 wide, the strip 6 long: each row moves on by (4 - 6) AND 255.
  for (int i = 0; i < 18; ++i)
    rom.Put(0x30 * 0x4000 + 0x800 + i / 6 * 260 + i % 6, {V(2, i % 6, i / 6)});
  const int west = Neighbour(rom, 3, 5, 1, 7, 9);
  const int east = Neighbour(rom, 4, 26, 2, 5, 4);
  // A 10 × 4 map: 16 cells a row in the working copy from 0xC700.
  ExtendedMap grid;
  BuildInto(grid, rom, 10, 4, 0x0F,
      {Record(2, 3, north + 3 * 12, 0xC703, 10, 12), Record(2, 1, south, 0xC700 + 7 * 16 + 5, 6, 4),
       Record(5, 1, west + 2 * 7 + 4, 0xC730, 4, 7), Record(26, 2, east, 0xC73D, 4, 5)});
  for (int i = 0; i < 30; ++i) EXPECT_EQ(grid.At(3 + i % 10, i / 10), V(1, i % 10, 3 + i / 10));
  for (int i = 0; i < 18; ++i) EXPECT_EQ(grid.At(5 + i % 6, 7 + i / 6), V(2, i % 6, i / 6));
  for (int i = 0; i < 12; ++i) EXPECT_EQ(grid.At(i % 3, 3 + i / 3), V(3, 4 + i % 3, 2 + i / 3));
  for (int i = 0; i < 12; ++i) EXPECT_EQ(grid.At(13 + i % 3, 3 + i / 3), V(4, i % 3, i / 3));
  EXPECT_EQ(grid.At(2, 0), 1);
  EXPECT_EQ(grid.Connection(kDirectionNorth).rect, (ConnectionRect{3, 0, 12, 2}));
  EXPECT_EQ(grid.Connection(kDirectionSouth).rect, (ConnectionRect{5, 7, 10, 9}));
  EXPECT_EQ(grid.Connection(kDirectionWest).rect, (ConnectionRect{0, 3, 2, 6}));
  EXPECT_EQ(grid.Connection(kDirectionEast).rect, (ConnectionRect{13, 3, 15, 6}));
  EXPECT_EQ(grid.Connection(kDirectionEast).bank, 26);
  EXPECT_EQ(grid.Connection(kDirectionEast).map, 2);
  EXPECT_EQ(grid.ConnectionItems(),
            (std::vector<std::string>{"1 (Oben)", "2 (Unten)", "3 (Links)", "4 (Rechts)"}));
}

TEST(ExtendedMapTest, ADestinationOutsideTheGridRaisesTheSubscriptErrorAndKeepsWhatWasFilled) {
  ByteImage rom(0xC8000);
  rom.Put(kOwnBlocks, {0x55});
  const int north = Neighbour(rom, 1, 2, 3, 12, 6);
  // West strips starting left of the grid, running off its right edge, running off its bottom.
  for (int bad : {0xC6FF, 0xC700 + 3 * 16 + 14, 0xC700 + 8 * 16}) {
    ExtendedMap grid;
    try {
      BuildInto(grid, rom, 10, 4, 0x0A,
                {Record(2, 3, north, 0xC703, 10, 12), Record(2, 3, north, bad, 4, 12)});
      ADD_FAILURE() << bad;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), RuntimeError::kSubscriptOutOfRange);
    }
    EXPECT_EQ(grid.At(3, 0), V(1, 0, 0));
    EXPECT_EQ(grid.At(3, 3), 0x55);
  }
}

TEST(ExtendedMapTest, PacksRecordsOfSetFlagsAndReadsWildOnesWhereverTheyLand) {
  ByteImage rom(kOwnBlocks);
  const int south = Neighbour(rom, 2, 4, 1, 10, 3);
  rom.Put(kOwnBlocks, Bytes(255 * 100, 7));  // the file ends after map row 99
  ExtendedMap grid;
  BuildInto(grid, rom, 255, 255, 0x05,
                           {Record(4, 1, south, 0xC700 + 50 * 261 + 3, 10, 10),
                            Record(27, 0, 0xFFFF, 0xC700 + 258, 255, 0)});
  EXPECT_EQ(grid.Width(), 261);
  EXPECT_EQ(grid.At(3, 50), V(2, 0, 0));
  EXPECT_EQ(grid.At(102, 102), 7);
  EXPECT_EQ(grid.At(3, 103), 1);  // past the end of the file the border stays
  EXPECT_EQ(grid.Connection(kDirectionEast).rect, (ConnectionRect{258, 0, 260, 254}));
  EXPECT_EQ(grid.Connection(kDirectionWest).rect, ConnectionRect{});
  EXPECT_EQ(grid.ConnectionItems(), (std::vector<std::string>{"1 (Unten)", "2 (Rechts)"}));
}

}  // namespace
}  // namespace kartova
