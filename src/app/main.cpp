#include <QApplication>
#include <cstdio>
#include <string>
#include <memory>
#include <string_view>

#include "settings/QtRegistry.h"
#include "settings/SettingsLocation.h"
#include "settings/SettingsStore.h"
#include "ui/Language.h"
#include "ui/MainWindow.h"
#include "ui/QtPrompter.h"
#include "ui/StartupOptions.h"

namespace {

constexpr const char* kHelp =
    "Usage: kartova [OPTION]... [ROM]\n"
    "\n"
    "Map editor for ROM images of a Game Boy Color role-playing game. With ROM, that ROM image\n"
    "(*.gb*) is opened at start-up; further paths are passed over.\n"
    "\n"
    "Options:\n"
    "  -h, --help     Show this help and exit.\n"
    "      --version  Show the version and exit.\n"
    "\n"
    "Other options are passed over, except the ones of Qt itself (such as -platform NAME or\n"
    "-style NAME), which Qt takes.\n"
    "\n"
    "Settings are kept in the per-user settings store or in Kartova.ini: beside the program,\n"
    "or, when the program is installed (PREFIX/share/kartova exists beside PREFIX/bin), in\n"
    "$XDG_CONFIG_HOME/Kartova (by default ~/.config/Kartova). Options -> Save Settings to\n"
    "chooses between the two.\n";

// --help and --version are answered before anything of the window exists, so that they work
// without a display. The first of them on the command line wins.
const char* InfoRequested(int argc, char* argv[]) {
  static const std::string version_text = std::string("kartova ") + KARTOVA_VERSION + "\n";
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i] ? argv[i] : "";
    if (argument == "--help" || argument == "-h") return kHelp;
    if (argument == "--version") return version_text.c_str();
  }
  return nullptr;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (const char* info = InfoRequested(argc, argv)) {
    std::fputs(info, stdout);
    return std::fflush(stdout) == 0 ? 0 : 1;
  }

  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Kartova"));
  QApplication::setApplicationVersion(QStringLiteral(KARTOVA_VERSION));

  const QString program_dir = QApplication::applicationDirPath();
  kartova::SettingsStore settings(kartova::IniDirectoryFromEnvironment(program_dir.toStdString()),
                                  std::make_unique<kartova::QtRegistry>());
  // The language is chosen before the first widget is built: every text is translated as it
  // is made, so a change of the language takes effect at the next start.
  kartova::InstallLanguage(kartova::LanguageSetting(settings));
  kartova::QtPrompter prompter;
  kartova::MainWindow window(settings, prompter);
  prompter.set_parent(&window);

  QStringList arguments = QApplication::arguments();
  arguments.removeFirst();
  window.set_startup_options(kartova::ParseStartupOptions(arguments));

  window.Start();
  window.show();
  return QApplication::exec();
}
