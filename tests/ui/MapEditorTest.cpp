#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <vector>

#include "EditorFixture.h"
#include "GraphicsViewHelpers.h"
#include "gfx/BlockChooser.h"
#include "ui/BlockChooserView.h"
#include "ui/FrameMarker.h"
#include "ui/GraphicsController.h"
#include "ui/MapEditor.h"
#include "ui/MapPage.h"

namespace kartova::test {
namespace {

// Mühlental (demo map 1.1, 20 x 16 blocks) with Weg 11 to the west.
class MapEditorTest : public EditorTest {
 protected:
  MapEditorTest() {
    OpenEditorWith(WriteDemoRom());
    picture_ = window_->map_page()->map_view()->picture();
  }

  MapView& View() const { return *window_->map_page()->map_view(); }
  BlockChooserView& Chooser() const { return *window_->map_page()->chooser(); }
  MapEditor& Editor() const { return *window_->map_editor(); }
  QString Panel(int n) const { return window_->panel(n)->text(); }
  int Cell(int x, int y) const { return Document().Grid().At(x, y); }
  // The cells of a rectangle row by row, and a block that is none of them.
  std::vector<int> Cells(int x1, int y1, int x2, int y2) const {
    std::vector<int> cells;
    for (int y = y1; y <= y2; ++y)
      for (int x = x1; x <= x2; ++x) cells.push_back(Cell(x, y));
    return cells;
  }
  int BlockNotIn(int x1, int y1, int x2, int y2) const {
    const std::vector<int> cells = Cells(x1, y1, x2, y2);
    int block = 0;
    while (std::ranges::find(cells, block) != cells.end()) ++block;
    return block;
  }
  // The middle of cell (x, y) on the picture at the present scroll values.
  QPoint At(int x, int y) const {
    return {x * 32 + 16 - View().h_scroll()->value(), y * 32 + 16 - View().v_scroll()->value()};
  }
  void Move(int x, int y) { QTest::mouseMove(picture_, At(x, y)); }
  void Press(Qt::MouseButton b, int x, int y) { QTest::mousePress(picture_, b, {}, At(x, y)); }
  void Release(Qt::MouseButton b, int x, int y) { QTest::mouseRelease(picture_, b, {}, At(x, y)); }
  void ClickCell(Qt::MouseButton b, int x, int y, bool twice = false) {
    Move(x, y);
    ClickOn(picture_, At(x, y), b, twice);
  }
  void ExpectCellShown(int x, int y) {
    const QPoint p = At(x, y);
    EXPECT_EQ(Shot(picture_).pixel(p), ExpectedMapColour(Document(), View(), 1, p.x(), p.y())) << x << "," << y;
  }

  IndexedPictureBox* picture_ = nullptr;
};

TEST_F(MapEditorTest, HoveringShowsWhereTheMouseIsAndFollowsAScroll) {
  FrameMarker& cursor = *window_->map_page()->block_cursor();
  FrameMarker& strip = *Editor().strip_marker();
  Move(5, 6);
  const std::int64_t offset = DemoRom().layout.Map(1, 1).blocks + 3 * 20 + 2;
  EXPECT_EQ(Panel(1), "Offset: " + QString::number(offset, 16).rightJustified(6, '0').toUpper());
  EXPECT_EQ(Panel(2) + " " + Panel(3) + " " + Panel(4), "X: 2 Y: 3 " + BlockText("Block: ", Cell(5, 6)));
  Move(1, 1);
  EXPECT_EQ(Panel(1) + " " + Panel(2) + " " + Panel(3), "Rand-Block X: -2 Y: -2");
  EXPECT_EQ(cursor.pos(), At(1, 1) - QPoint(16, 16));
  EXPECT_TRUE(strip.size().isEmpty());

  const ConnectionRect west = Document().Grid().Connection(kDirectionWest).rect;
  Move(west.x1 + 1, west.y1 + 1);
  EXPECT_EQ(Panel(1), "Anbindung");
  EXPECT_EQ(Editor().hovered_connection(), kDirectionWest);
  EXPECT_EQ(strip.geometry(), QRect(At(west.x1, west.y1) - QPoint(16, 16), At(west.x2, west.y2) + QPoint(15, 15)));
  EXPECT_EQ(cursor.y(), -64);
  Move(4, 4);
  EXPECT_EQ(Editor().hovered_connection(), -1);
  EXPECT_TRUE(strip.size().isEmpty());

  // The mouse stays; the cell under it moves with the scroll.
  ASSERT_GE(View().h_scroll()->maximum(), 64) << "the window must be narrower than the map";
  View().h_scroll()->setValue(64);
  EXPECT_EQ(Panel(2), "X: 3");
}

TEST_F(MapEditorTest, AClickPlacesTheChosenBlockOnlyInsideTheMapAndUnlocked) {
  const int old_block = Cell(5, 6), block = BlockNotIn(5, 6, 6, 6);
  Chooser().SelectBlock(block);
  const int rebuilds = window_->graphics()->rebuilds();
  ClickCell(Qt::LeftButton, 5, 6);
  EXPECT_EQ(Editor().edit_mode(), MapEditor::kNoEdit);
  EXPECT_EQ(Cell(5, 6), block);
  EXPECT_EQ(Panel(4), BlockText("Block: ", block));
  EXPECT_EQ(Document().History().Count(), 1u);
  EXPECT_TRUE(window_->isWindowModified());
  ExpectCellShown(5, 6);
  EXPECT_EQ(window_->graphics()->rebuilds(), rebuilds) << "only the square is patched";

  // Nothing in the margin, and nothing while the view is locked.
  const int margin = Cell(1, 1);
  ClickCell(Qt::LeftButton, 1, 1);
  window_->state().view_lock = 1;
  ClickCell(Qt::LeftButton, 6, 6);
  window_->state().view_lock = 0;
  EXPECT_EQ(Cell(1, 1), margin);
  EXPECT_NE(Cell(6, 6), block);
  EXPECT_EQ(Document().History().Count(), 1u);

  // A double click also takes the block it replaced.
  Chooser().SelectBlock(old_block);
  ClickCell(Qt::LeftButton, 5, 6, true);
  EXPECT_EQ(Cell(5, 6), old_block);
  EXPECT_EQ(Chooser().SelectedBlock(), block);
  EXPECT_EQ(Panel(5), BlockText("Auswahl: ", block));
}

TEST_F(MapEditorTest, ADragPaintsEveryCellCrossedAsOneStepThatUndoTakesBack) {
  const std::vector<int> before = Cells(4, 4, 12, 9);
  const int block = BlockNotIn(4, 4, 12, 9);
  Chooser().SelectBlock(block);
  Move(4, 4);
  Press(Qt::LeftButton, 4, 4);
  Move(12, 4);  // fast moves: the cells between are painted too, also on a slant
  Move(12, 9);
  Move(9, 6);
  Release(Qt::LeftButton, 9, 6);
  EXPECT_EQ(Cells(4, 4, 12, 4), std::vector<int>(9, block));
  EXPECT_EQ(Cells(12, 4, 12, 9), std::vector<int>(6, block));
  for (int x : {9, 10, 11}) EXPECT_EQ(Cell(x, x - 3), block) << x;
  EXPECT_EQ(Document().History().Count(), 1u);
  ExpectCellShown(8, 4);

  Click("mnuUndo");
  EXPECT_EQ(Cells(4, 4, 12, 9), before);
  EXPECT_FALSE(window_->isWindowModified());
  ExpectCellShown(12, 7);
}

TEST_F(MapEditorTest, TheRightButtonPicksEvenInADragAndItsDoubleClickCentresTheChooser) {
  // The cell with the highest block, whose row lies below the chooser's first rows.
  const std::vector<int> map = Cells(3, 3, 22, 18);
  const auto highest = static_cast<int>(std::ranges::max_element(map) - map.begin());
  const int hx = 3 + highest % 20, hy = 3 + highest / 20, high = Cell(hx, hy);
  const int other = Cell(3, 3) != high ? 3 : 4;
  Chooser().SelectBlock(0);
  Chooser().scroll()->setValue(0);
  ClickCell(Qt::RightButton, other, 3);
  EXPECT_EQ(Chooser().SelectedBlock(), Cell(other, 3));
  EXPECT_EQ(Panel(5), BlockText("Auswahl: ", Cell(other, 3)));

  Press(Qt::RightButton, other, 3);
  Move(hx, hy);
  EXPECT_EQ(Chooser().SelectedBlock(), high);
  Release(Qt::RightButton, hx, hy);
  const int top = high / 2 * 32 - Chooser().scroll()->value();  // the picked block's row is in sight
  EXPECT_GE(top, 0);
  EXPECT_LE(top + 32, Chooser().picture()->height());

  Chooser().SelectBlock(255);
  Chooser().scroll()->setValue(0);
  ClickCell(Qt::RightButton, hx, hy, true);
  EXPECT_EQ(Chooser().SelectedBlock(), high);
  EXPECT_EQ(Chooser().scroll()->value(), BlockChooser(1).CentredScroll(high, Chooser().picture()->height()));
  EXPECT_EQ(Panel(4), BlockText("Block: ", Chooser().HoveredBlock()));
  // The middle button does nothing.
  Chooser().scroll()->setValue(0);
  ClickCell(Qt::MiddleButton, other, 3, true);
  EXPECT_EQ(Chooser().SelectedBlock(), high);
  EXPECT_EQ(Chooser().scroll()->value(), 0);
  EXPECT_EQ(Document().History().Count(), 0u);
}

TEST_F(MapEditorTest, ReleasingOverAStripOpensTheNeighbourWithTheWayBackInSight) {
  const ConnectionRect west = Document().Grid().Connection(kDirectionWest).rect;
  const QString question = QString::fromUtf8("Änderungen speichern?");
  Chooser().SelectBlock(BlockNotIn(5, 5, 5, 5));
  ClickCell(Qt::LeftButton, 5, 5);
  prompter_.ExpectMessage(question, Prompter::Answer::kCancel);
  ClickCell(Qt::LeftButton, west.x1, west.y1 + 2);
  EXPECT_EQ(Document().SelectedMap(), 0);
  EXPECT_EQ(Editor().edit_mode(), MapEditor::kNoEdit);

  prompter_.ExpectMessage(question, Prompter::Answer::kNo);
  ClickCell(Qt::LeftButton, west.x1, west.y1 + 2);
  // Weg 11 (1.2), whose east strip leads back to Mühlental.
  EXPECT_EQ(std::tuple(Combo("Combo2")->currentIndex(), Combo("Combo3")->currentIndex(), Document().SelectedMap()),
            std::tuple(0, 1, 1));
  EXPECT_EQ(std::pair(Editor().busy(), window_->state().view_lock), std::pair(false, 0));
  const GridConnection& back = Document().Grid().Connection(kDirectionEast);
  ASSERT_TRUE(back.present);
  EXPECT_EQ(std::pair(int{back.bank}, int{back.map}), std::pair(1, 1));
  // The middle of the way back is in sight (a cell outside the picture would not match).
  ExpectCellShown((back.rect.x1 + back.rect.x2) / 2, (back.rect.y1 + back.rect.y2) / 2);
}

}  // namespace
}  // namespace kartova::test
