#include "ui/FrameMarker.h"

#include <QPainter>

namespace kartova {

FrameMarker::FrameMarker(const QString& name, QColor colour, int thickness, QWidget* picture)
    : QWidget(picture), colour_(colour), thickness_(thickness) {
  setObjectName(name);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_NoSystemBackground);
}

void FrameMarker::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect r = rect();
  const int t = thickness_;
  painter.fillRect(QRect(r.left(), r.top(), r.width(), t), colour_);
  painter.fillRect(QRect(r.left(), r.bottom() - t + 1, r.width(), t), colour_);
  painter.fillRect(QRect(r.left(), r.top(), t, r.height()), colour_);
  painter.fillRect(QRect(r.right() - t + 1, r.top(), t, r.height()), colour_);
}

}  // namespace kartova
