#pragma once

#include <QFrame>
#include <QStringList>
#include <array>
#include <cstdint>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace kartova {

class ConnectionFrame;
class LinkDataFrame;
class PageContext;
class RomDocument;
struct RomDefinition;

// A hex box of the header page: objectName "Header(index)", as wide as the form makes boxes of
// that many digits (two and four digits 840 twips, six digits 1080 twips).
QLineEdit* MakeHeaderBox(int index, int digits, QWidget* parent);

// The " Mapheader " page: the "Primary Mapheader" and "Secondary Map Header" frames with the
// boxes Header(0)-Header(10), the combos HCombo(0)-HCombo(4), the extra-byte selector UpDown9
// and the connection checks Con(0)-Con(3); the "Anbindungen" frame with Header(11)-Header(19);
// the "Map Link Data" frame. Every box shows and stores through the document's header buffers;
// the shared UpdatingControls flag keeps the page's own writes from being taken for edits.
class HeaderPage : public QFrame {
  Q_OBJECT

 public:
  static constexpr int kPageBoxes = 11;     // Header(0)..Header(10)
  static constexpr int kCombos = 5;         // HCombo(0)..HCombo(4)

  HeaderPage(RomDocument& document, PageContext& context, QWidget* parent = nullptr);

  // Header(index), 0..19; nullptr for another index.
  QLineEdit* header(int index) const;
  // HCombo(index), 0..4.
  QComboBox* header_combo(int index) const;
  QSpinBox* extra_byte_selector() const { return extra_byte_selector_; }   // UpDown9
  QLabel* extra_byte_label() const { return extra_byte_label_; }           // Label56
  QLabel* extra_selector_label() const { return extra_selector_label_; }   // Label65
  // Con(direction), 0 north .. 3 east.
  QCheckBox* connection_check(int direction) const;
  ConnectionFrame* connection_frame() const { return connection_frame_; }
  LinkDataFrame* link_data_frame() const { return link_data_frame_; }

  // The ROM definition's part of the page: the name lists of HCombo(0), (1), (3) and (4), the
  // upper limit and visibility of the extra-byte selector and the width of Header(2).
  void ApplyDefinition(const RomDefinition& definition);
  // The location names into HCombo(2), "00 - name" ...
  void FillLocationList(const QStringList& items);

  // Write the boxes and combos from the header buffers; which = -1 for all, else that index.
  void ShowHeaderFields(int which);
  void ShowHeaderCombos(int which);
  // ConSel(i) is enabled exactly when Con(i) is checked.
  void MatchConnectionSelectors();

 signals:
  // Header(8) took new connection flags and Con(0)-Con(3) follow them: the connection editor
  // is to be enabled when any direction is set.
  void ConnectionEditorEnabled(bool enabled);
  // A value typed into Header(11)-Header(19) passed the box checks while nothing else was
  // writing the boxes: the connection editor stores it (UpdatingControls is 1 meanwhile).
  void ConnectionBoxEdited(int box, std::int32_t value);

 private:
  QWidget* BuildPrimaryFrame();
  QWidget* BuildSecondaryFrame();
  QComboBox* MakeCombo(int index);
  void ConnectEditors();

  // Change events of Header(index), HCombo(index) and UpDown9.
  void ChangeHeaderBox(int index, const QString& text);
  void ChangeHeaderCombo(int index, const QString& text);
  void ChangeExtraByte(int value);
  void ShowConnectionChecks(std::uint8_t flags);
  void FillComboList(QComboBox& combo, const QStringList& items);

  RomDocument& document_;
  PageContext& context_;
  std::array<QLineEdit*, kPageBoxes> boxes_{};
  std::array<QComboBox*, kCombos> combos_{};
  std::array<QCheckBox*, 4> connection_checks_{};
  QSpinBox* extra_byte_selector_ = nullptr;
  QLabel* extra_byte_label_ = nullptr;
  QLabel* extra_selector_label_ = nullptr;
  ConnectionFrame* connection_frame_ = nullptr;
  LinkDataFrame* link_data_frame_ = nullptr;
  // UpDown9's value as its change event last saw it: which byte Header(2) shows and edits.
  int extra_byte_ = 0;
};

}  // namespace kartova
