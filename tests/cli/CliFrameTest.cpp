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
  // The list: every command on a line of its own, no paragraphs.
  for (const std::vector<std::string>& args : {std::vector<std::string>{"--help"}, {"-h"}, {"help"}}) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 0) << args[0];
    for (const char* command : {"export-map", "import-map", "info", "install-definition", "make-demo", "map",
                                "render", "render-all"})
      EXPECT_TRUE(Contains(r.out, "\n  " + std::string(command) + " ")) << command << "\n" << r.out;
    EXPECT_TRUE(Contains(r.out, "  info                Print the ROM definition")) << r.out;
    EXPECT_FALSE(Contains(r.out, "extraHeaderByteNames")) << r.out;
    EXPECT_TRUE(Contains(r.out, "--version")) << "listed in the help";
  }
  // One command: its usage and its paragraph, however it is asked for.
  for (const std::vector<std::string>& args : {std::vector<std::string>{"help", "info"}, {"info", "--help"},
                                               {"--help", "info"}, {"info", "x.gbc", "-h"}}) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_TRUE(r.out.rfind("Usage: kartova-cli [--ini FILE] info ROM\n", 0) == 0) << r.out;
    EXPECT_TRUE(Contains(r.out, "extraHeaderByteNames")) << r.out;  // the command's paragraph
  }
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
      {{"info", "x", "--verbose"}, "unknown option '--verbose'"},
      {{"info", "-x", "rom.gbc"}, "unknown option '-x'"},
      {{"render-all", "x", "out", "--frob=1"}, "unknown option '--frob=1'"},
      {{"map", "x", "1", "1", "--time"}, "--time needs a value"},
      {{"info", "x", "--ini"}, "--ini needs a file name"},
  };
  for (const auto& [args, message] : wrong) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 2) << message;
    EXPECT_EQ(r.out, "") << message;
    EXPECT_TRUE(r.err.rfind("kartova-cli: " + message + "\n", 0) == 0 && Contains(r.err, "Usage: kartova-cli"))
        << r.err;
  }
}

// --ini (and --help, --version) may stand before the command, after it or among its arguments;
// after "--" everything is an argument of the command.
TEST(CliFrameTest, GlobalOptionsStandAnywhereUntilDoubleDash) {
  test::TempDir dir;
  const std::string rom = dir.File("rom.gbc"), ini = dir.File("rom.ini");
  test::WriteFileBytes(rom, RomBuilder().HeaderLength(10).Build());
  WriteFileText(ini, "[Settings]\nHeaderLengthA=10\n");
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--ini", ini, "info", rom}, {"info", rom, "--ini", ini},
        {"info", "--ini=" + ini, rom}, {"--ini", ini, "--", "info", rom}, {"info", "--ini", ini, "--", rom}}) {
    const CliResult r = RunCli(args);
    EXPECT_EQ(r.status, 0) << args[0] << " " << args[1] << "\n" << r.err;
    EXPECT_TRUE(Contains(r.out, "\"headerLength\": 10,")) << args[0] << " " << args[1];
  }
  const CliResult version = RunCli({"info", rom, "--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out.rfind("kartova-cli ", 0), 0u);

  // Behind "--" an option is a file name like any other.
  CliResult r = RunCli({"--ini", ini, "info", "--", "--help"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: Datei nicht gefunden: --help\n");
  r = RunCli({"--ini", ini, "map", "--", rom, "1", "1", "--time", "3"});
  EXPECT_EQ(r.status, 2);
  EXPECT_TRUE(r.err.rfind("kartova-cli: map needs a ROM file", 0) == 0) << r.err;
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
