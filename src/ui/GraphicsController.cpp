#include "ui/GraphicsController.h"

#include <QLabel>
#include <QScrollBar>
#include <QTime>
#include <limits>
#include <utility>

#include "ui/BlockChooserView.h"
#include "ui/FrameMarker.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MapPage.h"
#include "ui/MapView.h"
#include "ui/PageContext.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

// The draw timer counts seconds since midnight, as the timing of the event view always has.
double SecondsSinceMidnight() { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; }

}  // namespace

GraphicsController::GraphicsController(RomDocument& document, PageContext& context, ViewOptions& options,
                                       MapPage& map_page, MapView& event_view, QObject* parent)
    : QObject(parent),
      document_(document),
      context_(context),
      options_(options),
      map_page_(map_page),
      map_view_(map_page.map_view()),
      event_view_(&event_view),
      chooser_(map_page.chooser()) {
  setObjectName(QStringLiteral("GraphicsController"));
  chooser_->SetBlocks(&document_.Blocks());
  chooser_->SetViewLock([this] { return context_.state().view_lock; });
  ConnectViews();
}

void GraphicsController::ConnectViews() {
  connect(&context_.events(), &PageEvents::MapLoadStepDone, this,
          [this](MapLoadStep step) { AfterMapLoadStep(step); });
  connect(&context_.events(), &PageEvents::MapViewRedrawRequested, this, [this] { RedrawWholeView(); });
  connect(&options_, &ViewOptions::ZoomChanged, this,
          [this](ViewOptions::View view, int) { context_.Guarded([&] { ZoomChanged(view); }); });
  for (MapView* view : {map_view_, event_view_}) {
    connect(view, &MapView::Scrolled, this, [this] { context_.Guarded([this] { RenderMapView(); }); });
    connect(view->picture(), &IndexedPictureBox::Resized, this,
            [this, view] { context_.Guarded([&] { MapPictureResized(*view); }); });
  }
  connect(chooser_->picture(), &IndexedPictureBox::Resized, this,
          [this] { context_.Guarded([this] { ChooserPictureResized(); }); });
  connect(chooser_, &BlockChooserView::HoverText, this,
          [this](const QString& text) { context_.ShowStatus(4, text); });
  connect(chooser_, &BlockChooserView::SelectionText, this,
          [this](const QString& text) { context_.ShowStatus(5, text); });
}

void GraphicsController::PrepareViews() {
  ApplyZoom();
  chooser_->SetZoom(options_.zoom(ViewOptions::View::kTileset));
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
  map_block_size_ = 32 * options_.zoom(ViewOptions::View::kMap);
  event_block_size_ = 32 * options_.zoom(ViewOptions::View::kEvent);
  tileset_block_size_ = 32 * options_.zoom(ViewOptions::View::kTileset);
  block_square_.Resize(map_block_size_, map_block_size_);
  cell_square_.Resize(event_cell_size(), event_cell_size());
  map_page_.block_cursor()->SetSize(map_block_size_);
}

void GraphicsController::SetupHorizontalScroll() {
  const int saved = context_.state().view_lock;
  const ScopeExit restore([&] { context_.state().view_lock = saved; });
  context_.state().view_lock = 2;
  const int columns = document_.Grid().Width();
  map_view_->SetHorizontalRange(columns * map_block_size_);
  event_view_->SetHorizontalRange(columns * event_block_size_);
}

void GraphicsController::SetupVerticalScroll() {
  const int saved = context_.state().view_lock;
  const ScopeExit restore([&] { context_.state().view_lock = saved; });
  context_.state().view_lock = 2;
  const int rows = document_.Grid().Height();
  map_view_->SetVerticalRange(rows * map_block_size_);
  event_view_->SetVerticalRange(rows * event_block_size_);
}

MapView* GraphicsController::ActiveView(int* block_size, int* zoom) const {
  if (context_.state().current_tab == PageContext::kMapTab) {
    *block_size = map_block_size_;
    *zoom = options_.zoom(ViewOptions::View::kMap);
    return map_view_;
  }
  if (context_.state().current_tab == PageContext::kEventTab) {
    *block_size = event_block_size_;
    *zoom = options_.zoom(ViewOptions::View::kEvent);
    return event_view_;
  }
  return nullptr;
}

void GraphicsController::RenderMapView() {
  if (context_.state().view_lock != 0) return;
  int block_size = 0, zoom = 1;
  MapView* view = ActiveView(&block_size, &zoom);
  if (!view) return;
  if (view == event_view_) {
    const double started = SecondsSinceMidnight();
    RenderView(*view, zoom);
    if (event_view_drawn_) event_view_drawn_();
    view->picture()->repaint();
    RecordDrawTime(started);
  } else {
    RenderView(*view, zoom);
    // The status bar follows the scroll: the cell under the mouse may be another one now.
    if (map_view_drawn_) map_view_drawn_();
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
  if (context_.state().view_lock != 0) return;
  int block_size = 0, zoom = 1;
  MapView* view = ActiveView(&block_size, &zoom);
  // The buffer of another zoom is rebuilt at the next draw anyway.
  if (!view || view_buffer_.BlockSize() != block_size) return;
  view_buffer_.PatchBlock(document_.Grid(), document_.Blocks(), cx, cy);
  const QRect square(cx * block_size - view_buffer_.Left(), cy * block_size - view_buffer_.Top(),
                     block_size, block_size);
  view->picture()->UpdateRegion(view_buffer_.Image(), square);
  // A marker over the cell was mixed with the block that was there before.
  if (view == event_view_ && event_view_drawn_) event_view_drawn_();
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
    chooser_->SetZoom(options_.zoom(ViewOptions::View::kTileset));
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

void GraphicsController::ShowTimeOfDay(int value, int bank_index) {
  document_.SetTimeOfDay(value, bank_index);
  RenderMapView();
  DrawBlockChooser();
}

}  // namespace kartova
