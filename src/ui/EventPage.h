#pragma once

#include <QFrame>
#include <array>

#include "ui/EventFieldFrames.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QSpinBox;

namespace kartova {

class EventViewController;
class MapView;
class PageContext;
class RomDocument;
enum class MapLoadStep;

// The " Events " page: the event view (Picture3 with HScroll3, VScroll3) and the event editors:
// the six lists Combo4 (Enter scripts), Combo5 (Time scripts), Combo6 (warps), Combo7
// (triggers), Combo8 (signposts), Combo9 (people); the caption frame Frame2 with the six field
// frames Data(0)..Data(5) (one per kind, one shown), the boxes Text(1)..Text(33) (no 0, no 28),
// the up-down controls UpDown1..UpDown8 beside the X and Y boxes and the bank labels
// Label35..Label39. Typed values reach the document as edits; the page holds the selection.
class EventPage : public QFrame {
  Q_OBJECT

 public:
  EventPage(RomDocument& document, PageContext& context, QWidget* parent = nullptr);

  MapView* event_view() const { return event_view_; }
  // The event view's behaviour, which the selection and the typed positions go through; built
  // after the page, since it draws on the page's view.
  void set_view_controller(EventViewController* controller) { view_controller_ = controller; }

  // The list of an event kind (0 warp .. 5 Time: Combo6, Combo7, Combo8, Combo9, Combo4,
  // Combo5); nullptr for another kind.
  QComboBox* event_list(int kind) const;
  // Text(index), 1..33 but 28; nullptr otherwise.
  QLineEdit* field(int text_index) const;

  // The selected event: kind 0..5 (the frame shown), index 0..254 or 255 for none.
  int selected_kind() const { return selected_kind_; }
  int selected_index() const { return selected_index_; }

  // Set while the lists are filled at a map load and during the event view's hit test: the
  // list handlers do nothing then.
  bool lists_loading() const { return lists_loading_; }
  void set_lists_loading(bool on) { lists_loading_ = on; }
  // 2 while the program writes the fields itself: the change handler ignores those changes.
  int fields_updating() const { return fields_updating_; }
  void set_fields_updating(int value) { fields_updating_ = value; }

  // Frame2, whose caption names the selected event ("Daten" while there is none).
  QGroupBox* caption_frame() const { return widgets_.caption_frame; }
  // Data(kind), the field frame of a kind; nullptr for another kind.
  QFrame* field_frame(int kind) const;
  // UpDown1..UpDown8; nullptr for another number.
  EventUpDown* up_down(int number) const;
  // Label35..Label39, the script bank before the script pointer fields; nullptr otherwise.
  QLabel* bank_label(int number) const;

  // The click handler of the list of a kind: shows the kind's frame, the record chosen in the
  // list in its fields, and the selection frame on the event view.
  void SelectEventFromList(int kind);
  // Writes the X and Y fields of the selected event from its record (after a drag).
  void ShowPositionFields();
  // After an undo or redo of an event edit: the fields show the selected record again.
  void RefreshFields();

 private:
  QWidget* BuildListColumn();
  void ConnectFields();

  // The map load's parts: the up-down maxima and bank labels once the header is read, the
  // lists once the events are.
  void AfterMapLoadStep(MapLoadStep step);
  void ShowMapLimits();
  void FillEventLists();
  void FillEventList(int kind);

  // The change handler of Text(text_index).
  void EditEventField(int text_index);
  // The record a kind's fields show and edit: the selected one for warps, triggers, signposts
  // and people, the current item of Combo4 or Combo5 for the scripts; -1 when there is none.
  int RecordOf(int kind) const;
  void ShowFields(int kind, int index, bool positions_only);

  RomDocument& document_;
  PageContext& context_;
  EventViewController* view_controller_ = nullptr;
  MapView* event_view_;
  std::array<QComboBox*, kEventKindCount> lists_{};
  EventFieldKeyFilter* key_filter_;
  EventFieldWidgets widgets_;
  int selected_kind_ = 0;
  int selected_index_ = 255;
  bool lists_loading_ = false;
  int fields_updating_ = 0;
};

}  // namespace kartova
