#include "ui/IndexedPictureBox.h"

#include <QMouseEvent>
#include <QPainter>
#include <QResizeEvent>
#include <cstring>
#include <utility>

#include "gfx/ColourTable.h"

namespace kartova {

IndexedPictureBox::IndexedPictureBox(const QString& name, QWidget* parent) : QWidget(parent) {
  setObjectName(name);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  lut_.fill(qRgb(0, 0, 0));
}

void IndexedPictureBox::SetColourTable(const ColourTable& table) {
  std::array<QRgb, 256> lut{};
  for (int k = 0; k < 256; ++k) lut[static_cast<std::size_t>(k)] = table.Argb(k);
  if (lut == lut_) return;
  lut_ = lut;
  dirty_ = true;
  update();
}

void IndexedPictureBox::SetBuffer(const IndexedImage& buffer) {
  indices_ = buffer;
  dirty_ = true;
  update();
}

void IndexedPictureBox::UpdateRegion(const IndexedImage& buffer, const QRect& region) {
  if (buffer.width != indices_.width || buffer.height != indices_.height) {
    SetBuffer(buffer);
    return;
  }
  const QRect area = region.intersected(QRect(0, 0, buffer.width, buffer.height));
  if (area.isEmpty()) return;
  const auto w = static_cast<std::size_t>(area.width());
  for (int y = area.top(); y <= area.bottom(); ++y)
    std::memcpy(indices_.Row(y) + area.left(), buffer.Row(y) + area.left(), w);
  // A pending whole conversion covers the new pixels anyway.
  if (!dirty_) ConvertRegion(area);
  update(area.translated(-window_.topLeft()));
}

void IndexedPictureBox::ConvertRegion(const QRect& area) {
  if (screen_.width() != indices_.width || screen_.height() != indices_.height) {
    dirty_ = true;
    return;
  }
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const std::uint8_t* src = indices_.Row(y);
    auto* dst = reinterpret_cast<QRgb*>(screen_.scanLine(y));
    for (int x = area.left(); x <= area.right(); ++x) dst[x] = lut_[src[x]];
  }
}

void IndexedPictureBox::SetSourceWindow(const QRect& window) {
  if (window == window_) return;
  window_ = window;
  update();
}

void IndexedPictureBox::SetOverlays(QList<Overlay> overlays) {
  if (overlays.isEmpty() && overlays_.isEmpty()) return;
  overlays_ = std::move(overlays);
  update();
}

void IndexedPictureBox::Convert() {
  dirty_ = false;
  ++conversions_;
  if (indices_.width <= 0 || indices_.height <= 0) {
    screen_ = QImage();
    return;
  }
  if (screen_.width() != indices_.width || screen_.height() != indices_.height)
    screen_ = QImage(indices_.width, indices_.height, QImage::Format_RGB32);
  for (int y = 0; y < indices_.height; ++y) {
    const std::uint8_t* src = indices_.Row(y);
    auto* dst = reinterpret_cast<QRgb*>(screen_.scanLine(y));
    for (int x = 0; x < indices_.width; ++x) dst[x] = lut_[src[x]];
  }
}

void IndexedPictureBox::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (dirty_) Convert();
  // The window may reach past the buffer when the view is scrolled past the grid; only the
  // covered part is copied, at the place it would have had.
  const QRect source = screen_.isNull() ? QRect() : window_.intersected(screen_.rect());
  const QPoint target = source.topLeft() - window_.topLeft();
  // The background shows only where the buffer does not reach; a full picture skips it.
  if (!QRect(target, source.size()).contains(rect())) painter.fillRect(rect(), QColor::fromRgb(kBackground));
  if (!source.isEmpty()) painter.drawImage(target, screen_, source);
  for (const Overlay& overlay : overlays_) painter.drawImage(overlay.at, overlay.image);
}

void IndexedPictureBox::mousePressEvent(QMouseEvent* event) {
  emit MousePressed(event->button(), event->position().toPoint());
}

void IndexedPictureBox::mouseMoveEvent(QMouseEvent* event) {
  emit MouseMoved(event->buttons(), event->position().toPoint());
}

void IndexedPictureBox::mouseReleaseEvent(QMouseEvent* event) {
  emit MouseReleased(event->button(), event->position().toPoint());
}

void IndexedPictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
  emit MouseDoubleClicked(event->button(), event->position().toPoint());
}

void IndexedPictureBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  emit Resized(event->size());
}

}  // namespace kartova
