// Saving into the ROM, "Save as", map export and import, the Edit menu, and the question asked
// before unsaved edits would be lost.

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

#include "settings/SettingsStore.h"
#include "ui/CoreTexts.h"
#include "ui/EventPage.h"
#include "ui/EventViewController.h"
#include "ui/GraphicsController.h"
#include "ui/HeaderPage.h"
#include "ui/MainWindow.h"
#include "ui/Prompter.h"
#include "ui/RecentFiles.h"
#include "ui/ScopeExit.h"

namespace kartova {

namespace {

constexpr const char* kSaveAsTitle = QT_TRANSLATE_NOOP("kartova::MainWindow", "Rom Speichern Unter");
constexpr const char* kSaveAsFilter = QT_TRANSLATE_NOOP(
    "kartova::MainWindow",
    "Alle Gameboy-Roms (*.gb*)|*.gbc;*.gb*|Backup-Dateien (*.bak;*.old)|*.bak;*.old|Alle Dateien "
    "(*.*)|*.*");
constexpr const char* kExportTitle = QT_TRANSLATE_NOOP("kartova::MainWindow", "Map Exportieren");
constexpr const char* kImportTitle = QT_TRANSLATE_NOOP("kartova::MainWindow", "Map Importieren");
constexpr const char* kMapFilter =
    QT_TRANSLATE_NOOP("kartova::MainWindow", "Map-Dateien (*.map)|*.map|Alle Dateien (*.*)|*.*");
constexpr const char* kSaveQuestion = QT_TRANSLATE_NOOP("kartova::MainWindow", "Änderungen speichern?");

constexpr const char* kSettings = "Settings";

QString WholePath(const QString& path) { return QFileInfo(path).absoluteFilePath(); }

// More changed cells than this are drawn by redrawing the view rather than block by block.
constexpr std::size_t kMostPatchedCells = 64;

}  // namespace

void MainWindow::ConnectSaveItems() {
  // The menu system clicks the parent item when its submenu opens: that is a full save, and
  // choosing an entry then saves once more with its own scope.
  connect(menu_->Submenu(QStringLiteral("mnuSave")), &QMenu::aboutToShow, this,
          [this] { Guarded([this] { SaveRom(state_.reload_scope); }); });
  menu_->OnClick("mnuSaveFull", this, [this] { Guarded([this] { ClickSaveScope(kReloadFull); }); });
  menu_->OnClick("mnuSaveMap", this, [this] { Guarded([this] { ClickSaveScope(kReloadMapOnly); }); });
  menu_->OnClick("mnuSaveEvents", this,
                 [this] { Guarded([this] { ClickSaveScope(kReloadEventsOnly); }); });
  menu_->OnClick("mnuSaveAs", this, [this] { Guarded([this] { ClickSaveAs(); }); });
  menu_->OnClick("mnuMapExp", this, [this] { Guarded([this] { ClickExportMap(); }); });
  menu_->OnClick("mnuMapImp", this, [this] { Guarded([this] { ClickImportMap(); }); });
}

void MainWindow::ConnectEditItems() {
  menu_->OnClick("mnuUndo", this, [this] { Guarded([this] { ClickUndo(); }); });
  menu_->OnClick("mnuRedo", this, [this] { Guarded([this] { ClickRedo(); }); });
}

// ---- Saving ---------------------------------------------------------------------------------

bool MainWindow::SaveRom(std::int16_t scope) {
  // Another program wrote the ROM after this map was loaded: its changes outside this map stay,
  // but the user decides whether this map goes over whatever it wrote there.
  if (document_.MapLoaded() && document_.ChangedOnDisk() &&
      prompter_.Message(tr("Die Datei \"%1\" wurde seit dem Laden der Map von einem anderen "
                           "Programm verändert. Trotzdem speichern?\n\nGeschrieben werden nur "
                           "die Header, Blöcke und Events dieser Map; alles andere bleibt, wie "
                           "es in der Datei steht.")
                            .arg(WholePath(rom_path_)),
                        kMessageTitle, Prompter::Buttons::kYesNo, Prompter::Icon::kExclamation) !=
          Prompter::Answer::kYes)
    return false;
  try {
    document_.SaveRom(scope);
  } catch (const FileWriteError& error) {
    ShowFileError(tr("Die Datei \"%1\" konnte nicht gespeichert werden.")
                      .arg(WholePath(QString::fromStdString(error.path()))),
                  error);
    DocumentEdited();
    return false;
  }
  DocumentEdited();
  return true;
}

void MainWindow::ClickSaveScope(std::int16_t scope) {
  const ScopeExit full([this] { state_.reload_scope = kReloadFull; });
  state_.reload_scope = scope;
  SaveRom(state_.reload_scope);
}

void MainWindow::ClickSaveAs() {
  const std::optional<QString> chosen =
      prompter_.SaveFile(tr(kSaveAsTitle), DialogFolder(), QtNameFilters(tr(kSaveAsFilter)));
  if (!chosen) return;
  RememberFolder(*chosen);
  try {
    document_.SaveRomAs(chosen->toStdString());
  } catch (const FileWriteError& error) {
    // Nothing was written: the ROM opened before stays the current one.
    ShowFileError(tr("Die Datei \"%1\" konnte nicht gespeichert werden.").arg(WholePath(*chosen)), error);
    return;
  }
  rom_path_ = *chosen;
  recent_files_->Add(rom_path_);
  setWindowTitle(QString::fromLatin1(kProgramTitle) + QStringLiteral(" - ") +
                 QFileInfo(*chosen).fileName() + QStringLiteral("[*]"));
  menu_->SetEnabled("mnuSave", true);
  DocumentEdited();
}

// ---- .map files -----------------------------------------------------------------------------

void MainWindow::ClickExportMap() {
  if (!document_.MapLoaded()) return;
  const std::optional<QString> chosen =
      prompter_.SaveFile(tr(kExportTitle), DialogFolder(), QtNameFilters(tr(kMapFilter)));
  if (!chosen) return;
  RememberFolder(*chosen);
  try {
    document_.ExportMap(chosen->toStdString());
  } catch (const FileWriteError& error) {
    ShowFileError(tr("Die Map konnte nicht nach \"%1\" exportiert werden.").arg(WholePath(*chosen)), error);
  }
}

void MainWindow::ClickImportMap() {
  if (!document_.MapLoaded()) return;
  const std::optional<QString> chosen =
      prompter_.OpenFile(tr(kImportTitle), DialogFolder(), QtNameFilters(tr(kMapFilter)));
  if (!chosen) return;
  RememberFolder(*chosen);
  MapImport imported;
  try {
    imported = document_.ImportMap(chosen->toStdString());
  } catch (const FileWriteError& error) {
    ShowFileError(tr("Die Map \"%1\" konnte nicht importiert werden.").arg(WholePath(*chosen)), error);
    return;
  }
  ApplyDocumentChange(imported.change);
}

// The message names the file; the system's reason follows below it, and the details name the
// file the system refused, which for a save may be the temporary file beside the ROM.
void MainWindow::ShowFileError(const QString& what, const FileWriteError& error) {
  prompter_.Message(what + QStringLiteral("\n\n") + tr("Grund: %1").arg(QString::fromStdString(error.reason())),
                    kMessageTitle, Prompter::Buttons::kOk, Prompter::Icon::kCritical,
                    tr("Datei: %1").arg(WholePath(QString::fromStdString(error.path()))));
}

QString MainWindow::DialogFolder() const {
  if (!rom_path_.isEmpty()) return QFileInfo(rom_path_).absolutePath();
  const QString last = QString::fromStdString(settings_.ReadSetting(kSettings, "LastFolder", ""));
  if (!last.isEmpty() && QFileInfo(last).isDir()) return last;
  return QDir::homePath();
}

void MainWindow::RememberFolder(const QString& chosen) {
  const std::string folder = QFileInfo(chosen).absolutePath().toStdString();
  if (settings_.ReadSetting(kSettings, "LastFolder", "") != folder)
    settings_.WriteSetting(kSettings, "LastFolder", folder);
}

// ---- Edit menu ------------------------------------------------------------------------------

void MainWindow::ClickUndo() { ApplyDocumentChange(document_.Undo()); }

void MainWindow::ClickRedo() { ApplyDocumentChange(document_.Redo()); }

void MainWindow::ApplyDocumentChange(const DocumentChange& change) {
  if (change.headers) {
    header_page_->ShowHeaderFields(-1);
    header_page_->ShowHeaderCombos(-1);
    // The headers differ from what the map and events were loaded with, as after typing.
    state_.changes_pending = true;
  }
  if (change.whole_map || change.cells.size() > kMostPatchedCells) {
    graphics_->RedrawWholeView();
  } else {
    for (const GridCell& cell : change.cells) graphics_->PatchCell(cell.x, cell.y);
  }
  if (change.events) {
    event_page_->RefreshFields();
    event_view_controller_->DrawSelectedEventMarker();
    if (state_.current_tab == kEventTab) graphics_->RedrawWholeView();
  }
  // The link data view lists the blocks too; it is built from the grid whenever it is shown.
  if ((change.whole_map || !change.cells.empty()) && state_.current_tab == kHeaderTab)
    emit events_->LinkDataViewRequested();
  DocumentEdited();
}

void MainWindow::DocumentEdited() {
  setWindowModified(document_.IsModified());
  const EditHistory& history = document_.History();
  QAction* undo = menu_->Item(QStringLiteral("mnuUndo"));
  QAction* redo = menu_->Item(QStringLiteral("mnuRedo"));
  undo->setEnabled(history.CanUndo());
  redo->setEnabled(history.CanRedo());
  // The step's name shows where a menu shows hints.
  const auto tip = [](const QString& what, const std::string& step) {
    return step.empty() ? what : what + QStringLiteral(": ") + CoreText(step);
  };
  undo->setStatusTip(
      tip(QCoreApplication::translate("MainMenu", "Nimmt den letzten Schritt zurück"), history.UndoText()));
  redo->setStatusTip(tip(QCoreApplication::translate("MainMenu", "Führt den zurückgenommenen Schritt wieder aus"),
                         history.RedoText()));
}

bool MainWindow::ConfirmDiscardChanges() {
  if (!document_.IsModified()) return true;
  const Prompter::Answer answer =
      prompter_.Message(tr(kSaveQuestion), kMessageTitle,
                        Prompter::Buttons::kYesNoCancel, Prompter::Icon::kQuestion);
  if (answer == Prompter::Answer::kNo) return true;
  if (answer != Prompter::Answer::kYes) return false;
  return SaveRom(kReloadFull);
}

}  // namespace kartova
