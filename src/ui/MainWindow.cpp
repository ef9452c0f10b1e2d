#include "ui/MainWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "settings/SettingsStore.h"
#include "ui/AboutWindow.h"
#include "ui/EventPage.h"
#include "ui/EventViewController.h"
#include "ui/FileExists.h"
#include "ui/GraphicsController.h"
#include "ui/HeaderPage.h"
#include "ui/MapEditor.h"
#include "ui/MapNavigator.h"
#include "ui/MapPage.h"
#include "ui/MapSelector.h"
#include "ui/Prompter.h"
#include "ui/RecentFiles.h"
#include "ui/ScopeExit.h"
#include "ui/WuselixPage.h"

namespace kartova {
namespace {

constexpr const char* kSettings = "Settings";

constexpr const char* kTabCaptions[] = {
    QT_TRANSLATE_NOOP("kartova::MainWindow", " Map "), QT_TRANSLATE_NOOP("kartova::MainWindow", " Events "),
    QT_TRANSLATE_NOOP("kartova::MainWindow", " Wuselix data "),
    QT_TRANSLATE_NOOP("kartova::MainWindow", " Mapheader ")};

// The Palette / Lighting items by time of day; 8 is "Auto".
constexpr const char* kDayItems[] = {"mnuDay0", "mnuDay1", "mnuDay2", "mnuDay3", "mnuDay4",
                                     "mnuDay5", "mnuDay6", "mnuDay7", "mnuDayAuto"};

const char* DayItem(int time_of_day) {
  return time_of_day >= 0 && time_of_day <= 8 ? kDayItems[time_of_day] : nullptr;
}

constexpr const char* kApplyTitle = QT_TRANSLATE_NOOP("kartova::MainWindow", "Änderungen übernehmen?");
constexpr const char* kApplyText = QT_TRANSLATE_NOOP(
    "kartova::MainWindow",
    "Damit die Änderungen sichtbar werden, müssen sie jetzt übernommen werden. Dazu werden alle "
    "Daten außer den Headern neu aus dem Rom geladen. 'Nein' stellt den Ursprungszustand der "
    "Daten wieder her.");

// The language items and the codes "Language" holds; German when it holds anything else.
struct LanguageItem {
  const char* item;
  const char* code;
};
constexpr LanguageItem kLanguages[] = {{"mnuLangDe", "de"}, {"mnuLangEn", "en"}};

}  // namespace

MainWindow::MainWindow(SettingsStore& settings, Prompter& prompter, QWidget* parent)
    : QMainWindow(parent), settings_(settings), prompter_(prompter), placement_(*this) {
  setObjectName(QStringLiteral("MainWindow"));
  setWindowTitle(QString::fromLatin1(kProgramTitle));
  menuBar()->setObjectName(QStringLiteral("MenuBar"));
  menu_ = std::make_unique<MainMenu>(menuBar());
  view_options_ = new ViewOptions(settings_, *menu_, this);
  recent_files_ = new RecentFiles(settings_, *menu_->Submenu(QStringLiteral("mnuRecent")), this);
  events_ = new PageEvents(this);
  setAcceptDrops(true);
  BuildCentralArea();
  BuildStatusBar();
  BuildPages();
  ConnectMenu();
}

// The pages go first, while the window is still whole: a box that loses the focus as it is
// destroyed still reports to the document.
MainWindow::~MainWindow() { delete takeCentralWidget(); }

void MainWindow::BuildCentralArea() {
  auto* central = new QWidget(this);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(4, 4, 4, 0);
  layout->setSpacing(0);

  // The bank and map selectors sit above the tabs, visible on every page.
  auto* selector_area = new QWidget(central);
  selector_area->setObjectName(QStringLiteral("SelectorArea"));
  auto* selector_layout = new QHBoxLayout(selector_area);
  selector_layout->setContentsMargins(0, 0, 0, 4);
  map_selector_ = new MapSelector(selector_area);
  selector_layout->addWidget(map_selector_);
  layout->addWidget(selector_area);

  tab_strip_ = new QTabBar(central);
  tab_strip_->setObjectName(QStringLiteral("TabStrip1"));
  tab_strip_->setExpanding(false);
  tab_strip_->setDrawBase(false);
  for (const char* caption : kTabCaptions) tab_strip_->addTab(tr(caption));
  layout->addWidget(tab_strip_);

  auto* pane = new QFrame(central);
  pane->setFrameShape(QFrame::StyledPanel);
  auto* pane_layout = new QVBoxLayout(pane);
  pane_layout->setContentsMargins(2, 2, 2, 2);
  pages_ = new QStackedWidget(pane);
  map_page_ = new MapPage;
  event_page_ = new EventPage(document_, *this);
  wuselix_page_ = new WuselixPage;
  header_page_ = new HeaderPage(document_, *this);
  // The header page needs more room than the smallest window has: there it scrolls rather
  // than cutting its captions.
  auto* header_scroller = new QScrollArea;
  header_scroller->setFrameShape(QFrame::NoFrame);
  header_scroller->setWidgetResizable(true);
  header_scroller->setWidget(header_page_);
  for (QWidget* page :
       std::initializer_list<QWidget*>{map_page_, event_page_, wuselix_page_, header_scroller})
    pages_->addWidget(page);
  pane_layout->addWidget(pages_);
  layout->addWidget(pane, 1);
  setCentralWidget(central);

  connect(tab_strip_, &QTabBar::currentChanged, this,
          [this](int index) { Guarded([&] { ClickTabStrip(index); }); });
}

void MainWindow::BuildStatusBar() {
  QStatusBar* bar = statusBar();
  bar->setObjectName(QStringLiteral("StatusBar1"));
  bar->setSizeGripEnabled(true);
  const QString texts[] = {QString(), tr("X: "), tr("Y: "), QCoreApplication::translate("BlockText", "Block: "),
                           QCoreApplication::translate("BlockText", "Auswahl: ")};
  // Panel 1 takes "Offset: 094000", "Rand-Block" or "Anbindung"; the others a short number.
  const QString samples[] = {QStringLiteral("Offset: 0940000"), QStringLiteral("-000"), QStringLiteral("-000"),
                             QStringLiteral("FF0"), QStringLiteral("FF0")};
  for (int i = 0; i < 5; ++i) {
    auto* label = new QLabel(texts[i], bar);
    label->setObjectName(QStringLiteral("Panel%1").arg(i + 1));
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    // Panels of a fixed size: a new text repaints the panel, not the whole status bar, which
    // would cost more than the block a drag has just painted.
    const QString widest = i == 0 ? samples[i] : texts[i] + samples[i];
    const int width = label->fontMetrics().horizontalAdvance(widest) + 8;
    if (i == 0)
      label->setMinimumWidth(width);
    else
      label->setFixedWidth(width);
    bar->addWidget(label, i == 0 ? 1 : 0);
    panels_[i] = label;
  }
}

QLabel* MainWindow::panel(int number) const {
  return number >= 1 && number <= 5 ? panels_[number - 1] : nullptr;
}

// A panel whose text stays is not repainted: the mouse moves over the map view far more often
// than the cell under it changes.
void MainWindow::ShowStatus(int number, const QString& text) {
  if (QLabel* label = panel(number); label && label->text() != text) label->setText(text);
}

// What works on the pages: the map selection and load, the drawing of both views and the
// chooser, painting on the map view, the event markers and the mouse on the event view.
void MainWindow::BuildPages() {
  navigator_ = new MapNavigator(document_, *this, *map_selector_, *header_page_,
                                [this] { return ConfirmDiscardChanges(); }, *this, this);
  graphics_ =
      new GraphicsController(document_, *this, *view_options_, *map_page_, *event_page_->event_view(), this);
  map_editor_ = new MapEditor(document_, *this, *map_page_, *graphics_, this);
  event_view_controller_ =
      new EventViewController(document_, *this, *event_page_, *graphics_, *view_options_, this);
  event_page_->set_view_controller(event_view_controller_);
  graphics_->OnEventViewDrawn([this] { event_view_controller_->DrawEvents(); });
  // The status bar follows the scroll: the cell under the mouse may be another one now.
  graphics_->OnMapViewDrawn([this] { map_editor_->RefreshHover(); });
}

void MainWindow::ConnectMenu() {
  menu_->OnClick("mnuExit", this, [this] { close(); });
  menu_->OnClick("mnuAbout", this, [this] { Guarded([this] { ClickAbout(); }); });
  menu_->OnClick("mnuSavePropertyReg", this,
                 [this] { Guarded([this] { ClickSavePropertyKind(SettingsStore::kRegistry); }); });
  menu_->OnClick("mnuSavePropertyINI", this,
                 [this] { Guarded([this] { ClickSavePropertyKind(SettingsStore::kIni); }); });
  ConnectRomItems();
  ConnectSaveItems();
  ConnectEditItems();
  ConnectViewItems();
  ConnectLanguageItems();
  ConnectFileItems();
  ConnectViewOptionItems();
  ConnectLightingItems();
}

void MainWindow::ConnectFileItems() {
  menu_->OnClick("mnuStdLoad", this, [this] { Guarded([this] { ClickStdLoad(); }); });
  menu_->OnClick("mnuStdSet", this, [this] { Guarded([this] { ClickStdSet(); }); });
  menu_->OnClick("mnuStdClear", this, [this] { Guarded([this] { ClickStdClear(); }); });
  menu_->OnClick("mnuStdAutoLoad", this, [this] { Guarded([this] { ClickStdAutoLoad(); }); });
}

void MainWindow::ConnectViewOptionItems() {
  ViewOptions* options = view_options_;
  const auto on = [this](const char* item, auto handler) {
    menu_->OnClick(item, this, [this, handler] { Guarded(handler); });
  };
  on("mnuMapZoom", [options] { options->ClickZoom(ViewOptions::View::kMap); });
  on("mnuEventZoom", [options] { options->ClickZoom(ViewOptions::View::kEvent); });
  on("mnuTilesetZoom", [options] { options->ClickZoom(ViewOptions::View::kTileset); });
  on("mnuScrModeDyn", [options] { options->ClickScrollModeDynamic(); });
  on("mnuScrModeStatic", [options] { options->ClickScrollModeStatic(); });
  on("mnuScrSpeedFast", [options] { options->ClickScrollSpeed("mnuScrSpeedFast"); });
  on("mnuScrSpeedNormal", [options] { options->ClickScrollSpeed("mnuScrSpeedNormal"); });
  on("mnuScrSpeedSlow", [options] { options->ClickScrollSpeed("mnuScrSpeedSlow"); });
  on("mnuScrSpeedSign", [options] { options->ClickScrollSpeedSign(); });
  on("mnuShowDirLine", [options] { options->ClickShowDirLine(); });
}

void MainWindow::ConnectLanguageItems() {
  for (const LanguageItem& language : kLanguages)
    menu_->OnClick(QString::fromLatin1(language.item), this,
                   [this, item = language.item] { Guarded([&] { ClickLanguage(item); }); });
}

void MainWindow::ConnectLightingItems() {
  for (int value = 0; value <= 8; ++value)
    menu_->OnClick(QString::fromLatin1(DayItem(value)), this,
                   [this, value] { Guarded([&] { ClickTimeOfDay(value); }); });
}

// ---- Start-up -------------------------------------------------------------------------------

void MainWindow::Start() {
  ChooseSettingsBackEnd();
  ReadLanguageOption();
  recent_files_->Read();

  setWindowTitle(QString::fromLatin1(kProgramTitle));
  state_.current_tab = kMapTab;
  wuselix_page_->time_of_day()->setCurrentIndex(0);
  state_.time_of_day = 8;
  menu_->SetChecked("mnuDayAuto", true);

  view_options_->ReadZoomOptions();
  game_text_table_.emplace();
  // The views size their pictures from the zoom factors before the window is placed.
  graphics_->PrepareViews();
  placement_.Restore(settings_);
  view_options_->ReadScrollOptions();
  ReadStandardFileOptions();
  graphics_->SetUpViews();
  LoadStandardFileAtStartup();
  OpenCommandLineRom();
}

void MainWindow::ChooseSettingsBackEnd() {
  if (settings_.ChooseBackEnd()) {
    prompter_.Message(tr("Nicht eindeutiger Eigenschaften-Pfad. Registry wurde als "
                         "Standard-Source gesetzt."),
                      kMessageTitle, Prompter::Buttons::kOk, Prompter::Icon::kCritical);
  }
  menu_->SetChecked("mnuSavePropertyReg", settings_.kind() == SettingsStore::kRegistry);
  menu_->SetChecked("mnuSavePropertyINI", settings_.kind() == SettingsStore::kIni);
}

void MainWindow::ReadStandardFileOptions() {
  std_file_ = QString::fromStdString(settings_.ReadSetting(kSettings, "StdFile", ""));
  menu_->SetChecked("mnuStdAutoLoad", settings_.ReadSetting(kSettings, "AutoLoad", "1") == "1");
}

void MainWindow::ReadLanguageOption() {
  const std::string code = settings_.ReadSetting(kSettings, "Language", "de");
  const bool english = code == "en";
  menu_->SetChecked("mnuLangDe", !english);
  menu_->SetChecked("mnuLangEn", english);
}

void MainWindow::LoadStandardFileAtStartup() {
  if (!FileExists(std_file_)) return;
  menu_->SetEnabled("mnuStdLoad", true);
  menu_->SetEnabled("mnuStdClear", true);
  if (menu_->Checked("mnuStdAutoLoad")) Guarded([this] { ClickStdLoad(); });
}

// ---- Window ---------------------------------------------------------------------------------

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  placement_.RecordNormalGeometry();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // A save that ended in a runtime error keeps the window open, like a cancelled question.
  bool go_on = false;
  Guarded([&] { go_on = ConfirmDiscardChanges(); });
  if (!go_on) {
    event->ignore();
    return;
  }
  placement_.Save(settings_);
  event->accept();
}

void MainWindow::ClickAbout() {
  AboutWindow about(prompter_, this);
  about.exec();
}

void MainWindow::ClickSavePropertyKind(int kind) {
  // The running program keeps its back end; the choice takes effect at the next start.
  if (settings_.kind() == kind) return;
  const bool ini = kind == SettingsStore::kIni;
  menu_->SetChecked("mnuSavePropertyReg", !ini);
  menu_->SetChecked("mnuSavePropertyINI", ini);
  const char* value = ini ? "ini" : "reg";
  settings_.WriteIni(kSettings, SettingsStore::kSelectorKey, value);
  settings_.WriteRegistry(kSettings, SettingsStore::kSelectorKey, value);
  prompter_.Message(tr("Änderungen werden erst beim nächsten Neustart von Kartova sichtbar."));
}

// The translation is installed before the window is built; another language shows from the
// next start on.
void MainWindow::ClickLanguage(const char* item) {
  if (menu_->Checked(item)) return;
  for (const LanguageItem& language : kLanguages) {
    const bool chosen = std::string_view(language.item) == item;
    menu_->SetChecked(language.item, chosen);
    if (chosen) settings_.WriteSetting(kSettings, "Language", language.code);
  }
  prompter_.Message(
      tr("Die Sprache wird beim nächsten Start gewechselt.\nThe language will change at the next start."));
}

// ---- Standard file and title ----------------------------------------------------------------

void MainWindow::SetWindowTitle() {
  const qsizetype cut =
      std::max(rom_path_.lastIndexOf(QLatin1Char('\\')), rom_path_.lastIndexOf(QLatin1Char('/')));
  // [*] is where the title marks unsaved changes; unmodified it shows nothing.
  if (cut >= 0)
    setWindowTitle(QString::fromLatin1(kProgramTitle) + QStringLiteral(" - ") +
                   rom_path_.mid(cut + 1) + QStringLiteral("[*]"));
  if (std_file_ == rom_path_) setWindowTitle(windowTitle() + tr(" (Standard)"));
}

void MainWindow::UpdateStandardFileItems() {
  if (std_file_ != rom_path_) {
    menu_->SetEnabled("mnuStdSet", true);
    if (FileExists(std_file_)) menu_->SetEnabled("mnuStdLoad", true);
  } else {
    menu_->SetEnabled("mnuStdSet", false);
    menu_->SetEnabled("mnuStdLoad", false);
  }
}

void MainWindow::ClickStdLoad() {
  if (!ConfirmDiscardChanges()) return;
  previous_rom_path_ = rom_path_;
  rom_path_ = std_file_;
  OpenRom();
}

void MainWindow::ClickStdSet() {
  std_file_ = rom_path_;
  menu_->SetEnabled("mnuStdClear", true);
  menu_->SetEnabled("mnuStdSet", false);
  menu_->SetEnabled("mnuStdLoad", false);
  SetWindowTitle();
  settings_.WriteSetting(kSettings, "StdFile", std_file_.toStdString());
}

void MainWindow::ClickStdClear() {
  std_file_.clear();
  if (FileExists(rom_path_)) menu_->SetEnabled("mnuStdSet", true);
  menu_->SetEnabled("mnuStdClear", false);
  menu_->SetEnabled("mnuStdLoad", false);
  SetWindowTitle();
  settings_.WriteSetting(kSettings, "StdFile", "");
}

void MainWindow::ClickStdAutoLoad() {
  const bool on = !menu_->Checked("mnuStdAutoLoad");
  menu_->SetChecked("mnuStdAutoLoad", on);
  settings_.WriteSetting(kSettings, "AutoLoad", FlagText(on));
}

void MainWindow::ClickTimeOfDay(int value) {
  const int current = document_.TimeOfDay();
  if (value == current) return;
  if (const char* item = DayItem(current)) menu_->SetChecked(item, false);
  state_.time_of_day = value;
  if (const char* item = DayItem(value)) menu_->SetChecked(item, true);
  graphics_->ShowTimeOfDay(value, map_selector_->bank_index());
}

// ---- Tabs -----------------------------------------------------------------------------------

void MainWindow::ClickTabStrip(int index) {
  if (state_.apply_mode == kApplySelectingTab || index < 0 || index > kHeaderTab) return;
  if (!ResolvePendingChanges()) return;
  // The " Wuselix data " page is none of the working frames; it shows its lists only.
  pages_->setCurrentIndex(index);
  const int old_tab = state_.current_tab;
  state_.current_tab = static_cast<std::uint8_t>(index);
  AfterTabChange(old_tab, index);
}

// Header edits reach the map and the events only when they are applied on leaving the page.
// False when the user stays on the header page.
bool MainWindow::ResolvePendingChanges() {
  if (!state_.changes_pending) return true;
  const Prompter::Answer answer =
      prompter_.Message(tr(kApplyText), tr(kApplyTitle),
                        Prompter::Buttons::kYesNoCancel);
  if (answer != Prompter::Answer::kYes && answer != Prompter::Answer::kNo) {
    const ScopeExit normal([this] { state_.apply_mode = kApplyNormal; });
    state_.apply_mode = kApplySelectingTab;
    tab_strip_->setCurrentIndex(kHeaderTab);
    return false;
  }
  state_.changes_pending = false;
  const ScopeExit normal([this] { state_.apply_mode = kApplyNormal; });
  state_.apply_mode = answer == Prompter::Answer::kYes ? kApplyEditedHeaders : kApplyRestoreHeaders;
  if (state_.view_lock == 0) navigator_->LoadSelectedMap();
  return true;
}

void MainWindow::AfterTabChange(int old_tab, int new_tab) {
  if (new_tab == kHeaderTab) emit events_->LinkDataViewRequested();
  if ((new_tab == kMapTab || new_tab == kEventTab) && new_tab != old_tab && state_.view_lock == 0)
    emit events_->MapViewRedrawRequested();
}

}  // namespace kartova
