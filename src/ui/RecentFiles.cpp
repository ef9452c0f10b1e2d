#include "ui/RecentFiles.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <string>

#include "settings/SettingsStore.h"

namespace kartova {
namespace {

constexpr const char* kSection = "RecentFiles";

std::string Key(int index) { return "File" + std::to_string(index + 1); }

QString Absolute(const QString& path) { return QFileInfo(path).absoluteFilePath(); }

}  // namespace

RecentFiles::RecentFiles(SettingsStore& settings, QMenu& menu, QObject* parent)
    : QObject(parent), settings_(settings), menu_(menu) {
  setObjectName(QStringLiteral("RecentFiles"));
  menu_.setToolTipsVisible(true);
  connect(&menu_, &QMenu::aboutToShow, this, &RecentFiles::FillMenu);
  FillMenu();
}

void RecentFiles::Read() {
  files_.clear();
  for (int i = 0; i < kMaxFiles; ++i) {
    const QString path = QString::fromStdString(settings_.ReadSetting(kSection, Key(i), ""));
    // A list edited by hand may hold gaps and twins; neither is shown.
    if (!path.isEmpty() && !files_.contains(Absolute(path))) files_ << Absolute(path);
  }
  FillMenu();
}

void RecentFiles::Add(const QString& path) {
  const QString file = Absolute(path);
  files_.removeAll(file);
  files_.prepend(file);
  while (files_.size() > kMaxFiles) files_.removeLast();
  Write();
  FillMenu();
}

void RecentFiles::Clear() {
  files_.clear();
  Write();
  FillMenu();
}

void RecentFiles::Write() {
  for (int i = 0; i < kMaxFiles; ++i)
    settings_.WriteSetting(kSection, Key(i), i < files_.size() ? files_[i].toStdString() : std::string());
}

void RecentFiles::FillMenu() {
  // The entries go later: the list changes while the menu is still delivering a click on one.
  for (QAction* action : menu_.actions()) {
    menu_.removeAction(action);
    action->deleteLater();
  }
  if (files_.isEmpty()) {
    QAction* empty = menu_.addAction(tr("(leer)"));
    empty->setObjectName(QStringLiteral("mnuRecentEmpty"));
    empty->setEnabled(false);
  }
  for (int i = 0; i < files_.size(); ++i) {
    const QString path = files_[i];
    QString name = QFileInfo(path).fileName();
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* entry = menu_.addAction(QStringLiteral("&%1 %2").arg(i + 1).arg(name));
    entry->setObjectName(QStringLiteral("mnuRecent%1").arg(i + 1));
    const bool there = QFileInfo(path).isFile();
    const QString tip = there ? path : tr("%1 (nicht gefunden)").arg(path);
    entry->setToolTip(tip);
    entry->setStatusTip(tip);
    entry->setEnabled(there);
    connect(entry, &QAction::triggered, this, [this, path] { emit OpenRequested(path); });
  }
  menu_.addSeparator();
  QAction* clear = menu_.addAction(tr("Liste leeren"));
  clear->setObjectName(QStringLiteral("mnuRecentClear"));
  clear->setStatusTip(tr("Entfernt alle Einträge aus dieser Liste"));
  clear->setEnabled(!files_.isEmpty());
  connect(clear, &QAction::triggered, this, &RecentFiles::Clear);
}

}  // namespace kartova
