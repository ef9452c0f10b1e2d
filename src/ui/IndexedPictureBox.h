#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <QWidget>
#include <array>
#include <cstdint>

#include "gfx/IndexedImage.h"

namespace kartova {

class ColourTable;

// A picture box that shows an 8-bit colour-index buffer through the colour table. The buffer
// is turned into screen colours once after it or the colour table changed, at the next paint;
// a paint only copies the chosen window of that picture, so scrolling inside a cached buffer
// costs no conversion.
class IndexedPictureBox : public QWidget {
  Q_OBJECT

 public:
  // Where a picture box shows no buffer, as an empty picture box of the editor always looked.
  static constexpr QRgb kBackground = 0xFF404040u;

  // A small finished picture laid over the buffer at a place on the picture (the event view's
  // blended markers).
  struct Overlay {
    QPoint at;
    QImage image;
  };

  explicit IndexedPictureBox(const QString& name, QWidget* parent = nullptr);

  // Entries 0..255 of the table are used (a byte cannot name entry 256). An unchanged table
  // causes no conversion.
  void SetColourTable(const ColourTable& table);
  // Takes a copy of the buffer.
  void SetBuffer(const IndexedImage& buffer);
  // Takes the pixels of one rectangle of a buffer of the same size as the one shown (a block
  // placed into the cached view): only they are copied and turned into screen colours, and
  // only their place on the picture is repainted. Another size takes the whole buffer.
  void UpdateRegion(const IndexedImage& buffer, const QRect& region);
  // The part of the buffer shown at the picture's top-left corner: width × height pixels from
  // (x, y). What lies outside the buffer or the window shows the background.
  void SetSourceWindow(const QRect& window);
  // Replaces the pictures drawn over the buffer, in their order.
  void SetOverlays(QList<Overlay> overlays);

  const IndexedImage& Buffer() const { return indices_; }
  const QRect& SourceWindow() const { return window_; }
  const QList<Overlay>& Overlays() const { return overlays_; }
  // How many times a buffer or colour change was converted to screen colours.
  int Conversions() const { return conversions_; }
  // The colour a buffer pixel shows with, as 0xFFRRGGBB.
  QRgb ScreenColour(std::uint8_t index) const { return lut_[index]; }

 signals:
  void MousePressed(Qt::MouseButton button, QPoint position);
  void MouseMoved(Qt::MouseButtons buttons, QPoint position);
  void MouseReleased(Qt::MouseButton button, QPoint position);
  void MouseDoubleClicked(Qt::MouseButton button, QPoint position);
  void Resized(QSize size);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Convert();
  void ConvertRegion(const QRect& region);

  bool dirty_ = false;
  IndexedImage indices_;
  QImage screen_;
  QRect window_;
  QList<Overlay> overlays_;
  std::array<QRgb, 256> lut_{};
  int conversions_ = 0;
};

}  // namespace kartova
