#include "ui/ConnectionFrame.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "ui/HeaderPage.h"

namespace kartova {

namespace {

constexpr const char* kSelectorCaptions[] = {"(Oben)", "(Unten)", "(Links)", "(Rechts)"};

// Digits of each box, Header(11) first: bank, source, destination, length, neighbour width,
// the two position change bytes, window, map number.
constexpr int kBoxDigits[] = {2, 4, 4, 2, 2, 2, 2, 4, 2};

}  // namespace

ConnectionFrame::ConnectionFrame(QWidget* parent)
    : QGroupBox(QStringLiteral("Anbindungen"), parent) {
  setObjectName(QStringLiteral("Frame8"));
  BuildSelectors();
  BuildBoxes();
  BuildLayout();
  setEnabled(false);
}

void ConnectionFrame::BuildSelectors() {
  selector_group_ = new QButtonGroup(this);
  for (int i = 0; i < 4; ++i) {
    selectors_[static_cast<size_t>(i)] = new QRadioButton(QString::fromLatin1(kSelectorCaptions[i]), this);
    selectors_[static_cast<size_t>(i)]->setObjectName(QStringLiteral("ConSel(%1)").arg(i));
    selector_group_->addButton(selectors_[static_cast<size_t>(i)], i);
  }
}

void ConnectionFrame::BuildBoxes() {
  for (int b = kFirstBox; b <= kLastBox; ++b) {
    const int digits = kBoxDigits[b - kFirstBox];
    boxes_[static_cast<size_t>(b - kFirstBox)] = MakeHeaderBox(b, digits, this);
  }
  length_label_ = new QLabel(QStringLiteral("ST-Größe:"), this);
  length_label_->setObjectName(QStringLiteral("LengthLabel"));
  const char* captions[] = {"Ziel zeigen", "Fenster zeigen", "Quelle zeigen"};
  for (int i = 0; i < 3; ++i) {
    auto* button = new QPushButton(QString::fromUtf8(captions[i]), this);
    button->setObjectName(QStringLiteral("Command%1").arg(i + 2));
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

  const auto label = [this](const char* caption) {
    return new QLabel(QString::fromUtf8(caption), this);
  };
  grid->addWidget(label("Map: B/N"), 1, 0);
  grid->addWidget(box(11), 1, 1);
  grid->addWidget(box(19), 1, 2);
  grid->addWidget(label("Sichtteil:"), 2, 0);
  grid->addWidget(box(12), 2, 1);
  grid->addWidget(box(13), 2, 2);
  grid->addWidget(length_label_, 3, 0);
  grid->addWidget(box(14), 3, 1);
  grid->addWidget(label("Map-Breite:"), 3, 2, Qt::AlignRight);
  grid->addWidget(box(15), 3, 3);
  grid->addWidget(label("Wechsel:"), 4, 0);
  grid->addWidget(box(16), 4, 1);
  grid->addWidget(box(17), 4, 2);
  grid->addWidget(label("Fenster:"), 5, 0);
  grid->addWidget(box(18), 5, 1);

  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : commands_) buttons->addWidget(button);
  buttons->addStretch(1);
  grid->addLayout(buttons, 6, 0, 1, 5);
  grid->setColumnStretch(4, 1);
  grid->setRowStretch(7, 1);
}

QRadioButton* ConnectionFrame::selector(int direction) const {
  return direction >= 0 && direction < 4 ? selectors_[static_cast<size_t>(direction)] : nullptr;
}

QLineEdit* ConnectionFrame::box(int box) const {
  return box >= kFirstBox && box <= kLastBox ? boxes_[static_cast<size_t>(box - kFirstBox)] : nullptr;
}

QPushButton* ConnectionFrame::command(int number) const {
  return number >= 2 && number <= 4 ? commands_[static_cast<size_t>(number - 2)] : nullptr;
}

}  // namespace kartova
