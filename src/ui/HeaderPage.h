#pragma once

#include <QFrame>

namespace kartova {

// The " Mapheader " page: the primary and secondary header editors, the connection editor and
// the map link data view.
class HeaderPage : public QFrame {
  Q_OBJECT

 public:
  explicit HeaderPage(QWidget* parent = nullptr);
};

}  // namespace kartova
