// The commands that make a ROM current: the open and reload items and OpenRom, which hands the
// choice of the map to the map navigator.

#include <QFileInfo>

#include "maps/RomFileChecks.h"
#include "settings/SettingsStore.h"
#include "ui/FileExists.h"
#include "ui/HeaderPage.h"
#include "ui/MainWindow.h"
#include "ui/MapNavigator.h"
#include "ui/MapSelector.h"
#include "ui/Prompter.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

constexpr const char* kOpenTitle = "Rom Öffnen";
constexpr const char* kOpenFilter =
    "Alle Gameboy-Roms (*.gb*)|*.gb*|Backup-Dateien (*.bak;*.old)|*.bak;*.old|Alle Dateien "
    "(*.*)|*.*";

}  // namespace

void MainWindow::ConnectRomItems() {
  menu_->OnClick("mnuLoad", this, [this] { Guarded([this] { ClickLoad(); }); });
  menu_->OnClick("mnuReloadFull", this,
                 [this] { Guarded([this] { ClickReload(kReloadFull); }); });
  menu_->OnClick("mnuReloadMap", this,
                 [this] { Guarded([this] { ClickReload(kReloadMapOnly); }); });
  menu_->OnClick("mnuReloadEvents", this,
                 [this] { Guarded([this] { ClickReload(kReloadEventsOnly); }); });
}

void MainWindow::ClickLoad() {
  if (!ConfirmDiscardChanges()) return;
  const std::optional<QString> chosen = prompter_.OpenFile(
      QString::fromUtf8(kOpenTitle), open_dialog_dir_, QtNameFilters(QString::fromUtf8(kOpenFilter)));
  if (!chosen) return;
  previous_rom_path_ = rom_path_;
  rom_path_ = *chosen;
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
    prompter_.Message(QStringLiteral("Keine Datei geladen."));
  }
}

void MainWindow::OpenCommandLineRom() {
  if (startup_options_.rom_path.isEmpty()) return;
  previous_rom_path_ = rom_path_;
  // The title names the file after the last separator, so the path is made whole.
  rom_path_ = QFileInfo(startup_options_.rom_path).absoluteFilePath();
  Guarded([this] { OpenRom(); });
}

// A file that is no ROM at all (missing, a folder, too small) is reported as an error of the
// file, not as a runtime error; the previous ROM stays current either way.
void MainWindow::OpenRom() {
  try {
    ReadRomDefinitionAndTables();
  } catch (const RomOpenError& error) {
    prompter_.Message(QString::fromStdString(error.GermanMessage()), kMessageTitle, Prompter::Buttons::kOk,
                      Prompter::Icon::kCritical);
    return;
  }
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
  for (const char* item : {"mnuSaveAs", "mnuReload", "mnuMapExp", "mnuMapImp"})
    menu_->SetEnabled(item, true);
}

bool MainWindow::SwitchToMap(int bank_index, int map_index) {
  return navigator_->SwitchToMap(bank_index, map_index);
}

bool MainWindow::FollowWarpTo(int bank, int map) { return navigator_->FollowWarpTo(bank, map); }

}  // namespace kartova
