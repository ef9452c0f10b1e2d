#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <memory>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "support/BadInputs.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// One command on one broken input, with a fresh copy of the ROM and the case's INI in a
// directory of its own.
struct CliRun {
  CliRun(std::vector<std::string> command) : args(std::move(command)) {}
  std::vector<std::string> args;
  std::unique_ptr<test::TempDir> dir = std::make_unique<test::TempDir>();
  std::unique_ptr<QProcess> process = std::make_unique<QProcess>();
  test::CliResult result;

  std::string Rom() const { return dir->File("rom.gbc"); }
  void Start(const test::BadInput& input) {
    test::WriteBadInput(input, Rom());
    test::WriteFileText(dir->File("def.ini"), input.ini.value_or(DemoDefinitionIni()));
    test::WriteFileBytes(dir->File("in.map"), {0xFF, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06});
    QStringList arguments{"--ini", QString::fromStdString(dir->File("def.ini"))};
    for (const std::string& a : args)
      arguments << QString::fromStdString(a == "ROM" ? Rom() : a.find('.') != std::string::npos ? dir->File(a) : a);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("ASAN_OPTIONS", "detect_leaks=0");
    process->setProcessEnvironment(env);
    process->start(KARTOVA_CLI_PATH, arguments);
  }
  void Finish() {
    if (!process->waitForFinished(20000)) {
      process->kill();
      process->waitForFinished();
      result.err = "(no end within the time limit) ";
    } else if (process->exitStatus() == QProcess::NormalExit) {
      result.status = process->exitCode();
    }
    result.out = process->readAllStandardOutput().toStdString();
    result.err += process->readAllStandardError().toStdString();
  }
};

using BadInputCatalogueTest = ::testing::TestWithParam<test::BadInput>;

// Every command ends with status 0, 1 or 2 (a message on stderr whenever it fails), within the
// time limit and without a sanitizer report, and import-map either leaves the ROM alone or
// writes only the block rows it names.
TEST_P(BadInputCatalogueTest, EveryCommandFailsCleanly) {
  const test::BadInput& input = GetParam();
  SCOPED_TRACE(input.name + ": " + input.what);
  CliRun runs[] = {{{"info", "ROM"}},
                   {{"map", "ROM", "1", "1"}},
                   {{"render", "ROM", "1", "1", "out.png"}},
                   {{"export-map", "ROM", "1", "1", "out.map"}},
                   {{"import-map", "ROM", "1", "1", "in.map"}},
                   {{"render-all", "ROM", "atlas.d"}}};
  for (std::size_t i = 0; i < std::size(runs); i += 2) {  // two at a time: the machine has two cores
    runs[i].Start(input);
    runs[i + 1].Start(input);
    runs[i].Finish();
    runs[i + 1].Finish();
  }
  for (const CliRun& run : runs) {
    const test::CliResult& r = run.result;
    SCOPED_TRACE(run.args[0]);
    EXPECT_TRUE(r.status >= 0 && r.status <= 2) << "status " << r.status << "\n" << r.err;
    EXPECT_EQ(r.err.find("AddressSanitizer"), std::string::npos) << r.err;
    EXPECT_EQ(r.err.find("runtime error:"), std::string::npos) << r.err;
    if (input.name == "IntactDemo") {  // the harness itself: every command succeeds
      EXPECT_EQ(r.status, 0) << r.err;
    }
    if (r.status != 0) {
      EXPECT_NE(r.err, "") << "a failure without a message";
    }
  }

  // Rows past the end lengthen the file to their end, the gap reading zero.
  const CliRun& import = runs[4];
  test::TempDir original;
  test::WriteBadInput(input, original.File("rom.gbc"));
  const Bytes before = test::ReadFileBytes(original.File("rom.gbc")), after = test::ReadFileBytes(import.Rom());
  if (import.result.status != 0) {
    EXPECT_TRUE(before == after) << "a failed import changed the ROM";
    return;
  }
  const QJsonObject json = test::JsonOf(import.result);
  ASSERT_TRUE(json.contains("offset") && json.contains("bytes")) << import.result.out;
  const auto offset = static_cast<std::size_t>(json["offset"].toDouble());
  const std::size_t end = offset + static_cast<std::size_t>(json["bytes"].toDouble());
  ASSERT_EQ(after.size(), std::max(before.size(), end)) << import.result.out;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (i < offset || i >= end) {
      ASSERT_EQ(after[i], i < before.size() ? before[i] : 0) << "byte " << i << " changed outside the block rows";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(BadInputControl, BadInputCatalogueTest, ::testing::Values(test::IntactDemoInput()),
                         test::BadInputName);
INSTANTIATE_TEST_SUITE_P(BadInput, BadInputCatalogueTest, ::testing::ValuesIn(test::BadInputs()),
                         test::BadInputName);

}  // namespace
}  // namespace kartova
