#pragma once

#include <QWidget>

#include "ui/WheelNotches.h"

class QScrollBar;

namespace kartova {

class IndexedPictureBox;

// A picture box of the block grid with its two scroll bars, named by the form's numbering:
// MapView(1) holds Picture1, HScroll1 and VScroll1 (the map page), MapView(3) holds Picture3,
// HScroll3 and VScroll3 (the event page). The picture takes all the room the bars leave.
// The scroll bars start disabled; the first map load enables them. The wheel scrolls through
// the bars (Shift or a tilt sideways); Ctrl with the wheel asks for a zoom.
class MapView : public QWidget {
  Q_OBJECT

 public:
  MapView(int number, QWidget* parent = nullptr);

  IndexedPictureBox* picture() const { return picture_; }
  QScrollBar* h_scroll() const { return h_scroll_; }
  QScrollBar* v_scroll() const { return v_scroll_; }

  // Scroll maxima for a grid of that many pixels: what does not fit into the picture, or 0.
  void SetHorizontalRange(int grid_width);
  void SetVerticalRange(int grid_height);
  // Small steps of half a block; a large step is the picture less one block.
  void SetScrollSteps(int block_size);

 signals:
  // A scroll bar's value changed (by the user or by the program).
  void Scrolled();
  // Ctrl with the wheel: in (turned away from the user) or out.
  void ZoomRequested(bool in);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Wheel(QWheelEvent& event, bool sideways);

  WheelNotches wheel_;
  IndexedPictureBox* picture_;
  QScrollBar* h_scroll_;
  QScrollBar* v_scroll_;
};

}  // namespace kartova
