#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <tuple>
#include <utility>
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

// Mühlental (demo map 1.1, 20 x 16 blocks): Weg 13 to the north, Weißensee to the south,
// Weg 11 to the west, Weg 12 to the east.
class MapEditorTest : public EditorTest {
 protected:
  MapEditorTest() {
    OpenEditorWith(WriteDemoRom());
    picture_ = window_->map_page()->map_view()->picture();
  }

  MapView& View() const { return *window_->map_page()->map_view(); }
  BlockChooserView& Chooser() const { return *window_->map_page()->chooser(); }
  int Cell(int x, int y) const { return Document().Grid().At(x, y); }
  std::string Panel(int n) const { return window_->panel(n)->text().toStdString(); }
  // The middle of cell (x, y) on the picture at the present scroll values.
  QPoint At(int x, int y) const {
    return {x * 32 + 16 - View().h_scroll()->value(), y * 32 + 16 - View().v_scroll()->value()};
  }
  void Move(int x, int y) { QTest::mouseMove(picture_, At(x, y)); }
  void Press(Qt::MouseButton b, int x, int y) { QTest::mousePress(picture_, b, {}, At(x, y)); }
  void Release(Qt::MouseButton b, int x, int y) { QTest::mouseRelease(picture_, b, {}, At(x, y)); }
  void ClickCell(Qt::MouseButton b, int x, int y) {
    Move(x, y);
    Press(b, x, y);
    Release(b, x, y);
  }
  // Qt sends press, release, double click, release.
  void DoubleClickCell(Qt::MouseButton b, int x, int y) {
    ClickCell(b, x, y);
    QTest::mouseDClick(picture_, b, {}, At(x, y));
    Release(b, x, y);
  }
  // A block that differs from every cell in the rectangle.
  int BlockNotIn(int x1, int y1, int x2, int y2) const {
    for (int b = 0;; ++b) {
      bool used = false;
      for (int y = y1; y <= y2; ++y)
        for (int x = x1; x <= x2; ++x) used |= Cell(x, y) == b;
      if (!used) return b;
    }
  }
  void ExpectCellShown(int x, int y) {
    const QImage shot = Shot(picture_);
    const QPoint p = At(x, y);
    EXPECT_EQ(shot.pixel(p), ExpectedMapColour(Document(), View(), 1, p.x(), p.y())) << x << "," << y;
  }

  IndexedPictureBox* picture_ = nullptr;
};

TEST_F(MapEditorTest, AClickPlacesTheChosenBlockAndPatchesOnlyItsSquare) {
  const int block = BlockNotIn(5, 6, 5, 6);
  Chooser().SelectBlock(block);
  const int rebuilds = window_->graphics()->rebuilds();
  Move(5, 6);
  EXPECT_EQ(Panel(2) + " " + Panel(3), "X: 2 Y: 3");
  EXPECT_EQ(Panel(4), BlockText("Block: ", Cell(5, 6)).toStdString());
  const std::int64_t offset = DemoRom().layout.Map(1, 1).blocks + 3 * 20 + 2;
  EXPECT_EQ(Panel(1), "Offset: " + QString::number(offset, 16).rightJustified(6, '0').toUpper().toStdString());
  EXPECT_EQ(DemoRom().bytes[static_cast<std::size_t>(offset)], Cell(5, 6));

  Press(Qt::LeftButton, 5, 6);
  EXPECT_EQ(window_->map_editor()->edit_mode(), MapEditor::kPlace);
  Release(Qt::LeftButton, 5, 6);
  EXPECT_EQ(window_->map_editor()->edit_mode(), MapEditor::kNoEdit);
  EXPECT_EQ(Cell(5, 6), block);
  EXPECT_EQ(Panel(4), BlockText("Block: ", block).toStdString());
  EXPECT_EQ(Document().History().Count(), 1u);
  EXPECT_TRUE(window_->isWindowModified());
  EXPECT_TRUE(window_->menu().Enabled("mnuUndo"));
  ExpectCellShown(5, 6);
  EXPECT_EQ(window_->graphics()->rebuilds(), rebuilds);

  // The margin is not part of the map: nothing is painted there.
  const int margin = Cell(1, 1);
  ClickCell(Qt::LeftButton, 1, 1);
  EXPECT_EQ(Cell(1, 1), margin);
  EXPECT_EQ(Document().History().Count(), 1u);

  // Nothing at all while the view is locked.
  window_->set_view_lock(1);
  ClickCell(Qt::LeftButton, 6, 6);
  window_->set_view_lock(0);
  EXPECT_NE(Cell(6, 6), block);
  EXPECT_EQ(Document().History().Count(), 1u);
}

TEST_F(MapEditorTest, ADragPaintsEveryCellCrossedAsOneStepThatUndoTakesBack) {
  const int block = BlockNotIn(4, 4, 12, 9);
  Chooser().SelectBlock(block);
  std::vector<int> before;
  for (int y = 4; y <= 9; ++y)
    for (int x = 4; x <= 12; ++x) before.push_back(Cell(x, y));
  const int rebuilds = window_->graphics()->rebuilds();

  Move(4, 4);
  Press(Qt::LeftButton, 4, 4);
  Move(12, 4);  // a fast move: the cells between are painted too
  Move(12, 9);
  Move(9, 6);   // and a slanting one
  Release(Qt::LeftButton, 9, 6);
  for (int x = 4; x <= 12; ++x) EXPECT_EQ(Cell(x, 4), block) << x;
  for (int y = 4; y <= 9; ++y) EXPECT_EQ(Cell(12, y), block) << y;
  for (const QPoint c : {QPoint(11, 8), QPoint(10, 7), QPoint(9, 6)})
    EXPECT_EQ(Cell(c.x(), c.y()), block) << c.x() << "," << c.y();
  EXPECT_EQ(Document().History().Count(), 1u);
  EXPECT_EQ(window_->graphics()->rebuilds(), rebuilds);
  ExpectCellShown(8, 4);

  Click("mnuUndo");
  std::vector<int> after;
  for (int y = 4; y <= 9; ++y)
    for (int x = 4; x <= 12; ++x) after.push_back(Cell(x, y));
  EXPECT_EQ(after, before);
  EXPECT_FALSE(window_->isWindowModified());
  ExpectCellShown(8, 4);
  ExpectCellShown(12, 7);
}

TEST_F(MapEditorTest, TheRightButtonPicksAndADragKeepsPicking) {
  // The cell with the highest block, whose row lies below the chooser's first rows.
  int hx = 3, hy = 3;
  for (int y = 3; y < 19; ++y)
    for (int x = 3; x < 23; ++x)
      if (Cell(x, y) > Cell(hx, hy)) std::tie(hx, hy) = std::pair(x, y);
  const int other = Cell(3, 3) != Cell(hx, hy) ? 3 : 4;
  Chooser().SelectBlock(0);
  Chooser().scroll()->setValue(0);

  ClickCell(Qt::RightButton, other, 3);
  EXPECT_EQ(Chooser().SelectedBlock(), Cell(other, 3));
  EXPECT_EQ(Panel(5), BlockText("Auswahl: ", Cell(other, 3)).toStdString());

  Move(other, 3);
  Press(Qt::RightButton, other, 3);
  Move(hx, hy);
  EXPECT_EQ(Chooser().SelectedBlock(), Cell(hx, hy));
  Release(Qt::RightButton, hx, hy);
  // The chooser shows the picked block's row.
  const int top = Cell(hx, hy) / 2 * 32 - Chooser().scroll()->value();
  EXPECT_GE(top, 0);
  EXPECT_LE(top + 32, Chooser().picture()->height());
  EXPECT_EQ(Document().History().Count(), 0u);
  EXPECT_FALSE(window_->isWindowModified());
}

TEST_F(MapEditorTest, DoubleClicksTakeTheReplacedBlockOrCentreTheChooser) {
  const int old_block = Cell(7, 7);
  const int block = BlockNotIn(7, 7, 7, 7);
  Chooser().SelectBlock(block);
  DoubleClickCell(Qt::LeftButton, 7, 7);
  EXPECT_EQ(Cell(7, 7), block);
  EXPECT_EQ(Chooser().SelectedBlock(), old_block);
  EXPECT_EQ(Panel(5), BlockText("Auswahl: ", old_block).toStdString());
  EXPECT_EQ(Document().History().Count(), 1u);

  Chooser().SelectBlock(255);
  Chooser().scroll()->setValue(0);
  DoubleClickCell(Qt::RightButton, 7, 7);
  EXPECT_EQ(Chooser().SelectedBlock(), block);
  EXPECT_EQ(Chooser().scroll()->value(), BlockChooser(1).CentredScroll(block, Chooser().picture()->height()));
  EXPECT_EQ(Panel(4), BlockText("Block: ", Chooser().HoveredBlock()).toStdString());

  Chooser().scroll()->setValue(0);
  DoubleClickCell(Qt::MiddleButton, 8, 8);
  EXPECT_EQ(Chooser().SelectedBlock(), block);
  EXPECT_EQ(Chooser().scroll()->value(), 0);
  EXPECT_EQ(Document().History().Count(), 1u);
}

TEST_F(MapEditorTest, HoveringShowsMarginStripsAndFollowsAScroll) {
  FrameMarker& cursor = *window_->map_page()->block_cursor();
  FrameMarker& strip = *window_->map_editor()->strip_marker();
  Move(1, 1);
  EXPECT_EQ(Panel(1), "Rand-Block");
  EXPECT_EQ(Panel(2) + " " + Panel(3), "X: -2 Y: -2");
  EXPECT_EQ(cursor.pos(), At(1, 1) - QPoint(16, 16));
  EXPECT_TRUE(strip.size().isEmpty());

  const ConnectionRect west = Document().Grid().Connection(kDirectionWest).rect;
  Move(west.x1 + 1, west.y1 + 1);
  EXPECT_EQ(Panel(1), "Anbindung");
  EXPECT_EQ(window_->map_editor()->hovered_connection(), kDirectionWest);
  EXPECT_EQ(strip.geometry(), QRect(At(west.x1, west.y1) - QPoint(16, 16),
                                    QSize((west.x2 - west.x1 + 1) * 32, (west.y2 - west.y1 + 1) * 32)));
  EXPECT_EQ(cursor.y(), -64);

  Move(4, 4);
  EXPECT_EQ(window_->map_editor()->hovered_connection(), -1);
  EXPECT_TRUE(strip.size().isEmpty());
  EXPECT_EQ(cursor.pos(), At(4, 4) - QPoint(16, 16));

  // The mouse stays; the cell under it moves with the scroll.
  ASSERT_GE(View().h_scroll()->maximum(), 64) << "the window must be narrower than the map";
  View().h_scroll()->setValue(64);
  EXPECT_EQ(Panel(2), "X: 3");
}

TEST_F(MapEditorTest, ReleasingOverAStripOpensTheNeighbourWithTheWayBackInSight) {
  const ConnectionRect west = Document().Grid().Connection(kDirectionWest).rect;
  // Unsaved changes: staying keeps the map.
  Chooser().SelectBlock(BlockNotIn(5, 5, 5, 5));
  ClickCell(Qt::LeftButton, 5, 5);
  prompter_.ExpectMessage(QString::fromUtf8("Änderungen speichern?"), Prompter::Answer::kCancel);
  ClickCell(Qt::LeftButton, west.x1, west.y1 + 2);
  EXPECT_EQ(Document().SelectedMap(), 0);
  EXPECT_EQ(window_->map_editor()->edit_mode(), MapEditor::kNoEdit);

  prompter_.ExpectMessage(QString::fromUtf8("Änderungen speichern?"), Prompter::Answer::kNo);
  ClickCell(Qt::LeftButton, west.x1, west.y1 + 2);
  // Weg 11 (1.2), whose east strip leads back to Mühlental.
  EXPECT_EQ(Combo("Combo2")->currentIndex(), 0);
  EXPECT_EQ(Combo("Combo3")->currentIndex(), 1);
  EXPECT_EQ(Document().SelectedMap(), 1);
  EXPECT_FALSE(window_->map_editor()->busy());
  EXPECT_EQ(window_->view_lock(), 0);
  const GridConnection& back = Document().Grid().Connection(kDirectionEast);
  ASSERT_TRUE(back.present);
  EXPECT_EQ(std::pair(int{back.bank}, int{back.map}), std::pair(1, 1));
  const QRect strip(back.rect.x1 * 32, back.rect.y1 * 32, (back.rect.x2 - back.rect.x1 + 1) * 32,
                    (back.rect.y2 - back.rect.y1 + 1) * 32);
  const QRect view(View().h_scroll()->value(), View().v_scroll()->value(), picture_->width(), picture_->height());
  EXPECT_TRUE(view.intersects(strip));
  EXPECT_TRUE(view.contains(strip.center()) || view.width() < strip.width() || view.height() < strip.height());
  ExpectCellShown((back.rect.x1 + back.rect.x2) / 2, (back.rect.y1 + back.rect.y2) / 2);
}

}  // namespace
}  // namespace kartova::test
