#pragma once

#include <QString>
#include <QStringList>

namespace kartova {

// What the editor's command line may carry: a ROM to open.
struct StartupOptions {
  QString rom_path;
  // Options the editor does not know and further paths; they are passed over.
  QStringList ignored;
};

// arguments without the program name. The first argument that is no option is the ROM;
// everything else is ignored.
StartupOptions ParseStartupOptions(const QStringList& arguments);

}  // namespace kartova
