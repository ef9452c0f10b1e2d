// The programs as a user starts them: the editor's --version and --help, and where both
// programs look for Kartova.ini when they are installed.

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <filesystem>
#include <string>

#include "demo/RomBuilder.h"
#include "support/TempDir.h"

namespace kartova::test {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status = -1;  // -1 when the program crashed or did not finish
  std::string out;
  std::string err;
};

// With no display at all: the platform Qt would choose by itself has nothing to connect to.
QProcessEnvironment WithoutDisplay() {
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) env.remove(name);
  env.insert("ASAN_OPTIONS", "detect_leaks=0");
  return env;
}

Outcome Start(const std::string& program, const QStringList& arguments,
          const QProcessEnvironment& env = WithoutDisplay()) {
  QProcess process;
  process.setProcessEnvironment(env);
  process.start(QString::fromStdString(program), arguments);
  Outcome run;
  if (!process.waitForFinished(60000)) {
    process.kill();
    process.waitForFinished();
    return run;
  }
  run.out = process.readAllStandardOutput().toStdString();
  run.err = process.readAllStandardError().toStdString();
  if (process.exitStatus() == QProcess::NormalExit) run.status = process.exitCode();
  return run;
}

TEST(EditorCommandLineTest, VersionAndHelpAnswerWithoutADisplay) {
  const Outcome version = Start(KARTOVA_EDITOR_PATH, {"--version"});
  EXPECT_EQ(version.status, 0) << version.err;
  EXPECT_EQ(version.out, std::string("kartova ") + KARTOVA_VERSION + "\n");
  EXPECT_EQ(version.err, "");

  // A platform that does not exist would end the program the moment a window were prepared.
  for (const QStringList& arguments : {QStringList{"--help"}, QStringList{"-platform", "none", "-h"},
                                       QStringList{"rom.gbc", "--help", "--version"}}) {
    const Outcome help = Start(KARTOVA_EDITOR_PATH, arguments);
    EXPECT_EQ(help.status, 0) << arguments.join(' ').toStdString() << "\n" << help.err;
    EXPECT_EQ(help.out.rfind("Usage: kartova [OPTION]... [ROM]\n", 0), 0u) << help.out;
    for (const char* listed : {"-h, --help", "--version", "Kartova.ini", "XDG_CONFIG_HOME"})
      EXPECT_NE(help.out.find(listed), std::string::npos) << listed;
  }
}

// A copy of the command line tool in PREFIX/bin; installing means PREFIX/share/kartova exists.
// Each place for Kartova.ini holds a definition of its own header length, so the output tells
// which file was read.
TEST(InstalledProgramTest, KartovaIniMovesToTheUsersConfigurationDirectory) {
  TempDir dir;
  const fs::path bin = dir.path() / "prefix" / "bin";
  const fs::path config = dir.path() / "config";
  fs::create_directories(bin);
  fs::create_directories(config / "Kartova");
  fs::copy_file(KARTOVA_CLI_PATH, bin / "kartova-cli");
  WriteFileBytes(dir.File("kartova.gbc"), RomBuilder().Title("KARTOVA").Build());
  const std::string section = "[4B4152544F5641" + std::string(18, '0') + "]\n";
  const auto ini = [&](const fs::path& at, int header_length) {
    WriteFileText(at.string(), "[Settings]\nDefaultPropertyPath=ini\n" + section +
                                   "HeaderLengthA=" + std::to_string(header_length) + "\n");
  };
  ini(bin / "Kartova.ini", 11);
  ini(config / "Kartova" / "Kartova.ini", 12);
  // The per-user store, which follows XDG_CONFIG_HOME too, agrees on the INI file.
  WriteFileText((config / "Kartova" / "Kartova.conf").string(), "[Settings]\nDefaultPropertyPath=ini\n");

  QProcessEnvironment env = WithoutDisplay();
  env.insert("XDG_CONFIG_HOME", QString::fromStdString(config.string()));
  env.insert("HOME", QString::fromStdString((dir.path() / "home").string()));
  const auto header_length = [&] {
    const QStringList arguments{"info", QString::fromStdString(dir.File("kartova.gbc"))};
    const Outcome run = Start((bin / "kartova-cli").string(), arguments, env);
    EXPECT_EQ(run.status, 0) << run.err;
    const std::size_t at = run.out.find("\"headerLength\": ");
    return at == std::string::npos ? std::string("none") : run.out.substr(at + 16, 2);
  };
  EXPECT_EQ(header_length(), "11");
  fs::create_directories(dir.path() / "prefix" / "share" / "kartova");
  EXPECT_EQ(header_length(), "12");
}

}  // namespace
}  // namespace kartova::test
