#include "ui/BlockChooserView.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "gfx/BlockSet.h"
#include "ui/FrameMarker.h"
#include "ui/IndexedPictureBox.h"

namespace kartova {

namespace {

// The labels BlockText is called with.
[[maybe_unused]] constexpr const char* kBlockLabels[] = {
    QT_TRANSLATE_NOOP("BlockText", "Block: "),
    QT_TRANSLATE_NOOP("BlockText", "Auswahl: "),
};

}  // namespace

QString BlockText(const char* label, int block) {
  const QString digits = QStringLiteral("%1").arg(block & 0xFF, 2, 16, QLatin1Char('0'));
  return QCoreApplication::translate("BlockText", label) + digits.toUpper();
}

BlockChooserView::BlockChooserView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("BlockChooser"));
  picture_ = new IndexedPictureBox(QStringLiteral("Picture2"), this);
  picture_->setFixedWidth(chooser_.PictureWidth());
  picture_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  picture_->setMinimumHeight(64);
  scroll_ = new QScrollBar(Qt::Vertical, this);
  scroll_->setObjectName(QStringLiteral("VScroll2"));
  scroll_->setRange(0, 0);
  scroll_->setEnabled(false);
  // The hover frame lies under the selection frame, so a selected block under the mouse still
  // shows as selected.
  hover_marker_ =
      new FrameMarker(QStringLiteral("HoverMarker"), QColor(255, 255, 255), 1, picture_);
  selection_marker_ =
      new FrameMarker(QStringLiteral("SelectionMarker"), QColor(230, 30, 30), 2, picture_);
  SetZoom(1);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(picture_);
  layout->addWidget(scroll_);

  // The wheel over the picture or the bar comes here: the bar's own handling would scroll a
  // page with Shift and ignore Ctrl.
  picture_->installEventFilter(this);
  scroll_->installEventFilter(this);
  connect(scroll_, &QScrollBar::valueChanged, this, [this] { Draw(); });
  connect(picture_, &IndexedPictureBox::MousePressed, this, [this] { Press(); });
  connect(picture_, &IndexedPictureBox::MouseMoved, this,
          [this](Qt::MouseButtons, QPoint position) { Move(position); });
  connect(picture_, &IndexedPictureBox::MouseReleased, this, [this] { Release(); });
}

void BlockChooserView::SetZoom(int zoom) {
  chooser_.SetZoom(zoom);
  const int s = chooser_.BlockSize();
  selection_marker_->SetSize(s);
  hover_marker_->SetSize(s);
  SetupScrollRange();
  scroll_->setSingleStep(s / 2);
  const int v = scroll_->value();
  const BlockChooser::MarkerPosition selection = chooser_.BlockMarker(selected_, v);
  selection_marker_->MoveTo(selection.left, selection.top);
  const BlockChooser::MarkerPosition hover = chooser_.BlockMarker(hovered_, v);
  hover_marker_->MoveTo(hover.left, hover.top);
}

void BlockChooserView::wheelEvent(QWheelEvent* event) { Wheel(*event); }

bool BlockChooserView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return QWidget::eventFilter(watched, event);
  Wheel(static_cast<QWheelEvent&>(*event));
  return true;
}

// The column has nothing to show sideways: Shift with the wheel scrolls it up and down too.
void BlockChooserView::Wheel(QWheelEvent& event) {
  event.accept();
  const WheelNotches::Steps steps = wheel_.Add(event, false);
  if (steps.zoom_in != 0) {
    emit ZoomRequested(steps.zoom_in > 0);
    return;
  }
  ScrollByNotches(*scroll_, steps.down + steps.right);
}

void BlockChooserView::SetupScrollRange() {
  scroll_->setMaximum(chooser_.ScrollMaximum(picture_->height()));
  scroll_->setPageStep(std::max(picture_->height() - chooser_.BlockSize(), chooser_.BlockSize()));
}

void BlockChooserView::Draw() {
  if (Locked() || !blocks_) return;
  const int v = scroll_->value();
  const int height = picture_->height();
  if (!button_held_) {
    selection_marker_->MoveTo(chooser_.BlockMarker(selected_, v).left,
                              chooser_.SelectionMarkerTop(selected_, v, height));
  }
  chooser_.Draw(*blocks_, v, height);
  picture_->SetBuffer(chooser_.Image());
  picture_->SetSourceWindow(QRect(0, chooser_.SourceLine(), chooser_.PictureWidth(), height));
  Move(last_mouse_);
}

void BlockChooserView::SelectBlock(int block) {
  selected_ = std::clamp(block, 0, kBlockCount - 1);
  emit SelectionText(BlockText("Auswahl: ", selected_));
  const BlockChooser::MarkerPosition at = chooser_.BlockMarker(selected_, scroll_->value());
  selection_marker_->MoveTo(at.left, at.top);
}

void BlockChooserView::CentreOnSelection() {
  scroll_->setValue(chooser_.CentredScroll(selected_, picture_->height()));
}

void BlockChooserView::Press() {
  if (Locked()) return;
  button_held_ = true;
  if (hovered_ != selected_) SelectBlock(hovered_);
}

void BlockChooserView::Move(QPoint position) {
  if (Locked()) return;
  last_mouse_ = position;
  const int v = scroll_->value();
  hovered_ = chooser_.HoveredBlock(position.x(), position.y(), v, picture_->height());
  if (hovered_ == last_hovered_ && v == last_scroll_) return;
  last_hovered_ = hovered_;
  last_scroll_ = v;
  emit HoverText(BlockText("Block: ", hovered_));
  const BlockChooser::MarkerPosition at = chooser_.BlockMarker(hovered_, v);
  hover_marker_->MoveTo(at.left, at.top);
  if (button_held_) SelectBlock(hovered_);
}

void BlockChooserView::Release() {
  if (Locked()) return;
  button_held_ = false;
}

}  // namespace kartova
