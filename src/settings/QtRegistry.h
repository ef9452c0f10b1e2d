#pragma once

#include <string>

#include "settings/RegistryBackEnd.h"

namespace kartova {

// The registry back end through QSettings' native format under the application name "Kartova":
// the real registry on Windows (where the settings of earlier versions are), a per-user settings
// file elsewhere. Nothing is kept open between calls; every call sees the store as it is now.
class QtRegistry : public RegistryBackEnd {
 public:
  // file: when non-empty, this file in QSettings' INI format stands in for the native store;
  // tests use it so that they never touch a user's real settings.
  explicit QtRegistry(std::string file = {});

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& def) const override;
  bool Write(const std::string& section, const std::string& key, const std::string& value) override;

 private:
  std::string file_;
};

}  // namespace kartova
