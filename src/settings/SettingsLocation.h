#pragma once

#include <string>
#include <string_view>

namespace kartova {

// Where Kartova.ini lives. A portable program (an unpacked archive, the build tree) keeps it
// beside itself, as it always has. An installed program lives in a directory nobody may write
// into (/usr/bin), so it keeps the file in the user's configuration directory instead.
//
// The program counts as installed when <program_dir>/../share/kartova is a directory, since the
// installation puts its data files there. Its INI directory is then $XDG_CONFIG_HOME/Kartova, or
// $HOME/.config/Kartova when XDG_CONFIG_HOME is unset, empty or not an absolute path. Without a
// usable HOME either, it stays the program's directory. Paths are UTF-8; the environment values
// are passed in (empty for unset) so that tests never depend on the real environment.
bool IsInstalledProgram(const std::string& program_dir);

std::string IniDirectoryFor(const std::string& program_dir, std::string_view xdg_config_home,
                            std::string_view home);

// IniDirectoryFor with XDG_CONFIG_HOME and HOME read from this process's environment.
std::string IniDirectoryFromEnvironment(const std::string& program_dir);

}  // namespace kartova
