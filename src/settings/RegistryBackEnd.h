#pragma once

#include <string>

namespace kartova {

// The per-user registry as the settings store sees it: string values by section and key, names
// compared without regard to case. The store's logic needs nothing more of it, so the store stays
// plain C++ and tests can stand in a registry of their own.
class RegistryBackEnd {
 public:
  virtual ~RegistryBackEnd() = default;
  // The stored value, or def when the section or the key is missing or cannot be read.
  virtual std::string Read(const std::string& section, const std::string& key,
                           const std::string& def) const = 0;
  // Creates section and key as needed; false when the value could not be stored.
  virtual bool Write(const std::string& section, const std::string& key, const std::string& value) = 0;
};

}  // namespace kartova
