#include "ui/StartupOptions.h"

namespace kartova {

StartupOptions ParseStartupOptions(const QStringList& arguments) {
  static const QString kDefinitions = QStringLiteral("--definitions");
  StartupOptions options;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (argument == kDefinitions) {
      if (i + 1 < arguments.size()) options.definitions_file = arguments[++i];
    } else if (argument.startsWith(kDefinitions + QLatin1Char('='))) {
      options.definitions_file = argument.mid(kDefinitions.size() + 1);
    } else if (argument.startsWith(QLatin1Char('-')) && argument.size() > 1) {
      options.ignored << argument;
    } else if (options.rom_path.isEmpty() && !argument.isEmpty()) {
      options.rom_path = argument;
    } else {
      options.ignored << argument;
    }
  }
  return options;
}

}  // namespace kartova
