#include "ui/MapSelector.h"

#include <QComboBox>
#include <QHBoxLayout>

namespace kartova {

MapSelector::MapSelector(QWidget* parent)
    : QWidget(parent), bank_list_(new QComboBox(this)), map_list_(new QComboBox(this)) {
  setObjectName(QStringLiteral("MapSelector"));
  bank_list_->setObjectName(QStringLiteral("Combo2"));
  map_list_->setObjectName(QStringLiteral("Combo3"));
  for (int bank = 1; bank <= kBankCount; ++bank)
    bank_list_->addItem(tr("Mapbank %1").arg(bank));
  // Like the form's list, the bank list starts without a selection.
  bank_list_->setCurrentIndex(-1);
  bank_list_->setMaxVisibleItems(kBankCount);
  bank_list_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  map_list_->setMaxVisibleItems(20);
  map_list_->setMinimumContentsLength(24);
  map_list_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(bank_list_);
  layout->addWidget(map_list_);
  layout->addStretch(1);

  connect(bank_list_, &QComboBox::activated, this, &MapSelector::BankClicked);
  connect(map_list_, &QComboBox::activated, this, &MapSelector::MapClicked);
}

int MapSelector::bank_index() const { return bank_list_->currentIndex(); }

int MapSelector::map_index() const { return map_list_->currentIndex(); }

int MapSelector::map_count() const { return map_list_->count(); }

void MapSelector::SelectBank(int index) { bank_list_->setCurrentIndex(index); }

void MapSelector::SelectMap(int index) { map_list_->setCurrentIndex(index); }

void MapSelector::SetMaps(const QStringList& entries) {
  map_list_->clear();
  map_list_->addItems(entries);
  map_list_->setCurrentIndex(-1);
}

QStringList ToQStringList(const std::vector<std::string>& items) {
  QStringList list;
  list.reserve(static_cast<qsizetype>(items.size()));
  for (const std::string& item : items) list << QString::fromStdString(item);
  return list;
}

}  // namespace kartova
