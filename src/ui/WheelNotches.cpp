#include "ui/WheelNotches.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace kartova {
namespace {

constexpr int kNotch = 120;

// The whole notches in the remainder after delta is added; what is left waits for more. Any
// delta an event can carry is added without overflow.
int Take(int& remainder, int delta) {
  const long long total = static_cast<long long>(remainder) + delta;
  const long long notches = total / kNotch;
  remainder = static_cast<int>(total - notches * kNotch);
  return static_cast<int>(notches);
}

}  // namespace

WheelNotches::Steps WheelNotches::Add(const QWheelEvent& event, bool sideways) {
  // Turned away from the user, the wheel reports a positive delta: the view goes up or left,
  // or zooms in.
  const int vertical = event.angleDelta().y();
  const int horizontal = event.angleDelta().x();
  Steps steps;
  if (event.modifiers() & Qt::ControlModifier) {
    steps.zoom_in = Take(zoom_, vertical != 0 ? vertical : horizontal);
  } else if (sideways || (event.modifiers() & Qt::ShiftModifier)) {
    steps.right = -Take(right_, vertical != 0 ? vertical : horizontal);
  } else {
    steps.down = -Take(down_, vertical);
    steps.right = -Take(right_, horizontal);
  }
  return steps;
}

void ScrollByNotches(QScrollBar& bar, int notches) {
  if (notches == 0 || !bar.isEnabled()) return;
  const long long step = static_cast<long long>(QApplication::wheelScrollLines()) * bar.singleStep();
  const long long target = bar.value() + notches * step;
  bar.setValue(static_cast<int>(std::clamp<long long>(target, bar.minimum(), bar.maximum())));
}

}  // namespace kartova
