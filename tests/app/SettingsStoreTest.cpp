#include "app/SettingsStore.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/TempDir.h"

namespace kartova {
namespace {

using test::ReadFileText;
using test::WriteFileText;

constexpr const char* kSelector = "DefaultPropertyPath";

class SettingsStoreTest : public ::testing::Test {
 protected:
  SettingsStore Store() const { return SettingsStore(dir_.path().string(), Registry()); }
  std::string Registry() const { return dir_.File("registry.conf"); }

  test::TempDir dir_;
};

TEST_F(SettingsStoreTest, SelectorsChooseTheBackEndAndDisagreementIsRepaired) {
  SettingsStore store = Store();
  EXPECT_EQ(store.IniPath(), dir_.File("Kartova.ini"));
  store.set_kind(SettingsStore::kIni);
  EXPECT_FALSE(store.ChooseBackEnd());  // first start: both "reg", nothing written
  EXPECT_EQ(store.kind(), SettingsStore::kRegistry);
  EXPECT_FALSE(std::filesystem::exists(store.IniPath()) || std::filesystem::exists(Registry()));

  store.WriteIni("Settings", kSelector, "ini");
  EXPECT_EQ(store.PeekBackEnd(), SettingsStore::kRegistry);
  EXPECT_EQ(store.ReadIni("Settings", kSelector, ""), "ini");  // peeking repairs nothing
  EXPECT_TRUE(store.ChooseBackEnd());
  EXPECT_EQ(store.kind(), SettingsStore::kRegistry);
  EXPECT_EQ(store.ReadIni("Settings", kSelector, ""), "reg");
  EXPECT_EQ(store.ReadRegistry("Settings", kSelector, ""), "reg");

  // Anything but "reg" in both selects the INI file; the comparison itself is exact.
  store.WriteIni("Settings", kSelector, "INI");
  store.WriteRegistry("Settings", kSelector, "INI");
  EXPECT_FALSE(store.ChooseBackEnd());
  EXPECT_EQ(store.kind(), SettingsStore::kIni);
  store.WriteRegistry("Settings", kSelector, "ini");
  EXPECT_TRUE(store.ChooseBackEnd());
  EXPECT_EQ(store.kind(), SettingsStore::kRegistry);
}

TEST_F(SettingsStoreTest, ReadAndWriteGoToTheActiveBackEndOnly) {
  SettingsStore store = Store();
  store.WriteSetting("Settings", "WinSizeX", "1000");
  store.set_kind(SettingsStore::kIni);
  EXPECT_EQ(store.ReadSetting("Settings", "WinSizeX", "9060"), "9060");
  store.WriteSetting("Settings", "WinSizeX", "2000");
  store.set_kind(2);
  store.WriteSetting("Settings", "WinSizeX", "3000");
  EXPECT_EQ(store.ReadSetting("Settings", "WinSizeX", "none"), "none");
  EXPECT_EQ(store.ReadIni("Settings", "WinSizeX", ""), "2000");
  EXPECT_EQ(store.ReadRegistry("Settings", "WinSizeX", ""), "1000");
}

TEST_F(SettingsStoreTest, RegistryNamesIgnoreCaseAndSurviveSpecialCharacters) {
  const std::string title = "4142000000000000000000000000ABCD";
  Store().WriteRegistry(title, "HeaderLengthA", "C");
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
}

TEST_F(SettingsStoreTest, ReadsAHandWrittenOrBrokenRegistryFile) {
  WriteFileText(Registry(),
                "[settings]\ndefaultpropertypath=reg\n"
                "[General]\nTilesetNames=Tilesets\n"
                "[Tilesets]\n00=Route 1, north\n01=\"quoted, kept\"\n");
  const SettingsStore store = Store();
  EXPECT_EQ(store.ReadRegistry("General", "TilesetNames", ""), "Tilesets");
  EXPECT_EQ(store.ReadRegistry("Tilesets", "00", ""), "Route 1, north");
  EXPECT_EQ(store.ReadRegistry("Tilesets", "01", ""), "quoted, kept");

  std::filesystem::create_directory(dir_.File("broken.conf"));  // cannot be read or written
  SettingsStore broken(dir_.path().string(), dir_.File("broken.conf"));
  broken.WriteSetting("Settings", "ZoomMap", "1");
  EXPECT_EQ(broken.ReadSetting("Settings", "ZoomMap", "0"), "0");
  EXPECT_FALSE(broken.ChooseBackEnd());
}

}  // namespace
}  // namespace kartova
