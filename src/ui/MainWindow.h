#pragma once

#include <QMainWindow>
#include <QString>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "maps/RomDocument.h"
#include "rom/SafeFileWriter.h"
#include "rom/GameTextTable.h"
#include "ui/HandlerBoundary.h"
#include "ui/MainMenu.h"
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
class MapSelector;
class Prompter;
class SettingsStore;
class WuselixPage;

inline constexpr const char* kProgramTitle = "Kartova v1.38";

// Runs a function when the scope ends, also when a runtime error unwinds it, so that the
// window's guard flags get their old values back however a handler ends.
template <class F>
class ScopeExit {
 public:
  explicit ScopeExit(F f) : f_(std::move(f)) {}
  ~ScopeExit() { f_(); }
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;

 private:
  F f_;
};

// The editor's one working window. It owns the state of the open ROM that several pages share
// (the fields below), the menus, the tab strip with its pages and the status bar. Construction
// only builds the controls; Start() runs the start-up sequence.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  // Tabs of TabStrip1, in order.
  enum Tab : std::uint8_t { kMapTab = 0, kEventTab = 1, kWuselixTab = 2, kHeaderTab = 3 };

  MainWindow(SettingsStore& settings, Prompter& prompter, QString program_dir,
             QWidget* parent = nullptr);
  ~MainWindow() override;

  // The start-up sequence: settings back end, caption, zooms, text table, views, geometry,
  // view options, standard file (opened when auto-loading is on).
  void Start();

  // Makes the ROM at rom_path() current: definition, file menus, title, map bank table and
  // location names, then reselects bank and map so that the map loads. A definition that
  // cannot be read keeps the previous ROM and restores rom_path() from previous_rom_path().
  virtual void OpenRom();
  // The click handler of Combo2: lists the maps of the selected bank in Combo3, nothing
  // selected. A location byte above 94 ends the list there with the subscript error.
  void FillMapList();
  // The click handler of Combo3: releases the view lock, loads the map and enables the scroll
  // bars of the map and event views.
  void ClickMapList();
  // Loads the selected map by ReloadScope and ApplyMode, unless SuppressMapLoad is set; the
  // pages refresh after each step (MapLoadStepDone).
  void LoadSelectedMap();

  // The caption: program title, " - " and the ROM's file name, " (Standard)" when the ROM is
  // the standard file. A path without a separator leaves the caption as it is.
  void SetWindowTitle();
  // After a ROM has been opened: mnuStdSet and mnuStdLoad for the current ROM and the standard
  // file.
  void UpdateStandardFileItems();

  // ---- Edits and saving ----------------------------------------------------------------
  // After an edit of the document: the title's modified marker and the Edit menu follow it.
  void DocumentEdited();
  // After an undo, a redo or an import: redraws what the document says has changed (the
  // header page, single blocks or the whole view), then as DocumentEdited.
  void ApplyDocumentChange(const DocumentChange& change);
  // Before the current map's edits would be lost (another map, another ROM, a reload, closing):
  // while the document differs from the file asks "Änderungen speichern?". Ja saves in full,
  // Nein goes on without saving; false for Abbrechen or a save that failed, and then nothing
  // may change.
  bool ConfirmDiscardChanges();
  // SaveRom with the given ReloadScope: a failure is shown with the file and the reason, and
  // false is returned.
  bool SaveRom(std::int16_t scope);
  // Opens map map_index of bank bank_index as a click in the selectors would, after the
  // unsaved-changes question; false when the user stayed, or the bank has no such map.
  bool SwitchToMap(int bank_index, int map_index);

  // Runs a ui handler at the boundary where runtime errors are shown and end the handler.
  template <class Handler>
  bool Guarded(Handler&& handler) {
    return RunGuarded(prompter_, std::forward<Handler>(handler));
  }

  SettingsStore& settings() { return settings_; }
  Prompter& prompter() { return prompter_; }
  MainMenu& menu() { return *menu_; }
  ViewOptions& view_options() { return *view_options_; }
  const WindowPlacement& placement() const { return placement_; }
  const QString& program_dir() const { return program_dir_; }
  // The game text table, built at start-up.
  const GameTextTable& game_text_table() const { return *game_text_table_; }
  // The open ROM and the current map; the command line tool drives the same class.
  RomDocument& document() { return document_; }
  const RomDocument& document() const { return document_; }

  // The command line as main() read it.
  void set_startup_options(StartupOptions options) { startup_options_ = std::move(options); }
  const StartupOptions& startup_options() const { return startup_options_; }

  // Controls.
  QTabBar* tab_strip() const { return tab_strip_; }
  QWidget* selector_area() const { return selector_area_; }
  MapSelector* map_selector() const { return map_selector_; }
  // The map view, the event view's map drawing, the block chooser and the lighting menu.
  GraphicsController* graphics() const { return graphics_; }
  MapPage* map_page() const { return map_page_; }
  EventPage* event_page() const { return event_page_; }
  WuselixPage* wuselix_page() const { return wuselix_page_; }
  HeaderPage* header_page() const { return header_page_; }
  // Painting and picking on the map view.
  MapEditor* map_editor() const { return map_editor_; }
  // Markers, selection, dragging and panning on the event view.
  EventViewController* event_view_controller() const { return event_view_controller_; }
  // Status bar panels 1 to 5.
  QLabel* panel(int number) const;

  // Shared state.
  const QString& rom_path() const { return rom_path_; }
  void set_rom_path(const QString& path) { rom_path_ = path; }
  const QString& previous_rom_path() const { return previous_rom_path_; }
  void set_previous_rom_path(const QString& path) { previous_rom_path_ = path; }
  const QString& std_file() const { return std_file_; }
  const QString& open_dialog_dir() const { return open_dialog_dir_; }
  void set_open_dialog_dir(const QString& dir) { open_dialog_dir_ = dir; }
  // 0 full, 1 map only, 2 events only; non-zero only while a reload or save runs.
  std::int16_t reload_scope() const { return reload_scope_; }
  void set_reload_scope(std::int16_t scope) { reload_scope_ = scope; }
  // 1 while the program itself selects in the bank and map lists, else 0.
  std::uint8_t rom_loading() const { return rom_loading_; }
  void set_rom_loading(std::uint8_t value) { rom_loading_ = value; }
  // What the header and connection boxes are doing (UpdatingControls in maps/HeaderFields.h):
  // 0 idle, 1 an edit is stored, 2 the header page is refilled, 3 the connection checks are
  // written, 5 the connection fields are refilled.
  std::uint8_t updating_controls() const { return updating_controls_; }
  void set_updating_controls(std::uint8_t value) { updating_controls_ = value; }
  // Header edits not yet applied to the other pages.
  bool changes_pending() const { return changes_pending_; }
  void set_changes_pending(bool on) { changes_pending_ = on; }
  // 0 normal, 1 the program selects a tab, 2 headers restored, 3 edited headers applied.
  std::uint8_t apply_mode() const { return apply_mode_; }
  void set_apply_mode(std::uint8_t mode) { apply_mode_ = mode; }
  // SuppressMapLoad is the view lock: while it is set no map is loaded or drawn.
  bool suppress_map_load() const { return view_lock_ != 0; }
  void set_suppress_map_load(bool on) { view_lock_ = on ? 1 : 0; }
  std::uint8_t current_tab() const { return current_tab_; }
  // 0..7 a lighting, 8 "Auto" (the map header's own).
  int time_of_day() const { return time_of_day_; }
  void set_time_of_day(int value) { time_of_day_ = value; }
  // 1 from start-up until the first map load, 2 while scroll ranges are set, else 0.
  int view_lock() const { return view_lock_; }
  void set_view_lock(int lock) { view_lock_ = lock; }
  // Length of a primary header record; 9 until a ROM definition says otherwise.
  std::int32_t header_length() const { return document_.HeaderLength(); }
  int map_zoom() const { return view_options_->zoom(ViewOptions::View::kMap); }
  int event_zoom() const { return view_options_->zoom(ViewOptions::View::kEvent); }
  int tileset_zoom() const { return view_options_->zoom(ViewOptions::View::kTileset); }
  float scroll_speed() const { return view_options_->scroll_speed(); }

 signals:
  // A step of a map load is done (header page already refreshed for kHeaderPage): the map and
  // event pages refresh here.
  void MapLoadStepDone(kartova::MapLoadStep step);
  // The header tab was selected: the map link data view is rebuilt.
  void LinkDataViewRequested();
  // The map or event tab was selected coming from another tab: the whole view is redrawn.
  void MapViewRedrawRequested();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildCentralArea();
  void BuildStatusBar();
  void ConnectMenu();
  void ConnectViewOptionItems();
  void ConnectFileItems();
  void ConnectRomItems();
  void ConnectSaveItems();
  void ConnectEditItems();

  // Start-up steps.
  void ChooseSettingsBackEnd();
  void PrepareViews();
  void SetUpViews();
  void ReadStandardFileOptions();
  void LoadStandardFileAtStartup();
  void OpenCommandLineRom();

  // ROM commands and the steps of OpenRom.
  void ClickLoad();
  void ClickReload(std::int16_t scope);
  void ReadRomDefinitionAndTables();
  void EnableRomMenus();
  void SelectBankAfterOpen();
  void ReselectMap(int remembered);
  void AfterMapLoadStep(MapLoadStep step);
  void ClickMapListByUser();
  void RestoreLoadedMapSelection();

  // File and edit commands.
  void ClickSaveScope(std::int16_t scope);
  void ClickSaveAs();
  void ClickExportMap();
  void ClickImportMap();
  void ClickUndo();
  void ClickRedo();
  void ShowFileError(const QString& what, const FileWriteError& error);
  QString RomDirectory() const;
  void EnableMapScrollBars();

  // Handlers.
  void ClickSavePropertyKind(int kind);
  void ClickStdLoad();
  void ClickStdSet();
  void ClickStdClear();
  void ClickStdAutoLoad();
  void ClickAbout();
  void ClickTabStrip(int index);
  bool ResolvePendingChanges();
  void ShowPage(int tab);
  void AfterTabChange(int old_tab, int new_tab);

  SettingsStore& settings_;
  Prompter& prompter_;
  QString program_dir_;
  StartupOptions startup_options_;
  std::unique_ptr<MainMenu> menu_;
  ViewOptions* view_options_ = nullptr;
  WindowPlacement placement_;
  std::optional<GameTextTable> game_text_table_;
  RomDocument document_;

  QWidget* selector_area_ = nullptr;
  MapSelector* map_selector_ = nullptr;
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
  QString previous_rom_path_;
  QString std_file_;
  QString open_dialog_dir_;
  std::int16_t reload_scope_ = 0;
  std::uint8_t rom_loading_ = 0;
  std::uint8_t updating_controls_ = 0;
  bool changes_pending_ = false;
  std::uint8_t apply_mode_ = 0;
  std::uint8_t current_tab_ = kMapTab;
  int time_of_day_ = 8;
  int view_lock_ = 1;
};

}  // namespace kartova
