#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/CliProcess.h"
#include "demo/RomBuilder.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::CliResult;
using test::RunCli;
using test::WriteFileText;

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(CliFrameTest, HelpDocumentsEveryCommandAndWrongUsageFailsWithStatus2) {
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--help"}, {"-h"}, {"help"}, {"help", "info"}, {"info", "--help"}}) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_TRUE(Contains(r.out, "kartova-cli [--ini FILE] info ROM")) << r.out;
    EXPECT_TRUE(Contains(r.out, "extraHeaderByteNames")) << r.out;  // the command's paragraph
  }
  const std::pair<std::vector<std::string>, std::string> wrong[] = {
      {{}, "no command given"},
      {{"frobnicate", "x"}, "unknown command 'frobnicate'"},
      {{"help", "frobnicate"}, "unknown command 'frobnicate'"},
      {{"--ini"}, "--ini needs a file name"},
      {{"--verbose", "info", "x"}, "unknown option '--verbose'"},
  };
  for (const auto& [args, message] : wrong) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 2) << message;
    EXPECT_EQ(r.out, "") << message;
    EXPECT_TRUE(Contains(r.err, message) && Contains(r.err, "Usage: kartova-cli")) << r.err;
  }
}

TEST(CliFrameTest, VersionPrintsTheProjectVersion) {
  const CliResult r = RunCli({"--version"});
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.err, "");
  EXPECT_TRUE(r.out.rfind("kartova-cli ", 0) == 0 && r.out.find_first_not_of("0123456789.\n", 12) == std::string::npos &&
              r.out.size() > 14 && r.out.back() == '\n')
      << r.out;
  EXPECT_TRUE(Contains(RunCli({"--help"}).out, "--version")) << "listed in the help";
}

#if defined(__linux__)
// Without --ini the tool reads the editor's store, chosen by the two selectors, and writes
// nothing. A copy of the tool in a temporary directory has its own Kartova.ini there; the
// per-user settings file is redirected with XDG_CONFIG_HOME.
TEST(CliFrameTest, WithoutIniReadsTheEditorsStoreAndWritesNothing) {
  test::TempDir dir;
  const std::string cli = dir.File("kartova-cli"), rom = dir.File("rom.gbc");
  const std::string ini = dir.File("Kartova.ini");
  const std::string user = (dir.path() / "config" / "Kartova" / "Kartova.conf").string();
  std::filesystem::create_directories(dir.path() / "config" / "Kartova");
  std::filesystem::copy_file(KARTOVA_CLI_PATH, cli);
  test::WriteFileBytes(rom, RomBuilder().Build());
  auto header_length = [&] {
    const CliResult r = RunCli({"info", rom}, {{"XDG_CONFIG_HOME", dir.File("config")}}, cli);
    EXPECT_EQ(r.status, 0) << r.err;
    return Contains(r.out, "\"headerLength\": 10,") ? 10 : Contains(r.out, "\"headerLength\": 11,") ? 11 : 9;
  };
  EXPECT_EQ(header_length(), 9);
  EXPECT_FALSE(std::filesystem::exists(ini));

  WriteFileText(ini, "[Settings]\nDefaultPropertyPath=ini\nHeaderLengthA=10\n");
  WriteFileText(user, "[Settings]\nDefaultPropertyPath=ini\nHeaderLengthA=11\n");
  EXPECT_EQ(header_length(), 10);

  WriteFileText(user, "[Settings]\nHeaderLengthA=11\n");  // disagreeing: the registry, unrepaired
  EXPECT_EQ(header_length(), 11);
  EXPECT_EQ(test::ReadFileText(user), "[Settings]\nHeaderLengthA=11\n");
  EXPECT_TRUE(Contains(test::ReadFileText(ini), "DefaultPropertyPath=ini"));
}
#endif

}  // namespace
}  // namespace kartova
