#pragma once

#include <QGroupBox>
#include <array>

#include "maps/LinkData.h"

class QLineEdit;
class QPlainTextEdit;

namespace kartova {

class LinkGridText;
class PageContext;
class RomDocument;

// The "Map Link Data" frame of the header page: Text6 shows the bordered block grid of the map
// as lines of hex block numbers in a fixed-width font; Text7 and Text8 give the selected cell's
// map position, Text9 its block-data pointer and Text10 its working-copy address. The frame
// starts disabled; it is filled while the header page is shown.
//
// The grid is read, never typed over: every key is swallowed, the arrow keys move from cell to
// cell, and a click selects the cell under the caret. Offsets are counted in the grid text with
// a two-character line break, as the row length of the working copy is; the widget itself holds
// one separator per line, and the frame converts between the two.
class LinkDataFrame : public QGroupBox {
  Q_OBJECT

 public:
  explicit LinkDataFrame(QWidget* parent = nullptr);

  // Rebuilds the view when the header tab is selected, and when a map is loaded while it is.
  void Attach(const RomDocument& document, PageContext& context);

  QPlainTextEdit* grid_text() const;
  // Text7 .. Text10.
  QLineEdit* field(int number) const;

  // Text6 from the current map's bordered grid, the first cell selected and read. Without a
  // loaded map the view stays empty.
  void BuildView();
  // Selects and reads the cell at a map position, limited to the bordered map.
  void MarkPosition(LinkPosition position);
  // The grid text and the selection in its offsets (line breaks two characters long).
  const LinkData& data() const { return data_; }
  LinkSelection Selection() const;
  // Selects a cell and reads it.
  void Select(LinkSelection selection);

 private:
  void PressKey(int key_code);
  void ClickGrid();
  void ReadSelectedCell();
  LinkMapInfo MapInfo() const;
  int ToTextOffset(int cursor_position) const;
  int ToCursorPosition(int offset) const;

  const RomDocument* document_ = nullptr;
  PageContext* context_ = nullptr;
  LinkGridText* grid_text_ = nullptr;
  std::array<QLineEdit*, 4> fields_{};
  LinkData data_;
  bool built_ = false;
};

}  // namespace kartova
