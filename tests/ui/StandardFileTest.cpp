#include <filesystem>

#include "MainWindowFixture.h"

namespace kartova::test {
namespace {

class StandardFileTest : public MainWindowTest {
 protected:
  std::string MakeRom(const std::string& name) {
    const std::string path = dir_.File(name);
    WriteFileBytes(path, std::vector<std::uint8_t>(0x200, 0));
    return path;
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

TEST_F(StandardFileTest, AMissingStandardFileLeavesTheDesignState) {
  PresetRegistry("StdFile", dir_.File("weg.gbc"));
  ObservedMainWindow& window = StartWindow();
  EXPECT_EQ(EnabledStdItems(), "");
  EXPECT_TRUE(window.opened_paths.empty());
}

TEST_F(StandardFileTest, SetAndClearUpdateItemsTitleAndSetting) {
  ObservedMainWindow& window = StartWindow();
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

}  // namespace
}  // namespace kartova::test
