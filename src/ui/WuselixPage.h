#pragma once

#include <QFrame>

class QComboBox;
class QListWidget;

namespace kartova {

// The " Wuselix data " page: the wild-encounter lists by map segment and time of day. It is
// laid out only; nothing is read from or written to the ROM here.
class WuselixPage : public QFrame {
  Q_OBJECT

 public:
  explicit WuselixPage(QWidget* parent = nullptr);

  // Combo1: the time of day the creature list is for.
  QComboBox* time_of_day() const { return time_of_day_; }

 private:
  QListWidget* segments_;
  QComboBox* time_of_day_;
  QListWidget* creatures_;
};

}  // namespace kartova
