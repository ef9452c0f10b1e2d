#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::RunCli;

TEST(MakeDemoCommandTest, WritesTheDemoAndItsDefinition) {
  test::TempDir dir;
  const std::string target = dir.File("new/demo dir");
  const test::CliResult made = RunCli({"make-demo", target});
  ASSERT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(test::ReadFileBytes(target + "/demo.gbc"), BuildDemoRom());
  EXPECT_EQ(test::ReadFileText(target + "/demo.ini"), DemoDefinitionIni());
  // Making it again over the old files replaces them.
  EXPECT_EQ(RunCli({"make-demo", target}).status, 0);
}

TEST(MakeDemoCommandTest, ReportsWhatItCannotWrite) {
  test::TempDir dir;
  test::WriteFileText(dir.File("file"), "not a directory");
  const test::CliResult blocked = RunCli({"make-demo", dir.File("file") + "/sub"});
  EXPECT_EQ(blocked.status, 1);
  EXPECT_NE(blocked.err.find("cannot create the directory"), std::string::npos) << blocked.err;

  std::filesystem::create_directories(dir.File("full/demo.gbc"));  // in the way of the ROM
  const test::CliResult in_the_way = RunCli({"make-demo", dir.File("full")});
  EXPECT_EQ(in_the_way.status, 1);
  EXPECT_NE(in_the_way.err.find("demo.gbc"), std::string::npos) << in_the_way.err;

  EXPECT_EQ(RunCli({"make-demo"}).status, 2);
}

}  // namespace
}  // namespace kartova
