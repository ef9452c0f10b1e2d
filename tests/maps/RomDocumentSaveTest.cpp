#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "demo/DemoRom.h"
#include "maps/RomDocument.h"
#include "rom/RuntimeError.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;
constexpr int kM = ExtendedMap::kMargin;

Bytes Cells(const ExtendedMap& grid) { return {grid.Row(0), grid.Row(0) + grid.Width() * grid.Height()}; }

// A 20 x 9 map (blocks 1..13 in turn, border 0x0E) and a 4 x 3 one, both without neighbours.
BuiltRom SmallWorld() {
  MapDecl wide{.border = 0x0E, .width = 20, .height = 9};
  for (int i = 0; i < 180; ++i) wide.blocks.push_back(static_cast<std::uint8_t>(i % 13 + 1));
  return RomBuilder().Map(1, wide).Map(1, {.width = 4, .height = 3}).BuildWithLayout();
}

class RomDocumentSaveTest : public ::testing::Test {
 protected:
  void Open(const Bytes& bytes, int bank = 1, int map = 1) {
    test::WriteFileBytes(path, bytes);
    doc.OpenRom(path, test::MemorySettings());
    doc.LoadSelectedMap(bank - 1, map - 1);
  }
  Bytes OnDisk() const { return test::ReadFileBytes(path); }
  void EditMusic(std::uint8_t music) {
    PrimaryHeaderBuffer primary = doc.Primary();
    primary.bytes[6] = music;
    doc.EditHeaders(primary, doc.Secondary(), "Musik");
  }
  static void Set(Bytes& bytes, std::int64_t at, std::uint8_t value) { bytes[static_cast<std::size_t>(at)] = value; }

  test::TempDir dir;
  std::string path = dir.File("demo.gbc");
  RomDocument doc;
  const BuiltRom demo = DemoRomBuilder().BuildWithLayout();
};

// Also the event round trip of every demo map: a full save writes the events back.
TEST_F(RomDocumentSaveTest, EveryDemoMapSavesBackByteIdenticalToItsOwnPlaces) {
  Open(demo.bytes);
  int maps = 0;
  for (int bank = 0; bank < kMapBankCount; ++bank) {
    for (int map = 0; map < doc.MapCountPerBank()[static_cast<std::size_t>(bank)]; ++map, ++maps) {
      SCOPED_TRACE(testing::Message() << "map " << bank + 1 << "." << map + 1);
      EXPECT_FALSE(doc.LoadSelectedMap(bank, map).read_past_end);
      const MapLayout& at = demo.layout.Map(bank + 1, map + 1);
      const SavePlan plan = doc.SaveRegions(kReloadFull);
      ASSERT_FALSE(plan.error);
      std::vector<std::int64_t> offsets;
      for (const FileRegion& region : plan.regions) offsets.push_back(region.offset);
      EXPECT_EQ(offsets, (std::vector<std::int64_t>{at.primary_header, at.secondary_header, at.blocks,
                                                     at.script_header, at.event_header + 2}));
      doc.SaveRom(kReloadFull);
      ASSERT_EQ(OnDisk(), demo.bytes);
    }
  }
  EXPECT_EQ(maps, 13);
}

TEST_F(RomDocumentSaveTest, EachScopeWritesOnlyItsRegions) {
  Open(demo.bytes);
  const MapLayout& at = demo.layout.Map(1, 1);
  Bytes expected = demo.bytes;
  EditMusic(0x17);
  ASSERT_TRUE(doc.PaintCell(kM + 2, kM + 1, 0x33));
  doc.EndStroke();
  ASSERT_EQ(doc.SaveRegions(kReloadMapOnly).regions.size(), 1u);
  doc.SaveRom(kReloadMapOnly);
  Set(expected, at.blocks + 20 + 2, 0x33);
  EXPECT_EQ(OnDisk(), expected);

  // Broken on disk behind the document's back: both event counts and a byte no save covers.
  Bytes broken = expected;
  Set(broken, at.script_header, 0xEE);
  Set(broken, at.event_header + 2, 0xEE);
  Set(broken, 0x150, 0xEE);
  test::WriteFileBytes(path, broken);
  ASSERT_EQ(doc.SaveRegions(kReloadEventsOnly).regions.size(), 2u);
  doc.SaveRom(kReloadEventsOnly);
  Set(expected, 0x150, 0xEE);
  EXPECT_EQ(OnDisk(), expected);

  doc.SaveRom(kReloadFull);
  Set(expected, at.primary_header + 6, 0x17);
  EXPECT_EQ(OnDisk(), expected);
}

TEST_F(RomDocumentSaveTest, RowsAreOneRegionAtTheBlockDataEvenPastTheEndOfTheFile) {
  EXPECT_TRUE(doc.SaveRegions(kReloadFull).regions.empty());
  const BuiltRom world = SmallWorld();
  test::WriteFileBytes(path, world.bytes);
  doc.OpenRom(path, test::MemorySettings());  // no map loaded: nothing to write
  EXPECT_TRUE(doc.SaveRegions(kReloadFull).regions.empty());
  doc.SaveRom(kReloadFull);
  EXPECT_EQ(OnDisk(), world.bytes);

  // Another ROM leaves no map whose buffers could be saved into it.
  doc.LoadSelectedMap(0, 0);
  ASSERT_EQ(doc.SaveRegions(kReloadMapOnly).regions.size(), 1u);
  test::WriteFileBytes(dir.File("other.gbc"), world.bytes);
  doc.OpenRom(dir.File("other.gbc"), test::MemorySettings());
  EXPECT_TRUE(doc.SaveRegions(kReloadMapOnly).regions.empty());

  // Map 1.2's rows in ROM bank 0x80, just behind 2 MiB: the file grows only to their end.
  Bytes moved = world.bytes;
  Set(moved, world.layout.Map(1, 2).secondary_header + 3, 0x80);
  const std::int64_t rows_at = 0x200000 + (world.layout.Map(1, 2).blocks & 0x3FFF);
  Open(moved, 1, 2);
  doc.PaintCell(kM + 3, kM + 2, 0x44);
  doc.SaveRom(kReloadFull);
  moved.resize(static_cast<std::size_t>(rows_at + 12), 0);  // the border block 0 where nothing was read
  moved.back() = 0x44;
  EXPECT_EQ(OnDisk(), moved);
}

TEST_F(RomDocumentSaveTest, AFailedSaveChangesNothingAndSaveAsCopiesWithTheEdits) {
  Open(demo.bytes);
  doc.PaintCell(kM, kM, 0x21);
  const std::string copy = dir.File("copy.gbc");
  doc.SetWriteFaultHook([](WriteStep step) { return step == WriteStep::kWrite ? ENOSPC : 0; });
  for (int scope : {kReloadFull, kReloadMapOnly, kReloadEventsOnly}) {
    try {
      doc.SaveRom(scope);
      ADD_FAILURE() << "saved scope " << scope;
    } catch (const FileWriteError& error) {
      EXPECT_EQ(error.path() + ": " + error.reason(), path + ": No space left on device");
    }
  }
  EXPECT_THROW(doc.SaveRomAs(copy), FileWriteError);
  EXPECT_EQ(doc.RomPath(), path);
  EXPECT_EQ(OnDisk(), demo.bytes);
  EXPECT_TRUE(doc.IsModified());
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), {}), 1);  // no copy, no temporary

  doc.SetWriteFaultHook({});
  doc.SaveRomAs(copy);
  EXPECT_EQ(OnDisk(), demo.bytes);
  Bytes expected = demo.bytes;
  Set(expected, demo.layout.Map(1, 1).blocks, 0x21);
  EXPECT_EQ(test::ReadFileBytes(copy), expected);
  EXPECT_EQ(doc.RomPath(), copy);
  EXPECT_FALSE(doc.IsModified());
  EditMusic(0x05);
  doc.SaveRomAs(copy);  // onto itself: saved in place
  Set(expected, demo.layout.Map(1, 1).primary_header + 6, 0x05);
  EXPECT_EQ(test::ReadFileBytes(copy), expected);
  fs::remove(copy);  // gone behind the document's back: not rebuilt from one map
  EXPECT_THROW(doc.SaveRomAs(copy), FileWriteError);
  EXPECT_FALSE(fs::exists(copy));
}

// A save cut off at any step leaves the ROM on disk as it was, byte for byte, with nothing else
// in the folder; the first save that gets through writes it as the edits make it.
TEST_F(RomDocumentSaveTest, ASaveCutOffAtAnyStepLeavesTheOldFileAndTheNextOneTheNew) {
  Open(demo.bytes, 2, 1);  // the harbour, 30 x 20: a border, a row of blocks and a person edited
  SecondaryHeaderBuffer secondary = doc.Secondary();
  secondary.bytes[0] ^= 0x01;
  doc.EditHeaders(doc.Primary(), secondary, "Rand");
  for (int x = 0; x < doc.MapWidth(); ++x) doc.PaintCell(kM + x, kM, 0x21);
  doc.EndStroke();
  std::vector<std::uint8_t> person(doc.Events().Record(kEventPeople, 0).begin(),
                                   doc.Events().Record(kEventPeople, 0).end());
  person[0] ^= 0x40;
  doc.EditEventRecord(kEventPeople, 0, person, "Bild");
  Bytes expected = demo.bytes;
  ApplyRegions(expected, doc.SaveRegions(kReloadFull).regions);
  ASSERT_NE(expected, demo.bytes);

  for (int fail_at = 1;; ++fail_at) {
    SCOPED_TRACE(fail_at);
    for (int err : {ENOSPC, EIO}) {
      int step = 0;
      doc.SetWriteFaultHook([&](WriteStep) { return ++step == fail_at ? err : 0; });
      bool saved = true;
      try {
        doc.SaveRom(kReloadFull);
      } catch (const FileWriteError& error) {
        saved = false;
        EXPECT_FALSE(error.reason().empty());
      }
      EXPECT_EQ(std::distance(fs::directory_iterator(dir.path()), {}), 1) << "a temporary file was left behind";
      if (saved) {
        EXPECT_EQ(OnDisk(), expected);
        EXPECT_FALSE(doc.IsModified());
        return;
      }
      ASSERT_EQ(OnDisk(), demo.bytes);
      EXPECT_TRUE(doc.IsModified());
    }
    ASSERT_LT(fail_at, 64) << "the save never got through";
  }
}

// Found by fuzzing the saves: a map 0 blocks wide whose rows point past the end of the file
// has nothing to write there, and the file keeps its length.
TEST_F(RomDocumentSaveTest, AMapWithoutRowsWritesNothingPastTheEnd) {
  Bytes bytes = demo.bytes;
  Set(bytes, demo.layout.Map(1, 1).secondary_header + 2, 0);     // width
  Set(bytes, demo.layout.Map(1, 1).secondary_header + 3, 0xFF);  // rows in bank 0xFF
  try {
    Open(bytes);
    ADD_FAILURE() << "the neighbours' strips should not fit";
  } catch (const RuntimeError& error) {
    // the neighbours' strips no longer fit a map of no width; the map itself is loaded
    ASSERT_TRUE(error.context());
    EXPECT_EQ(error.context()->activity, ErrorActivity::kBuildingMap);
    EXPECT_EQ(error.context()->file, path);
    EXPECT_EQ(error.context()->offset, 0xFF * 0x4000 + (demo.layout.Map(1, 1).blocks & 0x3FFF));
  }
  ASSERT_TRUE(doc.MapLoaded());
  doc.SaveRom(kReloadMapOnly);
  EXPECT_EQ(OnDisk(), bytes);
}

TEST_F(RomDocumentSaveTest, WildSizesSaveExportAndImportWithoutHarm) {
  const BuiltRom world = SmallWorld();
  const std::string file = dir.File("wild.map");
  for (const auto& [w, h] : {std::pair{0, 0}, {0, 255}, {255, 0}, {255, 255}}) {
    SCOPED_TRACE(testing::Message() << w << " x " << h);
    Bytes sized = world.bytes;
    Set(sized, world.layout.Map(1, 1).secondary_header + 1, static_cast<std::uint8_t>(h));
    Set(sized, world.layout.Map(1, 1).secondary_header + 2, static_cast<std::uint8_t>(w));
    Open(sized);
    EXPECT_FALSE(doc.PaintCell(kM, kM + h, 1));
    doc.SaveRom(kReloadFull);
    EXPECT_EQ(OnDisk(), sized);
    fs::remove(file);
    doc.ExportMap(file);
    EXPECT_EQ(test::ReadFileBytes(file).size(), std::size_t(1 + w * h));
    const Bytes before = Cells(doc.Grid());
    EXPECT_EQ(doc.ImportMap(file).blocks_read, std::size_t(w * h));
    test::WriteFileBytes(file, Bytes(70000, 0x09));
    doc.ImportMap(file);
    EXPECT_EQ(doc.History().Count(), (w * h == 0) ? 0u : 1u);
    doc.Undo();
    EXPECT_EQ(Cells(doc.Grid()), before);
  }
}

TEST_F(RomDocumentSaveTest, MapFilesRoundTripAndImportByTheEditorsRules) {
  Open(SmallWorld().bytes);
  const std::string file = dir.File("wide.map");
  doc.PaintCell(kM, kM, 0xFF);  // a first block that looks like the marker
  doc.EndStroke();
  const Bytes painted = Cells(doc.Grid());
  test::WriteFileBytes(file, Bytes(300, 0x77));
  doc.ExportMap(file);
  const Bytes exported = test::ReadFileBytes(file);
  ASSERT_EQ(exported.size(), 300u);  // the tail of a longer file stays
  EXPECT_EQ(Bytes(exported.begin(), exported.begin() + 3), (Bytes{0xFF, 0xFF, 2}));
  EXPECT_EQ(exported[181], 0x77);
  doc.Undo();
  const MapImport imported = doc.ImportMap(file);
  EXPECT_EQ(imported.blocks_read, 180u);
  EXPECT_TRUE(imported.change.whole_map);
  EXPECT_EQ(Cells(doc.Grid()), painted);
  EXPECT_EQ(doc.History().UndoText(), "Map importieren");

  // Without the marker the data starts at byte 0; a short file changes only what it holds and
  // never the border cells.
  test::WriteFileBytes(file, {0x30, 0x31, 0x32});
  EXPECT_EQ(doc.ImportMap(file).blocks_read, 3u);
  Bytes expected = painted;
  const std::size_t first = kM * (20 + 2 * kM) + kM;
  for (std::uint8_t i = 0; i < 3; ++i) expected[first + i] = 0x30 + i;
  EXPECT_EQ(Cells(doc.Grid()), expected);

  // An empty file and a missing one (created empty) change nothing; a directory is refused.
  const std::size_t steps = doc.History().Count();
  test::WriteFileBytes(dir.File("empty.map"), {});
  for (const std::string& nothing : {dir.File("empty.map"), dir.File("missing.map")}) {
    EXPECT_EQ(doc.ImportMap(nothing).blocks_read, 0u);
    EXPECT_TRUE(fs::exists(nothing));
  }
  EXPECT_EQ(Cells(doc.Grid()), expected);
  EXPECT_EQ(doc.History().Count(), steps);
  EXPECT_THROW(doc.ImportMap(dir.path().string()), FileWriteError);
  EXPECT_THROW(doc.ExportMap(dir.path().string()), FileWriteError);
}

}  // namespace
}  // namespace kartova
