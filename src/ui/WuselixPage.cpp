#include "ui/WuselixPage.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QListWidget>
#include <QVBoxLayout>

namespace kartova {
namespace {

QGroupBox* Group(const QString& title, QWidget* content) {
  auto* group = new QGroupBox(title);
  auto* layout = new QVBoxLayout(group);
  layout->addWidget(content);
  return group;
}

}  // namespace

WuselixPage::WuselixPage(QWidget* parent)
    : QFrame(parent),
      segments_(new QListWidget),
      time_of_day_(new QComboBox),
      creatures_(new QListWidget) {
  setObjectName(QStringLiteral("WuselixPage"));
  segments_->setObjectName(QStringLiteral("List1"));
  time_of_day_->setObjectName(QStringLiteral("Combo1"));
  time_of_day_->addItems(
      {tr("Morgens"), tr("Tags"), tr("Abends")});
  creatures_->setObjectName(QStringLiteral("List2"));

  auto* layout = new QGridLayout(this);
  layout->addWidget(Group(tr("Abschnitte"), segments_), 0, 0, 2, 1);
  layout->addWidget(Group(tr("Tageszeit"), time_of_day_), 0, 1);
  layout->addWidget(Group(tr("Wuselix"), creatures_), 1, 1);
  layout->setColumnStretch(1, 2);
  layout->setColumnStretch(0, 1);
  layout->setRowStretch(1, 1);
}

}  // namespace kartova
