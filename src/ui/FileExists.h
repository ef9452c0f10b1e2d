#pragma once

#include <QString>

namespace kartova {

// True when at least one directory entry matches path: the file or directory itself, or, when
// the last part of the path holds the wildcards * or ?, any entry they match. The empty path
// matches nothing.
bool FileExists(const QString& path);

}  // namespace kartova
