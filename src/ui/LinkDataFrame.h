#pragma once

#include <QGroupBox>
#include <array>

class QLineEdit;
class QPlainTextEdit;

namespace kartova {

// The "Map Link Data" frame of the header page: Text6 shows the bordered block grid of the map
// as lines of hex block numbers in a fixed-width font; Text7 and Text8 give the selected cell's
// map position, Text9 its block-data pointer and Text10 its working-copy address. The frame
// starts disabled; it is filled while the header page is shown.
class LinkDataFrame : public QGroupBox {
  Q_OBJECT

 public:
  explicit LinkDataFrame(QWidget* parent = nullptr);

  QPlainTextEdit* grid_text() const { return grid_text_; }
  // Text7 .. Text10.
  QLineEdit* field(int number) const;

 private:
  QPlainTextEdit* grid_text_ = nullptr;
  std::array<QLineEdit*, 4> fields_{};
};

}  // namespace kartova
