#include <gtest/gtest.h>

#include <functional>

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
    test::WriteFileBytes(dir.File("world.gbc"), RomBuilder().Map(1, map).Build());
    doc.OpenRom(dir.File("world.gbc"), test::MemorySettings());
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
  RomDocument doc;
};

TEST_F(EditHistoryTest, AStrokeIsOneStepUndoneToWhatItsCellsFirstHeld) {
  doc.BeginStroke();
  EXPECT_TRUE(doc.PaintCell(kM, kM, 0x01));
  EXPECT_TRUE(doc.PaintCell(kM + 1, kM, 0x02));
  EXPECT_TRUE(doc.PaintCell(kM, kM, 0x03));       // the same cell again
  EXPECT_FALSE(doc.PaintCell(kM - 1, kM, 0x04));  // the margin is not the map
  EXPECT_FALSE(doc.PaintCell(kM + 1, kM, 0x02));
  doc.EndStroke();
  EXPECT_EQ(doc.Grid().At(kM - 1, kM), doc.Secondary().BorderBlock());
  ASSERT_EQ(doc.History().Count(), 1u);
  EXPECT_EQ(doc.History().UndoText(), "Malen");

  const DocumentChange undone = doc.Undo();
  EXPECT_EQ(undone.cells, (std::vector<GridCell>{{kM, kM}, {kM + 1, kM}}));
  EXPECT_FALSE(undone.whole_map || undone.headers || undone.events);
  EXPECT_EQ(Cell(0, 0) << 8 | Cell(1, 0), 0x1011);
  EXPECT_EQ(doc.Redo().cells.size(), 2u);
  EXPECT_EQ(Cell(0, 0) << 8 | Cell(1, 0), 0x0302);
}

TEST_F(EditHistoryTest, HeaderKeysMergeWhileTheGestureIsOpen) {
  EXPECT_TRUE(SetMusic(0x05).headers);
  SetMusic(0x55);
  ASSERT_EQ(doc.History().Count(), 1u);
  doc.CloseGesture();
  SetMusic(0x56);
  SetMusic(0x57, "Header(7)");  // another box
  EXPECT_TRUE(SetMusic(0x57, "Header(7)").Empty());  // nothing changes, nothing is recorded
  ASSERT_EQ(doc.History().Count(), 3u);

  for (std::uint8_t music : {0x56, 0x55, 0x02}) {
    EXPECT_TRUE(doc.Undo().headers);
    EXPECT_EQ(Music(), music);
  }
  EXPECT_TRUE(doc.Redo().headers);
  EXPECT_EQ(Music(), 0x55);

  // A box typed back to what it held leaves no step.
  doc.CloseGesture();
  SetMusic(0x70);
  SetMusic(0x55);
  EXPECT_EQ(doc.History().Count(), 1u);
  EXPECT_EQ(doc.History().Index(), 1u);
}

TEST_F(EditHistoryTest, ANewEditDropsTheRedoStepsAndALoadClearsThem) {
  SetMusic(0x05);
  doc.PaintCell(kM, kM, 0x01);
  doc.Undo();
  // A click with the block a cell already has, and an empty .map file, change nothing.
  doc.PaintCell(kM + 2, kM + 2, Cell(2, 2));
  doc.EndStroke();
  test::WriteFileBytes(dir.File("empty.map"), {});
  doc.ImportMap(dir.File("empty.map"));
  EXPECT_EQ(doc.History().RedoText(), "Malen");

  doc.PaintCell(kM + 3, kM, 0x07);
  doc.EndStroke();
  EXPECT_FALSE(doc.History().CanRedo());
  EXPECT_EQ(doc.History().Count(), 2u);
  EXPECT_EQ(Cell(0, 0), 0x10);

  doc.LoadSelectedMap(0, 0);
  EXPECT_EQ(doc.History().Count(), 0u);
  EXPECT_EQ(Cell(3, 0), 0x13);

  // Discarding header edits is a step of its own.
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
}

TEST_F(EditHistoryTest, ModifiedFollowsTheFileThroughUndoAndSave) {
  EXPECT_FALSE(doc.IsModified());
  const auto undo = [&] { doc.Undo(); };
  const auto redo = [&] { doc.Redo(); };
  const std::pair<std::function<void()>, bool> steps[] = {
      {[&] { doc.PaintCell(kM, kM, 0x01); }, true},  // an open stroke counts
      {undo, false},
      {[&] { doc.Redo(); SetMusic(0x05); doc.SaveRom(kReloadFull); }, false},
      {undo, true},  // the header differs again
      {redo, false},
      {[&] { doc.Undo(); doc.Undo(); }, true},
      {[&] { doc.SaveRom(kReloadMapOnly); }, true},  // the blocks match the file again, the header does not
      {[&] { doc.SaveRom(kReloadFull); }, false},
      {redo, true},
  };
  for (std::size_t i = 0; i < std::size(steps); ++i) {
    steps[i].first();
    EXPECT_EQ(doc.IsModified(), steps[i].second) << "step " << i;
  }
}

}  // namespace
}  // namespace kartova
