#include "ui/EventFieldFrames.h"

#include <QCoreApplication>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "events/EventFields.h"
#include "ui/CoreTexts.h"
#include "ui/FieldTips.h"
#include "ui/ScopeExit.h"
#include "ui/WindowPlacement.h"

namespace kartova {

namespace {

// Byte and word fields share one width, as the form has them; positions are at most three
// digits and leave room for their arrows.
constexpr int kValueFieldTwips = 840;
constexpr int kPositionFieldTwips = 540;

// The script pointer field of each kind, where the script bank is shown before it (warps
// point at no script).
constexpr std::array<int, kEventKindCount> kScriptPointerField = {0, 6, 14, 26, 29, 33};
constexpr std::array<int, kEventKindCount> kBankLabelOfKind = {0, 36, 37, 35, 38, 39};
constexpr std::array<int, EventFieldWidgets::kUpDownSlots> kUpDownField = {0, 10, 9, 1, 2, 19, 20, 17, 16};

int UpDownOfField(int text_index) {
  for (int n = 1; n < EventFieldWidgets::kUpDownSlots; ++n)
    if (kUpDownField[static_cast<size_t>(n)] == text_index) return n;
  return 0;
}

QToolButton* MakeArrow(Qt::ArrowType arrow, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setFixedSize(16, 11);
  return button;
}

void AddField(const EventField& field, QFrame* frame, QGridLayout* grid, int row, EventFieldWidgets& widgets,
              EventFieldKeyFilter* key_filter) {
  auto* box = new QLineEdit(frame);
  box->setObjectName(QStringLiteral("Text(%1)").arg(field.text_index));
  box->setToolTip(EventFieldTip(field.text_index));
  auto* label = new QLabel(CoreText(field.label), frame);
  label->setToolTip(box->toolTip());
  grid->addWidget(label, row, 0);
  const bool position = IsPositionField(field.text_index);
  box->setFixedWidth(WindowPlacement(*frame).ToPixelsX(position ? kPositionFieldTwips : kValueFieldTwips));
  box->installEventFilter(key_filter);
  widgets.fields[static_cast<size_t>(field.text_index)] = box;

  if (field.text_index == kScriptPointerField[static_cast<size_t>(field.kind)]) {
    const int number = kBankLabelOfKind[static_cast<size_t>(field.kind)];
    auto* bank = new QLabel(frame);
    bank->setObjectName(QStringLiteral("Label%1").arg(number));
    bank->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    widgets.bank_labels[static_cast<size_t>(number - EventFieldWidgets::kFirstBankLabel)] = bank;
    grid->addWidget(bank, row, 1);
  }
  const int number = UpDownOfField(field.text_index);
  if (number == 0) {
    grid->addWidget(box, row, 2);
    return;
  }
  auto* arrows = new EventUpDown(number, *box, frame);
  widgets.up_downs[static_cast<size_t>(number)] = arrows;
  auto* pair = new QHBoxLayout;
  pair->setSpacing(1);
  pair->addWidget(box);
  pair->addWidget(arrows);
  pair->addStretch(1);
  grid->addLayout(pair, row, 2);
}

QFrame* BuildKindFrame(int kind, QWidget* parent, EventFieldWidgets& widgets, EventFieldKeyFilter* key_filter) {
  auto* frame = new QFrame(parent);
  frame->setObjectName(QStringLiteral("Data(%1)").arg(kind));
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(3);
  int row = 0;
  for (const EventField& field : EventFieldsOf(kind)) AddField(field, frame, grid, row++, widgets, key_filter);
  grid->setColumnStretch(3, 1);
  grid->setRowStretch(row, 1);
  return frame;
}

}  // namespace

int UpDownField(int up_down) {
  return up_down > 0 && up_down < EventFieldWidgets::kUpDownSlots ? kUpDownField[static_cast<size_t>(up_down)] : 0;
}

EventUpDown::EventUpDown(int number, QLineEdit& buddy, QWidget* parent) : QWidget(parent), buddy_(buddy) {
  setObjectName(QStringLiteral("UpDown%1").arg(number));
  up_ = MakeArrow(Qt::UpArrow, this);
  down_ = MakeArrow(Qt::DownArrow, this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(up_);
  layout->addWidget(down_);
  connect(up_, &QToolButton::clicked, this, [this] { Step(1); });
  connect(down_, &QToolButton::clicked, this, [this] { Step(-1); });
}

void EventUpDown::Step(int delta) {
  bool is_number = false;
  const int shown = buddy_.text().trimmed().toInt(&is_number, 10);
  if (is_number) value_ = shown;
  value_ = std::clamp(value_ + delta, minimum(), std::max(minimum(), maximum_));
  buddy_.setText(QString::number(value_));
}

bool EventFieldKeyFilter::eventFilter(QObject* watched, QEvent* event) {
  if (forwarding_ || event->type() != QEvent::KeyPress) return false;
  auto* key = static_cast<QKeyEvent*>(event);
  const QString text = key->text();
  if (text.size() != 1) return false;
  // Ctrl or Meta make a shortcut (undo, copy, paste); Ctrl with Alt is AltGr, which types.
  const Qt::KeyboardModifiers modifiers = key->modifiers();
  if ((modifiers & (Qt::ControlModifier | Qt::MetaModifier)) && !(modifiers & Qt::AltModifier)) return false;
  // Tab, Return, Escape and Delete move, confirm or erase; they type no character.
  const int code = text.at(0).unicode();
  if ((code < 32 && code != 8) || code == 127) return false;
  const int typed = FilterEventFieldKey(code);
  if (typed == code) return false;
  if (typed != 0) {
    QKeyEvent replaced(QEvent::KeyPress, key->key(), modifiers, QString(QChar(typed)), key->isAutoRepeat(),
                       key->count());
    forwarding_ = true;
    const ScopeExit done([this] { forwarding_ = false; });
    QCoreApplication::sendEvent(watched, &replaced);
  }
  return true;
}

EventFieldWidgets BuildEventFieldFrames(QWidget* parent, int shown_kind, EventFieldKeyFilter* key_filter) {
  EventFieldWidgets widgets;
  auto* box = new QGroupBox(QCoreApplication::translate("kartova::EventPage", "Daten"), parent);
  box->setObjectName(QStringLiteral("Frame2"));
  auto* layout = new QVBoxLayout(box);
  layout->setSpacing(0);
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    QFrame* frame = BuildKindFrame(kind, box, widgets, key_filter);
    if (kind != shown_kind) frame->hide();
    widgets.frames[static_cast<size_t>(kind)] = frame;
    layout->addWidget(frame);
  }
  layout->addStretch(1);
  widgets.caption_frame = box;
  return widgets;
}

}  // namespace kartova
