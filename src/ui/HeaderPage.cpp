#include "ui/HeaderPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>

#include "maps/HeaderFields.h"
#include "rom/HexText.h"
#include "rom/RomDefinition.h"
#include "ui/ComboFit.h"
#include "ui/ConnectionFrame.h"
#include "ui/CoreTexts.h"
#include "ui/FieldTips.h"
#include "ui/LinkDataFrame.h"
#include "ui/PageContext.h"
#include "ui/ScopeExit.h"
#include "ui/WindowPlacement.h"

namespace kartova {

namespace {

// Widths of the form's boxes in twips. Header(2) is the wider one while it also shows the
// extra header bytes, whose names need the room of the selector beside it.
constexpr int kShortBoxTwips = 840;
constexpr int kLongBoxTwips = 1080;
constexpr int kWideExtraByteBoxTwips = 1320;

constexpr int kConnectionFlagsBox = 8;
constexpr int kExtraByteBox = 2;

constexpr const char* kConnectionCaptions[] = {
    QT_TRANSLATE_NOOP("kartova::HeaderPage", "Oben"), QT_TRANSLATE_NOOP("kartova::HeaderPage", "Unten"),
    QT_TRANSLATE_NOOP("kartova::HeaderPage", "Links"), QT_TRANSLATE_NOOP("kartova::HeaderPage", "Rechts")};

int TwipsToPixels(QWidget& widget, int twips) { return WindowPlacement(widget).ToPixelsX(twips); }

// A field's label, which tells the same as the field when the mouse rests on it.
QLabel* FieldLabel(const QString& caption, const QWidget* field, QWidget* parent) {
  auto* label = new QLabel(caption, parent);
  label->setToolTip(field->toolTip());
  return label;
}

}  // namespace

QLineEdit* MakeHeaderBox(int index, int digits, QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(QStringLiteral("Header(%1)").arg(index));
  box->setFixedWidth(TwipsToPixels(*parent, digits > 4 ? kLongBoxTwips : kShortBoxTwips));
  box->setToolTip(HeaderBoxTip(index));
  return box;
}

HeaderPage::HeaderPage(RomDocument& document, PageContext& context, QWidget* parent)
    : QFrame(parent), document_(document), context_(context) {
  setObjectName(QStringLiteral("Frame(3)"));
  connection_frame_ = new ConnectionFrame(this);
  link_data_frame_ = new LinkDataFrame(this);

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(4, 4, 4, 4);
  grid->setSpacing(6);
  grid->addWidget(BuildPrimaryFrame(), 0, 0);
  grid->addWidget(BuildSecondaryFrame(), 0, 1);
  grid->addWidget(connection_frame_, 1, 0);
  grid->addWidget(link_data_frame_, 1, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(1, 1);
  ConnectEditors();
  connection_frame_->Attach(document, context, *this, *link_data_frame_);
  link_data_frame_->Attach(document, context);
}

QComboBox* HeaderPage::MakeCombo(int index) {
  auto* combo = new QComboBox(this);
  combo->setObjectName(QStringLiteral("HCombo(%1)").arg(index));
  combo->setEditable(true);
  // Codes are typed as two hex digits; neither completion nor a new list entry may turn the
  // typed text into something else.
  combo->setCompleter(nullptr);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->setMinimumContentsLength(10);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setToolTip(HeaderComboTip(index));
  combos_[static_cast<size_t>(index)] = combo;
  return combo;
}

QWidget* HeaderPage::BuildPrimaryFrame() {
  auto* frame = new QGroupBox(tr("Primary Mapheader"), this);
  frame->setObjectName(QStringLiteral("PrimaryHeaderFrame"));
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(3);
  const auto row = [grid, frame](int at, const QString& caption, QWidget* field, int span) {
    grid->addWidget(FieldLabel(caption, field, frame), at, 0);
    grid->addWidget(field, at, 1, 1, span);
  };
  boxes_[0] = MakeHeaderBox(0, 2, frame);
  boxes_[0]->setReadOnly(true);
  boxes_[1] = MakeHeaderBox(1, 4, frame);
  boxes_[1]->setReadOnly(true);
  boxes_[2] = MakeHeaderBox(2, 2, frame);

  row(0, tr("Bank:"), boxes_[0], 1);
  row(1, tr("Tileset:"), MakeCombo(0), 4);
  row(2, tr("Spite Set"), MakeCombo(1), 4);
  row(3, tr("Point:"), boxes_[1], 1);
  row(4, tr("Title:"), MakeCombo(2), 4);
  row(5, tr("Music:"), MakeCombo(3), 4);
  row(6, tr("Lighting"), MakeCombo(4), 4);

  extra_byte_label_ = FieldLabel(CoreText(ExtraByteCaption(0, {})), boxes_[2], frame);
  extra_byte_label_->setObjectName(QStringLiteral("Label56"));
  extra_selector_label_ = new QLabel(tr("Byte-Nr.:"), frame);
  extra_selector_label_->setObjectName(QStringLiteral("Label65"));
  extra_byte_selector_ = new QSpinBox(frame);
  extra_byte_selector_->setObjectName(QStringLiteral("UpDown9"));
  extra_byte_selector_->setRange(0, 0);
  extra_byte_selector_->setToolTip(ExtraByteSelectorTip());
  extra_selector_label_->setToolTip(extra_byte_selector_->toolTip());
  // Records of nine bytes have no extra bytes to choose.
  extra_selector_label_->hide();
  extra_byte_selector_->hide();
  grid->addWidget(extra_byte_label_, 7, 0);
  grid->addWidget(boxes_[2], 7, 1, 1, 2);
  grid->addWidget(extra_selector_label_, 7, 3, Qt::AlignRight);
  grid->addWidget(extra_byte_selector_, 7, 4);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(8, 1);
  return frame;
}

QWidget* HeaderPage::BuildSecondaryFrame() {
  auto* frame = new QGroupBox(tr("Secondary Map Header"), this);
  frame->setObjectName(QStringLiteral("SecondaryHeaderFrame"));
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(3);
  const auto row = [grid, frame](int at, const QString& caption, QWidget* field, int span) {
    grid->addWidget(FieldLabel(caption, field, frame), at, 0);
    grid->addWidget(field, at, 1, 1, span);
  };
  constexpr int kDigits[kPageBoxes] = {2, 4, 2, 2, 6, 2, 4, 4, 2, 2, 2};
  for (int i = 3; i < kPageBoxes; ++i) boxes_[static_cast<size_t>(i)] = MakeHeaderBox(i, kDigits[i], frame);
  boxes_[4]->setReadOnly(true);

  row(0, tr("Border:"), boxes_[3], 1);
  // Width and height share a row and a label; each box carries its own tip.
  grid->addWidget(new QLabel(tr("size:"), frame), 1, 0);
  grid->addWidget(boxes_[9], 1, 1);
  grid->addWidget(boxes_[10], 1, 2);
  grid->addWidget(new QLabel(tr(" X / Y"), frame), 1, 3);
  row(2, tr("Map-Pointer:"), boxes_[4], 2);
  row(3, tr("Bank:"), boxes_[5], 1);
  row(4, tr("Script: (2)"), boxes_[6], 1);
  row(5, tr("Event: (2)"), boxes_[7], 1);
  row(6, tr("Links:"), boxes_[8], 1);

  auto* checks = new QHBoxLayout;
  for (int i = 0; i < 4; ++i) {
    auto* check = new QCheckBox(tr(kConnectionCaptions[i]), frame);
    check->setObjectName(QStringLiteral("Con(%1)").arg(i));
    check->setToolTip(ConnectionCheckTip(i));
    // The checks follow Header(8); switching a direction by a click belongs to the connection
    // editor, which is not wired here.
    check->setEnabled(false);
    connection_checks_[static_cast<size_t>(i)] = check;
    checks->addWidget(check);
  }
  checks->addStretch(1);
  grid->addLayout(checks, 7, 0, 1, 5);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(8, 1);
  return frame;
}

void HeaderPage::ConnectEditors() {
  for (int i = 0; i < 20; ++i) {
    QLineEdit* box = header(i);
    connect(box, &QLineEdit::textChanged, this, [this, i](const QString& text) { ChangeHeaderBox(i, text); });
    // Leaving a box ends its step: what is typed next, here or elsewhere, is a step of its own.
    connect(box, &QLineEdit::editingFinished, this, [this] { document_.CloseGesture(); });
  }
  for (int i = 0; i < kCombos; ++i) {
    QComboBox* combo = combos_[static_cast<size_t>(i)];
    connect(combo, &QComboBox::editTextChanged, this,
            [this, i](const QString& text) { ChangeHeaderCombo(i, text); });
    if (QLineEdit* line = combo->lineEdit())
      connect(line, &QLineEdit::editingFinished, this, [this] { document_.CloseGesture(); });
    // A click in the list only forwards to the change event.
    connect(combo, &QComboBox::activated, this,
            [this, i, combo] { ChangeHeaderCombo(i, combo->currentText()); });
  }
  connect(extra_byte_selector_, &QSpinBox::valueChanged, this, &HeaderPage::ChangeExtraByte);
}

QLineEdit* HeaderPage::header(int index) const {
  if (index >= 0 && index < kPageBoxes) return boxes_[static_cast<size_t>(index)];
  return connection_frame_->box(index);
}

QComboBox* HeaderPage::header_combo(int index) const {
  return index >= 0 && index < kCombos ? combos_[static_cast<size_t>(index)] : nullptr;
}

QCheckBox* HeaderPage::connection_check(int direction) const {
  return direction >= 0 && direction < 4 ? connection_checks_[static_cast<size_t>(direction)] : nullptr;
}

// ---- Filling the page -----------------------------------------------------------------------

void HeaderPage::FillComboList(QComboBox& combo, const QStringList& items) {
  // Refilling a list is no edit of the header byte behind it.
  const QSignalBlocker quiet(&combo);
  combo.clear();
  combo.addItems(items);
  combo.setCurrentIndex(-1);
  combo.clearEditText();
  FitComboDropDown(combo);
}

void HeaderPage::ApplyDefinition(const RomDefinition& definition) {
  for (int list : {RomDefinition::kTilesetNames, RomDefinition::kAbilityNames,
                   RomDefinition::kMusicNames, RomDefinition::kTimeNames}) {
    QStringList items;
    for (const std::string& item : definition.name_lists[static_cast<size_t>(list)])
      items << QString::fromStdString(item);
    FillComboList(*combos_[static_cast<size_t>(list)], items);
  }
  // A record shorter than nine bytes gives a negative limit; the hidden selector keeps 0.
  extra_byte_selector_->setMaximum(std::max(0, definition.extra_byte_max));
  extra_selector_label_->setVisible(definition.extra_bytes_visible);
  extra_byte_selector_->setVisible(definition.extra_bytes_visible);
  boxes_[kExtraByteBox]->setFixedWidth(TwipsToPixels(
      *this, definition.extra_bytes_visible ? kWideExtraByteBoxTwips : kShortBoxTwips));
}

void HeaderPage::FillLocationList(const QStringList& items) {
  FillComboList(*combos_[RomDefinition::kLocationNames], items);
}

void HeaderPage::ShowHeaderFields(int which) {
  const std::uint8_t saved = context_.state().updating_controls;
  const ScopeExit restore([this, saved] { context_.state().updating_controls = saved; });
  context_.state().updating_controls = kUpdatingShowingHeaders;
  for (int i = 0; i < kPageBoxes; ++i) {
    if (which != -1 && which != i) continue;
    if (i == kExtraByteBox) {
      extra_byte_label_->setText(
          CoreText(ExtraByteCaption(extra_byte_, document_.Definition().extra_header_byte_names)));
      // The tip names the byte the box now shows.
      boxes_[kExtraByteBox]->setToolTip(HeaderBoxTip(kExtraByteBox, extra_byte_));
      extra_byte_label_->setToolTip(boxes_[kExtraByteBox]->toolTip());
    }
    QLineEdit* box = boxes_[static_cast<size_t>(i)];
    const QString text = QString::fromStdString(
        HeaderFieldText(i, document_.Primary(), document_.Secondary(), extra_byte_));
    const bool same = box->text() == text;
    box->setText(text);
    // The change event brings the checks up to date; an unchanged text raises none.
    if (i == kConnectionFlagsBox && same)
      ShowConnectionChecks(document_.Secondary().ConnectionFlags());
  }
}

void HeaderPage::ShowHeaderCombos(int which) {
  const std::uint8_t saved = context_.state().updating_controls;
  const ScopeExit restore([this, saved] { context_.state().updating_controls = saved; });
  context_.state().updating_controls = kUpdatingShowingHeaders;
  const PrimaryHeaderBuffer& primary = document_.Primary();
  for (int i = 0; i < kCombos; ++i) {
    if (which != -1 && which != i) continue;
    QComboBox* combo = combos_[static_cast<size_t>(i)];
    const ComboDisplay display = ShowHeaderCombo(HeaderComboCode(i, primary), combo->count());
    combo->setCurrentIndex(display.list_index);
    // The entry's text also replaces whatever was typed over an unchanged selection.
    combo->setEditText(display.list_index >= 0 ? combo->itemText(display.list_index)
                                               : QString::fromStdString(display.text));
  }
}

void HeaderPage::MatchConnectionSelectors() {
  for (int i = 0; i < 4; ++i)
    connection_frame_->selector(i)->setEnabled(connection_checks_[static_cast<size_t>(i)]->isChecked());
}

void HeaderPage::ShowConnectionChecks(std::uint8_t flags) {
  {
    const std::uint8_t saved = context_.state().updating_controls;
    const ScopeExit restore([this, saved] { context_.state().updating_controls = saved; });
    context_.state().updating_controls = kUpdatingStoring;
    const std::array<bool, 4> checks = ConnectionChecks(flags);
    for (int i = 0; i < 4; ++i) connection_checks_[static_cast<size_t>(i)]->setChecked(checks[static_cast<size_t>(i)]);
  }
  emit ConnectionEditorEnabled((flags & 0x0F) != 0);
}

// ---- Edits ----------------------------------------------------------------------------------

void HeaderPage::ChangeHeaderBox(int index, const QString& text) {
  context_.Guarded([&] {
    const std::string typed = text.toStdString();
    // The edit is worked out on copies; the document takes the result as one step, and the
    // keys typed into one box join that step.
    PrimaryHeaderBuffer primary = document_.Primary();
    SecondaryHeaderBuffer secondary = document_.Secondary();
    const HeaderFieldEdit edit =
        EditHeaderField(index, typed, context_.state().updating_controls, extra_byte_, primary, secondary);
    if (edit.stored) {
      document_.EditHeaders(primary, secondary, "Header ändern", "Header(" + std::to_string(index) + ")");
      context_.DocumentEdited();
    }
    if (edit.set_changes_pending) context_.state().changes_pending = true;
    if (edit.connection_flags) ShowConnectionChecks(*edit.connection_flags);
    if (edit.for_connection_editor) {
      const ScopeExit idle([this] { context_.state().updating_controls = kUpdatingIdle; });
      context_.state().updating_controls = kUpdatingStoring;
      emit ConnectionBoxEdited(index, ParseHex(typed));
    }
  });
}

void HeaderPage::ChangeHeaderCombo(int index, const QString& text) {
  context_.Guarded([&] {
    PrimaryHeaderBuffer primary = document_.Primary();
    const HeaderComboEdit edit =
        EditHeaderCombo(index, text.toStdString(), context_.state().updating_controls, primary);
    if (edit.stored) {
      document_.EditHeaders(primary, document_.Secondary(), "Header ändern",
                           "HCombo(" + std::to_string(index) + ")");
      context_.DocumentEdited();
    }
    if (edit.set_changes_pending) context_.state().changes_pending = true;
  });
}

void HeaderPage::ChangeExtraByte(int value) {
  extra_byte_ = value;
  context_.Guarded([this] { ShowHeaderFields(kExtraByteBox); });
}

}  // namespace kartova
