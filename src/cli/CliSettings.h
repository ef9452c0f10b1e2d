#pragma once

#include <memory>
#include <optional>
#include <string>

#include "rom/SettingsReader.h"

namespace kartova::cli {

// Where the command line tool reads settings and ROM definitions from. It never writes them.
struct OpenedSettings {
  std::unique_ptr<SettingsReader> reader;  // null when error is set
  std::string error;
};

// With an INI file given (--ini FILE): that file alone; a missing or unreadable file is an
// error, since the user named it. Without one: the store the editor in program_dir would use
// (Kartova.ini where settings/SettingsLocation.h puts it for that directory), its back end
// chosen as at the editor's start-up, except that disagreeing selectors are left as they are
// (no repair, no message) and the registry is read.
OpenedSettings OpenCliSettings(const std::optional<std::string>& ini_path,
                               const std::string& program_dir);

// The directory of the running executable (UTF-8), from which the editor's INI directory follows.
std::string ProgramDirectory(const char* argv0);

}  // namespace kartova::cli
