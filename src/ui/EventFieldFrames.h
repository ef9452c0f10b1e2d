#pragma once

#include <QObject>
#include <QWidget>
#include <array>

#include "events/MapEventSet.h"

class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace kartova {

// The arrows beside an X or Y field (UpDown1..UpDown8). A step reads the field's decimal
// number, moves it by one within 0..maximum and writes it back as text, so the field's own
// change handler stores it as if it had been typed.
class EventUpDown : public QWidget {
  Q_OBJECT

 public:
  EventUpDown(int number, QLineEdit& buddy, QWidget* parent);

  int minimum() const { return 0; }
  int maximum() const { return maximum_; }
  void SetMaximum(int maximum) { maximum_ = maximum; }
  QLineEdit& buddy() const { return buddy_; }
  QToolButton* up_button() const { return up_; }
  QToolButton* down_button() const { return down_; }

  // One click on the up (+1) or down (-1) arrow.
  void Step(int delta);

 private:
  QLineEdit& buddy_;
  QToolButton* up_;
  QToolButton* down_;
  int maximum_ = 0;
  // What the field last held as a number: a step from a text that is no decimal number goes
  // on from here.
  int value_ = 0;
};

// The typing rule of the event fields: every typed character goes through FilterEventFieldKey,
// which drops it or types another one instead. Keys that type nothing, and shortcuts, pass.
class EventFieldKeyFilter : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Set while a replaced key is delivered, so that it is not filtered a second time.
  bool forwarding_ = false;
};

// The widgets of the group box Frame2, by the form's numbering.
struct EventFieldWidgets {
  static constexpr int kFieldSlots = 34;   // Text(1)..Text(33), no 0 and no 28
  static constexpr int kUpDownSlots = 9;   // UpDown1..UpDown8
  static constexpr int kFirstBankLabel = 35;
  static constexpr int kBankLabels = 5;    // Label35..Label39

  QGroupBox* caption_frame = nullptr;      // Frame2
  std::array<QFrame*, kEventKindCount> frames{};  // Data(kind)
  std::array<QLineEdit*, kFieldSlots> fields{};
  std::array<EventUpDown*, kUpDownSlots> up_downs{};
  std::array<QLabel*, kBankLabels> bank_labels{};
};

// The Text index an up-down control steps (1, 2 trigger X, Y; 3, 4 warp; 5, 6 people;
// 7, 8 signpost); 0 for another number.
int UpDownField(int up_down);

// Builds Frame2 (caption "Daten") with the six field frames, only Data(shown_kind) visible:
// labels at the left, the fields in the frame order of their kind, the bank label before each
// script pointer and the arrows after each X and Y field. Every field gets the key filter.
EventFieldWidgets BuildEventFieldFrames(QWidget* parent, int shown_kind, EventFieldKeyFilter* key_filter);

}  // namespace kartova
