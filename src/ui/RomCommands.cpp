// The commands that make a ROM current and choose its map: the open and reload items, OpenRom,
// and the handlers of the bank and map selectors with the map load behind them.

#include <QFileInfo>
#include <QStringList>

#include "app/SettingsStore.h"
#include "maps/RomFileChecks.h"
#include "ui/FileExists.h"
#include "ui/HeaderPage.h"
#include "ui/MainWindow.h"
#include "ui/MapSelector.h"
#include "ui/Prompter.h"

namespace kartova {

namespace {

constexpr const char* kOpenTitle = "Rom Öffnen";
constexpr const char* kOpenFilter =
    "Alle Gameboy-Roms (*.gb*)|*.gb*|Backup-Dateien (*.bak;*.old)|*.bak;*.old|Alle Dateien "
    "(*.*)|*.*";

// The scroll bars of the map view, the block chooser and the event view, in the order in which
// the first map load releases them.
constexpr const char* kMapScrollBars[] = {"HScroll1", "VScroll1", "VScroll2", "VScroll3",
                                          "HScroll3"};

QStringList ToQStringList(const std::vector<std::string>& items) {
  QStringList list;
  list.reserve(static_cast<qsizetype>(items.size()));
  for (const std::string& item : items) list << QString::fromStdString(item);
  return list;
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
  const ScopeExit full([this] { reload_scope_ = kReloadFull; });
  reload_scope_ = scope;
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
  SelectBankAfterOpen();
  ReselectMap(remembered);
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

void MainWindow::SelectBankAfterOpen() {
  {
    const ScopeExit done([this] { rom_loading_ = 0; });
    rom_loading_ = 1;
    if (map_selector_->bank_index() == -1) map_selector_->SelectBank(0);
  }
  FillMapList();
}

// The map that was selected before (the first one if none was) is selected again and loaded.
void MainWindow::ReselectMap(int remembered) {
  const int map = remembered == -1 ? 0 : remembered;
  if (map >= map_selector_->map_count()) {
    prompter_.Message(QStringLiteral("Fehler: Ziel-Map (%1.%2) existiert nicht.")
                          .arg(map_selector_->bank_index() + 1)
                          .arg(map + 1));
    return;
  }
  {
    const ScopeExit done([this] { rom_loading_ = 0; });
    rom_loading_ = 1;
    map_selector_->SelectMap(map);
  }
  ClickMapList();
  SetWindowTitle();
}

void MainWindow::FillMapList() {
  const int bank = map_selector_->bank_index();
  if (rom_loading_ != 0 || bank == -1) return;
  const MapList list = document_.FillMapList(bank);
  map_selector_->SetMaps(ToQStringList(list.entries));
  if (list.error) throw *list.error;
}

// A map chosen by the user replaces the map loaded now: its unsaved edits are asked about first,
// and staying puts both lists back on the loaded map.
void MainWindow::ClickMapListByUser() {
  if (rom_loading_ != 0) return;
  if (!ConfirmDiscardChanges()) {
    RestoreLoadedMapSelection();
    return;
  }
  ClickMapList();
}

void MainWindow::RestoreLoadedMapSelection() {
  const ScopeExit done([this] { rom_loading_ = 0; });
  rom_loading_ = 1;
  if (map_selector_->bank_index() != document_.SelectedBank()) {
    map_selector_->SelectBank(document_.SelectedBank());
    const MapList list = document_.FillMapList(document_.SelectedBank());
    map_selector_->SetMaps(ToQStringList(list.entries));
  }
  map_selector_->SelectMap(document_.SelectedMap());
}

bool MainWindow::SwitchToMap(int bank_index, int map_index) {
  CheckIndex(bank_index, kMapBankCount);
  // A record naming a map its bank does not have leaves everything as it is.
  if (map_index < 0 || map_index >= document_.MapCountPerBank()[static_cast<std::size_t>(bank_index)]) {
    prompter_.Message(QStringLiteral("Fehler: Ziel-Map (%1.%2) existiert nicht.").arg(bank_index + 1).arg(map_index + 1));
    return false;
  }
  if (!ConfirmDiscardChanges()) return false;
  map_selector_->SelectBank(bank_index);
  FillMapList();
  if (map_index >= map_selector_->map_count()) return false;
  map_selector_->SelectMap(map_index);
  ClickMapList();
  return true;
}

void MainWindow::ClickMapList() {
  if (rom_loading_ != 0) return;
  view_lock_ = 0;
  LoadSelectedMap();
  EnableMapScrollBars();
}

void MainWindow::LoadSelectedMap() {
  if (suppress_map_load()) return;
  document_.SetReloadScope(reload_scope_);
  document_.SetApplyMode(apply_mode_);
  // The map number is kept as a signed 16-bit list index.
  const auto map = static_cast<std::int16_t>(map_selector_->map_index());
  const ScopeExit edited([this] { DocumentEdited(); });
  document_.LoadSelectedMap(map_selector_->bank_index(), map,
                            [this](MapLoadStep step) { AfterMapLoadStep(step); });
  changes_pending_ = false;
}

void MainWindow::AfterMapLoadStep(MapLoadStep step) {
  if (step == MapLoadStep::kHeaderPage) {
    header_page_->ShowHeaderFields(-1);
    header_page_->ShowHeaderCombos(-1);
    header_page_->MatchConnectionSelectors();
    header_page_->update();
  }
  emit MapLoadStepDone(step);
}

// The views own their scroll bars; a view that has none yet is passed over.
void MainWindow::EnableMapScrollBars() {
  for (const char* name : kMapScrollBars)
    if (QWidget* bar = findChild<QWidget*>(QString::fromLatin1(name))) bar->setEnabled(true);
}

}  // namespace kartova
