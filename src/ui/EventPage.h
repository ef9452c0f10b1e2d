#pragma once

#include <QFrame>

namespace kartova {

class MapView;

// The " Events " page: the event view (Picture3 with HScroll3, VScroll3) and the event
// editors.
class EventPage : public QFrame {
  Q_OBJECT

 public:
  explicit EventPage(QWidget* parent = nullptr);

  MapView* event_view() const { return event_view_; }

 private:
  MapView* event_view_;
};

}  // namespace kartova
