#include "settings/SettingsLocation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/TempDir.h"

namespace kartova {
namespace {

namespace fs = std::filesystem;

// A prefix with bin/ (where the programs are) and, once installed, share/kartova/.
class SettingsLocationTest : public ::testing::Test {
 protected:
  SettingsLocationTest() { fs::create_directories(bin_); }

  void Install() const { fs::create_directories(dir_.path() / "prefix" / "share" / "kartova"); }
  std::string Bin() const { return bin_.string(); }
  std::string Under(const std::string& relative) const { return (dir_.path() / relative).string(); }

  test::TempDir dir_;
  fs::path bin_ = dir_.path() / "prefix" / "bin";
};

TEST_F(SettingsLocationTest, APortableProgramKeepsItsIniBesideItself) {
  EXPECT_FALSE(IsInstalledProgram(Bin()));
  EXPECT_EQ(IniDirectoryFor(Bin(), Under("config"), Under("home")), Bin());
  // Data files beside the program, or a share/kartova that is a file, make no installation.
  fs::create_directories(bin_ / "share" / "kartova");
  fs::create_directories(dir_.path() / "prefix" / "share");
  test::WriteFileText(Under("prefix/share/kartova"), "");
  EXPECT_FALSE(IsInstalledProgram(Bin()));
  EXPECT_FALSE(IsInstalledProgram(""));
  EXPECT_FALSE(IsInstalledProgram(Under("no/such/bin")));
}

TEST_F(SettingsLocationTest, AnInstalledProgramUsesTheUsersConfigurationDirectory) {
  Install();
  EXPECT_TRUE(IsInstalledProgram(Bin()));
  EXPECT_TRUE(IsInstalledProgram(Bin() + "/"));
  EXPECT_EQ(IniDirectoryFor(Bin(), Under("config"), Under("home")), Under("config/Kartova"));
  // XDG_CONFIG_HOME unset, empty or relative: HOME's .config.
  const std::string from_home = Under("home/.config/Kartova");
  EXPECT_EQ(IniDirectoryFor(Bin(), "", Under("home")), from_home);
  EXPECT_EQ(IniDirectoryFor(Bin(), "config", Under("home")), from_home);
  EXPECT_EQ(IniDirectoryFor(Bin(), "./config", Under("home")), from_home);
  // Nowhere to go in the user's home: the program's directory as before.
  EXPECT_EQ(IniDirectoryFor(Bin(), "", ""), Bin());
  EXPECT_EQ(IniDirectoryFor(Bin(), "config", "home"), Bin());
  // The directories need not exist yet; the store makes them when it first writes.
  EXPECT_FALSE(fs::exists(Under("config")) || fs::exists(Under("home")));
}

TEST_F(SettingsLocationTest, NamesOutsideAsciiAreKept) {
  const fs::path bin = dir_.path() / fs::path(u8"Pr\u00fcfung") / "bin";
  fs::create_directories(bin / ".." / "share" / "kartova");
  const std::u8string bin_utf8 = bin.u8string();
  const std::string program(bin_utf8.begin(), bin_utf8.end());
  const std::string config = Under("config") + "/\xC3\xBC";
  EXPECT_EQ(IniDirectoryFor(program, config, ""), config + "/Kartova");
}

}  // namespace
}  // namespace kartova
