#include "ui/MapView.h"

#include <QGridLayout>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "ui/IndexedPictureBox.h"

namespace kartova {

MapView::MapView(int number, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("MapView%1").arg(number));
  picture_ = new IndexedPictureBox(QStringLiteral("Picture%1").arg(number), this);
  picture_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  picture_->setMinimumSize(64, 64);
  h_scroll_ = new QScrollBar(Qt::Horizontal, this);
  h_scroll_->setObjectName(QStringLiteral("HScroll%1").arg(number));
  v_scroll_ = new QScrollBar(Qt::Vertical, this);
  v_scroll_->setObjectName(QStringLiteral("VScroll%1").arg(number));
  for (QScrollBar* bar : {h_scroll_, v_scroll_}) {
    bar->setRange(0, 0);
    bar->setEnabled(false);
    connect(bar, &QScrollBar::valueChanged, this, [this] { emit Scrolled(); });
  }
  // The wheel over the picture or a bar comes here: the bars' own handling would scroll a page
  // with Shift and ignore Ctrl.
  picture_->installEventFilter(this);
  h_scroll_->installEventFilter(this);
  v_scroll_->installEventFilter(this);

  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(picture_, 0, 0);
  layout->addWidget(v_scroll_, 0, 1);
  layout->addWidget(h_scroll_, 1, 0);
}

void MapView::SetHorizontalRange(int grid_width) {
  h_scroll_->setMaximum(std::max(grid_width - picture_->width(), 0));
}

void MapView::SetVerticalRange(int grid_height) {
  v_scroll_->setMaximum(std::max(grid_height - picture_->height(), 0));
}

void MapView::SetScrollSteps(int block_size) {
  h_scroll_->setSingleStep(block_size / 2);
  v_scroll_->setSingleStep(block_size / 2);
  h_scroll_->setPageStep(std::max(picture_->width() - block_size, block_size));
  v_scroll_->setPageStep(std::max(picture_->height() - block_size, block_size));
}

void MapView::wheelEvent(QWheelEvent* event) { Wheel(*event, false); }

bool MapView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return QWidget::eventFilter(watched, event);
  // Over the horizontal bar the wheel moves that bar.
  Wheel(static_cast<QWheelEvent&>(*event), watched == h_scroll_);
  return true;
}

void MapView::Wheel(QWheelEvent& event, bool sideways) {
  event.accept();
  const WheelNotches::Steps steps = wheel_.Add(event, sideways);
  if (steps.zoom_in != 0) {
    emit ZoomRequested(steps.zoom_in > 0);
    return;
  }
  ScrollByNotches(*v_scroll_, steps.down);
  ScrollByNotches(*h_scroll_, steps.right);
}

}  // namespace kartova
