#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QMenu;

namespace kartova {

class SettingsStore;

// File → "Zuletzt geöffnet": the ROMs opened last, the most recent first, kept in the settings
// store (section "RecentFiles", keys "File1" to "File8"). The entries read "&1 demo.gbc" with
// the whole path as their tip; a file that is no longer there is greyed out. The submenu is
// filled again each time it opens, so a file deleted meanwhile shows as missing.
class RecentFiles : public QObject {
  Q_OBJECT

 public:
  static constexpr int kMaxFiles = 8;

  RecentFiles(SettingsStore& settings, QMenu& menu, QObject* parent = nullptr);

  // The list as the settings store holds it (after its back end is chosen).
  void Read();
  // A ROM opened: it goes to the top (paths are compared made absolute), the oldest beyond
  // kMaxFiles drops out, and the list is stored.
  void Add(const QString& path);
  // "Liste leeren".
  void Clear();

  const QStringList& files() const { return files_; }
  // Fills the submenu from the list.
  void FillMenu();

 signals:
  // An entry was chosen.
  void OpenRequested(const QString& path);

 private:
  void Write();

  SettingsStore& settings_;
  QMenu& menu_;
  QStringList files_;
};

}  // namespace kartova
