#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabBar>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

// One menu as the user sees it after a start without ROM and standard file: items in order
// as name=caption, "!" before a disabled item, "-" for a separator.
std::string Describe(const QMenu& menu) {
  QStringList items;
  for (const QAction* action : menu.actions()) {
    if (action->isSeparator()) {
      items << QStringLiteral("-");
      continue;
    }
    QString item = action->objectName() + '=' + action->text();
    if (!action->isEnabled()) item.prepend('!');
    if (action->menu()) item += " [" + QString::fromStdString(Describe(*action->menu())) + ']';
    items << item;
  }
  return items.join(" | ").toStdString();
}

using MenuTest = MainWindowTest;

TEST_F(MenuTest, EveryItemWithCaptionOrderAndState) {
  ObservedMainWindow& window = StartWindow();
  QStringList bar;
  for (const QAction* action : window.menuBar()->actions())
    bar << action->objectName() + '=' + action->text();
  EXPECT_EQ(bar.join(" | ").toStdString(),
            "mnuFile=&File | mnuOptions=&Options | mnuLighting=Palette / Lighting | mnuHelp=&Help");
  EXPECT_EQ(Describe(*window.menu().Submenu("mnuFile")),
            "mnuLoad=&Load Rom ... | !mnuReload=&Reload Rom [mnuReloadFull=&Full | "
            "mnuReloadMap=&Map only | mnuReloadEvents=&Events only] | !mnuSave=&Save Rom "
            "[!mnuSaveFull=&Save Full | - | !mnuSaveMap=Save Map | !mnuSaveEvents=Save Events] | "
            "!mnuSaveAs=&Save as ... | - | !mnuMapExp=&Export Map | !mnuMapImp=&Import Map | - | "
            "!mnuStdLoad=Standard &File | !mnuStdSet=&Load File as Standard | "
            "!mnuStdClear=&Clear File | mnuStdAutoLoad=Automatically load rom | - | mnuExit=E&xit");
  EXPECT_EQ(Describe(*window.menu().Submenu("mnuOptions")),
            "mnuMapZoom=&Map zoom | mnuEventZoom=&Event Mode Zoom | mnuTilesetZoom=&Tileset zoom | "
            "- | mnuScrMode=&Scroll mode [mnuScrModeDyn=&Dynamic | mnuScrModeStatic=&Static] | "
            "mnuScrSpeed=Scroll Speed [mnuScrSpeedFast=&Fast | mnuScrSpeedNormal=&Normal | "
            "mnuScrSpeedSlow=&Slow | - | mnuScrSpeedSign=&Show Scroll Speed] | "
            "mnuShowDirLine=&Show Dir Line | - | mnuSavePropertyMode=Save Settings to "
            "[mnuSavePropertyReg=&Registry | mnuSavePropertyINI=&Kartova.ini]");
  EXPECT_EQ(Describe(*window.menu().Submenu("mnuLighting")),
            "mnuDayAuto=Auto | - | mnuDay0=Morning | mnuDay1=Mid-day | mnuDay2=Night / Cave | "
            "mnuDay3=Darkness | mnuDay4=??? | mnuDay5=??? | mnuDay6=Night / Cave | "
            "mnuDay7=Darkness");
  EXPECT_EQ(Describe(*window.menu().Submenu("mnuHelp")), "mnuAbout=&About");
  for (const QString& name : window.menu().ItemNames())
    EXPECT_EQ(window.findChild<QAction*>(name), window.menu().Item(name)) << name.toStdString();
}

using LayoutTest = MainWindowTest;

TEST_F(LayoutTest, TabStripSwitchesBetweenTheFourPages) {
  ObservedMainWindow& window = StartWindow();
  QTabBar* tabs = window.findChild<QTabBar*>("TabStrip1");
  ASSERT_NE(tabs, nullptr);
  QStringList captions;
  for (int i = 0; i < tabs->count(); ++i) captions << '[' + tabs->tabText(i) + ']';
  EXPECT_EQ(captions.join("").toStdString(), "[ Map ][ Events ][ Wuselix data ][ Mapheader ]");
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
  EXPECT_EQ(window.current_tab(), 2);
  EXPECT_EQ(shown(), "000");
  // While the program selects a tab itself, the click does nothing.
  window.set_apply_mode(1);
  tabs->setCurrentIndex(1);
  EXPECT_EQ(window.current_tab(), 2);
  EXPECT_EQ(shown(), "000");
  window.set_apply_mode(0);
  tabs->setCurrentIndex(0);
  EXPECT_EQ(shown(), "100");
}

TEST_F(LayoutTest, StatusBarHasItsFivePanels) {
  ObservedMainWindow& window = StartWindow();
  auto* bar = window.findChild<QStatusBar*>("StatusBar1");
  ASSERT_NE(bar, nullptr);
  QStringList texts;
  for (int i = 1; i <= 5; ++i) {
    auto* label = bar->findChild<QLabel*>(QStringLiteral("Panel%1").arg(i));
    ASSERT_EQ(label, window.panel(i));
    EXPECT_TRUE(label->isVisible());
    texts << '[' + label->text() + ']';
  }
  EXPECT_EQ(texts.join("").toStdString(), "[][X: ][Y: ][Block: ][Auswahl: ]");
  EXPECT_GT(window.panel(1)->width(), window.panel(5)->width());
}

}  // namespace
}  // namespace kartova::test
