// The commands that make a ROM current: the open and reload items, the recent files, a file
// dropped on the window, and OpenRom, which hands the choice of the map to the map navigator.

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "maps/RomFileChecks.h"
#include "settings/SettingsStore.h"
#include "ui/FileExists.h"
#include "ui/HeaderPage.h"
#include "ui/MainWindow.h"
#include "ui/CoreTexts.h"
#include "ui/MapNavigator.h"
#include "ui/MapSelector.h"
#include "ui/MapPage.h"
#include "ui/Prompter.h"
#include "ui/RecentFiles.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

constexpr const char* kOpenTitle = QT_TRANSLATE_NOOP("kartova::MainWindow", "Rom Öffnen");
constexpr const char* kOpenFilter = QT_TRANSLATE_NOOP(
    "kartova::MainWindow",
    "Alle Gameboy-Roms (*.gb*)|*.gb*|Backup-Dateien (*.bak;*.old)|*.bak;*.old|Alle Dateien "
    "(*.*)|*.*");

// The first local file of a drag, or nothing: only a file can be opened. A file that is not
// there is taken, and refused by the open as any other.
QString DraggedFile(const QMimeData* data) {
  if (data == nullptr || !data->hasUrls()) return {};
  for (const QUrl& url : data->urls()) {
    const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
    if (!path.isEmpty() && !QFileInfo(path).isDir()) return path;
  }
  return {};
}

}  // namespace

void MainWindow::ConnectRomItems() {
  menu_->OnClick("mnuLoad", this, [this] { Guarded([this] { ClickLoad(); }); });
  menu_->OnClick("mnuReloadFull", this,
                 [this] { Guarded([this] { ClickReload(kReloadFull); }); });
  menu_->OnClick("mnuReloadMap", this,
                 [this] { Guarded([this] { ClickReload(kReloadMapOnly); }); });
  menu_->OnClick("mnuReloadEvents", this,
                 [this] { Guarded([this] { ClickReload(kReloadEventsOnly); }); });
  connect(recent_files_, &RecentFiles::OpenRequested, this,
          [this](const QString& path) { Guarded([&] { OpenRomFile(path); }); });
}

void MainWindow::ClickLoad() {
  if (!ConfirmDiscardChanges()) return;
  const std::optional<QString> chosen =
      prompter_.OpenFile(tr(kOpenTitle), DialogFolder(), QtNameFilters(tr(kOpenFilter)));
  if (!chosen) return;
  RememberFolder(*chosen);
  OpenChosenRom(*chosen);
}

void MainWindow::OpenRomFile(const QString& path) {
  if (!ConfirmDiscardChanges()) return;
  // The title names the file after the last separator, so the path is made whole.
  OpenChosenRom(QFileInfo(path).absoluteFilePath());
}

void MainWindow::OpenChosenRom(const QString& path) {
  previous_rom_path_ = rom_path_;
  rom_path_ = path;
  OpenRom();
}

// A reload runs the whole of OpenRom; only the final map load honours the scope. Like every
// attempt to open, it remembers RomPath first, so that a definition that has become unreadable
// leaves RomPath on the ROM that stays current.
void MainWindow::ClickReload(std::int16_t scope) {
  if (!ConfirmDiscardChanges()) return;
  const ScopeExit full([this] { state_.reload_scope = kReloadFull; });
  state_.reload_scope = scope;
  if (FileExists(rom_path_)) {
    previous_rom_path_ = rom_path_;
    OpenRom();
  } else {
    prompter_.Message(tr("Keine Datei geladen."));
  }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (DraggedFile(event->mimeData()).isEmpty()) {
    event->ignore();
    return;
  }
  event->acceptProposedAction();
}

// The ROM opens once the drop is over: the questions of an open must not hold up the program
// the file came from.
void MainWindow::dropEvent(QDropEvent* event) {
  const QString path = DraggedFile(event->mimeData());
  if (path.isEmpty()) {
    event->ignore();
    return;
  }
  event->acceptProposedAction();
  QTimer::singleShot(0, this, [this, path] { Guarded([&] { OpenRomFile(path); }); });
}

void MainWindow::OpenCommandLineRom() {
  if (startup_options_.rom_path.isEmpty()) return;
  previous_rom_path_ = rom_path_;
  // The title names the file after the last separator, so the path is made whole.
  rom_path_ = QFileInfo(startup_options_.rom_path).absoluteFilePath();
  Guarded([this] { OpenRom(); });
}

// A file that is no ROM at all (missing, a folder, too small) is reported as an error of the
// file, not as a runtime error; the previous ROM stays current either way. The message names
// the file and why; the details say what was being done.
namespace {

// The core's message is "<what>: <path>", perhaps followed by " (<system's reason>)"; the what
// is shown in the language of the ui, path and reason as they are.
QString OpenErrorText(const RomOpenError& error) {
  const std::string message = error.GermanMessage();
  const std::size_t at = message.find(": " + error.path());
  if (at == std::string::npos) return CoreText(message);
  return CoreText(message.substr(0, at)) + QString::fromStdString(message.substr(at));
}

}  // namespace

void MainWindow::OpenRom() {
  try {
    ReadRomDefinitionAndTables();
  } catch (const RomOpenError& error) {
    prompter_.Message(OpenErrorText(error), kMessageTitle, Prompter::Buttons::kOk,
                      Prompter::Icon::kCritical,
                      tr("Beim Öffnen der ROM-Datei %1")
                          .arg(QFileInfo(QString::fromStdString(error.path())).absoluteFilePath()));
    return;
  }
  recent_files_->Add(rom_path_);
  map_page_->SetEmptyHintVisible(false);
  EnableRomMenus();
  UpdateStandardFileItems();
  SetWindowTitle();
  const int remembered = map_selector_->map_index();
  header_page_->FillLocationList(ToQStringList(document_.LocationList()));
  DocumentEdited();
  navigator_->SelectBankAfterOpen();
  if (navigator_->ReselectMap(remembered)) SetWindowTitle();
}

// The document reads the definition, the map bank table and the names as one step and keeps
// the previous ROM when any of it raises a runtime error; RomPath follows it back then.
void MainWindow::ReadRomDefinitionAndTables() {
  try {
    document_.OpenRom(rom_path_.toStdString(), settings_);
  } catch (const std::exception&) {
    rom_path_ = previous_rom_path_;
    throw;
  }
  header_page_->ApplyDefinition(document_.Definition());
}

void MainWindow::EnableRomMenus() {
  menu_->SetEnabled("mnuSave", !document_.ReadOnly());
  for (const char* item : {"mnuSaveAs", "mnuReload", "mnuMapExp", "mnuMapImp", "mnuNextMap", "mnuPrevMap"})
    menu_->SetEnabled(item, true);
}

bool MainWindow::SwitchToMap(int bank_index, int map_index) {
  return navigator_->SwitchToMap(bank_index, map_index);
}

bool MainWindow::FollowWarpTo(int bank, int map) { return navigator_->FollowWarpTo(bank, map); }

}  // namespace kartova
