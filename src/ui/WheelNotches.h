#pragma once

class QScrollBar;
class QWheelEvent;

namespace kartova {

// What turns of the mouse wheel ask of a view, in whole notches: rows down, columns right, or
// zoom steps in (Ctrl). A notch is 120 eighths of a degree; a high-resolution wheel or a touch
// pad sends smaller deltas, which add up here until they make a notch.
class WheelNotches {
 public:
  struct Steps {
    int down = 0;
    int right = 0;
    int zoom_in = 0;
  };

  // sideways: a vertical turn scrolls sideways (Shift held, or the wheel over a horizontal
  // scroll bar). A sideways turn or tilt always scrolls sideways.
  Steps Add(const QWheelEvent& event, bool sideways);

 private:
  int down_ = 0;
  int right_ = 0;
  int zoom_ = 0;
};

// Moves the bar by notches times the lines a wheel notch scrolls, in its single steps. The bar
// keeps the value within its range; a disabled bar does not move.
void ScrollByNotches(QScrollBar& bar, int notches);

}  // namespace kartova
