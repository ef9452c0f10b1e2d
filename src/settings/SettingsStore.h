#pragma once

#include <memory>
#include <string>

#include "rom/SettingsReader.h"
#include "settings/RegistryBackEnd.h"

namespace kartova {

// The editor's one settings store with its two back ends: the per-user registry, or the private
// profile file Kartova.ini in the INI directory (beside the program, or in the per-user
// configuration directory of an installed program: settings/SettingsLocation.h). Which one is
// active is decided once at start-up.
class SettingsStore : public SettingsReader {
 public:
  enum Kind : int { kRegistry = 0, kIni = 1 };

  // registry may be null: then the registry holds nothing and takes nothing.
  SettingsStore(std::string ini_directory, std::unique_ptr<RegistryBackEnd> registry);
  ~SettingsStore() override;
  SettingsStore(SettingsStore&&) noexcept;
  SettingsStore& operator=(SettingsStore&&) noexcept;

  // The INI directory with a trailing separator, and the INI path built from it.
  const std::string& IniDirectory() const { return ini_directory_; }
  std::string IniPath() const;

  int kind() const { return kind_; }
  void set_kind(int kind) { kind_ = kind; }

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override;
  // Does nothing for a kind other than kRegistry or kIni.
  void WriteSetting(const std::string& section, const std::string& key, const std::string& value);

  // Direct access to one back end, whatever the active kind (the start-up selector and the
  // switch items use these). The writes say whether the value was stored. Writing the INI file
  // creates its directory first when that is missing.
  std::string ReadIni(const std::string& section, const std::string& key, const std::string& def) const;
  bool WriteIni(const std::string& section, const std::string& key, const std::string& value);
  std::string ReadRegistry(const std::string& section, const std::string& key, const std::string& def) const;
  bool WriteRegistry(const std::string& section, const std::string& key, const std::string& value);

  // The start-up decision: reads the selector from both back ends; when they disagree, writes
  // "reg" into both and returns true (the caller shows the message). Sets kind().
  bool ChooseBackEnd();

  // The kind the start-up decision would choose, without repairing anything or changing kind():
  // the registry when the two selectors disagree. For readers such as the command line tool.
  int PeekBackEnd() const;

  static constexpr const char* kSettingsSection = "Settings";
  static constexpr const char* kSelectorKey = "DefaultPropertyPath";

 private:
  std::string ini_directory_;
  std::unique_ptr<RegistryBackEnd> registry_;
  int kind_ = kRegistry;
};

// "1" for true, "0" for false: the form in which every on/off option is written.
inline std::string FlagText(bool b) { return b ? "1" : "0"; }

}  // namespace kartova
