#pragma once

#include <cctype>
#include <map>
#include <string>
#include <utility>

#include "rom/SettingsReader.h"

namespace kartova::test {

// An in-memory settings store for core tests. Section and key names are compared without regard
// to (ASCII) case, as the editor's stores compare them.
class MemorySettings : public SettingsReader {
 public:
  void Set(const std::string& section, const std::string& key, const std::string& value) {
    values_[{Folded(section), Folded(key)}] = value;
  }
  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override {
    ++reads_;
    auto it = values_.find({Folded(section), Folded(key)});
    return it == values_.end() ? def : it->second;
  }
  // Number of ReadSetting calls so far.
  int reads() const { return reads_; }

 private:
  static std::string Folded(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  }
  std::map<std::pair<std::string, std::string>, std::string> values_;
  mutable int reads_ = 0;
};

}  // namespace kartova::test
