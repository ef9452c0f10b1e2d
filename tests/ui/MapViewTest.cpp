#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QWheelEvent>

#include "EditorFixture.h"
#include "GraphicsViewHelpers.h"
#include "ui/BlockChooserView.h"
#include "ui/EventPage.h"
#include "ui/FrameMarker.h"
#include "ui/GraphicsController.h"
#include "ui/MapPage.h"

namespace kartova::test {
namespace {

constexpr const char* kDayItems[] = {"mnuDayAuto", "mnuDay0", "mnuDay1", "mnuDay2", "mnuDay3",
                                     "mnuDay4",    "mnuDay5", "mnuDay6", "mnuDay7"};

class MapViewTest : public EditorTest {
 protected:
  GraphicsController& Graphics() const { return *window_->graphics(); }
  MapView& Map() const { return *window_->map_page()->map_view(); }
  MapView& Events() const { return *window_->event_page()->event_view(); }
  IndexedPictureBox& Chooser() const { return *window_->map_page()->chooser()->picture(); }
  std::string CheckedDayItems() const {
    std::string names;
    for (const char* item : kDayItems)
      if (Checked(item)) names += std::string(item) + " ";
    return names;
  }
  // Checks the scroll ranges, and compares a few pixels spread over the view with what the
  // document says they show.
  void ExpectViewShowsGrid(const MapView& view, int zoom) {
    const int grid_w = Document().Grid().Width() * 32 * zoom;
    const int grid_h = Document().Grid().Height() * 32 * zoom;
    EXPECT_EQ(view.h_scroll()->maximum(), std::max(grid_w - view.picture()->width(), 0));
    EXPECT_EQ(view.v_scroll()->maximum(), std::max(grid_h - view.picture()->height(), 0));
    const QImage shot = Shot(view.picture());
    const int w = std::min(view.picture()->width(), grid_w);
    const int h = std::min(view.picture()->height(), grid_h);
    for (int i = 0; i < 5; ++i) {
      const int x = (w - 1) * i / 4, y = (h - 1) * (4 - i) / 4;
      ASSERT_EQ(shot.pixel(x, y), ExpectedMapColour(Document(), view, zoom, x, y)) << x << "," << y;
    }
  }
};

TEST_F(MapViewTest, TheMapViewShowsTheGridAndScrollsInsideItsBuffer) {
  MainWindow& window = OpenEditorWith(WriteDemoRom());
  // Mühlental, 20 x 16 blocks
  ASSERT_EQ(std::pair(Document().Grid().Width(), Document().Grid().Height()), std::pair(26, 22));
  EXPECT_EQ(window.state().view_lock, 0);
  EXPECT_TRUE(Map().h_scroll()->isEnabled() && Map().v_scroll()->isEnabled());
  ExpectViewShowsGrid(Map(), 1);

  // A picture 10 lines over whole blocks leaves a slack of 22 lines below the view: inside it
  // only the transfer moves; further down the buffer is rebuilt.
  const int height = Map().picture()->height();
  window.resize(window.width(), window.height() + (height / 32 + 1) * 32 + 10 - height);
  QCoreApplication::processEvents();
  ASSERT_EQ(Map().picture()->height() % 32, 10);
  ASSERT_GT(Map().v_scroll()->maximum(), 40) << "the window must be smaller than the map";
  EXPECT_EQ(Graphics().view_buffer().BottomLimit(), 22);
  const int rebuilds = Graphics().rebuilds();
  Map().v_scroll()->setValue(20);
  EXPECT_EQ(Graphics().rebuilds(), rebuilds);
  ExpectViewShowsGrid(Map(), 1);
  Map().v_scroll()->setValue(Map().v_scroll()->maximum());
  Map().h_scroll()->setValue(Map().h_scroll()->maximum());
  EXPECT_GT(Graphics().rebuilds(), rebuilds);
  ExpectViewShowsGrid(Map(), 1);

  // A larger window: new ranges and a rebuilt buffer.
  const int before = Graphics().rebuilds();
  window.resize(window.width() + 100, window.height() + 100);
  QCoreApplication::processEvents();
  EXPECT_GT(Graphics().rebuilds(), before);
  ExpectViewShowsGrid(Map(), 1);
}

TEST_F(MapViewTest, OneLightingItemIsCheckedAndAChoiceChangesOnlyTheColours) {
  StartEditor();
  EXPECT_EQ(CheckedDayItems(), "mnuDayAuto ");
  for (const char* item : kDayItems) EXPECT_TRUE(Enabled(item)) << item;
  Click("mnuDay1");  // without a ROM nothing is drawn and nothing breaks
  Click("mnuDayAuto");
  OpenThroughDialog(WriteDemoRom());

  const QRgb day = Shot(Map().picture()).pixel(5, 5);
  const QRgb chooser_day = Shot(&Chooser()).pixel(5, 5);
  const int rebuilds = Graphics().rebuilds();
  const int conversions = Map().picture()->Conversions();
  Click("mnuDay3");
  EXPECT_EQ(CheckedDayItems(), "mnuDay3 ");
  EXPECT_EQ(Document().TimeOfDay(), 3);
  EXPECT_EQ(window_->state().time_of_day, 3);
  EXPECT_NE(Shot(Map().picture()).pixel(5, 5), day);
  EXPECT_EQ(Graphics().rebuilds(), rebuilds);
  EXPECT_EQ(Map().picture()->Conversions(), conversions + 1);
  ExpectViewShowsGrid(Map(), 1);
  EXPECT_NE(Shot(&Chooser()).pixel(5, 5), chooser_day);
  EXPECT_EQ(Shot(&Chooser()).pixel(5, 5), ExpectedChooserColour(Document(), 1, 0, 5, 5));

  // The checked item again: nothing at all.
  const ColourTable colours = Document().Colours();
  Click("mnuDay3");
  EXPECT_EQ(CheckedDayItems(), "mnuDay3 ");
  Shot(Map().picture());
  EXPECT_EQ(Map().picture()->Conversions(), conversions + 1);
  EXPECT_EQ(Document().Colours(), colours);

  Click("mnuDayAuto");
  EXPECT_EQ(CheckedDayItems(), "mnuDayAuto ");
  EXPECT_EQ(Shot(Map().picture()).pixel(5, 5), day);
}

TEST_F(MapViewTest, ZoomItemsResizeBlocksRangesAndTheChooser) {
  OpenEditorWith(WriteDemoRom());
  BlockChooserView& chooser = *window_->map_page()->chooser();
  const int rebuilds = Graphics().rebuilds();
  Click("mnuMapZoom");
  EXPECT_EQ(Graphics().map_block_size(), 64);
  EXPECT_EQ(window_->map_page()->block_cursor()->width(), 64);
  EXPECT_EQ(Graphics().rebuilds(), rebuilds + 1);
  EXPECT_EQ(Graphics().view_buffer().BlockSize(), 64);
  ExpectViewShowsGrid(Map(), 2);
  Map().h_scroll()->setValue(Map().h_scroll()->maximum());
  ExpectViewShowsGrid(Map(), 2);
  Click("mnuMapZoom");
  ExpectViewShowsGrid(Map(), 1);

  Click("mnuTilesetZoom");
  EXPECT_EQ(chooser.Zoom(), 2);
  EXPECT_EQ(Chooser().width(), 64);
  EXPECT_EQ(chooser.selection_marker()->size(), QSize(64, 64));
  EXPECT_EQ(chooser.hover_marker()->size(), QSize(64, 64));
  EXPECT_EQ(chooser.scroll()->maximum(), 256 * 64 - Chooser().height());
  chooser.scroll()->setValue(100);
  for (QPoint p : {QPoint(3, 3), QPoint(63, 40), QPoint(30, Chooser().height() - 1)})
    EXPECT_EQ(Shot(&Chooser()).pixel(p), ExpectedChooserColour(Document(), 2, 100, p.x(), p.y()));
  Click("mnuTilesetZoom");
  EXPECT_EQ(chooser.scroll()->maximum(), 128 * 32 - Chooser().height());
  EXPECT_EQ(Shot(&Chooser()).pixel(40, 7), ExpectedChooserColour(Document(), 1, 100, 40, 7));
}

// A wheel notch (120 eighths of a degree, or smaller deltas adding up to it) moves a view by
// the wheel's lines in single steps, within the bar's range; Shift, a tilt or the wheel over
// the horizontal bar move sideways; Ctrl zooms the view under the mouse as its item does.
TEST_F(MapViewTest, TheWheelScrollsTheViewsShiftSidewaysAndCtrlZooms) {
  OpenEditorWith(WriteDemoRom());
  const auto wheel = [](QWidget* widget, QPoint delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointF at = QRectF(widget->rect()).center();
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), delta, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(widget, &event);
  };
  QScrollBar& h = *Map().h_scroll();
  QScrollBar& v = *Map().v_scroll();
  const int notch = QApplication::wheelScrollLines() * 16;  // half a block at zoom 1
  ASSERT_GT(v.maximum(), 2 * notch);
  wheel(Map().picture(), {0, -120});
  EXPECT_EQ(v.value(), notch);
  wheel(Map().picture(), {0, -60});
  EXPECT_EQ(v.value(), notch);
  wheel(Map().picture(), {0, -60});
  EXPECT_EQ(v.value(), 2 * notch);
  wheel(Map().picture(), {0, -120}, Qt::ShiftModifier);
  wheel(&h, {0, -120});
  wheel(Map().picture(), {-120, 0});
  EXPECT_EQ(std::pair(h.value(), v.value()), std::pair(3 * notch, 2 * notch));
  wheel(&v, {0, 120 * 50});
  EXPECT_EQ(v.value(), 0);
  wheel(Map().picture(), {0, -120 * 50});
  EXPECT_EQ(v.value(), v.maximum());
  ExpectViewShowsGrid(Map(), 1);

  wheel(Map().picture(), {0, 120}, Qt::ControlModifier);
  EXPECT_TRUE(Checked("mnuMapZoom"));
  EXPECT_EQ(Ini("ZoomMap"), "1");
  wheel(Map().picture(), {0, -40}, Qt::ControlModifier);
  wheel(Map().picture(), {0, -80}, Qt::ControlModifier);
  EXPECT_FALSE(Checked("mnuMapZoom"));

  BlockChooserView& chooser = *window_->map_page()->chooser();
  wheel(&Chooser(), {0, -120});
  wheel(chooser.scroll(), {0, -120}, Qt::ShiftModifier);
  EXPECT_EQ(chooser.scroll()->value(), 2 * notch);
  wheel(chooser.scroll(), {0, 120}, Qt::ControlModifier);
  EXPECT_TRUE(Checked("mnuTilesetZoom"));

  ClickTab(MainWindow::kEventTab);
  wheel(Events().picture(), {0, -120});
  EXPECT_EQ(Events().v_scroll()->value(), QApplication::wheelScrollLines() * 32);
  ExpectViewShowsGrid(Events(), 2);
  wheel(Events().picture(), {0, -120}, Qt::ControlModifier);
  EXPECT_FALSE(Checked("mnuEventZoom"));
}

TEST_F(MapViewTest, TheEventViewDrawsTheSameGridAtItsOwnZoomAndIsTimed) {
  OpenEditorWith(WriteDemoRom());
  EXPECT_EQ(Graphics().draw_count(), 0);  // the map tab is not timed
  const int rebuilds = Graphics().rebuilds();
  ClickTab(MainWindow::kEventTab);
  EXPECT_EQ(Graphics().rebuilds(), rebuilds + 1);
  EXPECT_EQ(Graphics().event_block_size(), 64);  // event zoom is on by default
  ExpectViewShowsGrid(Events(), 2);
  const int draws = Graphics().draw_count();
  EXPECT_GE(draws, 1);
  EXPECT_GT(Graphics().draw_time_average(), 0.0f);
  Events().v_scroll()->setValue(10);
  EXPECT_EQ(Graphics().draw_count(), draws + 1);
  ExpectViewShowsGrid(Events(), 2);

  Click("mnuEventZoom");
  EXPECT_EQ(Graphics().event_cell_size(), 16);
  ExpectViewShowsGrid(Events(), 1);
  // A new map starts the count afresh.
  ClickMap(1);
  EXPECT_EQ(Graphics().draw_count(), 1);
  ClickTab(MainWindow::kMapTab);
  ExpectViewShowsGrid(Map(), 1);
}

TEST_F(MapViewTest, AStripOutsideTheGridShowsTheErrorAndTheMapStillDraws) {
  std::vector<std::uint8_t> bytes = DemoRom().bytes;
  // Mühlental's north record: a destination 60 rows down.
  const auto north = static_cast<std::size_t>(DemoRom().layout.Map(1, 1).secondary_header + 12);
  bytes[north + 5] = 0xD0;
  StartEditor();
  prompter_.ExpectOpenFile(QString::fromStdString(WriteRom("broken.gbc", bytes)));
  prompter_.ExpectMessage(SubscriptMessage());
  Click("mnuLoad");
  EXPECT_EQ(prompter_.asked.size(), 2u);  // the dialog and the message
  EXPECT_GT(Graphics().rebuilds(), 0);
  EXPECT_EQ(Document().Grid().Height(), 22);
  ExpectViewShowsGrid(Map(), 1);
}

TEST_F(MapViewTest, AMapOf255By255BlocksScrollsToItsEnd) {
  std::vector<std::uint8_t> bytes = DemoRom().bytes;
  const auto secondary = static_cast<std::size_t>(DemoRom().layout.Map(1, 1).secondary_header);
  bytes[secondary + 1] = bytes[secondary + 2] = 0xFF;
  OpenEditorWith(WriteRom("huge.gbc", bytes));
  EXPECT_EQ(Map().h_scroll()->maximum(), 261 * 32 - Map().picture()->width());
  Map().h_scroll()->setValue(Map().h_scroll()->maximum());
  Map().v_scroll()->setValue(Map().v_scroll()->maximum());
  ExpectViewShowsGrid(Map(), 1);
  Click("mnuMapZoom");
  Map().v_scroll()->setValue(Map().v_scroll()->maximum());
  ExpectViewShowsGrid(Map(), 2);
  ClickTab(MainWindow::kEventTab);
  Events().h_scroll()->setValue(Events().h_scroll()->maximum());
  ExpectViewShowsGrid(Events(), 2);
}

}  // namespace
}  // namespace kartova::test
