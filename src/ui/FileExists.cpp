#include "ui/FileExists.h"

#include <QDir>
#include <QFileInfo>

namespace kartova {

bool FileExists(const QString& path) {
  if (path.isEmpty()) return false;
  const QFileInfo info(path);
  const QString name = info.fileName();
  if (!name.contains(QLatin1Char('*')) && !name.contains(QLatin1Char('?'))) return info.exists();
  const QDir dir = info.dir();
  return !dir.entryList({name}, QDir::AllEntries | QDir::Hidden | QDir::System).isEmpty();
}

}  // namespace kartova
