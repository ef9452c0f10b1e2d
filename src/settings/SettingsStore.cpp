#include "settings/SettingsStore.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "settings/IniFile.h"

namespace kartova {

namespace {

constexpr const char* kIniFileName = "Kartova.ini";
constexpr const char* kRegistryDefault = "reg";

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

// The per-user configuration directory of an installed program does not exist before the first
// setting is written. A directory that cannot be made leaves the write to fail as for any other
// folder that is missing.
void MakeDirectory(const std::string& utf8) {
  if (utf8.empty()) return;
  const std::filesystem::path dir(std::u8string(utf8.begin(), utf8.end()));
  std::error_code ec;
  if (std::filesystem::is_directory(dir, ec)) return;
  std::filesystem::create_directories(dir, ec);
}

}  // namespace

SettingsStore::SettingsStore(std::string ini_directory, std::unique_ptr<RegistryBackEnd> registry)
    : ini_directory_(std::move(ini_directory)), registry_(std::move(registry)) {
  if (!ini_directory_.empty() && ini_directory_.back() != '/' && ini_directory_.back() != '\\')
    ini_directory_ += kSeparator;
}

SettingsStore::~SettingsStore() = default;
SettingsStore::SettingsStore(SettingsStore&&) noexcept = default;
SettingsStore& SettingsStore::operator=(SettingsStore&&) noexcept = default;

std::string SettingsStore::IniPath() const { return ini_directory_ + kIniFileName; }

std::string SettingsStore::ReadSetting(const std::string& section, const std::string& key,
                                       const std::string& def) const {
  switch (kind_) {
    case kRegistry:
      return ReadRegistry(section, key, def);
    case kIni:
      return ReadIni(section, key, def);
    default:
      return def;
  }
}

void SettingsStore::WriteSetting(const std::string& section, const std::string& key,
                                 const std::string& value) {
  switch (kind_) {
    case kRegistry:
      WriteRegistry(section, key, value);
      break;
    case kIni:
      WriteIni(section, key, value);
      break;
    default:
      break;
  }
}

std::string SettingsStore::ReadIni(const std::string& section, const std::string& key,
                                   const std::string& def) const {
  return IniFile(IniPath()).Read(section, key, def);
}

bool SettingsStore::WriteIni(const std::string& section, const std::string& key,
                             const std::string& value) {
  MakeDirectory(ini_directory_);
  return IniFile(IniPath()).Write(section, key, value);
}

// The registry has no unnamed sections or keys.
std::string SettingsStore::ReadRegistry(const std::string& section, const std::string& key,
                                        const std::string& def) const {
  if (!registry_ || section.empty() || key.empty()) return def;
  return registry_->Read(section, key, def);
}

bool SettingsStore::WriteRegistry(const std::string& section, const std::string& key,
                                  const std::string& value) {
  if (!registry_ || section.empty() || key.empty()) return false;
  return registry_->Write(section, key, value);
}

int SettingsStore::PeekBackEnd() const {
  const std::string ini = ReadIni(kSettingsSection, kSelectorKey, kRegistryDefault);
  const std::string reg = ReadRegistry(kSettingsSection, kSelectorKey, kRegistryDefault);
  if (ini != reg) return kRegistry;
  return ini == kRegistryDefault ? kRegistry : kIni;
}

bool SettingsStore::ChooseBackEnd() {
  const std::string ini = ReadIni(kSettingsSection, kSelectorKey, kRegistryDefault);
  const std::string reg = ReadRegistry(kSettingsSection, kSelectorKey, kRegistryDefault);
  const bool disagree = ini != reg;
  if (disagree) {
    WriteIni(kSettingsSection, kSelectorKey, kRegistryDefault);
    WriteRegistry(kSettingsSection, kSelectorKey, kRegistryDefault);
  }
  kind_ = disagree || ini == kRegistryDefault ? kRegistry : kIni;
  return disagree;
}

}  // namespace kartova
