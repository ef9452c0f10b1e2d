#include "ui/EventViewController.h"

#include "ui/MainWindow.h"

namespace kartova {

EventViewController::EventViewController(MainWindow& window) : QObject(&window), window_(window) {
  setObjectName(QStringLiteral("EventViewController"));
}

void EventViewController::DrawEvents() {}
void EventViewController::DrawSelectedEventMarker() {}
void EventViewController::MoveSelectedEvent(int, int) {}

}  // namespace kartova
