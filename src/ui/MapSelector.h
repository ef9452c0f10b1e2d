#pragma once

#include <QStringList>
#include <QWidget>
#include <string>
#include <vector>

class QComboBox;

namespace kartova {

// The bank and map selectors above the tab strip: Combo2 with the fixed entries "Mapbank 1" to
// "Mapbank 26", Combo3 with the maps of the chosen bank. The selection lives in these lists
// only. BankClicked and MapClicked report the user's own choices; a selection made by the
// program never raises them, so the window runs the handlers itself where it has to.
class MapSelector : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kBankCount = 26;

  explicit MapSelector(QWidget* parent = nullptr);

  QComboBox* bank_list() const { return bank_list_; }
  QComboBox* map_list() const { return map_list_; }

  // List indices, -1 when nothing is selected.
  int bank_index() const;
  int map_index() const;
  int map_count() const;

  void SelectBank(int index);
  void SelectMap(int index);
  // Replaces the map list; nothing is selected afterwards.
  void SetMaps(const QStringList& entries);

 signals:
  void BankClicked();
  void MapClicked();

 private:
  QComboBox* bank_list_;
  QComboBox* map_list_;
};

// The document's list entries (UTF-8) as the selectors and combo boxes take them.
QStringList ToQStringList(const std::vector<std::string>& items);

}  // namespace kartova
