#include <gtest/gtest.h>

#include <filesystem>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "settings/IniFile.h"

namespace kartova {
namespace {

using test::RunCli;

// make-demo and install-definition.
class DefinitionCommandsTest : public ::testing::Test {
 protected:
  DefinitionCommandsTest() {
    test::WriteFileText(Source(), "; a comment = not a key\n[Settings]\nDefaultPropertyPath=ini\n"
                                  "MapNameTable=92400\n\n[Rom A]\r\nHeaderLengthA = 12 \r\n"
                                  "ResName0=\"Flags\"\r\nresname0=second\r\n[Liste]\ncount=1\n00=Wald\n");
  }
  std::string Source() const { return dir_.File("source.ini"); }

  test::TempDir dir_;
};

TEST_F(DefinitionCommandsTest, InstallCopiesEverySectionAndKeyIntoTheGivenFile) {
  const std::string target = dir_.File("Kartova.ini");
  test::WriteFileText(target, "[Settings]\nDefaultPropertyPath=reg\nStdFile=x.gbc\n[Rom A]\nTilesetBase=2E00\n");
  const test::CliResult r = RunCli({"--ini", target, "install-definition", Source()});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "Installed 5 keys in 3 sections into " + target + "\n");
  const IniFile ini(target);
  EXPECT_EQ(ini.Read("Rom A", "HeaderLengthA", "?"), "12");
  EXPECT_EQ(ini.Read("Rom A", "ResName0", "?"), "Flags");  // the first of the repeated keys
  EXPECT_EQ(ini.Read("Rom A", "TilesetBase", "?"), "2E00");
  EXPECT_EQ(ini.Read("Settings", "MapNameTable", "?"), "92400");
  EXPECT_EQ(ini.Read("Liste", "00", "?"), "Wald");
  // The store's selector and other settings stay as they were.
  EXPECT_EQ(ini.Read("Settings", "DefaultPropertyPath", "?"), "reg");
  EXPECT_EQ(ini.Read("Settings", "StdFile", "?"), "x.gbc");
}

// The demo made (twice: the second time over the old files), its definition installed into
// the editor's own store, and info finding it there.
TEST_F(DefinitionCommandsTest, MakeDemoWritesTheDemoWhoseDefinitionReachesTheEditorsStore) {
  const std::map<std::string, std::string> home = {{"XDG_CONFIG_HOME", dir_.File("config")},
                                                   {"HOME", dir_.File("home")}};
  const std::string demo = dir_.File("new/demo dir");
  for (int i = 0; i < 2; ++i) ASSERT_EQ(RunCli({"make-demo", demo}).status, 0);
  EXPECT_EQ(test::ReadFileBytes(demo + "/demo.gbc"), BuildDemoRom());
  EXPECT_EQ(test::ReadFileText(demo + "/demo.ini"), DemoDefinitionIni());

  const test::CliResult r = RunCli({"install-definition", demo + "/demo.ini"}, home);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out.find("Installed "), 0u) << r.out;
  EXPECT_NE(r.out.find("into the per-user settings store"), std::string::npos) << r.out;
  const test::CliResult info = RunCli({"info", demo + "/demo.gbc"}, home);
  ASSERT_EQ(info.status, 0) << info.err;
  for (const char* part : {"\"headerLength\": 9,", "\"mapNameTable\": 598916,", "\"tilesetBase\": 11770,",
                           "04 - Höhle", "02 - Nacht / Höhle"})
    EXPECT_NE(info.out.find(part), std::string::npos) << part;
}

TEST_F(DefinitionCommandsTest, ReportsWhatTheyCannotReadOrWrite) {
  test::WriteFileText(dir_.File("file"), "not a directory");
  test::CliResult r = RunCli({"make-demo", dir_.File("file") + "/sub"});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("cannot create the directory"), std::string::npos) << r.err;
  std::filesystem::create_directories(dir_.File("full/demo.gbc"));  // in the way of the ROM
  r = RunCli({"make-demo", dir_.File("full")});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: could not write " + dir_.File("full") + "/demo.gbc: Is a directory\n");

  r = RunCli({"--ini", Source(), "install-definition", dir_.File("missing.ini")});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: cannot read the INI file " + dir_.File("missing.ini") +
                       ": No such file or directory\n");
  r = RunCli({"--ini", Source(), "install-definition", dir_.File("full")});
  EXPECT_EQ(r.err, "kartova-cli: cannot read the INI file " + dir_.File("full") + ": Is a directory\n");
  for (const std::vector<std::string>& usage : {std::vector<std::string>{"make-demo"}, {"install-definition"},
                                                {"install-definition", Source(), Source()}})
    EXPECT_EQ(RunCli(usage).status, 2) << usage.size();

  // A settings file far bigger than any real one is never rewritten.
  const std::string target = dir_.File("huge.ini");
  test::WriteFileText(target, "[Settings]\n");
  std::filesystem::resize_file(target, 17 << 20);
  r = RunCli({"--ini", target, "install-definition", Source()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("could not write [Settings] MapNameTable to " + target), std::string::npos) << r.err;
}

}  // namespace
}  // namespace kartova
