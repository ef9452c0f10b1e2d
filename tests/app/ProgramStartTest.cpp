// The editor as a user starts it: --version and --help answer without any display. Where the
// installed programs keep Kartova.ini is checked by tests/install/check_install.sh and, for a
// copy of the command line tool, by CliFrameTest.

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <string>

namespace kartova::test {
namespace {

struct Outcome {
  int status = -1;  // -1 when the program crashed or did not finish
  std::string out;
  std::string err;
};

// With no display at all: the platform Qt would choose by itself has nothing to connect to.
Outcome StartWithoutDisplay(const QStringList& arguments) {
  QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) env.remove(name);
  env.insert("ASAN_OPTIONS", "detect_leaks=0");
  QProcess process;
  process.setProcessEnvironment(env);
  process.start(KARTOVA_EDITOR_PATH, arguments);
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
  const Outcome version = StartWithoutDisplay({"--version"});
  EXPECT_EQ(version.status, 0) << version.err;
  EXPECT_EQ(version.out, std::string("kartova ") + KARTOVA_VERSION + "\n");
  EXPECT_EQ(version.err, "");

  // A platform that does not exist would end the program the moment a window were prepared.
  for (const QStringList& arguments : {QStringList{"--help"}, QStringList{"-platform", "none", "-h"},
                                       QStringList{"rom.gbc", "--help", "--version"}}) {
    const Outcome help = StartWithoutDisplay(arguments);
    EXPECT_EQ(help.status, 0) << arguments.join(' ').toStdString() << "\n" << help.err;
    EXPECT_EQ(help.out.rfind("Usage: kartova [OPTION]... [ROM]\n", 0), 0u) << help.out;
    for (const char* listed : {"-h, --help", "--version", "Kartova.ini", "XDG_CONFIG_HOME"})
      EXPECT_NE(help.out.find(listed), std::string::npos) << listed;
  }
}

}  // namespace
}  // namespace kartova::test
