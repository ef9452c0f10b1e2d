#include "ui/EventViewController.h"

#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

#include "events/MapEventSet.h"
#include "ui/EventPage.h"
#include "ui/FrameMarker.h"
#include "ui/GraphicsController.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MapView.h"
#include "ui/PageContext.h"
#include "ui/ScopeExit.h"
#include "ui/ViewOptions.h"

// The marker pictures are compiled into the ui library, which is linked statically: nothing
// would pull their registration into the program unless it is called.
static void RegisterMarkerResources() {
  static const bool registered = [] {
    Q_INIT_RESOURCE(markers);
    return true;
  }();
  (void)registered;
}

namespace kartova {

namespace {

// Shape5 is put out of sight above the picture rather than hidden.
constexpr int kOffPicture = -128;
const QPoint kLineOff(-10, -10);
const QColor kSelectionColour(255, 230, 0);
const QColor kLineColour(255, 255, 255);

// File names of the marker pictures by marker kind, before the size.
constexpr const char* kMarkerNames[kMarkerKindCount] = {"people", "signpost", "trigger", "warp"};

// The dynamic formula multiplies by the checked mode item's value, which is -1: that is what
// turns the scrolling against the drag.
constexpr double kCheckedItemValue = -1.0;

bool ReadMarker(const QString& path, MarkerPicture& marker) {
  QImage image(path, "XPM");
  if (image.isNull() || image.width() != image.height()) return false;
  image = image.convertToFormat(QImage::Format_RGB32);
  marker.size = image.width();
  marker.pixels.resize(static_cast<std::size_t>(marker.size) * static_cast<std::size_t>(marker.size));
  for (int y = 0; y < marker.size; ++y)
    std::memcpy(marker.pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(marker.size),
                image.constScanLine(y), static_cast<std::size_t>(marker.size) * sizeof(std::uint32_t));
  return true;
}

QImage ToImage(const BlendedCell& cell) {
  QImage image(cell.width, cell.height, QImage::Format_RGB32);
  const auto row_bytes = static_cast<std::size_t>(cell.width) * sizeof(std::uint32_t);
  for (int y = 0; y < cell.height; ++y)
    std::memcpy(image.scanLine(y),
                cell.pixels.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(cell.width), row_bytes);
  return image;
}

// A scroll value worked out in fractions: rounded to the nearest (halves to even), within the bar.
int ScrollValue(double value, int maximum) {
  if (std::isnan(value)) return 0;
  return static_cast<int>(std::nearbyint(std::clamp(value, 0.0, static_cast<double>(std::max(maximum, 0)))));
}

}  // namespace

// ---- Line1 ----------------------------------------------------------------------------------

DirectionLine::DirectionLine(QWidget* picture) : QWidget(picture) {
  setObjectName(QStringLiteral("Line1"));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
  SetLine(kLineOff, kLineOff);
}

void DirectionLine::SetLine(QPoint from, QPoint to) {
  line_ = QLine(from, to);
  setGeometry(QRect(from, to).normalized().adjusted(-1, -1, 1, 1));
  update();
}

void DirectionLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(kLineColour);
  painter.drawLine(line_.translated(-pos()));
}

// ---- Drawing --------------------------------------------------------------------------------

EventViewController::EventViewController(RomDocument& document, PageContext& context, EventPage& page,
                                         GraphicsController& graphics, const ViewOptions& options, QObject* parent)
    : QObject(parent),
      document_(document),
      context_(context),
      page_(page),
      graphics_(graphics),
      options_(options),
      marker_source_(QStringLiteral(":/markers/")) {
  setObjectName(QStringLiteral("EventViewController"));
  RegisterMarkerResources();
  IndexedPictureBox* picture = View().picture();
  shape5_ = new FrameMarker(QStringLiteral("Shape5"), kSelectionColour, 2, picture);
  shape5_->SetSize(graphics.event_cell_size());
  shape5_->MoveTo(0, kOffPicture);
  line1_ = new DirectionLine(picture);

  connect(picture, &IndexedPictureBox::MousePressed, this,
          [this](Qt::MouseButton, QPoint mouse) { context_.Guarded([&] { Press(mouse); }); });
  connect(picture, &IndexedPictureBox::MouseMoved, this, [this](Qt::MouseButtons buttons, QPoint mouse) {
    if (buttons != Qt::NoButton) context_.Guarded([&] { Move(mouse); });
  });
  connect(picture, &IndexedPictureBox::MouseReleased, this,
          [this](Qt::MouseButton, QPoint) { context_.Guarded([&] { Release(); }); });
  connect(picture, &IndexedPictureBox::MouseDoubleClicked, this,
          [this](Qt::MouseButton, QPoint) { context_.Guarded([&] { DoubleClick(); }); });
  connect(&options, &ViewOptions::DirLineVisibilityChanged, this, [this](bool visible) {
    if (!visible) HideLine();
  });
}

void EventViewController::SetMarkerSource(const QString& prefix) {
  marker_source_ = prefix;
  markers_.clear();
}

const MarkerSet& EventViewController::Markers(int cell) {
  // Zoom 1 has cells of 16 pixels, zoom 2 of 32; the blend scales a picture to another cell.
  const int size = cell <= 16 ? 16 : 32;
  auto found = markers_.find(size);
  if (found != markers_.end()) return found->second;
  MarkerSet set;
  bool failed = false;
  for (int kind = 0; kind < kMarkerKindCount; ++kind) {
    const QString path =
        marker_source_ + QLatin1String(kMarkerNames[kind]) + QString::number(size) + QStringLiteral(".xpm");
    failed |= !ReadMarker(path, set[static_cast<std::size_t>(kind)]);
  }
  found = markers_.emplace(size, std::move(set)).first;
  // The view goes on without what could not be read; saying so once is enough.
  if (failed && !marker_failure_shown_) {
    marker_failure_shown_ = true;
    context_.prompter().Message(tr("Das Alphablending ist fehlgeschlagen"));
  }
  return found->second;
}

void EventViewController::DrawEvents() {
  IndexedPictureBox& picture = *View().picture();
  QList<IndexedPictureBox::Overlay> overlays;
  if (context_.state().current_tab == PageContext::kEventTab && document_.MapLoaded()) {
    const EventViewport view = Viewport();
    const MarkerSet& markers = Markers(view.cell);
    std::array<std::uint32_t, 256> colours{};
    for (int k = 0; k < 256; ++k)
      colours[static_cast<std::size_t>(k)] = picture.ScreenColour(static_cast<std::uint8_t>(k));
    const QRect window = picture.SourceWindow();
    const ShownPicture shown{.buffer = &picture.Buffer(),
                             .source_x = window.x(),
                             .source_y = window.y(),
                             .window_width = window.width(),
                             .window_height = window.height(),
                             .width = picture.width(),
                             .height = picture.height(),
                             .colours = &colours,
                             .background = IndexedPictureBox::kBackground};
    const std::vector<BlendedCell> cells = BlendEventMarkers(markers, shown, document_.Events(), view);
    overlays.reserve(static_cast<qsizetype>(cells.size()));
    for (const BlendedCell& cell : cells) overlays.push_back({QPoint(cell.x, cell.y), ToImage(cell)});
  }
  picture.SetOverlays(std::move(overlays));
  DrawSelectedEventMarker();
}

void EventViewController::DrawSelectedEventMarker() {
  const EventViewport view = Viewport();
  shape5_->SetSize(view.cell);
  int kind = 0, index = 0;
  std::optional<PixelPoint> at;
  if (SelectedOnMap(&kind, &index)) at = SelectionMarkerPosition(document_.Events(), kind, index, view);
  if (at) {
    shape5_->MoveTo(at->x, at->y);
  } else {
    shape5_->MoveTo(shape5_->x(), kOffPicture);
  }
}

MapView& EventViewController::View() const { return *page_.event_view(); }

EventViewport EventViewController::Viewport() const {
  const MapView& view = View();
  return {.h_scroll = view.h_scroll()->value(),
          .v_scroll = view.v_scroll()->value(),
          .width = view.picture()->width(),
          .height = view.picture()->height(),
          .cell = graphics_.event_cell_size()};
}

bool EventViewController::SelectedOnMap(int* kind, int* index) const {
  const EventPage& page = page_;
  *kind = page.selected_kind();
  *index = page.selected_index();
  return *kind >= kEventWarp && *kind <= kEventPeople && *index >= 0 &&
         *index < document_.Events().Count(*kind);
}

// ---- Mouse ----------------------------------------------------------------------------------

void EventViewController::Press(QPoint mouse) {
  if (context_.state().view_lock == 1) return;
  EventPage& page = page_;
  const EventTile tile = TileUnderMouse(Viewport(), mouse.x(), mouse.y());
  drag_origin_ = tile;
  const EventHits hits = HitTest(document_.Events(), tile);
  if (hits.Any()) {
    SelectHits(hits);
    if (page.selected_kind() == kEventPeople) {
      drag_origin_.column += kPeopleOffset;
      drag_origin_.row += kPeopleOffset;
    }
  } else {
    drag_origin_ = {kNoEventIndex, kNoEventIndex};
    press_position_ = mouse;
    press_h_scroll_ = View().h_scroll()->value();
    press_v_scroll_ = View().v_scroll()->value();
  }
  page.set_lists_loading(false);
  mouse_pressed_ = true;
  // Every move of this drag joins one step of the history.
  drag_key_ = "Drag " + std::to_string(++drags_);
}

// Each list with a hit ends on its last one; the first hit is the one selected.
void EventViewController::SelectHits(const EventHits& hits) {
  EventPage& page = page_;
  {
    const ScopeExit loaded([this] { context_.state().rom_loading = 0; });
    context_.state().rom_loading = 1;
    for (int kind = kEventWarp; kind <= kEventPeople; ++kind) {
      const int last = hits.last_in_kind[static_cast<std::size_t>(kind)];
      if (QComboBox* list = page.event_list(kind); list && last >= 0) list->setCurrentIndex(last);
    }
    if (QComboBox* list = page.event_list(hits.first_kind)) list->setCurrentIndex(hits.first_index);
  }
  page.SelectEventFromList(hits.first_kind);
  // Whatever the selection sets off afterwards must not select again.
  page.set_lists_loading(true);
}

void EventViewController::Move(QPoint mouse) {
  if (context_.state().view_lock == 1 || !mouse_pressed_) return;
  if (drag_origin_ == EventTile{kNoEventIndex, kNoEventIndex}) {
    Pan(mouse);
    return;
  }
  const EventTile tile = TileUnderMouse(Viewport(), mouse.x(), mouse.y());
  MoveSelectedEvent(tile.column, tile.row);
}

// Static scrolling keeps the map under the mouse as far as the speed says; dynamic scrolling
// keeps moving the view against the drag on every move, the further from the press point the
// faster, scaled by how long a draw takes.
void EventViewController::Pan(QPoint mouse) {
  QScrollBar& h_bar = *View().h_scroll();
  QScrollBar& v_bar = *View().v_scroll();
  const double speed = options_.scroll_speed();
  const double dx = mouse.x() - press_position_.x();
  const double dy = mouse.y() - press_position_.y();
  double h = press_h_scroll_ + dx * speed;
  double v = press_v_scroll_ + dy * speed;
  if (options_.dynamic_scrolling()) {
    const double factor = speed * kCheckedItemValue * graphics_.draw_time_average() * 0.1;
    h = h_bar.value() + dx * factor;
    v = v_bar.value() + dy * factor;
  }
  const int new_h = ScrollValue(h, h_bar.maximum());
  const int new_v = ScrollValue(v, v_bar.maximum());
  const bool changed = new_h != h_bar.value() || new_v != v_bar.value();
  {
    const ScopeExit unlock([this] { context_.state().view_lock = 0; });
    context_.state().view_lock = 1;
    h_bar.setValue(new_h);
    v_bar.setValue(new_v);
  }
  if (options_.show_dir_line()) line1_->SetLine(press_position_, mouse);
  if (changed) graphics_.RenderMapView();
}

void EventViewController::Release() {
  if (context_.state().view_lock == 1) return;
  mouse_pressed_ = false;
  HideLine();
  int kind = 0, index = 0;
  if (SelectedOnMap(&kind, &index)) drag_origin_ = StoredPosition(document_.Events(), kind, index);
  drag_key_.clear();
  document_.CloseGesture();
  context_.DocumentEdited();
}

void EventViewController::HideLine() { line1_->SetLine(kLineOff, kLineOff); }

// ---- Moving ---------------------------------------------------------------------------------

void EventViewController::MoveSelectedEvent(int x, int y) {
  int kind = 0, index = 0;
  if (!SelectedOnMap(&kind, &index)) return;
  const std::span<const std::uint8_t> record = document_.Events().Record(kind, index);
  // A move typed into the position fields compares with where the event stands now, not with
  // the end of the last drag (another event may have been chosen since).
  if (drag_key_.empty()) drag_origin_ = StoredPosition(document_.Events(), kind, index);
  std::vector<std::uint8_t> bytes(record.begin(), record.end());
  const EventMove move =
      MoveEvent(kind, bytes, x, y, drag_origin_, document_.Secondary().Width(), document_.Secondary().Height());
  if (!move.Changed()) return;
  document_.EditEventRecord(kind, index, std::move(bytes), "Event verschieben",
                           drag_key_.empty() ? "Position" : drag_key_);
  // The markers are laid over the buffer, so moving one needs no block drawn again.
  DrawEvents();
  drag_origin_ = move.stored;
  EventPage& page = page_;
  if (page.fields_updating() == 0) {
    const ScopeExit done([&page] { page.set_fields_updating(0); });
    page.set_fields_updating(2);
    page.ShowPositionFields();
  }
  context_.DocumentEdited();
}

// ---- Following a warp -----------------------------------------------------------------------

void EventViewController::DoubleClick() {
  if (context_.state().view_lock == 1) return;
  int kind = 0, index = 0;
  if (!SelectedOnMap(&kind, &index) || kind != kEventWarp) return;
  FollowWarp(index);
}

// Warp bytes 2, 3 and 4: the target warp, map bank and map, all counted from 1.
void EventViewController::FollowWarp(int index) {
  const std::span<const std::uint8_t> record = document_.Events().Record(kEventWarp, index);
  const int target = record[2] - 1;
  const int bank = record[3];
  const int map = record[4];
  if (!context_.FollowWarpTo(bank, map)) return;

  EventPage& page = page_;
  QComboBox* warps = page.event_list(kEventWarp);
  if (!warps) return;
  const int count = warps->count();
  // A target the map does not have selects nothing (target warp 0 included), and the view stays.
  const int chosen = count < target - 1 ? 0 : (target >= 0 && target < count ? target : -1);
  {
    const ScopeExit loaded([this] { context_.state().rom_loading = 0; });
    context_.state().rom_loading = 1;
    warps->setCurrentIndex(chosen);
  }
  page.SelectEventFromList(kEventWarp);
  if (chosen >= 0) CentreOnSelectedWarp();
}

void EventViewController::CentreOnSelectedWarp() {
  int kind = 0, index = 0;
  if (!SelectedOnMap(&kind, &index) || kind != kEventWarp) return;
  MapView& view = View();
  const ScrollPair centre = CentreOn(StoredPosition(document_.Events(), kind, index), Viewport(),
                                     view.h_scroll()->maximum(), view.v_scroll()->maximum());
  {
    const ScopeExit unlock([this] { context_.state().view_lock = 0; });
    context_.state().view_lock = 2;
    view.h_scroll()->setValue(centre.h);
    view.v_scroll()->setValue(centre.v);
  }
  graphics_.RenderMapView();
}

}  // namespace kartova
