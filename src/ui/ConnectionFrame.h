#pragma once

#include <QGroupBox>
#include <array>

class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kartova {

// The "Anbindungen" frame (Frame8) of the header page: the option buttons ConSel(0)-ConSel(3)
// choose the direction whose connection record the boxes Header(11)-Header(19) show, and the
// buttons Command2-Command4 point at where the record's addresses land. The change events of
// the boxes run through the header page's Header change handler. The frame starts disabled; it
// is enabled while the map has a connection.
class ConnectionFrame : public QGroupBox {
  Q_OBJECT

 public:
  static constexpr int kFirstBox = 11;
  static constexpr int kLastBox = 19;

  explicit ConnectionFrame(QWidget* parent = nullptr);

  // ConSel(direction), direction 0 north, 1 south, 2 west, 3 east.
  QRadioButton* selector(int direction) const;
  QButtonGroup* selector_group() const { return selector_group_; }
  // Header(box), box 11..19; nullptr for another number.
  QLineEdit* box(int box) const;
  // The label of the strip length: "ST-Breite:", "ST-Höhe:" or "ST-Größe:".
  QLabel* length_label() const { return length_label_; }
  // Command2 (working-copy address in this map), Command3 (the neighbour's window),
  // Command4 (the strip source in the neighbour).
  QPushButton* command(int number) const;

 private:
  void BuildSelectors();
  void BuildBoxes();
  void BuildLayout();

  std::array<QRadioButton*, 4> selectors_{};
  QButtonGroup* selector_group_ = nullptr;
  std::array<QLineEdit*, kLastBox - kFirstBox + 1> boxes_{};
  QLabel* length_label_ = nullptr;
  std::array<QPushButton*, 3> commands_{};
};

}  // namespace kartova
