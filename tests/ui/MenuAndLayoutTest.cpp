#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <set>

#include "MainWindowFixture.h"
#include "ui/AboutWindow.h"
#include "ui/FileExists.h"
#include "ui/StartupOptions.h"

namespace kartova::test {
namespace {

using MenuAndLayoutTest = MainWindowTest;

TEST_F(MenuAndLayoutTest, OnlyRomItemsWaitForARom) {
  ObservedMainWindow& window = StartWindow();
  QStringList bar;
  for (const QAction* action : window.menuBar()->actions()) bar << action->objectName();
  EXPECT_EQ(bar.join(' '), "mnuFile mnuEdit mnuView mnuOptions mnuLighting mnuHelp");
  // The save entries are reached through their parent, which waits for a ROM.
  const std::set<QString> waiting = {"mnuReload", "mnuSave",    "mnuSaveAs", "mnuMapExp",  "mnuMapImp",
                                     "mnuStdLoad", "mnuStdSet", "mnuStdClear", "mnuUndo",  "mnuRedo",
                                     "mnuNextMap", "mnuPrevMap"};
  for (const QString& name : window.menu().ItemNames())
    EXPECT_EQ(window.menu().Enabled(name), !waiting.count(name)) << name.toStdString();
}

TEST_F(MenuAndLayoutTest, ItemsShowTheirKeysAndTheirStatusTipsCoverThePanelsOnlyForAWhile) {
  ObservedMainWindow& window = StartWindow();
  QStringList file;
  for (const QAction* action : window.menu().Submenu("mnuFile")->actions()) file << action->objectName();
  EXPECT_EQ(file.mid(0, 3).join(' '), "mnuLoad mnuRecent mnuReload");
  const std::pair<const char*, const char*> keys[] = {
      {"mnuLoad", "Ctrl+O"},      {"mnuSaveFull", "Ctrl+S"},         {"mnuSaveAs", "Ctrl+Shift+S"},
      {"mnuReloadFull", "F5"},    {"mnuExit", "Ctrl+Q"},             {"mnuUndo", "Ctrl+Z"},
      {"mnuRedo", "Ctrl+Y"},      {"mnuZoomIn", "Ctrl++"},           {"mnuZoomOut", "Ctrl+-"},
      {"mnuTab0", "Ctrl+1"},      {"mnuTab3", "Ctrl+4"},             {"mnuNextMap", "Alt+Down"},
      {"mnuPrevMap", "Alt+Up"},
  };
  for (const auto& [item, key] : keys)
    EXPECT_EQ(window.menu().Item(item)->shortcut().toString().toStdString(), key) << item;
  EXPECT_TRUE(window.menu().Item("mnuRedo")->shortcuts().contains(QKeySequence("Ctrl+Shift+Z")));
  for (const QString& name : window.menu().ItemNames())
    EXPECT_FALSE(window.menu().Item(name)->statusTip().isEmpty()) << name.toStdString();

  // A tip hides the panels while it shows; a panel written meanwhile keeps its text.
  QStatusBar* bar = window.statusBar();
  QAction* load = window.menu().Item("mnuLoad");
  load->showStatusText(&window);
  EXPECT_EQ(bar->currentMessage(), QString::fromUtf8("Öffnet eine ROM-Datei"));
  EXPECT_FALSE(window.panel(2)->isVisible());
  window.ShowStatus(2, "X: 7");
  QStatusTipEvent gone{QString()};
  QCoreApplication::sendEvent(&window, &gone);
  EXPECT_TRUE(bar->currentMessage().isEmpty());
  for (int panel = 1; panel <= 5; ++panel) EXPECT_TRUE(window.panel(panel)->isVisible()) << panel;
  EXPECT_EQ(window.panel(2)->text(), "X: 7");
  EXPECT_EQ(window.panel(5)->text(), "Auswahl: ");
}

TEST_F(MenuAndLayoutTest, TheTabStripSwitchesPagesUnlessTheProgramSelectsItself) {
  ObservedMainWindow& window = StartWindow();
  QTabBar* tabs = window.findChild<QTabBar*>("TabStrip1");
  ASSERT_NE(tabs, nullptr);
  EXPECT_EQ(tabs->count(), 4);
  QWidget* frames[] = {window.findChild<QWidget*>("Frame(0)"), window.findChild<QWidget*>("Frame(1)"),
                       window.findChild<QWidget*>("Frame(3)")};
  const auto shown = [&] {
    std::string visible;
    for (QWidget* frame : frames) visible += frame->isVisible() ? '1' : '0';
    return visible;
  };
  EXPECT_EQ(shown(), "100");
  tabs->setCurrentIndex(3);
  EXPECT_EQ(shown(), "001");
  tabs->setCurrentIndex(2);
  EXPECT_EQ(window.state().current_tab, 2);
  EXPECT_EQ(shown(), "000");
  window.state().apply_mode = 1;
  tabs->setCurrentIndex(1);
  EXPECT_EQ(window.state().current_tab, 2);
  EXPECT_EQ(shown(), "000");
  window.state().apply_mode = 0;
  tabs->setCurrentIndex(0);
  EXPECT_EQ(shown(), "100");
}

TEST(AboutWindowTest, LinksOpenWithoutClosingADragMovesAndTheSurfaceClosesOnAClick) {
  ScriptedPrompter prompter;
  AboutWindow about(prompter);
  EXPECT_TRUE(about.isModal());
  about.move(100, 100);
  about.show();
  QTest::mouseClick(about.findChild<QLabel*>("Label5"), Qt::LeftButton);
  auto* link = about.findChild<QLabel*>("Links(1)");
  QTest::mouseClick(link, Qt::LeftButton);
  QTest::mouseClick(link, Qt::RightButton);
  ASSERT_EQ(prompter.documents.size(), 2u);
  EXPECT_EQ(prompter.documents[0], "mailto:" + about.mail_address());
  EXPECT_TRUE(about.mail_address().contains('@'));
  EXPECT_EQ(prompter.documents[1], "http://" + link->text());
  QTest::mouseClick(about.findChild<QWidget*>("Deko"), Qt::RightButton);

  // A left drag moves the window, a right one does not; a drag is no click.
  QWidget* label = about.findChild<QWidget*>("Label(2)");
  const QPoint start = label->rect().center(), end = start + QPoint(40, 30);
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::LeftButton}) {
    QTest::mousePress(label, button, {}, start);
    QTest::mouseMove(label, end);
    QTest::mouseRelease(label, button, {}, end);
  }
  EXPECT_EQ(about.pos(), QPoint(140, 130));
  EXPECT_TRUE(about.isVisible());
  QTest::mouseClick(about.findChild<QWidget*>("Frame(2)"), Qt::LeftButton);
  EXPECT_FALSE(about.isVisible());
}

TEST_F(MenuAndLayoutTest, TheHelpMenuShowsTheAboutWindowModally) {
  StartWindow();
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* about = qobject_cast<AboutWindow*>(QApplication::activeModalWidget());
    ASSERT_NE(about, nullptr);
    seen = true;
    QTest::mouseClick(about->findChild<QLabel*>("Links(0)"), Qt::LeftButton);
    QTest::mouseClick(about->findChild<QWidget*>("Label(0)"), Qt::LeftButton);
  });
  Click("mnuAbout");
  EXPECT_TRUE(seen);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  ASSERT_EQ(prompter_.documents.size(), 1u);
  EXPECT_TRUE(prompter_.documents[0].startsWith("http://"));
}

TEST(HandlerBoundaryTest, ErrorsEndTheHandlerWithTheirMessage) {
  ScriptedPrompter prompter;
  prompter.ExpectMessage(SubscriptMessage());
  prompter.ExpectMessage(QString::fromStdString(RuntimeError::Overflow().GermanMessage()));
  prompter.ExpectMessage("");
  int steps = 0;
  EXPECT_FALSE(RunGuarded(prompter, [&] {
    ++steps;
    CheckIndex(26, 26);
    ++steps;
  }));
  EXPECT_EQ(steps, 1);
  EXPECT_FALSE(RunGuarded(prompter, [] { CheckedInt32(1LL << 40); }));
  EXPECT_FALSE(RunGuarded(prompter, [] { throw std::length_error("zu lang"); }));
  EXPECT_TRUE(prompter.asked[2].text.contains("zu lang"));
  EXPECT_TRUE(RunGuarded(prompter, [] {}));
}

TEST_F(MenuAndLayoutTest, TheWindowKeepsRunningAfterAnError) {
  ObservedMainWindow& window = StartWindow();
  prompter_.ExpectMessage(SubscriptMessage());
  window.Guarded([] { throw RuntimeError::SubscriptOutOfRange(); });
  Click("mnuShowDirLine");
  EXPECT_EQ(Registry("ShowDirLine"), "0");
}

TEST(ShellHelpersTest, StartupOptionsFileExistsAndFileFilters) {
  const StartupOptions options = ParseStartupOptions({"--verbose", "-x", "demo.gbc", "zweite.gbc"});
  EXPECT_EQ(options.rom_path, "demo.gbc");
  EXPECT_EQ(options.ignored, QStringList({"--verbose", "-x", "zweite.gbc"}));

  TempDir dir;
  WriteFileBytes(dir.File("spiel.gbc"), {1});
  const auto q = [&](const std::string& name) { return QString::fromStdString(dir.File(name)); };
  EXPECT_TRUE(FileExists(q("spiel.gbc")));
  EXPECT_TRUE(FileExists(QString::fromStdString(dir.path().string())));
  EXPECT_TRUE(FileExists(q("sp?el.gb*")));
  EXPECT_FALSE(FileExists(q("*.map")));
  EXPECT_FALSE(FileExists(q("fehlt/*.gbc")));
  EXPECT_FALSE(FileExists(QString()));

  EXPECT_EQ(QtNameFilters("Alle Gameboy-Roms (*.gb*)|*.gbc;*.gb*|Alle Dateien (*.*)|*.*"),
            QStringList({"Alle Gameboy-Roms (*.gbc *.gb*)", "Alle Dateien (*.*)"}));
  EXPECT_EQ(QtNameFilters("Map-Dateien|*.map|kaputt"), QStringList({"Map-Dateien (*.map)"}));
}

}  // namespace
}  // namespace kartova::test
