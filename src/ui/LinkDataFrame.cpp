#include "ui/LinkDataFrame.h"

#include <QFont>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <algorithm>
#include <functional>
#include <span>

#include "maps/RomDocument.h"
#include "ui/CoreTexts.h"
#include "ui/FieldTips.h"
#include "ui/PageContext.h"

namespace kartova {

// Text6: a read-only grid whose keys and clicks belong to the frame. Every key press stops
// here, so nothing is typed and no key does its usual text-editing job; only the arrows move.
// Tab still moves the focus on, before any key handling.
class LinkGridText : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

  std::function<void(int key_code)> on_key;
  std::function<void()> on_click;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    event->accept();
    const int code = KeyCode(event->key());
    if (code != 0 && on_key) on_key(code);
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && on_click) on_click();
  }

 private:
  static int KeyCode(int key) {
    switch (key) {
      case Qt::Key_Left: return kLinkKeyLeft;
      case Qt::Key_Up: return kLinkKeyUp;
      case Qt::Key_Right: return kLinkKeyRight;
      case Qt::Key_Down: return kLinkKeyDown;
      default: return 0;
    }
  }
};

namespace {

// The grid reads as columns of two-digit numbers only in a font of equal widths.
QFont GridFont() {
  const QString family = QStringLiteral("Lucida Console");
  if (QFontDatabase::hasFamily(family)) return QFont(family);
  return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

constexpr const char* kFieldCaptions[] = {
    QT_TRANSLATE_NOOP("kartova::LinkDataFrame", "X:"), QT_TRANSLATE_NOOP("kartova::LinkDataFrame", "Y:"),
    QT_TRANSLATE_NOOP("kartova::LinkDataFrame", "Block-Pointer:"),
    QT_TRANSLATE_NOOP("kartova::LinkDataFrame", "RAM-Adresse:")};

}  // namespace

LinkDataFrame::LinkDataFrame(QWidget* parent)
    : QGroupBox(tr("Map Link Data"), parent) {
  setObjectName(QStringLiteral("LinkDataFrame"));
  grid_text_ = new LinkGridText(this);
  grid_text_->setObjectName(QStringLiteral("Text6"));
  grid_text_->setToolTip(LinkDataTip(6));
  grid_text_->setFont(GridFont());
  grid_text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  grid_text_->setReadOnly(true);
  grid_text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  grid_text_->setTabChangesFocus(true);
  grid_text_->on_key = [this](int key_code) { PressKey(key_code); };
  grid_text_->on_click = [this] { ClickGrid(); };

  // The grid takes the frame's width; the read-outs of the selected cell stand below it.
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(3);
  grid->addWidget(grid_text_, 0, 0, 1, 5);
  for (int i = 0; i < 4; ++i) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QStringLiteral("Text%1").arg(i + 7));
    field->setToolTip(LinkDataTip(i + 7));
    field->setReadOnly(true);
    field->setFixedWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("-0000")) + 16);
    fields_[static_cast<size_t>(i)] = field;
    const int row = 1 + i / 2;
    const int column = (i % 2) * 2;
    auto* label = new QLabel(tr(kFieldCaptions[i]), this);
    label->setToolTip(field->toolTip());
    grid->addWidget(label, row, column);
    grid->addWidget(field, row, column + 1);
  }
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(4, 1);
  setEnabled(false);
}

void LinkDataFrame::Attach(const RomDocument& document, PageContext& context) {
  document_ = &document;
  context_ = &context;
  connect(&context.events(), &PageEvents::LinkDataViewRequested, this, [this] { BuildView(); });
  // A map loaded while the header page is shown (a neighbour chosen by a position button, a
  // reload) is shown at once; on the other pages the view waits for the tab.
  connect(&context.events(), &PageEvents::MapLoadStepDone, this, [this](MapLoadStep step) {
    if (step == MapLoadStep::kMapBuilt && context_->state().current_tab == PageContext::kHeaderTab)
      BuildView();
  });
}

QPlainTextEdit* LinkDataFrame::grid_text() const { return grid_text_; }

QLineEdit* LinkDataFrame::field(int number) const {
  return number >= 7 && number <= 10 ? fields_[static_cast<size_t>(number - 7)] : nullptr;
}

// ---- Offsets --------------------------------------------------------------------------------

// A grid line takes RowLength() characters with its CR LF, and RowLength() - 1 positions in the
// widget, whose paragraph separator is one. The caret at a line's end stands on the CR.
int LinkDataFrame::ToTextOffset(int cursor_position) const {
  const int widget_line = data_.RowLength() - 1;
  const int position = std::max(cursor_position, 0);
  return position / widget_line * data_.RowLength() + position % widget_line;
}

int LinkDataFrame::ToCursorPosition(int offset) const {
  const int row_length = data_.RowLength();
  const int p = std::clamp(offset, 0, data_.TextLength());
  return p / row_length * (row_length - 1) + std::min(p % row_length, row_length - 2);
}

LinkSelection LinkDataFrame::Selection() const {
  const QTextCursor cursor = grid_text_->textCursor();
  const int start = ToTextOffset(cursor.selectionStart());
  return {start, ToTextOffset(cursor.selectionEnd()) - start};
}

// ---- View -----------------------------------------------------------------------------------

LinkMapInfo LinkDataFrame::MapInfo() const {
  const RomDocument& document = *document_;
  return {document.MapWidth(), document.MapHeight(), document.BlockDataPointer()};
}

void LinkDataFrame::BuildView() {
  if (!document_) return;
  const RomDocument& document = *document_;
  if (!document.IsOpen() || document.SelectedMap() < 0) return;
  const ExtendedMap& grid = document.Grid();
  const std::span<const std::uint8_t> cells(
      grid.Row(0), static_cast<std::size_t>(grid.Width()) * static_cast<std::size_t>(grid.Height()));
  data_ = LinkData(cells, grid.MapWidth(), grid.MapHeight());
  QString text = QString::fromStdString(data_.Text());
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  grid_text_->setPlainText(text);
  built_ = true;
  setEnabled(true);
  Select(data_.Click(0));
}

void LinkDataFrame::Select(LinkSelection selection) {
  QTextCursor cursor = grid_text_->textCursor();
  cursor.setPosition(ToCursorPosition(selection.start));
  cursor.setPosition(ToCursorPosition(selection.start + selection.length), QTextCursor::KeepAnchor);
  grid_text_->setTextCursor(cursor);
  ReadSelectedCell();
}

void LinkDataFrame::ReadSelectedCell() {
  if (!built_) return;
  const LinkCell cell = data_.ReadCell(Selection().start, MapInfo());
  fields_[0]->setText(QString::number(cell.position.x));
  fields_[1]->setText(QString::number(cell.position.y));
  // "NA" outside the map proper is the core's word; the digits stay as they are.
  fields_[2]->setText(CoreText(cell.block_pointer_text));
  fields_[3]->setText(QString::fromStdString(cell.working_copy_text));
}

void LinkDataFrame::MarkPosition(LinkPosition position) {
  if (!built_) BuildView();
  if (!built_) return;
  Select(data_.Mark(position, MapInfo()));
  // The mark is meant to be looked at, and the arrows go on from it.
  grid_text_->setFocus(Qt::OtherFocusReason);
}

void LinkDataFrame::PressKey(int key_code) {
  if (!built_) return;
  if (const std::optional<LinkSelection> moved = data_.PressKey(Selection().start, key_code))
    Select(*moved);
}

void LinkDataFrame::ClickGrid() {
  if (!built_) return;
  Select(data_.Click(Selection().start));
}

}  // namespace kartova
