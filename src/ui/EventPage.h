#pragma once

#include <QFrame>

namespace kartova {

// The " Events " page: the event view and the event editors.
class EventPage : public QFrame {
  Q_OBJECT

 public:
  explicit EventPage(QWidget* parent = nullptr);
};

}  // namespace kartova
