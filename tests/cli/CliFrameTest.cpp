#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/CliProcess.h"
#include "demo/RomBuilder.h"

namespace kartova {
namespace {

using test::CliResult;
using test::RunCli;
using test::WriteFileText;

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(CliFrameTest, HelpVersionAndWrongUsage) {
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--help"}, {"-h"}, {"help"}, {"help", "info"}, {"info", "--help"}}) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_TRUE(Contains(r.out, "kartova-cli [--ini FILE] info ROM")) << r.out;
    EXPECT_TRUE(Contains(r.out, "extraHeaderByteNames")) << r.out;  // the command's paragraph
  }
  EXPECT_TRUE(Contains(RunCli({"--help"}).out, "--version")) << "listed in the help";
  const CliResult version = RunCli({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.err, "");
  EXPECT_TRUE(version.out.rfind("kartova-cli ", 0) == 0 && version.out.size() > 14 && version.out.back() == '\n' &&
              version.out.find_first_not_of("0123456789.\n", 12) == std::string::npos)
      << version.out;

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

#if defined(__linux__)
// Without --ini the tool reads the editor's store, chosen by the two selectors, and writes
// nothing. A copy of the tool in PREFIX/bin keeps Kartova.ini beside itself until PREFIX/share/
// kartova makes it an installed program, whose Kartova.ini is in XDG_CONFIG_HOME/Kartova.
TEST(CliFrameTest, WithoutIniReadsTheEditorsStoreAndWritesNothing) {
  test::TempDir dir;
  const std::filesystem::path bin = dir.path() / "prefix" / "bin";
  const std::string cli = (bin / "kartova-cli").string(), rom = dir.File("rom.gbc");
  const std::string ini = (bin / "Kartova.ini").string(), config = dir.File("config/Kartova");
  std::filesystem::create_directories(bin);
  std::filesystem::create_directories(config);
  std::filesystem::copy_file(KARTOVA_CLI_PATH, cli);
  test::WriteFileBytes(rom, RomBuilder().Build());
  auto header_length = [&] {
    const CliResult r = RunCli({"info", rom}, {{"XDG_CONFIG_HOME", dir.File("config")}}, cli);
    EXPECT_EQ(r.status, 0) << r.err;
    const std::size_t at = r.out.find("\"headerLength\": ");
    return at == std::string::npos ? std::string("none") : r.out.substr(at + 16, 2);
  };
  EXPECT_EQ(header_length(), "9,");
  EXPECT_FALSE(std::filesystem::exists(ini));

  WriteFileText(ini, "[Settings]\nDefaultPropertyPath=ini\nHeaderLengthA=10\n");
  WriteFileText(config + "/Kartova.conf", "[Settings]\nDefaultPropertyPath=ini\nHeaderLengthA=11\n");
  WriteFileText(config + "/Kartova.ini", "[Settings]\nDefaultPropertyPath=ini\nHeaderLengthA=12\n");
  EXPECT_EQ(header_length(), "10");
  std::filesystem::create_directories(dir.path() / "prefix" / "share" / "kartova");
  EXPECT_EQ(header_length(), "12");

  WriteFileText(config + "/Kartova.conf", "[Settings]\nHeaderLengthA=11\n");  // disagreeing: the registry, unrepaired
  EXPECT_EQ(header_length(), "11");
  EXPECT_EQ(test::ReadFileText(config + "/Kartova.conf"), "[Settings]\nHeaderLengthA=11\n");
  EXPECT_TRUE(Contains(test::ReadFileText(config + "/Kartova.ini"), "DefaultPropertyPath=ini"));
}
#endif

}  // namespace
}  // namespace kartova
