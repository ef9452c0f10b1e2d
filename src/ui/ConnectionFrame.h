#pragma once

#include <QGroupBox>
#include <array>
#include <cstdint>
#include <string>

#include "maps/ConnectionEditor.h"

class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kartova {

class HeaderPage;
class LinkDataFrame;
class PageContext;
class RomDocument;

// The "Anbindungen" frame (Frame8) of the header page: the option buttons ConSel(0)-ConSel(3)
// choose the direction whose connection record the boxes Header(11)-Header(19) show, and the
// buttons Command2-Command4 point at where the record's addresses land. The change events of
// the boxes run through the header page's Header change handler. The frame starts disabled; it
// is enabled while the map has a connection.
//
// The check boxes Con(0)-Con(3) of the secondary header frame switch directions on and off
// here, but only for the editor: the flag byte itself changes only when Header(8) is typed
// into, and records never move between slots. Which ConSel buttons are enabled is decided at
// map load from the check boxes; it is what the slot of the shown record is counted from.
class ConnectionFrame : public QGroupBox {
  Q_OBJECT

 public:
  static constexpr int kFirstBox = 11;
  static constexpr int kLastBox = 19;

  explicit ConnectionFrame(QWidget* parent = nullptr);

  // Wires the frame to the document and the shared flags, to the header page's check boxes and
  // change events and to the link data view the position buttons mark in. Run once, when the
  // page is built.
  void Attach(RomDocument& document, PageContext& context, HeaderPage& page, LinkDataFrame& link_data);

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
  // Combo10: the directions the loaded map has, "1 (Oben)" and so on, as the grid was built.
  QComboBox* connection_list() const { return connection_list_; }

  // The click handler of ConSel(index): the record of that direction into the boxes.
  void ShowConnection(int index);
  // The first ConSel button that is set, 0..3, or -1.
  int SelectedConnection() const;
  // Frame8 on or off; switching it off clears the selection and empties the boxes.
  void SetConnectionEditorEnabled(bool enabled);

 private:
  // What the position buttons show in the neighbour they switch to.
  enum class NeighbourMark { kWindow, kSource };

  void BuildSelectors();
  void BuildBoxes();
  void BuildLayout();
  void ConnectControls();

  // The buttons' own enabled state (decided at map load), and whether Frame8 lets them be
  // chosen at all.
  ConnectionSelectors Selectors(bool choosable_only) const;
  void SetSelection(int index);
  void ClearSelection();
  // Keeps a valid selection and shows the direction it had to select; returns that direction
  // or -1 when the selection stayed.
  int EnsureConnectionSelected();
  void WriteBoxes(const ConnectionBoxTexts& texts);
  std::string BoxText(int box) const;
  // A Combo10 item of the core ("1 (Oben)") in the language of the ui.
  static QString ConnectionItemText(const std::string& item);

  // Handlers.
  void ClickConnectionCheck(int index);
  void ConnectionFlagsShown(bool enabled);
  void RefreshAfterMapLoad();
  void FillConnectionList();
  void StoreBoxEdit(int box, std::int32_t value);
  void ClickShowDestination();
  void ClickShowNeighbour(NeighbourMark mark);

  std::array<QRadioButton*, 4> selectors_{};
  QButtonGroup* selector_group_ = nullptr;
  std::array<QLineEdit*, kLastBox - kFirstBox + 1> boxes_{};
  QLabel* length_label_ = nullptr;
  std::array<QPushButton*, 3> commands_{};
  QComboBox* connection_list_ = nullptr;

  RomDocument* document_ = nullptr;
  PageContext* context_ = nullptr;
  HeaderPage* page_ = nullptr;
  LinkDataFrame* link_data_ = nullptr;
};

}  // namespace kartova
