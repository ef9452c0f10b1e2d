#pragma once

#include <QMainWindow>
#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "maps/RomDocument.h"
#include "rom/GameTextTable.h"
#include "rom/SafeFileWriter.h"
#include "ui/MainMenu.h"
#include "ui/PageContext.h"
#include "ui/StartupOptions.h"
#include "ui/ViewOptions.h"
#include "ui/WindowPlacement.h"

class QLabel;
class QStackedWidget;
class QTabBar;

namespace kartova {

class EventPage;
class EventViewController;
class HeaderPage;
class MapPage;
class GraphicsController;
class MapEditor;
class MapNavigator;
class MapSelector;
class Prompter;
class RecentFiles;
class SettingsStore;
class WuselixPage;

// "Kartova v1.38": the caption the window has always had, from the project's version.
inline constexpr const char* kProgramTitle = "Kartova v" KARTOVA_VERSION;

// The editor's one working window: it assembles the menus, the bank and map selectors, the tab
// strip with its pages and the status bar, and runs the commands that reach across pages
// (opening a ROM, choosing a map, saving, the standard file). It owns the document and the
// state the pages share, and gives the pages both through PageContext. Construction only builds
// the controls; Start() runs the start-up sequence. A ROM file dropped on the window is opened
// as if chosen in the open dialog.
class MainWindow : public QMainWindow, public PageContext {
  Q_OBJECT

 public:
  MainWindow(SettingsStore& settings, Prompter& prompter, QWidget* parent = nullptr);
  ~MainWindow() override;

  // The start-up sequence: settings back end, caption, zooms, text table, views, geometry,
  // view options, standard file (opened when auto-loading is on).
  void Start();

  // Makes the ROM at rom_path() current: definition, file menus, title, map bank table and
  // location names, then reselects bank and map so that the map loads. A definition that
  // cannot be read keeps the previous ROM and restores rom_path() from the path before.
  virtual void OpenRom();
  // What "Load Rom ..." does once its dialog is answered, for a file chosen elsewhere (the
  // recent files, a drop): the unsaved-changes question, then the ROM at path opened.
  void OpenRomFile(const QString& path);

  // The caption: program title, " - " and the ROM's file name, " (Standard)" when the ROM is
  // the standard file. A path without a separator leaves the caption as it is.
  void SetWindowTitle();
  // After a ROM has been opened: mnuStdSet and mnuStdLoad for the current ROM and the standard
  // file.
  void UpdateStandardFileItems();

  // ---- Edits and saving ----------------------------------------------------------------
  void DocumentEdited() override;
  // Before the current map's edits would be lost (another map, another ROM, a reload, closing):
  // while the document differs from the file asks "Änderungen speichern?". Ja saves in full,
  // Nein goes on without saving; false for Abbrechen or a save that failed, and then nothing
  // may change.
  bool ConfirmDiscardChanges();
  // SaveRom with the given ReloadScope: a failure is shown with the file and the reason, and
  // false is returned.
  bool SaveRom(std::int16_t scope);

  // ---- PageContext ---------------------------------------------------------------------
  PageState& state() override { return state_; }
  Prompter& prompter() override { return prompter_; }
  PageEvents& events() override { return *events_; }
  bool SwitchToMap(int bank_index, int map_index) override;
  bool FollowWarpTo(int bank, int map) override;
  void ShowStatus(int panel, const QString& text) override;

  SettingsStore& settings() { return settings_; }
  MainMenu& menu() { return *menu_; }
  ViewOptions& view_options() { return *view_options_; }
  const WindowPlacement& placement() const { return placement_; }
  // The open ROM and the current map; the command line tool drives the same class.
  RomDocument& document() { return document_; }

  // The command line as main() read it.
  void set_startup_options(StartupOptions options) { startup_options_ = std::move(options); }

  // Controls.
  QTabBar* tab_strip() const { return tab_strip_; }
  MapSelector* map_selector() const { return map_selector_; }
  // The map view, the event view's map drawing and the block chooser.
  GraphicsController* graphics() const { return graphics_; }
  MapPage* map_page() const { return map_page_; }
  EventPage* event_page() const { return event_page_; }
  HeaderPage* header_page() const { return header_page_; }
  // Painting and picking on the map view.
  MapEditor* map_editor() const { return map_editor_; }
  // Markers, selection, dragging and panning on the event view.
  EventViewController* event_view_controller() const { return event_view_controller_; }
  // Status bar panels 1 to 5.
  QLabel* panel(int number) const;

  const QString& rom_path() const { return rom_path_; }
  void set_rom_path(const QString& path) { rom_path_ = path; }
  // Where the file dialogs start: the current ROM's folder, else the folder last chosen in one
  // ("LastFolder"), else the user's home.
  QString DialogFolder() const;
  RecentFiles& recent_files() const { return *recent_files_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildCentralArea();
  void BuildPages();
  void BuildStatusBar();
  void ConnectMenu();
  void ConnectViewOptionItems();
  void ConnectLightingItems();
  void ConnectFileItems();
  void ConnectRomItems();
  void ConnectSaveItems();
  void ConnectEditItems();
  void ConnectViewItems();
  void ConnectLanguageItems();

  // Start-up steps.
  void ChooseSettingsBackEnd();
  void ReadStandardFileOptions();
  void ReadLanguageOption();
  void LoadStandardFileAtStartup();
  void OpenCommandLineRom();

  // ROM commands and the steps of OpenRom.
  void ClickLoad();
  void OpenChosenRom(const QString& path);
  void ClickReload(std::int16_t scope);
  void ReadRomDefinitionAndTables();
  void EnableRomMenus();

  // File and edit commands.
  void ClickSaveScope(std::int16_t scope);
  void ClickSaveAs();
  void ClickExportMap();
  void ClickImportMap();
  void ClickUndo();
  void ClickRedo();
  // After an undo, a redo or an import: redraws what the document says has changed (the
  // header page, single blocks or the whole view), then as DocumentEdited.
  void ApplyDocumentChange(const DocumentChange& change);
  void ShowFileError(const QString& what, const FileWriteError& error);
  // A file chosen in a dialog: its folder is where the next dialog starts without a ROM.
  void RememberFolder(const QString& chosen);

  // Handlers.
  void ClickSavePropertyKind(int kind);
  void ClickTimeOfDay(int value);
  void ClickStdLoad();
  void ClickStdSet();
  void ClickStdClear();
  void ClickStdAutoLoad();
  void ClickAbout();
  void ClickLanguage(const char* item);
  // Ctrl+Plus and Ctrl+Minus, Ctrl with the wheel: the zoom item of the view on or off.
  void ZoomView(ViewOptions::View view, bool in);
  // The view Ctrl+Plus and Ctrl+Minus act on: the one under the mouse, else the one holding
  // the focus, else the one of the tab shown; none on the other tabs.
  std::optional<ViewOptions::View> ZoomTarget() const;
  void ClickTabStrip(int index);
  bool ResolvePendingChanges();
  void AfterTabChange(int old_tab, int new_tab);

  SettingsStore& settings_;
  Prompter& prompter_;
  StartupOptions startup_options_;
  std::unique_ptr<MainMenu> menu_;
  RecentFiles* recent_files_ = nullptr;
  ViewOptions* view_options_ = nullptr;
  PageEvents* events_ = nullptr;
  WindowPlacement placement_;
  std::optional<GameTextTable> game_text_table_;
  RomDocument document_;
  PageState state_;

  MapSelector* map_selector_ = nullptr;
  MapNavigator* navigator_ = nullptr;
  GraphicsController* graphics_ = nullptr;
  QTabBar* tab_strip_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  MapPage* map_page_ = nullptr;
  EventPage* event_page_ = nullptr;
  WuselixPage* wuselix_page_ = nullptr;
  HeaderPage* header_page_ = nullptr;
  MapEditor* map_editor_ = nullptr;
  EventViewController* event_view_controller_ = nullptr;
  std::array<QLabel*, 5> panels_{};

  QString rom_path_;
  // RomPath before the last attempt to open: an attempt that fails goes back to it.
  QString previous_rom_path_;
  QString std_file_;
};

}  // namespace kartova
