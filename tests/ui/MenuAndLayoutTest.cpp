#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabBar>
#include <set>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

using MenuAndLayoutTest = MainWindowTest;

TEST_F(MenuAndLayoutTest, ItemsAreFoundByNameAndOnlyRomItemsWaitForARom) {
  ObservedMainWindow& window = StartWindow();
  QStringList bar;
  for (const QAction* action : window.menuBar()->actions()) bar << action->objectName();
  EXPECT_EQ(bar.join(' '), "mnuFile mnuEdit mnuOptions mnuLighting mnuHelp");
  // The save entries are reached through their parent, which waits for a ROM.
  const std::set<QString> waiting = {"mnuReload", "mnuSave",    "mnuSaveAs", "mnuMapExp",
                                     "mnuMapImp", "mnuStdLoad", "mnuStdSet", "mnuStdClear",
                                     "mnuUndo",   "mnuRedo"};
  int items = 0;
  for (const QString& name : window.menu().ItemNames()) {
    ++items;
    EXPECT_EQ(window.findChild<QAction*>(name), window.menu().Item(name)) << name.toStdString();
    EXPECT_EQ(window.menu().Enabled(name), !waiting.count(name)) << name.toStdString();
  }
  EXPECT_EQ(items, 49);
}

TEST_F(MenuAndLayoutTest, TabStripSwitchesPagesAndTheStatusBarHasFivePanels) {
  ObservedMainWindow& window = StartWindow();
  QTabBar* tabs = window.findChild<QTabBar*>("TabStrip1");
  ASSERT_NE(tabs, nullptr);
  EXPECT_EQ(tabs->count(), 4);
  QWidget* frames[] = {window.findChild<QWidget*>("Frame(0)"),
                       window.findChild<QWidget*>("Frame(1)"),
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
  // While the program selects a tab itself, the click does nothing.
  window.state().apply_mode = 1;
  tabs->setCurrentIndex(1);
  EXPECT_EQ(window.state().current_tab, 2);
  EXPECT_EQ(shown(), "000");
  window.state().apply_mode = 0;
  tabs->setCurrentIndex(0);
  EXPECT_EQ(shown(), "100");

  auto* status = window.findChild<QStatusBar*>("StatusBar1");
  ASSERT_NE(status, nullptr);
  for (int i = 1; i <= 5; ++i) {
    auto* label = status->findChild<QLabel*>(QStringLiteral("Panel%1").arg(i));
    ASSERT_EQ(label, window.panel(i));
    EXPECT_TRUE(label->isVisible());
  }
  EXPECT_GT(window.panel(1)->width(), window.panel(5)->width());
}

}  // namespace
}  // namespace kartova::test
