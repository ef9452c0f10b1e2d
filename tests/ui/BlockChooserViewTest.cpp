#include <QLabel>
#include <QTest>

#include "EditorFixture.h"
#include "GraphicsViewHelpers.h"
#include "ui/BlockChooserView.h"
#include "ui/FrameMarker.h"
#include "ui/MapPage.h"

namespace kartova::test {
namespace {

class BlockChooserViewTest : public EditorTest {
 protected:
  BlockChooserView& Chooser() const { return *window_->map_page()->chooser(); }
  IndexedPictureBox* Picture() const { return Chooser().picture(); }
  QString Panel(int n) const { return window_->panel(n)->text(); }
  void Move(QPoint p) { QTest::mouseMove(Picture(), p); }
  void Press(QPoint p) { QTest::mousePress(Picture(), Qt::LeftButton, {}, p); }
  void Release(QPoint p) { QTest::mouseRelease(Picture(), Qt::LeftButton, {}, p); }
};

TEST_F(BlockChooserViewTest, NothingIsPickedBeforeTheFirstMap) {
  StartEditor();
  Move({40, 40});
  ClickOn(Picture(), {40, 40});
  EXPECT_EQ(Panel(4), "Block: ");
  EXPECT_EQ(Panel(5), "Auswahl: ");
  EXPECT_EQ(Chooser().SelectedBlock(), 0);
  EXPECT_FALSE(Chooser().ButtonHeld());
}

TEST_F(BlockChooserViewTest, HoverPressAndDragPickBlocksWithTheirStatusTexts) {
  OpenEditorWith(WriteDemoRom());
  EXPECT_EQ(Picture()->width(), 64);
  // Away from the frames around block 0.
  for (QPoint p : {QPoint(5, 5), QPoint(40, 5), QPoint(62, Picture()->height() - 3)})
    EXPECT_EQ(Shot(Picture()).pixel(p), ExpectedChooserColour(Document(), 1, 0, p.x(), p.y()));

  Move({40, 5});
  EXPECT_EQ(Panel(4), "Block: 01");
  EXPECT_EQ(Chooser().hover_marker()->pos(), QPoint(32, 0));
  EXPECT_EQ(Panel(5), "Auswahl: ");
  Press({40, 5});
  EXPECT_EQ(Panel(5), "Auswahl: 01");
  EXPECT_EQ(Chooser().SelectedBlock(), 1);
  EXPECT_EQ(Chooser().selection_marker()->pos(), QPoint(32, 0));

  // Dragging keeps picking, also beyond the picture's edge (the position is clamped).
  Move({10, 200});
  EXPECT_EQ(Panel(4), "Block: 0C");
  EXPECT_EQ(Panel(5), "Auswahl: 0C");
  EXPECT_EQ(Chooser().selection_marker()->pos(), QPoint(0, 192));
  Move({90, 70});
  EXPECT_EQ(Chooser().SelectedBlock(), 5);
  Release({90, 70});
  EXPECT_FALSE(Chooser().ButtonHeld());
  Move({5, 70});
  EXPECT_EQ(Panel(4), "Block: 04");
  EXPECT_EQ(Panel(5), "Auswahl: 05");
  EXPECT_EQ(Chooser().hover_marker()->pos(), QPoint(0, 64));
}

TEST_F(BlockChooserViewTest, ScrollingRedrawsAndMovesTheMarkersByTheChoosersRule) {
  OpenEditorWith(WriteDemoRom());
  QScrollBar* bar = Chooser().scroll();
  EXPECT_TRUE(bar->isEnabled());
  EXPECT_EQ(bar->maximum(), 128 * 32 - Picture()->height());
  Move({40, 40});
  ClickOn(Picture(), {40, 40});
  ASSERT_EQ(Chooser().SelectedBlock(), 3);

  // The hover text follows the scroll without a mouse move: the same spot shows another block.
  bar->setValue(100);
  EXPECT_EQ(Panel(4), "Block: 09");  // row (40 + 100) / 32 = 4
  EXPECT_EQ(Chooser().hover_marker()->pos(), QPoint(32, 4 * 32 - 100));
  EXPECT_EQ(Shot(Picture()).pixel(20, 20), ExpectedChooserColour(Document(), 1, 100, 20, 20));
  const BlockChooser rule(1);
  EXPECT_EQ(Chooser().selection_marker()->y(), rule.SelectionMarkerTop(3, 100, Picture()->height()));

  // Far below, the selected row counts as hidden.
  bar->setValue(bar->maximum());
  EXPECT_EQ(Chooser().selection_marker()->y(), BlockChooser::kHiddenMarkerTop);
  EXPECT_EQ(Shot(Picture()).pixel(63, Picture()->height() - 1),
            ExpectedChooserColour(Document(), 1, bar->maximum(), 63, Picture()->height() - 1));
  Move({63, Picture()->height() - 1});
  EXPECT_EQ(Panel(4), "Block: FF");

  // A new map keeps the choice.
  ClickMap(2);
  EXPECT_EQ(Chooser().SelectedBlock(), 3);
}

}  // namespace
}  // namespace kartova::test
