#include "ui/StartupOptions.h"

namespace kartova {

StartupOptions ParseStartupOptions(const QStringList& arguments) {
  StartupOptions options;
  for (const QString& argument : arguments) {
    const bool is_option = argument.startsWith(QLatin1Char('-')) && argument.size() > 1;
    if (!is_option && options.rom_path.isEmpty() && !argument.isEmpty())
      options.rom_path = argument;
    else
      options.ignored << argument;
  }
  return options;
}

}  // namespace kartova
