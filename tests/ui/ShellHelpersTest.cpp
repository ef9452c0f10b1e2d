#include "MainWindowFixture.h"
#include "ui/FileExists.h"
#include "ui/StartupOptions.h"

namespace kartova::test {
namespace {

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

using GuardedHandlerTest = MainWindowTest;

TEST_F(GuardedHandlerTest, TheWindowKeepsRunningAfterAnError) {
  ObservedMainWindow& window = StartWindow();
  prompter_.ExpectMessage(SubscriptMessage());
  window.Guarded([] { throw RuntimeError::SubscriptOutOfRange(); });
  Click("mnuShowDirLine");
  EXPECT_EQ(Registry("ShowDirLine"), "0");
}

TEST(StartupOptionsTest, TheFirstPathIsTheRomAndEverythingElseIsPassedOver) {
  const StartupOptions options = ParseStartupOptions({"--verbose", "-x", "demo.gbc", "zweite.gbc"});
  EXPECT_EQ(options.rom_path, "demo.gbc");
  EXPECT_EQ(options.ignored, QStringList({"--verbose", "-x", "zweite.gbc"}));
}

TEST(FileExistsTest, FilesDirectoriesAndWildcards) {
  TempDir dir;
  WriteFileBytes(dir.File("spiel.gbc"), {1});
  const auto q = [&](const std::string& name) { return QString::fromStdString(dir.File(name)); };
  EXPECT_TRUE(FileExists(q("spiel.gbc")));
  EXPECT_TRUE(FileExists(QString::fromStdString(dir.path().string())));
  EXPECT_TRUE(FileExists(q("sp?el.gb*")));
  EXPECT_FALSE(FileExists(q("*.map")));
  EXPECT_FALSE(FileExists(q("fehlt/*.gbc")));
  EXPECT_FALSE(FileExists(QString()));
}

TEST(FileFilterTest, ClassicFiltersBecomeQtNameFilters) {
  EXPECT_EQ(QtNameFilters("Alle Gameboy-Roms (*.gb*)|*.gbc;*.gb*|Alle Dateien (*.*)|*.*"),
            QStringList({"Alle Gameboy-Roms (*.gbc *.gb*)", "Alle Dateien (*.*)"}));
  EXPECT_EQ(QtNameFilters("Map-Dateien|*.map|kaputt"), QStringList({"Map-Dateien (*.map)"}));
}

}  // namespace
}  // namespace kartova::test
