#include <QSignalSpy>
#include <clocale>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

using ScrollSpeedTest = MainWindowTest;

TEST_F(ScrollSpeedTest, StoredSpeedsCheckTheirItems) {
  PresetRegistry("ScrollSpeed", "-2");
  StartWindow();
  EXPECT_TRUE(Checked("mnuScrSpeedFast") && Checked("mnuScrSpeedSign"));
  EXPECT_FALSE(Checked("mnuScrSpeedNormal") || Checked("mnuScrSpeedSlow"));

  PresetRegistry("ScrollSpeed", "1.5");
  ObservedMainWindow& window = StartWindow();
  EXPECT_FALSE(Checked("mnuScrSpeedFast") || Checked("mnuScrSpeedNormal") ||
               Checked("mnuScrSpeedSlow") || Checked("mnuScrSpeedSign"));
  Click("mnuScrSpeedSign");
  EXPECT_FLOAT_EQ(window.scroll_speed(), -1.5f);
  EXPECT_EQ(Registry("ScrollSpeed"), "-1.5");
}

TEST_F(ScrollSpeedTest, SpeedChangesKeepTheDisplaySign) {
  // Stored in a German locale, where printf would write a comma.
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  ObservedMainWindow& window = StartWindow();
  Click("mnuScrSpeedFast");
  EXPECT_EQ(Registry("ScrollSpeed"), "2");
  Click("mnuScrSpeedSign");
  EXPECT_TRUE(Checked("mnuScrSpeedSign"));
  EXPECT_EQ(Registry("ScrollSpeed"), "-2");
  Click("mnuScrSpeedSlow");
  std::setlocale(LC_NUMERIC, "C");
  EXPECT_FLOAT_EQ(window.scroll_speed(), -0.5f);
  EXPECT_EQ(Registry("ScrollSpeed"), "-0.5");
  EXPECT_TRUE(Checked("mnuScrSpeedSlow"));
  EXPECT_FALSE(Checked("mnuScrSpeedFast") || Checked("mnuScrSpeedNormal"));
  Click("mnuScrSpeedSlow");
  EXPECT_TRUE(Checked("mnuScrSpeedSlow"));
}

TEST_F(ScrollSpeedTest, ASpeedOfZeroStaysZero) {
  PresetRegistry("ScrollSpeed", "schnell");
  StartWindow();
  Click("mnuScrSpeedFast");
  EXPECT_TRUE(Checked("mnuScrSpeedFast"));
  EXPECT_EQ(Registry("ScrollSpeed"), "0");
  Click("mnuScrSpeedSign");
  EXPECT_EQ(Registry("ScrollSpeed"), "0");
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
  EXPECT_EQ(window.tileset_zoom(), 2);
  QSignalSpy spy(&window.view_options(), &ViewOptions::ZoomChanged);
  Click("mnuMapZoom");
  Click("mnuEventZoom");
  Click("mnuTilesetZoom");
  EXPECT_TRUE(Checked("mnuMapZoom") && !Checked("mnuEventZoom") && !Checked("mnuTilesetZoom"));
  EXPECT_EQ(window.map_zoom() * 100 + window.event_zoom() * 10 + window.tileset_zoom(), 211);
  EXPECT_EQ(Registry("ZoomMap") + Registry("ZoomEvent") + Registry("ZoomTileset"), "100");
  EXPECT_EQ(spy.count(), 3);
}

}  // namespace
}  // namespace kartova::test
