#include "ui/ConnectionFrame.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "maps/HeaderFields.h"
#include "rom/HexText.h"
#include "ui/CoreTexts.h"
#include "ui/FieldTips.h"
#include "ui/HeaderPage.h"
#include "ui/LinkDataFrame.h"
#include "ui/PageContext.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

constexpr int kDirections = 4;
constexpr int kConnectionFlagsBox = 8;

constexpr const char* kSelectorCaptions[] = {
    QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "(Oben)"), QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "(Unten)"),
    QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "(Links)"), QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "(Rechts)")};
constexpr const char* kCommandCaptions[] = {QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "Ziel zeigen"),
                                            QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "Fenster zeigen"),
                                            QT_TRANSLATE_NOOP("kartova::ConnectionFrame", "Quelle zeigen")};

// Digits of each box, Header(11) first: bank, source, destination, length, neighbour width,
// the two position change bytes, window, map number.
constexpr int kBoxDigits[] = {2, 4, 4, 2, 2, 2, 2, 4, 2};

// Boxes the position buttons read.
constexpr int kNeighbourBankBox = 11;
constexpr int kSourceBox = 12;
constexpr int kDestinationBox = 13;
constexpr int kWindowBox = 18;
constexpr int kNeighbourMapBox = 19;

}  // namespace

ConnectionFrame::ConnectionFrame(QWidget* parent)
    : QGroupBox(tr("Anbindungen"), parent) {
  setObjectName(QStringLiteral("Frame8"));
  BuildSelectors();
  BuildBoxes();
  BuildLayout();
  setEnabled(false);
}

void ConnectionFrame::BuildSelectors() {
  selector_group_ = new QButtonGroup(this);
  for (int i = 0; i < kDirections; ++i) {
    auto* selector = new QRadioButton(tr(kSelectorCaptions[i]), this);
    selector->setObjectName(QStringLiteral("ConSel(%1)").arg(i));
    selector->setToolTip(ConnectionSelectorTip(i));
    selector_group_->addButton(selector, i);
    selectors_[static_cast<size_t>(i)] = selector;
  }
  connection_list_ = new QComboBox(this);
  connection_list_->setObjectName(QStringLiteral("Combo10"));
  connection_list_->setToolTip(tr("Vorhandene Anbindungen der geladenen Map"));
  connection_list_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

void ConnectionFrame::BuildBoxes() {
  for (int b = kFirstBox; b <= kLastBox; ++b) {
    const int digits = kBoxDigits[b - kFirstBox];
    boxes_[static_cast<size_t>(b - kFirstBox)] = MakeHeaderBox(b, digits, this);
  }
  length_label_ = new QLabel(CoreText(ConnectionLengthCaption(-1)), this);
  length_label_->setObjectName(QStringLiteral("LengthLabel"));
  length_label_->setToolTip(box(14)->toolTip());
  for (int i = 0; i < 3; ++i) {
    auto* button = new QPushButton(tr(kCommandCaptions[i]), this);
    button->setObjectName(QStringLiteral("Command%1").arg(i + 2));
    button->setToolTip(PositionButtonTip(i + 2));
    commands_[static_cast<size_t>(i)] = button;
  }
}

void ConnectionFrame::BuildLayout() {
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(3);
  auto* selectors = new QHBoxLayout;
  for (QRadioButton* selector : selectors_) selectors->addWidget(selector);
  selectors->addStretch(1);
  grid->addLayout(selectors, 0, 0, 1, 5);

  // A label of one box tells what its box tells; the rows of two boxes leave that to the boxes.
  const auto label = [this](const QString& caption, const QLineEdit* field = nullptr) {
    auto* made = new QLabel(caption, this);
    if (field) made->setToolTip(field->toolTip());
    return made;
  };
  grid->addWidget(label(tr("Map: B/N")), 1, 0);
  grid->addWidget(box(11), 1, 1);
  grid->addWidget(box(19), 1, 2);
  grid->addWidget(label(tr("Sichtteil:")), 2, 0);
  grid->addWidget(box(12), 2, 1);
  grid->addWidget(box(13), 2, 2);
  grid->addWidget(length_label_, 3, 0);
  grid->addWidget(box(14), 3, 1);
  grid->addWidget(label(tr("Map-Breite:"), box(15)), 3, 2, Qt::AlignRight);
  grid->addWidget(box(15), 3, 3);
  grid->addWidget(label(tr("Wechsel:")), 4, 0);
  grid->addWidget(box(16), 4, 1);
  grid->addWidget(box(17), 4, 2);
  grid->addWidget(label(tr("Fenster:"), box(18)), 5, 0);
  grid->addWidget(box(18), 5, 1);
  grid->addWidget(label(tr("Vorhanden:")), 5, 2, Qt::AlignRight);
  grid->addWidget(connection_list_, 5, 3, 1, 2, Qt::AlignLeft);

  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : commands_) buttons->addWidget(button);
  buttons->addStretch(1);
  grid->addLayout(buttons, 6, 0, 1, 5);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(7, 1);
}

QRadioButton* ConnectionFrame::selector(int direction) const {
  return direction >= 0 && direction < kDirections ? selectors_[static_cast<size_t>(direction)]
                                                   : nullptr;
}

QLineEdit* ConnectionFrame::box(int box) const {
  return box >= kFirstBox && box <= kLastBox ? boxes_[static_cast<size_t>(box - kFirstBox)] : nullptr;
}

QPushButton* ConnectionFrame::command(int number) const {
  return number >= 2 && number <= 4 ? commands_[static_cast<size_t>(number - 2)] : nullptr;
}

// ---- Wiring ---------------------------------------------------------------------------------

void ConnectionFrame::Attach(RomDocument& document, PageContext& context, HeaderPage& page,
                             LinkDataFrame& link_data) {
  document_ = &document;
  context_ = &context;
  page_ = &page;
  link_data_ = &link_data;
  ConnectControls();
}

void ConnectionFrame::ConnectControls() {
  connect(selector_group_, &QButtonGroup::idClicked, this,
          [this](int index) { context_->Guarded([&] { ShowConnection(index); }); });
  for (int i = 0; i < kDirections; ++i)
    connect(page_->connection_check(i), &QCheckBox::clicked, this,
            [this, i] { context_->Guarded([&] { ClickConnectionCheck(i); }); });
  // Both signals come from inside the header page's change handler, which catches for them.
  connect(page_, &HeaderPage::ConnectionEditorEnabled, this, &ConnectionFrame::ConnectionFlagsShown);
  connect(page_, &HeaderPage::ConnectionBoxEdited, this, &ConnectionFrame::StoreBoxEdit);
  connect(&context_->events(), &PageEvents::MapLoadStepDone, this, [this](MapLoadStep step) {
    if (step == MapLoadStep::kHeaderPage) RefreshAfterMapLoad();
    if (step == MapLoadStep::kMapBuilt) FillConnectionList();
  });
  connect(command(2), &QPushButton::clicked, this,
          [this] { context_->Guarded([this] { ClickShowDestination(); }); });
  connect(command(3), &QPushButton::clicked, this,
          [this] { context_->Guarded([this] { ClickShowNeighbour(NeighbourMark::kWindow); }); });
  connect(command(4), &QPushButton::clicked, this,
          [this] { context_->Guarded([this] { ClickShowNeighbour(NeighbourMark::kSource); }); });
}

// ---- Selection ------------------------------------------------------------------------------

ConnectionSelectors ConnectionFrame::Selectors(bool choosable_only) const {
  // While Frame8 is off no button can be chosen, whatever the map load left enabled.
  const bool frame_on = !testAttribute(Qt::WA_ForceDisabled);
  ConnectionSelectors selectors;
  for (int i = 0; i < kDirections; ++i) {
    const QRadioButton* button = selectors_[static_cast<size_t>(i)];
    selectors.enabled[static_cast<size_t>(i)] =
        !button->testAttribute(Qt::WA_ForceDisabled) && (frame_on || !choosable_only);
    selectors.value[static_cast<size_t>(i)] = button->isChecked();
  }
  return selectors;
}

int ConnectionFrame::SelectedConnection() const { return kartova::SelectedConnection(Selectors(false)); }

void ConnectionFrame::SetSelection(int index) {
  selectors_[static_cast<size_t>(index)]->setChecked(true);
}

void ConnectionFrame::ClearSelection() {
  // An exclusive group keeps one button set; it lets go only while it is not exclusive.
  selector_group_->setExclusive(false);
  for (QRadioButton* button : selectors_) button->setChecked(false);
  selector_group_->setExclusive(true);
}

int ConnectionFrame::EnsureConnectionSelected() {
  ConnectionSelectors selectors = Selectors(true);
  const int selected = kartova::EnsureConnectionSelected(selectors);
  if (selected == -1) return -1;
  // Setting a button is a click on it: its direction is shown.
  SetSelection(selected);
  ShowConnection(selected);
  return selected;
}

void ConnectionFrame::WriteBoxes(const ConnectionBoxTexts& texts) {
  const std::uint8_t saved = context_->state().updating_controls;
  const ScopeExit restore([this, saved] { context_->state().updating_controls = saved; });
  context_->state().updating_controls = kUpdatingConnectionFields;
  for (int b = kFirstBox; b <= kLastBox; ++b)
    box(b)->setText(QString::fromStdString(texts[static_cast<size_t>(b - kFirstBox)]));
}

// An item reads its running number, a blank and the direction; the direction is the core's text.
QString ConnectionFrame::ConnectionItemText(const std::string& item) {
  const std::size_t blank = item.find(' ');
  if (blank == std::string::npos) return QString::fromStdString(item);
  return QString::fromStdString(item.substr(0, blank)) + CoreText(item.substr(blank));
}

std::string ConnectionFrame::BoxText(int number) const { return box(number)->text().toStdString(); }

void ConnectionFrame::ShowConnection(int index) {
  const ConnectionView view =
      ShowConnectionData(document_->Secondary().bytes, Selectors(false).enabled, index);
  WriteBoxes(view.texts);
  length_label_->setText(CoreText(view.length_caption));
}

void ConnectionFrame::SetConnectionEditorEnabled(bool enabled) {
  setEnabled(enabled);
  if (!enabled) {
    ClearSelection();
    WriteBoxes(ConnectionBoxTexts{});
    length_label_->setText(CoreText(ConnectionLengthCaption(-1)));
  }
  // Switched off, the frame has no button left to choose, so the boxes stay empty.
  EnsureConnectionSelected();
}

// ---- Handlers -------------------------------------------------------------------------------

void ConnectionFrame::ClickConnectionCheck(int index) {
  if (context_->state().updating_controls != kUpdatingIdle) return;
  const ScopeExit idle([this] { context_->state().updating_controls = kUpdatingIdle; });
  context_->state().updating_controls = kUpdatingConnectionChecks;
  DirectionFlags checked{};
  for (int i = 0; i < kDirections; ++i)
    checked[static_cast<size_t>(i)] = page_->connection_check(i)->isChecked();
  const std::uint8_t flags = ConnectionFlagsFromChecks(checked);
  SetConnectionEditorEnabled(flags != 0);
  // Header(8) takes the new flags as text only: its change event ignores a write made while
  // the checks are being written, so the flag byte keeps its value until Header(8) is typed in.
  page_->header(kConnectionFlagsBox)->setText(QString::fromStdString(Hex2(flags)));
  EnsureConnectionSelected();
  const int selected = SelectedConnection();
  if (index < selected) ShowConnection(selected);
}

void ConnectionFrame::ConnectionFlagsShown(bool enabled) {
  SetConnectionEditorEnabled(enabled);
  // The header page refreshed Header(8): the direction shown last is shown again, for the
  // record of the map now loaded.
  const int selected = SelectedConnection();
  if (context_->state().updating_controls == kUpdatingShowingHeaders && enabled && selected != -1)
    ShowConnection(selected);
}

void ConnectionFrame::RefreshAfterMapLoad() {
  for (int i = 0; i < kDirections; ++i) page_->connection_check(i)->setEnabled(true);
  if (testAttribute(Qt::WA_ForceDisabled)) return;
  // The ConSel buttons have just been matched to the map: a selection left on a direction the
  // map lacks moves on, and the slots are counted anew.
  if (EnsureConnectionSelected() != -1) return;
  const int selected = SelectedConnection();
  if (selected != -1) ShowConnection(selected);
}

void ConnectionFrame::FillConnectionList() {
  connection_list_->clear();
  for (const std::string& item : document_->Grid().ConnectionItems())
    connection_list_->addItem(ConnectionItemText(item));
  // The first direction is shown, so that the list reads at a glance.
  if (connection_list_->count() > 0) connection_list_->setCurrentIndex(0);
}

void ConnectionFrame::StoreBoxEdit(int box_number, std::int32_t value) {
  RomDocument& document = *document_;
  SecondaryHeaderBuffer secondary = document.Secondary();
  StoreConnectionEdit(secondary.bytes, Selectors(false), box_number, value);
  document.EditHeaders(document.Primary(), secondary, "Anbindung ändern",
                       "Header(" + std::to_string(box_number) + ")");
  context_->DocumentEdited();
}

void ConnectionFrame::ClickShowDestination() {
  const std::int32_t destination = ParseHex(BoxText(kDestinationBox));
  const RomDocument& document = *document_;
  link_data_->MarkPosition(
      WorkingCopyPosition(destination, document.MapWidth(), document.MapHeight()));
}

// The neighbour is chosen in the bank and map lists as a user would choose it, so that it is
// loaded and listed like any other map; the position is then found in the neighbour.
void ConnectionFrame::ClickShowNeighbour(NeighbourMark mark) {
  const std::int32_t bank = ParseHex(BoxText(kNeighbourBankBox));
  const std::int32_t map = ParseHex(BoxText(kNeighbourMapBox));
  const std::int32_t value = ParseHex(BoxText(mark == NeighbourMark::kWindow ? kWindowBox : kSourceBox));
  std::array<int, kMapBankCount> counts{};
  const MapCounts& known = document_->MapCountPerBank();
  std::copy(known.begin(), known.end(), counts.begin());
  const std::optional<NeighbourTarget> target = NeighbourTargetOf(bank, map, counts);
  if (!target) return;

  if (!context_->SwitchToMap(target->bank_index, target->map_index)) return;

  const RomDocument& document = *document_;
  const int width = document.MapWidth();
  const int height = document.MapHeight();
  link_data_->MarkPosition(
      mark == NeighbourMark::kWindow
          ? WorkingCopyPosition(value, width, height)
          : BlockDataPosition(value, document.BlockDataPointer(), width, height));
}

}  // namespace kartova
