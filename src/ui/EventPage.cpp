#include "ui/EventPage.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <string>

#include "events/EventFields.h"
#include "rom/HexText.h"
#include "ui/CoreTexts.h"
#include "ui/EventViewController.h"
#include "ui/MapView.h"
#include "ui/PageContext.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

constexpr int kNoRecord = 255;

// By kind: the caption above the list, the list's items and Frame2's caption for a record. The
// item prefixes are listed with the core's texts (CoreTexts.cpp).
constexpr std::array<const char*, kEventKindCount> kListCaptions = {
    QT_TRANSLATE_NOOP("kartova::EventPage", "Warp"),   QT_TRANSLATE_NOOP("kartova::EventPage", "Trigger"),
    QT_TRANSLATE_NOOP("kartova::EventPage", "Sign"),   QT_TRANSLATE_NOOP("kartova::EventPage", "People"),
    QT_TRANSLATE_NOOP("kartova::EventPage", "Enter"),  QT_TRANSLATE_NOOP("kartova::EventPage", "Time")};
constexpr std::array<const char*, kEventKindCount> kItemPrefixes = {"Warp ", "Trigger ", "Sign ",
                                                                    "People ", "Enter ", "Time "};
constexpr std::array<const char*, kEventKindCount> kFramePrefixes = {
    QT_TRANSLATE_NOOP("kartova::EventPage", "Warp "),         QT_TRANSLATE_NOOP("kartova::EventPage", "Trigger "),
    QT_TRANSLATE_NOOP("kartova::EventPage", "Signpost "),     QT_TRANSLATE_NOOP("kartova::EventPage", "People "),
    QT_TRANSLATE_NOOP("kartova::EventPage", "Enter-Script "), QT_TRANSLATE_NOOP("kartova::EventPage", "Time-Script ")};
// The lists from the top of the column, two beside each other: the scripts, then the events.
constexpr std::array<int, kEventKindCount> kListOrder = {kEventEnter, kEventTime, kEventWarp,
                                                         kEventTrigger, kEventSign, kEventPeople};

int ListNumber(int kind) { return kind >= kEventEnter ? kind : kind + 6; }

bool ScriptKind(int kind) { return kind == kEventEnter || kind == kEventTime; }

// Marks the program's own writes of the fields, which the change handler must not store;
// the value before comes back however the scope ends.
class FieldsUpdating {
 public:
  explicit FieldsUpdating(EventPage& page) : page_(page), saved_(page.fields_updating()) {
    page.set_fields_updating(2);
  }
  ~FieldsUpdating() { page_.set_fields_updating(saved_); }
  FieldsUpdating(const FieldsUpdating&) = delete;
  FieldsUpdating& operator=(const FieldsUpdating&) = delete;

 private:
  EventPage& page_;
  int saved_;
};

}  // namespace

EventPage::EventPage(RomDocument& document, PageContext& context, QWidget* parent)
    : QFrame(parent), document_(document), context_(context) {
  setObjectName(QStringLiteral("Frame(1)"));
  event_view_ = new MapView(3, this);
  key_filter_ = new EventFieldKeyFilter(this);

  auto* column = new QWidget(this);
  auto* column_layout = new QVBoxLayout(column);
  column_layout->setContentsMargins(0, 0, 0, 0);
  column_layout->addWidget(BuildListColumn());
  widgets_ = BuildEventFieldFrames(column, selected_kind_, key_filter_);
  column_layout->addWidget(widgets_.caption_frame);
  column_layout->addStretch(1);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(6);
  layout->addWidget(event_view_, 1);
  layout->addWidget(column);

  ConnectFields();
  connect(&context_.events(), &PageEvents::MapLoadStepDone, this, [this](MapLoadStep step) { AfterMapLoadStep(step); });
}

QWidget* EventPage::BuildListColumn() {
  auto* lists = new QWidget(this);
  auto* grid = new QGridLayout(lists);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(1);
  for (int place = 0; place < kEventKindCount; ++place) {
    const int kind = kListOrder[static_cast<size_t>(place)];
    auto* list = new QComboBox(lists);
    list->setObjectName(QStringLiteral("Combo%1").arg(ListNumber(kind)));
    list->setEditable(false);
    list->setMinimumContentsLength(10);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setEnabled(false);
    // Only a choice of the user's runs the handler; the program's own selections do not.
    connect(list, &QComboBox::activated, this, [this, kind] { context_.Guarded([&] { SelectEventFromList(kind); }); });
    lists_[static_cast<size_t>(kind)] = list;
    const int row = place / 2 * 2;
    const int column = place % 2;
    grid->addWidget(new QLabel(tr(kListCaptions[static_cast<size_t>(kind)]), lists), row, column);
    grid->addWidget(list, row + 1, column);
  }
  return lists;
}

void EventPage::ConnectFields() {
  for (int i = 1; i < EventFieldWidgets::kFieldSlots; ++i) {
    QLineEdit* box = field(i);
    if (!box) continue;
    connect(box, &QLineEdit::textChanged, this, [this, i] { context_.Guarded([&] { EditEventField(i); }); });
    // Leaving a field ends its step: the keys typed into it are undone together.
    connect(box, &QLineEdit::editingFinished, this,
            [this] { context_.Guarded([this] { document_.CloseGesture(); }); });
  }
}

QComboBox* EventPage::event_list(int kind) const {
  return kind >= 0 && kind < kEventKindCount ? lists_[static_cast<size_t>(kind)] : nullptr;
}

QLineEdit* EventPage::field(int text_index) const {
  if (text_index < 1 || text_index >= EventFieldWidgets::kFieldSlots) return nullptr;
  return widgets_.fields[static_cast<size_t>(text_index)];
}

QFrame* EventPage::field_frame(int kind) const {
  return kind >= 0 && kind < kEventKindCount ? widgets_.frames[static_cast<size_t>(kind)] : nullptr;
}

EventUpDown* EventPage::up_down(int number) const {
  return number >= 1 && number < EventFieldWidgets::kUpDownSlots ? widgets_.up_downs[static_cast<size_t>(number)]
                                                                 : nullptr;
}

QLabel* EventPage::bank_label(int number) const {
  const int slot = number - EventFieldWidgets::kFirstBankLabel;
  return slot >= 0 && slot < EventFieldWidgets::kBankLabels ? widgets_.bank_labels[static_cast<size_t>(slot)]
                                                            : nullptr;
}

// ---- Map loads ------------------------------------------------------------------------------

void EventPage::AfterMapLoadStep(MapLoadStep step) {
  if (step == MapLoadStep::kHeaderPage) ShowMapLimits();
  if (step == MapLoadStep::kEvents) FillEventLists();
}

void EventPage::ShowMapLimits() {
  const FieldsUpdating updating(*this);
  // Events may stand in the margin of 6 tiles around the map; people are stored 4 tiles on.
  const int x_max = document_.MapWidth() * 2 + 5;
  const int y_max = document_.MapHeight() * 2 + 5;
  for (int number : {1, 3, 7}) up_down(number)->SetMaximum(x_max);
  for (int number : {2, 4, 8}) up_down(number)->SetMaximum(y_max);
  up_down(5)->SetMaximum(x_max + 4);
  up_down(6)->SetMaximum(y_max + 4);

  const QString bank = QString::fromStdString(Hex2(document_.Secondary().ScriptBank())) + QLatin1Char(':');
  for (QLabel* label : widgets_.bank_labels) label->setText(bank);
}

void EventPage::FillEventLists() {
  // Nothing of the previous map counts as selected, so the first list with records shows its
  // record 0 even where the previous map had the same item selected.
  selected_index_ = kNoRecord;
  lists_loading_ = false;
  const ScopeExit loaded([this] { lists_loading_ = false; });
  lists_[kEventEnter]->clear();
  lists_[kEventTime]->clear();
  FillEventList(kEventEnter);
  FillEventList(kEventTime);
  selected_index_ = kNoRecord;
  for (int kind : {kEventWarp, kEventTrigger, kEventSign, kEventPeople}) lists_[static_cast<size_t>(kind)]->clear();
  for (int kind : {kEventWarp, kEventTrigger, kEventSign, kEventPeople}) FillEventList(kind);

  if (document_.Events().Empty()) {
    field_frame(selected_kind_)->hide();
    widgets_.caption_frame->setTitle(tr("Daten"));
  }
}

// Only the first list that has records shows one: after it, the flag keeps the others quiet.
void EventPage::FillEventList(int kind) {
  QComboBox* list = lists_[static_cast<size_t>(kind)];
  const int count = document_.Events().Count(kind);
  if (count == 0) {
    list->setEnabled(false);
    return;
  }
  const QString prefix = CoreText(kItemPrefixes[static_cast<size_t>(kind)]);
  QStringList items;
  items.reserve(count);
  for (int i = 0; i < count; ++i) items << prefix + QString::number(i);
  list->addItems(items);
  list->setEnabled(true);
  list->setCurrentIndex(0);
  SelectEventFromList(kind);
  lists_loading_ = true;
}

// ---- Selection ------------------------------------------------------------------------------

void EventPage::SelectEventFromList(int kind) {
  QComboBox* list = event_list(kind);
  if (!list) return;
  const int index = list->currentIndex();
  if ((index == selected_index_ && kind == selected_kind_) || lists_loading_ || context_.state().rom_loading == 1)
    return;
  if (index < 0) return;
  field_frame(selected_kind_)->hide();
  field_frame(kind)->show();
  selected_kind_ = kind;
  widgets_.caption_frame->setTitle(tr(kFramePrefixes[static_cast<size_t>(kind)]) + QString::number(index));
  selected_index_ = index;
  if (!ScriptKind(kind))
    if (view_controller_) view_controller_->DrawSelectedEventMarker();
  ShowFields(kind, index, false);
}

int EventPage::RecordOf(int kind) const {
  const int index = ScriptKind(kind) ? lists_[static_cast<size_t>(kind)]->currentIndex() : selected_index_;
  // 255 lies past every list: a count byte gives at most 255 records.
  if (index < 0 || index >= document_.Events().Count(kind)) return -1;
  return index;
}

void EventPage::ShowFields(int kind, int index, bool positions_only) {
  const MapEventSet& events = document_.Events();
  if (index < 0 || index >= events.Count(kind)) return;
  const FieldsUpdating updating(*this);
  const std::span<const std::uint8_t> record = events.Record(kind, index);
  for (const EventField& shown : EventFieldsOf(kind)) {
    if (positions_only && !IsPositionField(shown.text_index)) continue;
    field(shown.text_index)->setText(QString::fromStdString(EventFieldText(shown, record)));
  }
}

void EventPage::ShowPositionFields() {
  if (ScriptKind(selected_kind_)) return;
  ShowFields(selected_kind_, selected_index_, true);
}

void EventPage::RefreshFields() { ShowFields(selected_kind_, RecordOf(selected_kind_), false); }

// ---- Edits ----------------------------------------------------------------------------------

void EventPage::EditEventField(int text_index) {
  if (fields_updating_ == 2) return;
  const EventField* edited = FindEventField(text_index);
  if (!edited) return;
  const int kind = edited->kind;

  if (const std::optional<PositionFields> position = PositionFieldsOf(kind); position && IsPositionField(text_index)) {
    const std::optional<TypedPosition> typed = ParsePositionTexts(
        kind, field(position->x_text)->text().toStdString(), field(position->y_text)->text().toStdString());
    if (!typed) return;
    // The move writes both fields itself, already clamped to the map.
    const FieldsUpdating updating(*this);
    if (view_controller_) view_controller_->MoveSelectedEvent(typed->x, typed->y);
    return;
  }

  const int index = RecordOf(kind);
  if (index < 0) return;
  std::optional<std::vector<std::uint8_t>> bytes =
      StoreEventFieldText(*edited, field(text_index)->text().toStdString(), document_.Events().Record(kind, index));
  if (!bytes) return;
  document_.EditEventRecord(kind, index, std::move(*bytes), "Event ändern",
                            "Text(" + std::to_string(text_index) + ")");
  context_.DocumentEdited();
}

}  // namespace kartova
