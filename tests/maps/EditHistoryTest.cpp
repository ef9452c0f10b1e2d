#include <gtest/gtest.h>

#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

constexpr int kM = ExtendedMap::kMargin;

// Map 1.1: 4 x 3 blocks 0x10..0x1B, music 0x02.
class EditHistoryTest : public ::testing::Test {
 protected:
  EditHistoryTest() {
    MapDecl map{.music = 0x02, .width = 4, .height = 3};
    for (std::uint8_t b = 0x10; b < 0x1C; ++b) map.blocks.push_back(b);
    test::WriteFileBytes(path, RomBuilder().Map(1, map).Build());
    doc.OpenRom(path, settings);
    doc.LoadSelectedMap(0, 0);
  }
  std::uint8_t Cell(int x, int y) const { return doc.Grid().At(kM + x, kM + y); }
  std::uint8_t Music() const { return doc.Primary().Music(); }
  DocumentChange SetMusic(std::uint8_t music, const std::string& key = "Header(6)") {
    PrimaryHeaderBuffer primary = doc.Primary();
    primary.bytes[6] = music;
    return doc.EditHeaders(primary, doc.Secondary(), "Musik", key);
  }

  test::TempDir dir;
  std::string path = dir.File("world.gbc");
  test::MemorySettings settings;
  RomDocument doc;
};

TEST_F(EditHistoryTest, AStrokeIsOneStepUndoneToWhatItsCellsFirstHeld) {
  doc.BeginStroke();
  EXPECT_TRUE(doc.PaintCell(kM, kM, 0x01));
  EXPECT_TRUE(doc.PaintCell(kM + 1, kM, 0x02));
  EXPECT_TRUE(doc.PaintCell(kM, kM, 0x03));                 // the same cell again
  EXPECT_FALSE(doc.PaintCell(kM - 1, kM, 0x04));            // the margin is not the map
  EXPECT_FALSE(doc.PaintCell(kM + 1, kM, 0x02));
  doc.EndStroke();
  EXPECT_EQ(doc.Grid().At(kM - 1, kM), doc.Secondary().BorderBlock());
  ASSERT_EQ(doc.History().Count(), 1u);
  EXPECT_EQ(doc.History().UndoText(), "Malen");

  const DocumentChange undone = doc.Undo();
  EXPECT_EQ(undone.cells, (std::vector<GridCell>{{kM, kM}, {kM + 1, kM}}));
  EXPECT_FALSE(undone.whole_map || undone.headers || undone.events);
  EXPECT_EQ(Cell(0, 0), 0x10);
  EXPECT_EQ(Cell(1, 0), 0x11);
  EXPECT_EQ(doc.Redo().cells.size(), 2u);
  EXPECT_EQ(Cell(0, 0), 0x03);
  EXPECT_EQ(Cell(1, 0), 0x02);
}

TEST_F(EditHistoryTest, HeaderKeysMergeWhileTheGestureIsOpen) {
  EXPECT_TRUE(SetMusic(0x05).headers);
  SetMusic(0x55);
  ASSERT_EQ(doc.History().Count(), 1u);
  doc.CloseGesture();
  SetMusic(0x56);
  SetMusic(0x57, "Header(7)");  // another box
  ASSERT_EQ(doc.History().Count(), 3u);
  EXPECT_TRUE(SetMusic(0x57, "Header(7)").Empty());  // nothing changes, nothing is recorded
  EXPECT_EQ(doc.History().Count(), 3u);

  doc.Undo();
  EXPECT_EQ(Music(), 0x56);
  EXPECT_TRUE(doc.Undo().headers);
  EXPECT_EQ(Music(), 0x55);
  doc.Undo();
  EXPECT_EQ(Music(), 0x02);
  EXPECT_TRUE(doc.Redo().headers);
  EXPECT_EQ(Music(), 0x55);

  // A box typed back to what it held leaves no step.
  doc.CloseGesture();
  SetMusic(0x70);
  SetMusic(0x55);
  EXPECT_EQ(doc.History().Count(), 1u);
  EXPECT_EQ(doc.History().Index(), 1u);
}

TEST_F(EditHistoryTest, ANewEditDropsTheRedoStepsAndNothingElseDoes) {
  SetMusic(0x05);
  doc.PaintCell(kM, kM, 0x01);
  doc.Undo();
  // A click with the block a cell already has, and an empty .map file, change nothing.
  doc.PaintCell(kM + 2, kM + 2, Cell(2, 2));
  doc.EndStroke();
  test::WriteFileBytes(dir.File("empty.map"), {});
  doc.ImportMap(dir.File("empty.map"));
  EXPECT_TRUE(doc.History().CanRedo());
  EXPECT_EQ(doc.History().RedoText(), "Malen");

  doc.PaintCell(kM + 3, kM, 0x07);
  doc.EndStroke();
  EXPECT_FALSE(doc.History().CanRedo());
  EXPECT_EQ(doc.History().Count(), 2u);
  EXPECT_EQ(Cell(0, 0), 0x10);

  doc.LoadSelectedMap(0, 0);
  EXPECT_EQ(doc.History().Count(), 0u);
  EXPECT_EQ(Cell(3, 0), 0x13);
}

TEST_F(EditHistoryTest, DiscardingHeaderEditsIsAStepOfItsOwn) {
  SetMusic(0x05);
  doc.SetApplyMode(kApplyRestoreHeaders);
  doc.LoadSelectedMap(0, 0);
  doc.SetApplyMode(kApplyNormal);
  EXPECT_EQ(Music(), 0x02);
  EXPECT_FALSE(doc.IsModified());
  ASSERT_EQ(doc.History().Count(), 2u);
  EXPECT_EQ(doc.History().UndoText(), "Header wiederherstellen");
  EXPECT_TRUE(doc.Undo().headers);
  EXPECT_EQ(Music(), 0x05);
  EXPECT_TRUE(doc.IsModified());
  doc.Undo();
  EXPECT_EQ(Music(), 0x02);
}

TEST_F(EditHistoryTest, ModifiedFollowsTheFileThroughUndoAndSave) {
  EXPECT_FALSE(doc.IsModified());
  doc.PaintCell(kM, kM, 0x01);
  EXPECT_TRUE(doc.IsModified());  // an open stroke counts
  doc.Undo();
  EXPECT_FALSE(doc.IsModified());
  doc.Redo();
  SetMusic(0x05);
  doc.SaveRom(kReloadFull);
  EXPECT_FALSE(doc.IsModified());
  doc.Undo();
  EXPECT_TRUE(doc.IsModified());
  EXPECT_EQ(Music(), 0x02);
  doc.Redo();
  EXPECT_FALSE(doc.IsModified());
  doc.Undo();
  doc.Undo();
  EXPECT_TRUE(doc.IsModified());
  doc.SaveRom(kReloadMapOnly);
  EXPECT_TRUE(doc.IsModified());  // the blocks match the file again, the header does not
  doc.SaveRom(kReloadFull);
  EXPECT_FALSE(doc.IsModified());
  doc.Redo();
  EXPECT_EQ(Cell(0, 0), 0x01);
  EXPECT_TRUE(doc.IsModified());
}

}  // namespace
}  // namespace kartova
