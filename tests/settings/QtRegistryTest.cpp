#include "settings/QtRegistry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "settings/SettingsStore.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::ReadFileText;
using test::WriteFileText;

class QtRegistryTest : public ::testing::Test {
 protected:
  SettingsStore Store() const { return Store(Registry()); }
  SettingsStore Store(const std::string& file) const {
    return SettingsStore(dir_.path().string(), std::make_unique<QtRegistry>(file));
  }
  std::string Registry() const { return dir_.File("registry.conf"); }

  test::TempDir dir_;
};

TEST_F(QtRegistryTest, NamesIgnoreCaseAndSurviveSpecialCharacters) {
  const std::string title = "4142000000000000000000000000ABCD";
  EXPECT_TRUE(Store().WriteRegistry(title, "HeaderLengthA", "C"));
  Store().WriteRegistry("General", "count", "2");
  Store().WriteRegistry("Names/DE\\2", "00", "Stra\xC3\x9F" "e, Nord");
  Store().WriteRegistry("Settings", "StdFile", std::string(300, 'p'));
  Store().WriteRegistry("SETTINGS", "stdfile", "  /x.gbc  ");  // replaces, adds no second key

  const SettingsStore store = Store();
  EXPECT_EQ(store.ReadRegistry("4142000000000000000000000000abcd", "headerlengtha", ""), "C");
  EXPECT_EQ(store.ReadRegistry("general", "COUNT", ""), "2");
  EXPECT_EQ(store.ReadRegistry("names/de\\2", "00", ""), "Stra\xC3\x9F" "e, Nord");
  EXPECT_EQ(store.ReadRegistry("Names", "00", "-"), "-");
  EXPECT_EQ(store.ReadRegistry("Settings", "StdFile", ""), "  /x.gbc  ");
  EXPECT_EQ(ReadFileText(Registry()).find("stdfile"), std::string::npos);
  EXPECT_EQ(QtRegistry(Registry()).Read("", "count", "-"), "-");
  EXPECT_FALSE(QtRegistry(Registry()).Write("Settings", "", "1"));
}

TEST_F(QtRegistryTest, ReadsAHandWrittenOrBrokenRegistryFile) {
  WriteFileText(Registry(),
                "[settings]\ndefaultpropertypath=reg\n"
                "[General]\nTilesetNames=Tilesets\n"
                "[Tilesets]\n00=Route 1, north\n01=\"quoted, kept\"\n");
  const SettingsStore store = Store();
  EXPECT_EQ(store.ReadRegistry("General", "TilesetNames", ""), "Tilesets");
  EXPECT_EQ(store.ReadRegistry("Tilesets", "00", ""), "Route 1, north");
  EXPECT_EQ(store.ReadRegistry("Tilesets", "01", ""), "quoted, kept");

  std::filesystem::create_directory(dir_.File("broken.conf"));  // cannot be read or written
  SettingsStore broken = Store(dir_.File("broken.conf"));
  EXPECT_FALSE(broken.WriteRegistry("Settings", "ZoomMap", "1"));
  broken.WriteSetting("Settings", "ZoomMap", "1");
  EXPECT_EQ(broken.ReadSetting("Settings", "ZoomMap", "0"), "0");
  EXPECT_FALSE(broken.ChooseBackEnd());
}

}  // namespace
}  // namespace kartova
