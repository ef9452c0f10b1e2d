#pragma once

#include <map>
#include <string>
#include <utility>

#include "rom/SettingsReader.h"

namespace kartova::test {

// An in-memory settings store for core tests. Section and key names are compared without regard
// to (ASCII) case, as the editor's stores compare them.
class MemorySettings : public SettingsReader {
 public:
  void Set(const std::string& section, const std::string& key, const std::string& value);

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override;

  // Number of ReadSetting calls so far.
  int reads() const { return reads_; }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
  mutable int reads_ = 0;
};

}  // namespace kartova::test
