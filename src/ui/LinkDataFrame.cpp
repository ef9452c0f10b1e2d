#include "ui/LinkDataFrame.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace kartova {

namespace {

// The grid reads as columns of two-digit numbers only in a font of equal widths.
QFont GridFont() {
  QFont font(QStringLiteral("Lucida Console"));
  font.setStyleHint(QFont::Monospace);
  if (!QFontInfo(font).fixedPitch()) font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  return font;
}

constexpr const char* kFieldCaptions[] = {"X:", "Y:", "Block-Pointer:", "RAM-Adresse:"};

}  // namespace

LinkDataFrame::LinkDataFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Map Link Data"), parent) {
  setObjectName(QStringLiteral("LinkDataFrame"));
  grid_text_ = new QPlainTextEdit(this);
  grid_text_->setObjectName(QStringLiteral("Text6"));
  grid_text_->setFont(GridFont());
  grid_text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  // The caret moves from cell to cell; the numbers themselves are not typed over.
  grid_text_->setReadOnly(true);
  grid_text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(3);
  grid->addWidget(grid_text_, 0, 0, 5, 1);
  for (int i = 0; i < 4; ++i) {
    auto* field = new QLineEdit(this);
    field->setObjectName(QStringLiteral("Text%1").arg(i + 7));
    field->setReadOnly(true);
    field->setMaximumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("-0000")) + 16);
    fields_[static_cast<size_t>(i)] = field;
    grid->addWidget(new QLabel(QString::fromLatin1(kFieldCaptions[i]), this), i, 1);
    grid->addWidget(field, i, 2);
  }
  grid->setRowStretch(4, 1);
  grid->setColumnStretch(0, 1);
  setEnabled(false);
}

QLineEdit* LinkDataFrame::field(int number) const {
  return number >= 7 && number <= 10 ? fields_[static_cast<size_t>(number - 7)] : nullptr;
}

}  // namespace kartova
