#include "cli/CliSettings.h"

#include <filesystem>
#include <system_error>

#include "cli/Messages.h"
#include "settings/IniFile.h"
#include "settings/QtRegistry.h"
#include "settings/SettingsLocation.h"
#include "settings/SettingsStore.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace kartova::cli {

namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& p) {
  const std::u8string s = p.u8string();
  return std::string(s.begin(), s.end());
}

fs::path RunningExecutable() {
#ifdef _WIN32
  std::wstring buffer(32768, L'\0');
  DWORD n = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
  if (n > 0 && n < buffer.size()) return fs::path(buffer.substr(0, n));
#else
  std::error_code ec;
  fs::path self = fs::read_symlink("/proc/self/exe", ec);
  if (!ec) return self;
#endif
  return {};
}

}  // namespace

std::string ProgramDirectory(const char* argv0) {
  fs::path exe = RunningExecutable();
  if (exe.empty() && argv0 != nullptr) {
    std::error_code ec;
    exe = fs::absolute(fs::path(argv0), ec);
  }
  return Utf8(exe.parent_path());
}

OpenedSettings OpenCliSettings(const std::optional<std::string>& ini_path,
                               const std::string& program_dir) {
  OpenedSettings opened;
  if (ini_path) {
    if (const std::string why = ReadFailureReason(*ini_path); !why.empty()) {
      opened.error = "cannot read the INI file " + *ini_path + ": " + why;
      return opened;
    }
    opened.reader = std::make_unique<IniFile>(*ini_path);
    return opened;
  }
  auto store = std::make_unique<SettingsStore>(IniDirectoryFromEnvironment(program_dir),
                                               std::make_unique<QtRegistry>());
  store->set_kind(store->PeekBackEnd());
  opened.reader = std::move(store);
  return opened;
}

}  // namespace kartova::cli
