#pragma once

#include <QFrame>

namespace kartova {

// The " Map " page: the map view with its scroll bars and the block chooser.
class MapPage : public QFrame {
  Q_OBJECT

 public:
  explicit MapPage(QWidget* parent = nullptr);
};

}  // namespace kartova
