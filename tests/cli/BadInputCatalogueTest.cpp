#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "demo/DemoRom.h"
#include "support/BadInputs.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Every read-only and writing command of the command line tool on every broken input: each
// ends with status 0, 1 or 2 (a message on stderr whenever it fails), within the time limit and
// without a sanitizer report, and import-map either leaves the ROM alone or writes only the
// block rows it names.
struct CliRun {
  std::string name;
  std::unique_ptr<test::TempDir> dir = std::make_unique<test::TempDir>();
  std::string rom = dir->File("rom.gbc");
  std::unique_ptr<QProcess> process = std::make_unique<QProcess>();
  int status = -1;
  std::string out, err;
};

constexpr int kTimeoutMs = 20000;
const Bytes kMapFile = {0xFF, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06};

class BadInputCatalogueTest : public ::testing::TestWithParam<test::BadInput> {
 protected:
  // Starts the command with the case's ROM (a fresh copy) and INI in a directory of its own.
  void Start(CliRun& run, const std::vector<std::string>& args) {
    const test::BadInput& input = GetParam();
    test::WriteBadInput(input, run.rom);
    const std::string ini = run.dir->File("def.ini");
    test::WriteFileText(ini, input.ini.value_or(DemoDefinitionIni()));
    QStringList arguments{"--ini", QString::fromStdString(ini)};
    for (std::string a : args) {
      if (a == "ROM") a = run.rom;
      else if (a.find('.') != std::string::npos) a = run.dir->File(a);
      arguments << QString::fromStdString(a);
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("ASAN_OPTIONS", "detect_leaks=0");
    run.process->setProcessEnvironment(env);
    run.process->start(KARTOVA_CLI_PATH, arguments);
  }
  static void Finish(CliRun& run) {
    if (!run.process->waitForFinished(kTimeoutMs)) {
      run.process->kill();
      run.process->waitForFinished();
      run.err = "(no end within the time limit) " + run.process->readAllStandardError().toStdString();
      return;
    }
    run.out = run.process->readAllStandardOutput().toStdString();
    run.err = run.process->readAllStandardError().toStdString();
    if (run.process->exitStatus() == QProcess::NormalExit) run.status = run.process->exitCode();
  }
};

TEST_P(BadInputCatalogueTest, EveryCommandFailsCleanly) {
  const test::BadInput& input = GetParam();
  SCOPED_TRACE(input.name + ": " + input.what);
  std::array<CliRun, 6> runs;
  const std::array<std::vector<std::string>, 6> commands = {{
      {"info", "ROM"},
      {"map", "ROM", "1", "1"},
      {"render", "ROM", "1", "1", "out.png"},
      {"export-map", "ROM", "1", "1", "out.map"},
      {"import-map", "ROM", "1", "1", "in.map"},
      {"render-all", "ROM", "atlas.d"},
  }};
  CliRun& import = runs[4];
  test::WriteFileBytes(import.dir->File("in.map"), kMapFile);
  // Two at a time: the build machine has two cores.
  for (std::size_t i = 0; i < runs.size(); i += 2) {
    for (std::size_t j = i; j < std::min(i + 2, runs.size()); ++j) {
      runs[j].name = commands[j][0];
      Start(runs[j], commands[j]);
    }
    for (std::size_t j = i; j < std::min(i + 2, runs.size()); ++j) Finish(runs[j]);
  }

  for (const CliRun& run : runs) {
    SCOPED_TRACE(run.name);
    EXPECT_TRUE(run.status >= 0 && run.status <= 2) << "status " << run.status << "\n" << run.err;
    EXPECT_EQ(run.err.find("AddressSanitizer"), std::string::npos) << run.err;
    EXPECT_EQ(run.err.find("runtime error:"), std::string::npos) << run.err;
    // The intact demo checks the harness itself: every command succeeds on it.
    if (input.name == "IntactDemo") {
      EXPECT_EQ(run.status, 0) << run.err;
    }
    if (run.status != 0) {
      EXPECT_NE(run.err, "") << "a failure without a message";
    }
  }

  // import-map: unchanged, or changed only in the rows it reports.
  test::TempDir original_dir;
  const std::string original_path = original_dir.File("rom.gbc");
  test::WriteBadInput(input, original_path);
  const Bytes before = test::ReadFileBytes(original_path);
  const Bytes after = test::ReadFileBytes(import.rom);
  if (import.status != 0) {
    EXPECT_TRUE(before == after) << "a failed import changed the ROM";
    return;
  }
  const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(import.out)).object();
  ASSERT_TRUE(json.contains("offset") && json.contains("bytes")) << import.out;
  const auto offset = static_cast<std::size_t>(json["offset"].toDouble());
  const auto bytes = static_cast<std::size_t>(json["bytes"].toDouble());
  // Rows past the end lengthen the file to their end, the gap reading zero.
  const std::size_t end = offset + bytes;
  ASSERT_EQ(after.size(), std::max(before.size(), end)) << import.out;
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (i >= offset && i < end) continue;
    const std::uint8_t was = i < before.size() ? before[i] : 0;
    ASSERT_EQ(after[i], was) << "byte " << i << " changed outside the block rows " << offset << "+" << bytes;
  }
}

INSTANTIATE_TEST_SUITE_P(BadInputControl, BadInputCatalogueTest,
                         ::testing::Values(test::BadInput{"IntactDemo", "the demo as built", BuildDemoRom(), 0, {}}),
                         [](const ::testing::TestParamInfo<test::BadInput>& info) { return info.param.name; });
INSTANTIATE_TEST_SUITE_P(BadInput, BadInputCatalogueTest, ::testing::ValuesIn(test::BadInputs()),
                         [](const ::testing::TestParamInfo<test::BadInput>& info) { return info.param.name; });

}  // namespace
}  // namespace kartova
