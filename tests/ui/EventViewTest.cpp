#include <QComboBox>
#include <QScrollBar>
#include <QTest>

#include "EditorFixture.h"
#include "GraphicsViewHelpers.h"
#include "demo/DemoRom.h"
#include "events/EventGeometry.h"
#include "events/MapEventSet.h"
#include "gfx/MarkerBlend.h"
#include "ui/EventPage.h"
#include "ui/EventViewController.h"
#include "ui/FrameMarker.h"
#include "ui/GraphicsController.h"

namespace kartova::test {
namespace {

const QLine kNoLine(-10, -10, -10, -10);

// The event tab on Mühlental (1.1, 20 x 16 blocks) at event zoom 2 (32-pixel cells): warps 0 and 1
// lead into the house (1.5) and the shop (1.6) and back; person 0 stands on tile (22, 14).
class EventViewTest : public EditorTest {
 protected:
  void SetUp() override {
    OpenEditorWith(WriteDemoRom());
    ClickTab(MainWindow::kEventTab);
    picture_ = View().picture();
  }
  MapView& View() const { return *window_->event_page()->event_view(); }
  EventPage& Page() const { return *window_->event_page(); }
  EventViewController& Controller() const { return *window_->event_view_controller(); }
  std::pair<int, int> Scroll() const { return {View().h_scroll()->value(), View().v_scroll()->value()}; }
  EventViewport Viewport() const {
    return {Scroll().first, Scroll().second, picture_->width(), picture_->height(), 32};
  }
  EventTile Stored(int kind, int index) const { return StoredPosition(Document().Events(), kind, index); }
  // Corner and middle of an event's cell on the picture; the selection frame's corner.
  QPoint Corner(int kind, int index) const {
    const PixelPoint at = CellOnPicture(kind, Stored(kind, index), Viewport());
    return {at.x, at.y};
  }
  QPoint At(int kind, int index) const { return Corner(kind, index) + QPoint(16, 16); }
  QPoint FramePlace() const { return Controller().selection_marker()->pos(); }
  std::pair<int, int> Selected() const { return {Page().selected_kind(), Page().selected_index()}; }
  static std::pair<int, int> Event(int kind, int index) { return {kind, index}; }
  // The map loaded and the one chosen in the selector.
  std::pair<int, int> Maps() const { return {Document().SelectedMap(), window_->map_selector()->map_index()}; }

  void Press(QPoint p) { QTest::mousePress(picture_, Qt::LeftButton, {}, p); }
  void MoveTo(QPoint p) { QTest::mouseMove(picture_, p); }
  void Release(QPoint p) { QTest::mouseRelease(picture_, Qt::LeftButton, {}, p); }
  void Drag(QPoint from, QPoint by) {
    Press(from);
    MoveTo(from + by);
    Release(from + by);
  }
  void ClickAt(QPoint p, bool twice = false) { ClickOn(picture_, p, Qt::LeftButton, twice); }
  // The scroll values that put an event's cell well inside the picture, and scrolling there.
  std::pair<int, int> Centre(int kind, int index) const {
    const ScrollPair centre =
        CentreOn(Stored(kind, index), Viewport(), View().h_scroll()->maximum(), View().v_scroll()->maximum());
    return {centre.h, centre.v};
  }
  void Show(int kind, int index) { ScrollTo(Centre(kind, index)); }
  void ScrollTo(std::pair<int, int> scroll) {
    View().h_scroll()->setValue(scroll.first);
    View().v_scroll()->setValue(scroll.second);
  }
  // The colour the picture shows at p, and what it would show without markers.
  QRgb Shown(QPoint p) const { return Shot(picture_).pixel(p); }
  QRgb Bare(QPoint p) const { return ExpectedMapColour(Document(), View(), 2, p.x(), p.y()); }
  // Whether the cell at corner shows the marker picture mixed half over the map at offset d.
  bool Marks(const char* name, QPoint corner, QPoint d = {16, 8}) const {
    const QImage marker(QStringLiteral(":/markers/") + QLatin1String(name) + QStringLiteral("32.xpm"));
    return Shown(corner + d) == MixMarkerPixel(marker.pixel(d), Bare(corner + d));
  }

  IndexedPictureBox* picture_ = nullptr;
};

TEST_F(EventViewTest, MarkersAreMixedHalfOverTheMapAndAClickSelectsAndFramesTheEvent) {
  ASSERT_EQ(window_->graphics()->event_cell_size(), 32);
  Show(kEventWarp, 1);
  const QPoint warp = Corner(kEventWarp, 1);
  for (QPoint d : {QPoint(16, 16), QPoint(3, 27), QPoint(28, 3)}) EXPECT_TRUE(Marks("warp", warp, d)) << d.x();
  for (QPoint d : {QPoint(-1, 16), QPoint(16, 32)}) EXPECT_EQ(Shown(warp + d), Bare(warp + d));
  ClickAt(At(kEventWarp, 1));
  EXPECT_EQ(Selected(), Event(kEventWarp, 1));
  EXPECT_EQ(Page().event_list(kEventWarp)->currentIndex(), 1);
  EXPECT_EQ(Controller().selection_marker()->geometry(), QRect(warp, QSize(32, 32)));

  // People are stored 4 tiles on, and their marker is drawn where they stand.
  Show(kEventPeople, 0);
  const QPoint person = Corner(kEventPeople, 0);
  EXPECT_EQ(person + QPoint(Scroll().first, Scroll().second), QPoint(22 + 6, 14 + 6) * 32);
  EXPECT_TRUE(Marks("people", person));
  ClickAt(At(kEventPeople, 0));
  EXPECT_EQ(Selected(), Event(kEventPeople, 0));
  View().h_scroll()->setValue(Scroll().first - 16);  // the frame follows the scroll
  EXPECT_EQ(FramePlace(), Corner(kEventPeople, 0));
  EXPECT_EQ(Document().History().Count(), 0u) << "a click is no move";
}

TEST_F(EventViewTest, APressOnEmptyGroundPansStaticallyOrDynamically) {
  Click("mnuScrModeStatic");
  Show(kEventPeople, 0);
  ClickAt(At(kEventPeople, 0));
  const auto [h, v] = Scroll();
  const QPoint start = At(kEventPeople, 0) + QPoint(64, 0);  // two tiles on: nobody there
  Press(start);
  MoveTo(start + QPoint(-40, 25));
  EXPECT_EQ(Scroll(), std::pair(h - 40, v + 25));  // normal speed: pixel for pixel
  EXPECT_EQ(Controller().direction_line()->line(), QLine(start, start + QPoint(-40, 25)));
  MoveTo(start + QPoint(-20, 5));  // static: measured from the press, not from the last move
  EXPECT_EQ(Scroll(), std::pair(h - 20, v + 5));
  MoveTo(start + QPoint(-5000, -5000));
  EXPECT_EQ(Scroll(), std::pair(0, 0));
  Release(start);
  EXPECT_EQ(Controller().direction_line()->line(), kNoLine);
  EXPECT_EQ(Selected(), Event(kEventPeople, 0));
  EXPECT_EQ(Document().History().Count(), 0u);

  // Fast doubles the way; without the option there is no line.
  Click("mnuScrSpeedFast");
  Click("mnuShowDirLine");
  const QPoint corner(5, 5);  // the margin's corner: no event there
  Press(corner);
  MoveTo(corner + QPoint(30, 20));
  EXPECT_EQ(Scroll(), std::pair(60, 40));
  EXPECT_EQ(Controller().direction_line()->line(), kNoLine);
  Release(corner);

  // Dynamic: the view keeps moving while the mouse is held away from the press.
  Click("mnuScrModeDyn");
  ScrollTo({0, 0});
  Press(corner);
  for (int i = 0, last = 0; i < 4; ++i, last = Scroll().first) {
    MoveTo(corner + QPoint(-20000, 0));
    EXPECT_GT(Scroll().first, last) << i;
  }
  Release(corner);
  EXPECT_EQ(Scroll().second, 0);
}

TEST_F(EventViewTest, DragsMoveEventsWithinTheMarginAsOneStepEachThatUndoTakesBack) {
  const MapEventSet before = Document().Events();
  Show(kEventWarp, 0);
  const QPoint warp = At(kEventWarp, 0);
  Press(warp);
  MoveTo(warp + QPoint(-5000, -5000));
  EXPECT_EQ(Stored(kEventWarp, 0), (EventTile{0, 0}));
  MoveTo(warp + QPoint(5000, 5000));
  Release(warp);
  MapEventSet moved = before;
  moved.Record(kEventWarp, 0)[0] = 16 * 2 + 5;  // Y and X at the far edge of the margin
  moved.Record(kEventWarp, 0)[1] = 20 * 2 + 5;
  EXPECT_EQ(Document().Events(), moved);
  Click("mnuUndo");
  EXPECT_EQ(Document().Events(), before);

  // A person's marker and the frame move along.
  Show(kEventPeople, 0);
  const QPoint from = At(kEventPeople, 0), old_corner = Corner(kEventPeople, 0), by(5 * 32, 2 * 32);
  Press(from);
  MoveTo(from + QPoint(3 * 32, 0));
  MoveTo(from + by + QPoint(10, 10));  // inside the same tile as from + by
  Release(from + by);
  EXPECT_EQ(Stored(kEventPeople, 0), (EventTile{31, 20}));
  EXPECT_EQ(Page().field(19)->text(), "31");  // X
  EXPECT_EQ(FramePlace(), old_corner + by);
  EXPECT_TRUE(Marks("people", FramePlace()));
  EXPECT_EQ(Shown(old_corner + QPoint(16, 8)), Bare(old_corner + QPoint(16, 8)));
  Click("mnuUndo");
  EXPECT_EQ(Document().Events(), before);
  EXPECT_FALSE(window_->isWindowModified());
  EXPECT_EQ(FramePlace(), old_corner);
  EXPECT_TRUE(Marks("people", old_corner));

  // So do they when X is typed; and every drag is a step of its own.
  Type(Page().field(19), QStringLiteral("27"));
  EXPECT_EQ(Stored(kEventPeople, 0), (EventTile{27, 18}));
  EXPECT_EQ(FramePlace(), old_corner + QPoint(32, 0));
  EXPECT_TRUE(Marks("people", FramePlace()));
  Drag(At(kEventPeople, 0), {32, 0});
  Drag(At(kEventPeople, 0), {0, 32});
  EXPECT_EQ(Document().History().Count(), 3u);
}

TEST_F(EventViewTest, ADoubleClickOnAWarpAsksAboutUnsavedMovesThenOpensItsTargetAndTheExitLeadsBack) {
  Show(kEventWarp, 0);
  Drag(At(kEventWarp, 0), {0, 64});
  Show(kEventWarp, 1);
  prompter_.ExpectMessage(QString(), Prompter::Answer::kCancel);
  ClickAt(At(kEventWarp, 1), true);
  EXPECT_EQ(Maps(), std::pair(0, 0));
  EXPECT_TRUE(window_->isWindowModified());
  prompter_.ExpectMessage(QString(), Prompter::Answer::kNo);
  ClickAt(At(kEventWarp, 1), true);
  EXPECT_EQ(Maps(), std::pair(5, 5));  // the shop, 1.6
  EXPECT_EQ(Selected(), Event(kEventWarp, 0));
  EXPECT_EQ(Scroll(), Centre(kEventWarp, 0));
  EXPECT_EQ(FramePlace(), Corner(kEventWarp, 0));

  // The shop's exit names warp 2 of Mühlental.
  ClickAt(At(kEventWarp, 0), true);
  EXPECT_EQ(Maps(), std::pair(0, 0));
  EXPECT_EQ(Selected(), Event(kEventWarp, 1));
  EXPECT_EQ(Page().event_list(kEventWarp)->currentIndex(), 1);
  EXPECT_EQ(FramePlace(), Corner(kEventWarp, 1));
}

// Map 1.1 has warps to bank 0, to bank 27, to map 0, to map 3 of a bank of two maps, and to
// warps 3, 9 and 0 of map 1.2, which has one warp.
TEST_F(EventViewTest, WarpsToMissingTargetsSayWhatIsMissing) {
  const std::vector<WarpDecl> warps = {{2, 0, 1, 0, 1},  {2, 2, 1, 27, 1}, {2, 4, 1, 1, 0},  {2, 6, 1, 1, 3},
                                       {2, 8, 3, 1, 2},  {2, 10, 9, 1, 2}, {2, 12, 0, 1, 2}};
  OpenThroughDialog(WriteRom("ziele.gbc", RomBuilder()
                                              .Title(kDemoTitle)
                                              .Map(1, {.width = 8, .height = 5, .warps = warps})
                                              .Map(1, {.width = 4, .height = 4, .warps = {{3, 5, 1, 1, 1}}})
                                              .Build()));
  auto follow = [&](int warp) {
    Show(kEventWarp, warp);
    ClickAt(At(kEventWarp, warp), true);
  };
  for (auto [warp, missing] : {std::pair{0, "Bank (0)"}, {1, "Bank (27)"}, {2, "Map (1.0)"}, {3, "Map (1.3)"}}) {
    prompter_.ExpectMessage(QStringLiteral("Fehler: Ziel-%1 existiert nicht.").arg(QLatin1String(missing)));
    follow(warp);
  }
  EXPECT_EQ(Maps(), std::pair(0, -1));  // the target bank's list, nothing chosen

  // The map opens; warp 3 of a map with one chooses none, warp 9 the first, warp 0 none.
  for (auto [warp, chosen] : {std::pair{4, -1}, {5, 0}, {6, -1}}) {
    ClickMap(0);
    follow(warp);
    EXPECT_EQ(Document().SelectedMap(), 1) << warp;
    EXPECT_EQ(Page().event_list(kEventWarp)->currentIndex(), chosen) << warp;
  }
}

TEST_F(EventViewTest, AMarkerPictureThatCannotBeReadIsReportedOnce) {
  const QString missing = QString::fromStdString(dir_.File("fehlt/"));
  Controller().SetMarkerSource(missing);
  prompter_.ExpectMessage(QStringLiteral("Das Alphablending ist fehlgeschlagen"));
  window_->graphics()->RedrawWholeView();
  EXPECT_TRUE(picture_->Overlays().isEmpty());
  Controller().SetMarkerSource(QStringLiteral(":/markers/"));
  Show(kEventWarp, 0);
  window_->graphics()->RedrawWholeView();
  EXPECT_FALSE(picture_->Overlays().isEmpty());
  Controller().SetMarkerSource(missing);
  window_->graphics()->RedrawWholeView();  // no second message
}

}  // namespace
}  // namespace kartova::test
