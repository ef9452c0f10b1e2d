#pragma once

#include <memory>
#include <string>

#include "rom/SettingsReader.h"

namespace kartova {

class IniFile;

// The editor's one settings store with its two back ends: the per-user registry (through
// QSettings' native format under the application name "Kartova") or the private profile file
// Kartova.ini in the program's directory. Which one is active is decided once at start-up.
class SettingsStore : public SettingsReader {
 public:
  enum Kind : int { kRegistry = 0, kIni = 1 };

  // program_dir: where Kartova.ini lives. registry_file: when non-empty, the registry back end
  // is this file (QSettings IniFormat) instead of the native per-user store; tests use it so
  // that they never touch a user's real settings.
  SettingsStore(std::string program_dir, std::string registry_file = {});
  ~SettingsStore() override;

  // The program directory with a trailing separator, and the INI path built from it.
  const std::string& IniDirectory() const { return ini_directory_; }
  std::string IniPath() const;

  int kind() const { return kind_; }
  void set_kind(int kind) { kind_ = kind; }

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override;
  void WriteSetting(const std::string& section, const std::string& key, const std::string& value);

  // Direct access to one back end, whatever the active kind (the start-up selector and the
  // switch items use these).
  std::string ReadIni(const std::string& section, const std::string& key, const std::string& def) const;
  void WriteIni(const std::string& section, const std::string& key, const std::string& value);
  std::string ReadRegistry(const std::string& section, const std::string& key, const std::string& def) const;
  void WriteRegistry(const std::string& section, const std::string& key, const std::string& value);

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
  std::string registry_file_;
  int kind_ = kRegistry;
};

// "1" for true, "0" for false: the form in which every on/off option is written.
inline std::string FlagText(bool b) { return b ? "1" : "0"; }

}  // namespace kartova
