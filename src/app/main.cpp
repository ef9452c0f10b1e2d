#include <QApplication>

#include "app/SettingsStore.h"
#include "ui/MainWindow.h"
#include "ui/QtPrompter.h"
#include "ui/StartupOptions.h"

int main(int argc, char* argv[]) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Kartova"));
  QApplication::setApplicationVersion(QStringLiteral("1.38"));

  const QString program_dir = QApplication::applicationDirPath();
  kartova::SettingsStore settings(program_dir.toStdString());
  kartova::QtPrompter prompter;
  kartova::MainWindow window(settings, prompter, program_dir);
  prompter.set_parent(&window);

  QStringList arguments = QApplication::arguments();
  arguments.removeFirst();
  window.set_startup_options(kartova::ParseStartupOptions(arguments));

  window.Start();
  window.show();
  return QApplication::exec();
}
