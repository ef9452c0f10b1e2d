#include <gtest/gtest.h>

#include <filesystem>

#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"
#include "rom/RuntimeError.h"
#include "support/MemorySettings.h"
#include "support/PlainWorld.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

const ColourEntry kRedEntry{0, 0, 255, 0}, kGreenEntry{0, 255, 0, 0}, kBlueEntry{255, 0, 0, 0},
    kWhiteEntry{255, 255, 255, 0};
using test::PlainWorld;

class MapStagesTest : public ::testing::Test {
 protected:
  void Open(const Bytes& bytes) {
    test::WriteFileBytes(path, bytes);
    doc.OpenRom(path, settings);
  }
  // The colour index a block shows (its top-left pixel).
  int BlockColour(int block) const { return doc.Blocks().StripRow(0)[block * 32]; }
  Bytes StripLine(int y) const {
    return Bytes(doc.Blocks().StripRow(y), doc.Blocks().StripRow(y) + BlockSet::kStripWidth);
  }
  Bytes GridCells() const {
    return Bytes(doc.Grid().Row(0), doc.Grid().Row(0) + doc.Grid().Width() * doc.Grid().Height());
  }

  test::TempDir dir;
  std::string path = dir.File("world.gbc");
  test::MemorySettings settings;
  RomDocument doc;
};

TEST_F(MapStagesTest, AFullLoadDecodesTheTilesetComposesBlocksAndBuildsTheGrid) {
  Open(PlainWorld().Build());
  std::vector<MapLoadStep> heard;
  doc.LoadSelectedMap(1, 1, [&](MapLoadStep s) { heard.push_back(s); });
  EXPECT_EQ(heard.back(), MapLoadStep::kMapBuilt);

  EXPECT_EQ(BlockColour(1), 9);
  EXPECT_EQ(BlockColour(2), 22);
  EXPECT_EQ(doc.Blocks().WideStripRow(31)[3 * 64 + 63], 31);  // block 3 in the wide strip
  EXPECT_EQ(doc.Colours().Entry(9), kRedEntry);
  EXPECT_EQ(doc.Colours().Entry(22), kGreenEntry);
  EXPECT_EQ(doc.Colours().Entry(31), kBlueEntry);
  // Palette 6 takes colours 1 and 2 of the map's bank (day colours under Auto, lighting 0).
  EXPECT_EQ(doc.Colours().Entry(25), kRedEntry);

  // 4 x 4 map with border 1 and map 2.1's last three rows as the north strip.
  const ExtendedMap& grid = doc.Grid();
  ASSERT_EQ(grid.Width(), 10);
  ASSERT_EQ(grid.Height(), 10);
  const int cells[][3] = {{0, 0, 1}, {3, 0, 2}, {4, 0, 1}, {5, 0, 0}, {6, 0, 1}, {4, 1, 3}, {5, 2, 0}, {9, 9, 1}};
  for (const auto& [x, y, block] : cells) EXPECT_EQ(grid.At(x, y), block) << x << "," << y;
  EXPECT_EQ(grid.Connection(kDirectionNorth).bank, 2);
  EXPECT_EQ(grid.Connection(kDirectionNorth).map, 1);
  EXPECT_FALSE(grid.Connection(kDirectionSouth).present);
  EXPECT_EQ(grid.ConnectionItems(), std::vector<std::string>{"1 (Oben)"});
}

TEST_F(MapStagesTest, TheScopeDecidesWhatIsReadAgain) {
  const BuiltRom world = PlainWorld().BuildWithLayout();
  Open(world.bytes);
  doc.LoadSelectedMap(1, 0);
  EXPECT_EQ(doc.Grid().At(4, 3), 1);

  // On disk: other colours for palette 2 and another first map block.
  Bytes changed = world.bytes;
  changed[0xB75E + 2 * 8 + 2] = 0xE0;
  changed[0xB75E + 2 * 8 + 3] = 0x03;
  changed[static_cast<std::size_t>(world.layout.Map(2, 1).blocks)] = 2;
  test::WriteFileBytes(path, changed);
  SecondaryHeaderBuffer edited = doc.Secondary();
  edited.bytes[0] = 0;  // an edited border
  doc.EditHeaders(doc.Primary(), edited, "Border");

  doc.SetReloadScope(kReloadEventsOnly);
  std::vector<MapLoadStep> heard;
  doc.LoadSelectedMap(1, 0, [&](MapLoadStep s) { heard.push_back(s); });
  EXPECT_EQ(heard.back(), MapLoadStep::kMapRedraw);
  EXPECT_EQ(doc.Colours().Entry(9), kRedEntry);
  EXPECT_EQ(doc.Grid().At(3, 3), 0);
  EXPECT_EQ(doc.Grid().At(0, 0), 3);

  // Map only: tileset and grid again, with the header as edited.
  doc.SetReloadScope(kReloadMapOnly);
  doc.LoadSelectedMap(1, 0);
  EXPECT_EQ(doc.Colours().Entry(9), kGreenEntry);
  EXPECT_EQ(doc.Grid().At(3, 3), 2);
  EXPECT_EQ(doc.Grid().At(0, 0), 0);
}

TEST_F(MapStagesTest, ALightingChangeRereadsOnlyTheColours) {
  Open(PlainWorld().Build());
  doc.LoadSelectedMap(1, 0);
  EXPECT_EQ(doc.TimeOfDay(), 8);
  const Bytes strip = StripLine(0);
  const Bytes grid = GridCells();
  const ColourTable before = doc.Colours();

  EXPECT_TRUE(doc.SetTimeOfDay(1, 1));
  EXPECT_EQ(doc.TimeOfDay(), 1);
  EXPECT_EQ(doc.Colours().Entry(9), kWhiteEntry);
  EXPECT_EQ(doc.Colours().Entry(22), kGreenEntry);
  EXPECT_EQ(StripLine(0), strip);
  EXPECT_EQ(GridCells(), grid);

  // Night takes the bank's night colours for palette 6; the bank given is the one used.
  EXPECT_TRUE(doc.SetTimeOfDay(2, 1));
  EXPECT_EQ(doc.Colours().Entry(26), kBlueEntry);
  EXPECT_TRUE(doc.SetTimeOfDay(6, 0));
  EXPECT_NE(doc.Colours().Entry(26), kBlueEntry);

  // The value already set does nothing, not even open the file (which would create it).
  std::filesystem::remove(path);
  EXPECT_FALSE(doc.SetTimeOfDay(6, 1));
  EXPECT_FALSE(std::filesystem::exists(path));
  test::WriteFileBytes(path, PlainWorld().Build());
  EXPECT_TRUE(doc.SetTimeOfDay(8, 1));
  EXPECT_EQ(doc.Colours(), before);

  // The next map load reads with the chosen lighting.
  doc.SetTimeOfDay(1, 1);
  doc.LoadSelectedMap(1, 1);
  EXPECT_EQ(doc.Colours().Entry(9), kWhiteEntry);
}

TEST_F(MapStagesTest, BrokenTilesetsKeepThePreviousPicturesAndNeverCrash) {
  RomBuilder b = PlainWorld();
  TilesetDecl empty;
  empty.compressed_graphics = Bytes{0xFF};  // nothing to decode
  for (int block = 0; block < 4; ++block)
    empty.blocks.insert(empty.blocks.end(), 16, static_cast<std::uint8_t>(block));
  b.Tileset(1, empty);
  b.Map(3, {.tileset = 1, .width = 2, .height = 2});
  b.Map(3, {.tileset = 0x28, .width = 2, .height = 2});  // far past the table
  const BuiltRom world = b.BuildWithLayout();
  Open(world.bytes);
  doc.LoadSelectedMap(1, 0);
  const Bytes strip = StripLine(5);
  doc.LoadSelectedMap(2, 0);
  EXPECT_EQ(doc.Graphics().length, 0);
  EXPECT_EQ(StripLine(5), strip);
  EXPECT_NO_THROW(doc.LoadSelectedMap(2, 1));

  // Graphics, blocks and palette map pointing past the end of the file.
  Bytes wild = world.bytes;
  const std::int64_t record = world.layout.tilesets.at(0).record;
  for (int i : {0, 2, 3, 5, 13, 14}) wild[static_cast<std::size_t>(record + i)] = 0xFF;
  wild[0xD5C] = 0xFF;
  Open(wild);
  EXPECT_NO_THROW(doc.LoadSelectedMap(1, 0));
  EXPECT_NO_THROW(doc.SetTimeOfDay(0, 1));
}

}  // namespace
}  // namespace kartova
