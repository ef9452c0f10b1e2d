#pragma once

#include <QString>
#include <QStringList>

namespace kartova {

// What the editor's command line may carry: a ROM to open and a file of ROM definitions.
struct StartupOptions {
  QString rom_path;
  QString definitions_file;
  // Options the editor does not know; they are passed over.
  QStringList ignored;
};

// arguments without the program name. "--definitions FILE" (or "--definitions=FILE") names the
// definitions file; the first argument that is no option is the ROM; everything else, including
// unknown options and further paths, is ignored.
StartupOptions ParseStartupOptions(const QStringList& arguments);

}  // namespace kartova
