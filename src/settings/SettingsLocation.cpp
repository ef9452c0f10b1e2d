#include "settings/SettingsLocation.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace kartova {

namespace {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string Utf8(const fs::path& p) {
  const std::u8string s = p.u8string();
  return std::string(s.begin(), s.end());
}

// A relative value would make the settings depend on the directory the program was started in.
bool Usable(std::string_view dir) { return !dir.empty() && PathOf(dir).is_absolute(); }

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::string_view(value) : std::string_view();
}

}  // namespace

bool IsInstalledProgram(const std::string& program_dir) {
  if (program_dir.empty()) return false;
  std::error_code ec;
  return fs::is_directory(PathOf(program_dir) / ".." / "share" / "kartova", ec);
}

std::string IniDirectoryFor(const std::string& program_dir, std::string_view xdg_config_home,
                            std::string_view home) {
  if (!IsInstalledProgram(program_dir)) return program_dir;
  if (Usable(xdg_config_home)) return Utf8(PathOf(xdg_config_home) / "Kartova");
  if (Usable(home)) return Utf8(PathOf(home) / ".config" / "Kartova");
  return program_dir;
}

std::string IniDirectoryFromEnvironment(const std::string& program_dir) {
  return IniDirectoryFor(program_dir, Environment("XDG_CONFIG_HOME"), Environment("HOME"));
}

}  // namespace kartova
