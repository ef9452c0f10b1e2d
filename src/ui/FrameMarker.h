#pragma once

#include <QColor>
#include <QWidget>

namespace kartova {

// A rectangular frame laid over a picture box, as a shape control lies over a picture: it
// marks a block (the chooser's selection and hover, the map view's block cursor) and lets the
// mouse through to the picture below. It is moved out of sight rather than hidden.
class FrameMarker : public QWidget {
  Q_OBJECT

 public:
  FrameMarker(const QString& name, QColor colour, int thickness, QWidget* picture);

  // Left and top in the picture's pixels; the size stays.
  void MoveTo(int left, int top) { move(left, top); }
  void SetSize(int size) { resize(size, size); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
  int thickness_;
};

}  // namespace kartova
