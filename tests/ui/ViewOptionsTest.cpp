#include <QSignalSpy>
#include <clocale>
#include <sstream>
#include <string>
#include <tuple>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

using ScrollSpeedTest = MainWindowTest;

TEST_F(ScrollSpeedTest, ItemsFollowTheSpeedAndChangesKeepTheDisplaySign) {
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

using ViewOptionTest = MainWindowTest;

TEST_F(ViewOptionTest, ScrollModeItemsExcludeEachOtherAndStore) {
  PresetRegistry("ScrollMode", "0");
  StartWindow();
  EXPECT_TRUE(Checked("mnuScrModeStatic") && !Checked("mnuScrModeDyn"));
  Click("mnuScrModeStatic");
  EXPECT_TRUE(Checked("mnuScrModeStatic"));
  EXPECT_EQ(Registry("ScrollMode"), "0");
  Click("mnuScrModeDyn");
  EXPECT_TRUE(Checked("mnuScrModeDyn") && !Checked("mnuScrModeStatic"));
  EXPECT_EQ(Registry("ScrollMode"), "1");
}

TEST_F(ViewOptionTest, DirLineToggleStoresAndTellsTheEventView) {
  PresetRegistry("ShowDirLine", "0");
  ObservedMainWindow& window = StartWindow();
  EXPECT_FALSE(Checked("mnuShowDirLine"));
  QSignalSpy spy(&window.view_options(), &ViewOptions::DirLineVisibilityChanged);
  Click("mnuShowDirLine");
  EXPECT_EQ(Registry("ShowDirLine"), "1");
  Click("mnuShowDirLine");
  EXPECT_EQ(Registry("ShowDirLine"), "0");
  ASSERT_EQ(spy.count(), 2);
  EXPECT_TRUE(spy.at(0).at(0).toBool());
  EXPECT_FALSE(spy.at(1).at(0).toBool());
}

TEST_F(ViewOptionTest, ZoomItemsToggleStoreAndSetTheirFactor) {
  PresetRegistry("ZoomTileset", "1");
  ObservedMainWindow& window = StartWindow();
  EXPECT_EQ(window.view_options().zoom(ViewOptions::View::kTileset), 2);
  QSignalSpy spy(&window.view_options(), &ViewOptions::ZoomChanged);
  Click("mnuMapZoom");
  Click("mnuEventZoom");
  Click("mnuTilesetZoom");
  EXPECT_TRUE(Checked("mnuMapZoom") && !Checked("mnuEventZoom") && !Checked("mnuTilesetZoom"));
  using View = ViewOptions::View;
  const ViewOptions& options = window.view_options();
  EXPECT_EQ(options.zoom(View::kMap) * 100 + options.zoom(View::kEvent) * 10 + options.zoom(View::kTileset), 211);
  EXPECT_EQ(Registry("ZoomMap") + Registry("ZoomEvent") + Registry("ZoomTileset"), "100");
  EXPECT_EQ(spy.count(), 3);
}

}  // namespace
}  // namespace kartova::test
