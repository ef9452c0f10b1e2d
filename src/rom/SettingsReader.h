#pragma once

#include <string>

namespace kartova {

// Read access to the editor's settings store, as core needs it for ROM definitions. The app
// provides the store (registry or INI file) behind it; tests provide their own.
class SettingsReader {
 public:
  virtual ~SettingsReader() = default;
  // The value of key in section, or def when it is absent.
  virtual std::string ReadSetting(const std::string& section, const std::string& key,
                                  const std::string& def) const = 0;
};

}  // namespace kartova
