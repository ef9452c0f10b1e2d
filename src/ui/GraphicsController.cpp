#include "ui/GraphicsController.h"

#include <QLabel>
#include <QScrollBar>
#include <QTime>
#include <limits>

#include "ui/BlockChooserView.h"
#include "ui/EventPage.h"
#include "ui/EventViewController.h"
#include "ui/FrameMarker.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MainWindow.h"
#include "ui/MapEditor.h"
#include "ui/MapPage.h"
#include "ui/MapSelector.h"
#include "ui/MapView.h"

namespace kartova {

namespace {

// The Palette / Lighting items by time of day; 8 is "Auto".
constexpr const char* kDayItems[] = {"mnuDay0", "mnuDay1", "mnuDay2", "mnuDay3", "mnuDay4",
                                     "mnuDay5", "mnuDay6", "mnuDay7", "mnuDayAuto"};

const char* DayItem(int time_of_day) {
  return time_of_day >= 0 && time_of_day <= 8 ? kDayItems[time_of_day] : nullptr;
}

// The draw timer counts seconds since midnight, as the timing of the event view always has.
double SecondsSinceMidnight() { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; }

}  // namespace

GraphicsController::GraphicsController(MainWindow& window)
    : QObject(&window),
      window_(window),
      document_(window.document()),
      map_view_(window.map_page()->map_view()),
      event_view_(window.event_page()->event_view()),
      chooser_(window.map_page()->chooser()) {
  setObjectName(QStringLiteral("GraphicsController"));
  chooser_->SetBlocks(&document_.Blocks());
  chooser_->SetViewLock([this] { return window_.view_lock(); });
  ConnectViews();
  ConnectLightingMenu();
}

void GraphicsController::ConnectViews() {
  connect(&window_, &MainWindow::MapLoadStepDone, this,
          [this](MapLoadStep step) { AfterMapLoadStep(step); });
  connect(&window_, &MainWindow::MapViewRedrawRequested, this, [this] { RedrawWholeView(); });
  connect(&window_.view_options(), &ViewOptions::ZoomChanged, this,
          [this](ViewOptions::View view, int) { window_.Guarded([&] { ZoomChanged(view); }); });
  for (MapView* view : {map_view_, event_view_}) {
    connect(view, &MapView::Scrolled, this, [this] { window_.Guarded([this] { RenderMapView(); }); });
    connect(view->picture(), &IndexedPictureBox::Resized, this,
            [this, view] { window_.Guarded([&] { MapPictureResized(*view); }); });
  }
  connect(chooser_->picture(), &IndexedPictureBox::Resized, this,
          [this] { window_.Guarded([this] { ChooserPictureResized(); }); });
  connect(chooser_, &BlockChooserView::HoverText, this,
          [this](const QString& text) { window_.panel(4)->setText(text); });
  connect(chooser_, &BlockChooserView::SelectionText, this,
          [this](const QString& text) { window_.panel(5)->setText(text); });
}

void GraphicsController::ConnectLightingMenu() {
  for (int value = 0; value <= 8; ++value) {
    window_.menu().OnClick(QString::fromLatin1(DayItem(value)), this,
                           [this, value] { window_.Guarded([&] { SetTimeOfDay(value); }); });
  }
}

void GraphicsController::PrepareViews() {
  ApplyZoom();
  chooser_->SetZoom(window_.tileset_zoom());
  map_view_->SetScrollSteps(map_block_size_);
  event_view_->SetScrollSteps(event_block_size_);
}

void GraphicsController::SetUpViews() {
  chooser_->SetupScrollRange();
  DrawBlockChooser();
  SetupHorizontalScroll();
  SetupVerticalScroll();
  RenderMapView();
}

void GraphicsController::ApplyZoom() {
  map_block_size_ = 32 * window_.map_zoom();
  event_block_size_ = 32 * window_.event_zoom();
  tileset_block_size_ = 32 * window_.tileset_zoom();
  block_square_.Resize(map_block_size_, map_block_size_);
  cell_square_.Resize(event_cell_size(), event_cell_size());
  window_.map_page()->block_cursor()->SetSize(map_block_size_);
}

void GraphicsController::SetupHorizontalScroll() {
  const int saved = window_.view_lock();
  const ScopeExit restore([&] { window_.set_view_lock(saved); });
  window_.set_view_lock(2);
  const int columns = document_.Grid().Width();
  map_view_->SetHorizontalRange(columns * map_block_size_);
  event_view_->SetHorizontalRange(columns * event_block_size_);
}

void GraphicsController::SetupVerticalScroll() {
  const int saved = window_.view_lock();
  const ScopeExit restore([&] { window_.set_view_lock(saved); });
  window_.set_view_lock(2);
  const int rows = document_.Grid().Height();
  map_view_->SetVerticalRange(rows * map_block_size_);
  event_view_->SetVerticalRange(rows * event_block_size_);
}

MapView* GraphicsController::ActiveView(int* block_size, int* zoom) const {
  if (window_.current_tab() == MainWindow::kMapTab) {
    *block_size = map_block_size_;
    *zoom = window_.map_zoom();
    return map_view_;
  }
  if (window_.current_tab() == MainWindow::kEventTab) {
    *block_size = event_block_size_;
    *zoom = window_.event_zoom();
    return event_view_;
  }
  return nullptr;
}

void GraphicsController::RenderMapView() {
  if (window_.view_lock() != 0) return;
  int block_size = 0, zoom = 1;
  MapView* view = ActiveView(&block_size, &zoom);
  if (!view) return;
  if (view == event_view_) {
    const double started = SecondsSinceMidnight();
    RenderView(*view, zoom);
    if (EventViewController* events = window_.event_view_controller()) events->DrawEvents();
    view->picture()->repaint();
    RecordDrawTime(started);
  } else {
    RenderView(*view, zoom);
    // The status bar follows the scroll: the cell under the mouse may be another one now.
    if (MapEditor* editor = window_.map_editor()) editor->RefreshHover();
  }
}

void GraphicsController::RenderView(MapView& view, int zoom) {
  IndexedPictureBox& picture = *view.picture();
  ViewBuffer::View at;
  at.scroll_x = view.h_scroll()->value();
  at.scroll_y = view.v_scroll()->value();
  at.picture_width = picture.width();
  at.picture_height = picture.height();
  at.zoom = zoom;
  picture.SetColourTable(document_.Colours());
  if (view_buffer_.Render(document_.Grid(), document_.Blocks(), at)) {
    ++rebuilds_;
    picture.SetBuffer(view_buffer_.Image());
  }
  picture.SetSourceWindow(QRect(view_buffer_.SourceColumn(), view_buffer_.SourceLine(),
                                view_buffer_.VisibleWidth(), view_buffer_.VisibleHeight()));
}

void GraphicsController::RecordDrawTime(double started) {
  const auto dt = static_cast<float>(SecondsSinceMidnight() - started);
  // A draw across midnight gives a negative time and is not counted.
  if (dt >= 0) {
    draw_time_average_ = (draw_time_average_ * static_cast<float>(draw_count_) + dt) /
                         static_cast<float>(std::int64_t{draw_count_} + 1);
    ++draw_count_;
  }
  // A timer too coarse to see the draw would stop the dynamic scrolling.
  if (draw_time_average_ == 0.0f) draw_time_average_ = 0.002f;
  if (draw_count_ == std::numeric_limits<std::int32_t>::max()) --draw_count_;
}

void GraphicsController::RedrawWholeView() {
  view_buffer_.Invalidate();
  RenderMapView();
}

void GraphicsController::PatchCell(int cx, int cy) {
  if (window_.view_lock() != 0) return;
  int block_size = 0, zoom = 1;
  MapView* view = ActiveView(&block_size, &zoom);
  // The buffer of another zoom is rebuilt at the next draw anyway.
  if (!view || view_buffer_.BlockSize() != block_size) return;
  view_buffer_.PatchBlock(document_.Grid(), document_.Blocks(), cx, cy);
  const QRect square(cx * block_size - view_buffer_.Left(), cy * block_size - view_buffer_.Top(),
                     block_size, block_size);
  view->picture()->UpdateRegion(view_buffer_.Image(), square);
  // A marker over the cell was mixed with the block that was there before.
  if (view == event_view_)
    if (EventViewController* events = window_.event_view_controller()) events->DrawEvents();
}

void GraphicsController::DrawBlockChooser() {
  chooser_->picture()->SetColourTable(document_.Colours());
  chooser_->Draw();
}

void GraphicsController::AfterMapLoadStep(MapLoadStep step) {
  if (step == MapLoadStep::kMapBuilt) {
    AfterMapBuilt();
  } else if (step == MapLoadStep::kMapRedraw) {
    RenderMapView();
  }
}

void GraphicsController::AfterMapBuilt() {
  draw_count_ = 0;
  view_buffer_.Invalidate();
  SetupHorizontalScroll();
  SetupVerticalScroll();
  RenderMapView();
  DrawBlockChooser();
}

void GraphicsController::ZoomChanged(ViewOptions::View view) {
  ApplyZoom();
  if (view == ViewOptions::View::kTileset) {
    chooser_->SetZoom(window_.tileset_zoom());
    DrawBlockChooser();
    return;
  }
  SetupHorizontalScroll();
  SetupVerticalScroll();
  map_view_->SetScrollSteps(map_block_size_);
  event_view_->SetScrollSteps(event_block_size_);
  RedrawWholeView();
}

void GraphicsController::MapPictureResized(MapView& view) {
  draw_count_ = 0;
  SetupHorizontalScroll();
  SetupVerticalScroll();
  view.SetScrollSteps(&view == map_view_ ? map_block_size_ : event_block_size_);
  // The buffer holds the view of the active tab; the other view is rebuilt when its tab is
  // chosen.
  int block_size = 0, zoom = 1;
  if (ActiveView(&block_size, &zoom) == &view) RedrawWholeView();
}

void GraphicsController::ChooserPictureResized() {
  chooser_->SetupScrollRange();
  DrawBlockChooser();
}

void GraphicsController::SetTimeOfDay(int value) {
  const int current = document_.TimeOfDay();
  if (value == current) return;
  if (const char* item = DayItem(current)) window_.menu().SetChecked(item, false);
  window_.set_time_of_day(value);
  if (const char* item = DayItem(value)) window_.menu().SetChecked(item, true);
  document_.SetTimeOfDay(value, window_.map_selector()->bank_index());
  RenderMapView();
  DrawBlockChooser();
}

}  // namespace kartova
