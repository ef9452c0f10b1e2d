#include "ui/MapEditor.h"

#include <QScrollBar>

#include "gfx/BlockChooser.h"
#include "rom/Address.h"
#include "rom/RuntimeError.h"
#include "ui/BlockChooserView.h"
#include "ui/CoreTexts.h"
#include "ui/FrameMarker.h"
#include "ui/GraphicsController.h"
#include "ui/IndexedPictureBox.h"
#include "ui/MapPage.h"
#include "ui/MapView.h"
#include "ui/PageContext.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

// Markers are put out of sight above the picture rather than hidden.
constexpr int kHiddenTop = -64;

int EditModeOf(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return MapEditor::kPlace;
  if (button == Qt::RightButton) return MapEditor::kPick;
  return MapEditor::kOtherButton;
}

}  // namespace

MapEditor::MapEditor(RomDocument& document, PageContext& context, MapPage& page, GraphicsController& graphics,
                     QObject* parent)
    : QObject(parent), document_(document), context_(context), page_(page), graphics_(graphics) {
  setObjectName(QStringLiteral("MapEditor"));
  IndexedPictureBox* picture = page.map_view()->picture();
  strip_marker_ = new FrameMarker(QStringLiteral("StripMarker"), QColor(255, 255, 0), 2, picture);
  strip_marker_->resize(0, 0);
  strip_marker_->MoveTo(kHiddenTop, kHiddenTop);

  connect(picture, &IndexedPictureBox::MousePressed, this,
          [this](Qt::MouseButton button, QPoint position) { Press(button, position); });
  connect(picture, &IndexedPictureBox::MouseMoved, this,
          [this](Qt::MouseButtons, QPoint position) {
            context_.Guarded([&] {
              if (Idle()) Move(position);
            });
          });
  connect(picture, &IndexedPictureBox::MouseReleased, this,
          [this](Qt::MouseButton button, QPoint) { Release(button); });
  connect(picture, &IndexedPictureBox::MouseDoubleClicked, this, [this] { DoubleClick(); });
  connect(&context.events(), &PageEvents::MapLoadStepDone, this, [this](MapLoadStep step) {
    if (step == MapLoadStep::kMapBuilt) ForgetCell();
  });
}

bool MapEditor::Idle() const {
  return !busy_ && context_.state().view_lock == 0 && document_.MapLoaded();
}

MapViewport MapEditor::Viewport() const {
  const MapView& view = *page_.map_view();
  MapViewport at;
  at.h_scroll = view.h_scroll()->value();
  at.v_scroll = view.v_scroll()->value();
  at.h_max = view.h_scroll()->maximum();
  at.v_max = view.v_scroll()->maximum();
  at.block_size = graphics_.map_block_size();
  at.width = view.picture()->width();
  at.height = view.picture()->height();
  return at;
}

MapCell MapEditor::CellAt(QPoint position) const {
  return CellAtPosition(document_.Grid(), Viewport(), position.x(), position.y());
}

void MapEditor::SetPanel(int number, const QString& text) { context_.ShowStatus(number, text); }

// ---- Mouse handlers ---------------------------------------------------------------------------

void MapEditor::Press(Qt::MouseButton button, QPoint position) {
  context_.Guarded([&] {
    if (!Idle()) return;
    edit_mode_ = EditModeOf(button);
    if (edit_mode_ == kPlace) document_.BeginStroke();
    last_mouse_ = position;
    mouse_seen_ = true;
    const MapCell cell = CellAt(position);
    TrackCell(cell);
    ApplyMouseAction(cell);
  });
}

void MapEditor::Move(QPoint position) {
  last_mouse_ = position;
  mouse_seen_ = true;
  const MapCell from = cell_;
  const MapCell cell = CellAt(position);
  const bool changed = TrackCell(cell);
  if (changed) SetPanel(4, BlockText("Block: ", document_.Grid().At(cell.x, cell.y)));
  if (edit_mode_ == kNoEdit) {
    ShowHover(cell);
    return;
  }
  if (!changed) return;
  // A fast mouse skips cells; a stroke still covers the straight way between them.
  if (edit_mode_ == kPlace && from.x >= 0) {
    for (const MapCell& crossed : CellsOnLine(from, cell)) ApplyMouseAction(crossed);
  } else {
    ApplyMouseAction(cell);
  }
}

void MapEditor::Release(Qt::MouseButton button) {
  context_.Guarded([&] {
    const int mode = edit_mode_;
    edit_mode_ = kNoEdit;
    if (!Idle()) return;
    last_release_ = button;
    if (button == Qt::LeftButton) document_.EndStroke();
    // The title marker and the Edit menu follow also when opening the neighbour fails.
    const ScopeExit edited([this] { context_.DocumentEdited(); });
    if (mode == kPlace && hovered_ >= 0) OpenNeighbour(hovered_);
  });
}

// Qt sends press, release, double click, release: the release before the double click tells
// which button was clicked twice.
void MapEditor::DoubleClick() {
  context_.Guarded([&] {
    if (!Idle()) return;
    BlockChooserView& chooser = *page_.chooser();
    if (last_release_ == Qt::LeftButton) {
      // The first click painted; the second takes the block it painted over into the chooser,
      // and the cell keeps the new block.
      if (replaced_block_ >= 0) chooser.SelectBlock(replaced_block_);
    } else if (last_release_ == Qt::RightButton) {
      chooser.CentreOnSelection();
      SetPanel(4, BlockText("Block: ", chooser.HoveredBlock()));
    }
  });
}

void MapEditor::RefreshHover() {
  if (!mouse_seen_) return;
  context_.Guarded([&] {
    if (Idle()) Move(last_mouse_);
  });
}

void MapEditor::ForgetCell() {
  cell_ = {-1, -1};
  hovered_ = -1;
  RefreshHover();
}

// ---- Steps ------------------------------------------------------------------------------------

bool MapEditor::TrackCell(MapCell cell) {
  if (cell.x != cell_.x) SetPanel(2, QString::fromStdString(ColumnText(cell.x)));
  if (cell.y != cell_.y) SetPanel(3, QString::fromStdString(RowText(cell.y)));
  const bool changed = cell != cell_;
  cell_ = cell;
  return changed;
}

void MapEditor::ApplyMouseAction(MapCell cell) {
  if (edit_mode_ == kPlace) Place(cell);
  if (edit_mode_ == kPick) Pick(cell);
}

void MapEditor::Place(MapCell cell) {
  if (!document_.Grid().IsMapCell(cell.x, cell.y)) return;
  const int block = page_.chooser()->SelectedBlock();
  replaced_block_ = document_.Grid().At(cell.x, cell.y);
  const bool changed = document_.PaintCell(cell.x, cell.y, static_cast<std::uint8_t>(block));
  SetPanel(4, BlockText("Block: ", block));
  if (changed) graphics_.PatchCell(cell.x, cell.y);
}

void MapEditor::Pick(MapCell cell) {
  BlockChooserView& chooser = *page_.chooser();
  const int block = document_.Grid().At(cell.x, cell.y);
  if (block == chooser.SelectedBlock()) return;
  chooser.SelectBlock(block);
  ScrollChooserTo(block);
}

void MapEditor::ScrollChooserTo(int block) {
  BlockChooserView& chooser = *page_.chooser();
  const BlockChooser geometry(chooser.Zoom());
  const int top = geometry.BlockMarker(block, chooser.scroll()->value()).top;
  if (top < 0 || top + geometry.BlockSize() > chooser.picture()->height()) chooser.CentreOnSelection();
}

void MapEditor::ShowHover(MapCell cell) {
  const ExtendedMap& grid = document_.Grid();
  const MapViewport view = Viewport();
  FrameMarker& cursor = *page_.block_cursor();
  hovered_ = ConnectionAt(grid, cell);
  if (hovered_ >= 0) {
    const PixelRect strip = StripOnPicture(grid.Connection(hovered_).rect, view);
    strip_marker_->setGeometry(strip.left, strip.top, strip.width, strip.height);
    strip_marker_->raise();
    cursor.MoveTo(cursor.x(), kHiddenTop);
    SetPanel(1, CoreText(kStripHoverText));
    return;
  }
  HideStripMarker();
  cursor.MoveTo(cell.x * view.block_size - view.h_scroll, cell.y * view.block_size - view.v_scroll);
  const SecondaryHeaderBuffer& secondary = document_.Secondary();
  SetPanel(1, CoreText(CellInfoText(grid, secondary.BlockDataBank(), secondary.BlockDataPointer(), cell)));
}

void MapEditor::HideStripMarker() {
  if (strip_marker_->size().isEmpty() && strip_marker_->y() == kHiddenTop) return;
  strip_marker_->setGeometry(kHiddenTop, kHiddenTop, 0, 0);
}

// The neighbour is opened as a click in the selectors would open it; its view is then scrolled
// so that the strip of the map just left is in sight.
void MapEditor::OpenNeighbour(int direction) {
  const GridConnection neighbour = document_.Grid().Connection(direction);
  CheckIndex(std::int64_t{neighbour.bank} - 1, kMapBankCount);
  const int left_bank = document_.SelectedBank() + 1;
  const int left_map = document_.SelectedMap() + 1;
  {
    busy_ = true;
    const ScopeExit idle([this] { busy_ = false; });
    if (!context_.SwitchToMap(neighbour.bank - 1, neighbour.map - 1)) return;
    const ScrollValues at = ArrivalScroll(document_.Grid(), direction, left_bank, left_map, Viewport());
    MapView& view = *page_.map_view();
    const int lock = context_.state().view_lock;
    const ScopeExit unlock([&] { context_.state().view_lock = lock; });
    context_.state().view_lock = 1;
    view.h_scroll()->setValue(at.h);
    view.v_scroll()->setValue(at.v);
  }
  graphics_.RedrawWholeView();
}

}  // namespace kartova
