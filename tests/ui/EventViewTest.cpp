#include <QComboBox>
#include <QScrollBar>
#include <QTest>

#include "EditorFixture.h"
#include "GraphicsViewHelpers.h"
#include "demo/DemoRom.h"
#include "events/EventFields.h"
#include "events/EventGeometry.h"
#include "events/MapEventSet.h"
#include "gfx/MarkerBlend.h"
#include "ui/EventPage.h"
#include "ui/EventViewController.h"
#include "ui/FrameMarker.h"
#include "ui/GraphicsController.h"

namespace kartova::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

// The event tab on Mühlental (demo map 1.1, 20 x 16 blocks) at event zoom 2 (cells of 32
// pixels): warps 0 and 1 lead into the house (1.5) and the shop (1.6), whose exits lead back
// to them; person 0 stands on tile (22, 14).
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
  int H() const { return View().h_scroll()->value(); }
  int V() const { return View().v_scroll()->value(); }
  EventViewport Viewport() const { return {H(), V(), picture_->width(), picture_->height(), 32}; }
  EventTile Stored(int kind, int index) const { return StoredPosition(Document().Events(), kind, index); }
  Bytes Record(int kind, int index) const {
    const auto record = Document().Events().Record(kind, index);
    return {record.begin(), record.end()};
  }
  // Corner and middle of an event's cell on the picture.
  QPoint Corner(int kind, int index) const {
    const PixelPoint at = CellOnPicture(kind, Stored(kind, index), Viewport());
    return {at.x, at.y};
  }
  QPoint At(int kind, int index) const { return Corner(kind, index) + QPoint(16, 16); }
  QPoint FramePlace() const { return Controller().selection_marker()->pos(); }
  std::pair<int, int> Selected() const { return {Page().selected_kind(), Page().selected_index()}; }

  void Press(QPoint p) { QTest::mousePress(picture_, Qt::LeftButton, {}, p); }
  void MoveTo(QPoint p) { QTest::mouseMove(picture_, p); }
  void Release(QPoint p) { QTest::mouseRelease(picture_, Qt::LeftButton, {}, p); }
  void ClickAt(QPoint p) {
    Press(p);
    Release(p);
  }
  // Qt sends press, release, double click, release.
  void DoubleClickAt(QPoint p) {
    ClickAt(p);
    QTest::mouseDClick(picture_, Qt::LeftButton, {}, p);
    Release(p);
  }
  // Scrolls so that the event's cell lies well inside the picture.
  void Show(int kind, int index) {
    const ScrollPair centre =
        CentreOn(Stored(kind, index), Viewport(), View().h_scroll()->maximum(), View().v_scroll()->maximum());
    View().h_scroll()->setValue(centre.h);
    View().v_scroll()->setValue(centre.v);
  }
  // The colour the picture shows at p, and what it would show without markers.
  QRgb Shown(QPoint p) const { return Shot(picture_).pixel(p); }
  QRgb Bare(QPoint p) const { return ExpectedMapColour(Document(), View(), 2, p.x(), p.y()); }
  // A marker picture's pixel mixed over the bare map at p, inside the cell whose corner is given.
  QRgb Marked(const char* name, QPoint corner, QPoint p) const {
    const QImage marker(QStringLiteral(":/markers/") + QLatin1String(name) + QStringLiteral("32.xpm"));
    return MixMarkerPixel(marker.pixel(p - corner), Bare(p));
  }

  IndexedPictureBox* picture_ = nullptr;
};

TEST_F(EventViewTest, MarkersAreMixedHalfOverTheMapAtTheirCells) {
  ASSERT_EQ(window_->graphics()->event_cell_size(), 32);
  Show(kEventWarp, 0);
  const QPoint warp = Corner(kEventWarp, 0);
  for (QPoint d : {QPoint(16, 16), QPoint(3, 27), QPoint(28, 3)})
    EXPECT_EQ(Shown(warp + d), Marked("warp", warp, warp + d)) << d.x() << "," << d.y();
  for (QPoint d : {QPoint(-1, 16), QPoint(16, 32)}) EXPECT_EQ(Shown(warp + d), Bare(warp + d));

  // People are stored 4 tiles on, and their marker is drawn where they stand.
  Show(kEventPeople, 0);
  EXPECT_EQ(Stored(kEventPeople, 0), (EventTile{26, 18}));
  const QPoint person = Corner(kEventPeople, 0);
  EXPECT_EQ(person, QPoint((22 + 6) * 32 - H(), (14 + 6) * 32 - V()));
  EXPECT_EQ(Shown(person + QPoint(16, 8)), Marked("people", person, person + QPoint(16, 8)));
}

TEST_F(EventViewTest, AClickSelectsTheEventUnderItAndFramesIt) {
  Show(kEventWarp, 1);
  ClickAt(At(kEventWarp, 1));
  EXPECT_EQ(Selected(), std::make_pair(0, 1));
  EXPECT_EQ(Page().event_list(kEventWarp)->currentIndex(), 1);
  EXPECT_EQ(FramePlace(), Corner(kEventWarp, 1));
  EXPECT_EQ(Controller().selection_marker()->width(), 32);

  Show(kEventPeople, 0);
  ClickAt(At(kEventPeople, 0));
  EXPECT_EQ(Selected(), std::make_pair(3, 0));
  EXPECT_EQ(FramePlace(), Corner(kEventPeople, 0));
  // The frame follows the scroll.
  View().h_scroll()->setValue(H() - 16);
  EXPECT_EQ(FramePlace(), Corner(kEventPeople, 0));
  EXPECT_EQ(Document().History().Count(), 0u);  // a click is no move
}

TEST_F(EventViewTest, APressOnEmptyGroundPansWithTheDirectionLine) {
  Click("mnuScrModeStatic");
  Show(kEventPeople, 0);
  ClickAt(At(kEventPeople, 0));
  const int h = H(), v = V();
  const QPoint start = At(kEventPeople, 0) + QPoint(64, 0);  // two tiles on: nobody there
  Press(start);
  EXPECT_EQ(Controller().drag_origin(), (EventTile{255, 255}));
  MoveTo(start + QPoint(-40, 25));
  EXPECT_EQ(H() * 1000 + V(), (h - 40) * 1000 + v + 25);  // normal speed: pixel for pixel
  EXPECT_EQ(Controller().direction_line()->line(), QLine(start, start + QPoint(-40, 25)));
  MoveTo(start + QPoint(-20, 5));  // static: measured from the press, not from the last move
  EXPECT_EQ(H() * 1000 + V(), (h - 20) * 1000 + v + 5);
  MoveTo(start + QPoint(-5000, -5000));
  EXPECT_EQ(H() * 1000 + V(), 0);
  Release(start);
  EXPECT_EQ(Controller().direction_line()->line(), QLine(-10, -10, -10, -10));
  EXPECT_EQ(Selected(), std::make_pair(3, 0));
  EXPECT_EQ(Document().History().Count(), 0u);

  // Fast doubles the way; without the option there is no line.
  Click("mnuScrSpeedFast");
  Click("mnuShowDirLine");
  const QPoint corner(5, 5);  // the margin's corner: no event there
  Press(corner);
  MoveTo(corner + QPoint(30, 20));
  EXPECT_EQ(H() * 1000 + V(), 60 * 1000 + 40);
  EXPECT_EQ(Controller().direction_line()->line(), QLine(-10, -10, -10, -10));
  Release(corner);
}

TEST_F(EventViewTest, DynamicPanningKeepsMovingAgainstTheDrag) {
  Click("mnuScrModeDyn");
  Click("mnuScrSpeedFast");
  View().h_scroll()->setValue(0);
  View().v_scroll()->setValue(0);
  const QPoint start(5, 5);  // the margin's corner: no event there
  Press(start);
  std::vector<int> h{H()};
  for (int i = 0; i < 4; ++i) {
    MoveTo(start + QPoint(-20000, 0));
    h.push_back(H());
  }
  Release(start);
  for (std::size_t i = 1; i < h.size(); ++i) EXPECT_GT(h[i], h[i - 1]) << i;
  EXPECT_EQ(V(), 0);
}

TEST_F(EventViewTest, DraggingAPersonMovesItAsOneStepThatUndoTakesBack) {
  Show(kEventPeople, 0);
  const Bytes before = Record(kEventPeople, 0);
  const QPoint from = At(kEventPeople, 0), old_corner = Corner(kEventPeople, 0), look(16, 8);
  Press(from);
  EXPECT_EQ(Controller().drag_origin(), (EventTile{26, 18}));
  MoveTo(from + QPoint(3 * 32, 0));
  MoveTo(from + QPoint(5 * 32, 2 * 32));
  MoveTo(from + QPoint(5 * 32 + 10, 2 * 32 + 10));  // still the same tile
  Release(from + QPoint(5 * 32, 2 * 32));
  EXPECT_EQ(Stored(kEventPeople, 0), (EventTile{31, 20}));
  EXPECT_EQ(Document().History().Count(), 1u);
  EXPECT_TRUE(window_->isWindowModified());
  const PositionFields fields = *PositionFieldsOf(kEventPeople);
  EXPECT_EQ(Page().field(fields.x_text)->text().toStdString(),
            EventFieldText(*FindEventField(fields.x_text), Document().Events().Record(kEventPeople, 0)));
  EXPECT_EQ(FramePlace(), old_corner + QPoint(5 * 32, 2 * 32));
  EXPECT_EQ(Shown(FramePlace() + look), Marked("people", FramePlace(), FramePlace() + look));
  EXPECT_EQ(Shown(old_corner + look), Bare(old_corner + look));

  Click("mnuUndo");
  EXPECT_EQ(Record(kEventPeople, 0), before);
  EXPECT_FALSE(window_->isWindowModified());
  EXPECT_EQ(FramePlace(), old_corner);
  EXPECT_EQ(Shown(old_corner + look), Marked("people", old_corner, old_corner + look));

  // A position typed into the X field moves the marker and the frame just as well.
  Type(Page().field(fields.x_text), QStringLiteral("27"));
  EXPECT_EQ(Stored(kEventPeople, 0), (EventTile{27, 18}));
  EXPECT_EQ(FramePlace(), old_corner + QPoint(32, 0));
  EXPECT_EQ(Shown(FramePlace() + look), Marked("people", FramePlace(), FramePlace() + look));
  Click("mnuUndo");
  EXPECT_EQ(Record(kEventPeople, 0), before);
}

TEST_F(EventViewTest, ADraggedWarpStaysInsideTheMapAndItsMarginAndEachDragIsAStep) {
  Show(kEventWarp, 0);
  const Bytes before = Record(kEventWarp, 0);
  const QPoint from = At(kEventWarp, 0);
  Press(from);
  MoveTo(from + QPoint(-5000, -5000));
  EXPECT_EQ(Stored(kEventWarp, 0), (EventTile{0, 0}));
  MoveTo(from + QPoint(5000, 5000));
  Release(from);
  EXPECT_EQ(Controller().drag_origin(), (EventTile{20 * 2 + 5, 16 * 2 + 5}));
  Bytes moved = before;
  moved[0] = 37;
  moved[1] = 45;
  EXPECT_EQ(Record(kEventWarp, 0), moved);  // only the position bytes
  Click("mnuUndo");
  EXPECT_EQ(Record(kEventWarp, 0), before);

  for (QPoint step : {QPoint(32, 0), QPoint(0, 32)}) {
    Press(At(kEventWarp, 0));
    MoveTo(At(kEventWarp, 0) + step);
    Release(At(kEventWarp, 0));
  }
  EXPECT_EQ(Document().History().Count(), 2u);
}

TEST_F(EventViewTest, ADoubleClickOnAWarpOpensItsTargetAndTheExitLeadsBack) {
  Show(kEventWarp, 1);
  DoubleClickAt(At(kEventWarp, 1));
  EXPECT_EQ(Document().SelectedBank() * 100 + Document().SelectedMap(), 0 * 100 + 5);  // the shop, 1.6
  EXPECT_EQ(window_->map_selector()->map_index(), 5);
  EXPECT_EQ(Selected(), std::make_pair(0, 0));
  const ScrollPair centre =
      CentreOn(Stored(kEventWarp, 0), Viewport(), View().h_scroll()->maximum(), View().v_scroll()->maximum());
  EXPECT_EQ(H() * 1000 + V(), centre.h * 1000 + centre.v);
  EXPECT_EQ(FramePlace(), Corner(kEventWarp, 0));

  // The shop's exit names warp 2 of Mühlental.
  DoubleClickAt(At(kEventWarp, 0));
  EXPECT_EQ(Document().SelectedBank() * 100 + Document().SelectedMap(), 0);
  EXPECT_EQ(Selected(), std::make_pair(0, 1));
  EXPECT_EQ(Page().event_list(kEventWarp)->currentIndex(), 1);
  EXPECT_EQ(FramePlace(), Corner(kEventWarp, 1));
}

TEST_F(EventViewTest, UnsavedMovesAreAskedAboutBeforeAWarpIsFollowed) {
  Show(kEventWarp, 0);
  Press(At(kEventWarp, 0));
  MoveTo(At(kEventWarp, 0) + QPoint(0, 64));
  Release(At(kEventWarp, 0));
  prompter_.ExpectMessage(QString(), Prompter::Answer::kCancel);
  DoubleClickAt(At(kEventWarp, 0));
  EXPECT_EQ(Document().SelectedMap() * 100 + window_->map_selector()->map_index(), 0);
  EXPECT_TRUE(window_->isWindowModified());
  prompter_.ExpectMessage(QString(), Prompter::Answer::kNo);
  DoubleClickAt(At(kEventWarp, 0));
  EXPECT_EQ(Document().SelectedMap(), 4);  // the house, 1.5
}

// Map 1.1 has warps to bank 0, to bank 27, to map 0, to map 3 of a bank of two maps, and to
// warps 3, 9 and 0 of map 1.2, which has one warp.
TEST_F(EventViewTest, WarpsToMissingTargetsSayWhatIsMissing) {
  std::vector<WarpDecl> warps;
  const std::uint8_t targets[][3] = {{1, 0, 1}, {1, 27, 1}, {1, 1, 0}, {1, 1, 3}, {3, 1, 2}, {9, 1, 2}, {0, 1, 2}};
  for (std::uint8_t i = 0; i < 7; ++i)
    warps.push_back({2, static_cast<std::uint8_t>(2 * i), targets[i][0], targets[i][1], targets[i][2]});
  const auto bytes = RomBuilder()
                         .Title(kDemoTitle)
                         .Map(1, {.width = 8, .height = 5, .warps = warps})
                         .Map(1, {.width = 4, .height = 4, .warps = {{3, 5, 1, 1, 1}}})
                         .Build();
  OpenThroughDialog(WriteRom("ziele.gbc", bytes));
  auto follow = [&](int warp) {
    Show(kEventWarp, warp);
    const QPoint at = At(kEventWarp, warp);
    ClickAt(at);
    ASSERT_EQ(Selected(), std::make_pair(0, warp));
    QTest::mouseDClick(picture_, Qt::LeftButton, {}, at);
    Release(at);
  };
  prompter_.ExpectMessage(QStringLiteral("Fehler: Ziel-Bank (0) existiert nicht."));
  follow(0);
  prompter_.ExpectMessage(QStringLiteral("Fehler: Ziel-Bank (27) existiert nicht."));
  follow(1);
  prompter_.ExpectMessage(QStringLiteral("Fehler: Ziel-Map (1.0) existiert nicht."));
  follow(2);
  EXPECT_EQ(window_->map_selector()->map_index(), -1);  // the target bank's list, nothing chosen
  prompter_.ExpectMessage(QStringLiteral("Fehler: Ziel-Map (1.3) existiert nicht."));
  follow(3);
  EXPECT_EQ(Document().SelectedMap(), 0);

  // Warp 3 of a map with one: the map opens and no warp is chosen; a list far too short for
  // the target (warp 9) shows its first warp; warp 0 names none.
  for (auto [warp, chosen] : {std::pair{4, -1}, {5, 0}, {6, -1}}) {
    ClickMap(0);
    follow(warp);
    EXPECT_EQ(Document().SelectedMap(), 1) << warp;
    EXPECT_EQ(Page().event_list(kEventWarp)->currentIndex(), chosen) << warp;
  }
}

TEST_F(EventViewTest, AMarkerPictureThatCannotBeReadIsReportedOnce) {
  Controller().SetMarkerSource(QString::fromStdString(dir_.File("fehlt/")));
  prompter_.ExpectMessage(QStringLiteral("Das Alphablending ist fehlgeschlagen"));
  window_->graphics()->RedrawWholeView();
  EXPECT_TRUE(picture_->Overlays().isEmpty());
  Controller().SetMarkerSource(QStringLiteral(":/markers/"));
  Show(kEventWarp, 0);
  window_->graphics()->RedrawWholeView();
  EXPECT_FALSE(picture_->Overlays().isEmpty());
  Controller().SetMarkerSource(QString::fromStdString(dir_.File("fehlt/")));
  window_->graphics()->RedrawWholeView();  // no second message
}

}  // namespace
}  // namespace kartova::test
