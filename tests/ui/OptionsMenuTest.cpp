#include <QCursor>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <clocale>
#include <filesystem>
#include <sstream>
#include <tuple>

#include "MainWindowFixture.h"
#include "ui/BlockChooserView.h"
#include "ui/MapPage.h"

namespace kartova::test {
namespace {

using OptionsMenuTest = MainWindowTest;

TEST_F(OptionsMenuTest, ScrollSpeedItemsFollowTheSpeedAndChangesKeepTheDisplaySign) {
  // The stored speed and clicks on mnuScrSpeed<name>; then the speed, its stored text and the
  // speed items checked.
  const std::tuple<const char*, const char*, float, const char*, const char*> cases[] = {
      {"-2", "", -2, "-2", "Fast Sign "},
      {"1.5", "", 1.5f, "1.5", ""},  // no speed item fits
      {"1.5", "Sign", -1.5f, "-1.5", "Sign "},
      {"1", "Fast", 2, "2", "Fast "},
      {"1", "Fast Sign", -2, "-2", "Fast Sign "},
      {"1", "Fast Sign Slow", -0.5f, "-0.5", "Slow Sign "},
      {"1", "Fast Sign Slow Slow", -0.5f, "-0.5", "Slow Sign "},
      {"schnell", "Fast", 0, "0", "Fast "},  // a speed of zero stays zero
      {"schnell", "Fast Sign", 0, "0", "Fast Sign "},
  };
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");  // where printf would write a comma
  for (auto [stored, clicks, speed, text, checked] : cases) {
    SCOPED_TRACE(std::string(stored) + " then " + clicks);
    PresetRegistry("ScrollSpeed", stored);
    ObservedMainWindow& window = StartWindow();
    std::istringstream names(clicks);
    for (std::string name; names >> name;) Click(("mnuScrSpeed" + name).c_str());
    std::string now;
    for (std::string name : {"Fast", "Normal", "Slow", "Sign"})
      if (Checked(("mnuScrSpeed" + name).c_str())) now += name + " ";
    EXPECT_FLOAT_EQ(window.view_options().scroll_speed(), speed);
    EXPECT_EQ(Registry("ScrollSpeed"), text);
    EXPECT_EQ(now, checked);
  }
  std::setlocale(LC_NUMERIC, "C");
}

TEST_F(OptionsMenuTest, ModeLineAndZoomItemsToggleStoreAndTellTheViews) {
  PresetRegistry("ScrollMode", "0");
  PresetRegistry("ShowDirLine", "0");
  PresetRegistry("ZoomTileset", "1");
  ObservedMainWindow& window = StartWindow();
  using View = ViewOptions::View;
  const ViewOptions& options = window.view_options();
  EXPECT_TRUE(Checked("mnuScrModeStatic") && !Checked("mnuScrModeDyn") && !Checked("mnuShowDirLine"));
  EXPECT_EQ(options.zoom(View::kTileset), 2);
  QSignalSpy lines(&options, &ViewOptions::DirLineVisibilityChanged);
  QSignalSpy zooms(&options, &ViewOptions::ZoomChanged);

  Click("mnuScrModeStatic");  // the checked one again: it stays
  EXPECT_TRUE(Checked("mnuScrModeStatic"));
  EXPECT_EQ(Registry("ScrollMode"), "0");
  Click("mnuScrModeDyn");
  EXPECT_TRUE(Checked("mnuScrModeDyn") && !Checked("mnuScrModeStatic"));
  EXPECT_EQ(Registry("ScrollMode"), "1");

  Click("mnuShowDirLine");
  EXPECT_EQ(Registry("ShowDirLine"), "1");
  Click("mnuShowDirLine");
  EXPECT_EQ(Registry("ShowDirLine"), "0");
  ASSERT_EQ(lines.count(), 2);
  EXPECT_TRUE(lines.at(0).at(0).toBool() && !lines.at(1).at(0).toBool());

  Click("mnuMapZoom");
  Click("mnuEventZoom");
  Click("mnuTilesetZoom");
  EXPECT_TRUE(Checked("mnuMapZoom") && !Checked("mnuEventZoom") && !Checked("mnuTilesetZoom"));
  EXPECT_EQ(options.zoom(View::kMap) * 100 + options.zoom(View::kEvent) * 10 + options.zoom(View::kTileset), 211);
  EXPECT_EQ(Registry("ZoomMap") + Registry("ZoomEvent") + Registry("ZoomTileset"), "100");
  EXPECT_EQ(zooms.count(), 3);
}

// The zoom keys take the view under the mouse, else that of the tab shown; they act as a click
// on its zoom item would, so the choice is stored.
TEST_F(OptionsMenuTest, ZoomKeysActOnTheViewUnderTheMouseElseOnTheViewOfTheTab) {
  ObservedMainWindow& window = StartWindow();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto key = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(&window, key, modifiers);
  };
  const auto zooms = [&] { return Registry("ZoomMap") + Registry("ZoomEvent") + Registry("ZoomTileset"); };
  QCursor::setPos(window.menuBar()->mapToGlobal(QPoint(1, 1)));
  key(Qt::Key_Plus);
  EXPECT_TRUE(Checked("mnuMapZoom"));
  EXPECT_EQ(zooms(), "1<none><none>");
  key(Qt::Key_Plus);  // zoomed in already
  key(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(zooms(), "0<none><none>");
  key(Qt::Key_Equal);
  EXPECT_EQ(zooms(), "1<none><none>");

  key(Qt::Key_2);
  EXPECT_EQ(window.state().current_tab, PageContext::kEventTab);
  key(Qt::Key_Minus);
  EXPECT_FALSE(Checked("mnuEventZoom"));
  EXPECT_EQ(zooms(), "10<none>");

  key(Qt::Key_1);
  QWidget* chooser = window.map_page()->chooser();
  QCursor::setPos(chooser->mapToGlobal(chooser->rect().center()));
  key(Qt::Key_Plus);
  EXPECT_EQ(zooms(), "101");

  key(Qt::Key_3);
  QCursor::setPos(window.menuBar()->mapToGlobal(QPoint(1, 1)));
  key(Qt::Key_Minus);  // the Wuselix page has no view
  EXPECT_EQ(zooms(), "101");
  key(Qt::Key_4);
  EXPECT_EQ(window.state().current_tab, PageContext::kHeaderTab);
}

class StandardFileTest : public MainWindowTest {
 protected:
  std::string MakeRom(const std::string& name) {
    WriteFileBytes(dir_.File(name), std::vector<std::uint8_t>(0x200, 0));
    return dir_.File(name);
  }
  std::string EnabledStdItems() const { return EnabledAmong({"mnuStdSet", "mnuStdLoad", "mnuStdClear"}); }
  // Makes a ROM current the way opening it does.
  QString OpenFakeRom(const std::string& name) {
    window_->set_rom_path(QString::fromStdString(MakeRom(name)));
    window_->UpdateStandardFileItems();
    window_->SetWindowTitle();
    return window_->rom_path();
  }
};

TEST_F(StandardFileTest, WithoutAutoLoadTheStandardFileWaitsForItsItem) {
  const std::string rom = MakeRom("spiel.gbc");
  PresetRegistry("StdFile", rom);
  PresetRegistry("AutoLoad", "0");
  ObservedMainWindow& window = StartWindow();
  EXPECT_TRUE(window.opened_paths.empty());
  EXPECT_FALSE(Checked("mnuStdAutoLoad"));
  Click("mnuStdLoad");
  ASSERT_EQ(window.opened_paths.size(), 1u);
  EXPECT_EQ(window.rom_path().toStdString(), rom);
  Click("mnuStdAutoLoad");
  EXPECT_TRUE(Checked("mnuStdAutoLoad"));
  EXPECT_EQ(Registry("AutoLoad"), "1");
}

TEST_F(StandardFileTest, TitleNeedsASeparatorInThePath) {
  PresetRegistry("StdFile", MakeRom("spiel.gbc"));
  PresetRegistry("AutoLoad", "0");
  ObservedMainWindow& window = StartWindow();
  // Cleared before any ROM is open, the empty path equals the empty standard file.
  Click("mnuStdClear");
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 (Standard)");
  window.set_rom_path("C:\\Roms\\alt.gbc");
  window.SetWindowTitle();
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - alt.gbc");
  window.set_rom_path("ohne-pfad.gbc");  // no separator: the title stays
  window.SetWindowTitle();
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - alt.gbc");
}

TEST_F(StandardFileTest, SetAndClearUpdateItemsTitleAndSetting) {
  PresetRegistry("StdFile", dir_.File("weg.gbc"));  // missing: nothing opened, nothing offered
  ObservedMainWindow& window = StartWindow();
  EXPECT_EQ(EnabledStdItems(), "");
  EXPECT_TRUE(window.opened_paths.empty());

  const QString rom = OpenFakeRom("karte.gbc");
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - karte.gbc");
  Click("mnuStdSet");
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - karte.gbc (Standard)");
  EXPECT_EQ(Registry("StdFile"), rom.toStdString());
  EXPECT_EQ(EnabledStdItems(), "mnuStdClear ");

  OpenFakeRom("andere.gb");
  EXPECT_EQ(ShownTitle(window), "Kartova v1.38 - andere.gb");
  EXPECT_EQ(EnabledStdItems(), "mnuStdSet mnuStdLoad mnuStdClear ");

  Click("mnuStdClear");
  EXPECT_EQ(Registry("StdFile"), "");
  EXPECT_EQ(EnabledStdItems(), "mnuStdSet ");

  // Cleared after the ROM was deleted, Set stays disabled.
  Click("mnuStdSet");
  std::filesystem::remove(window.rom_path().toStdString());
  Click("mnuStdClear");
  EXPECT_EQ(EnabledStdItems(), "");
}

}  // namespace
}  // namespace kartova::test
