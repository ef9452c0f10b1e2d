#include "support/MemorySettings.h"

#include <cctype>

namespace kartova::test {

namespace {
std::string Folded(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}
}  // namespace

void MemorySettings::Set(const std::string& section, const std::string& key,
                         const std::string& value) {
  values_[{Folded(section), Folded(key)}] = value;
}

std::string MemorySettings::ReadSetting(const std::string& section, const std::string& key,
                                        const std::string& def) const {
  ++reads_;
  auto it = values_.find({Folded(section), Folded(key)});
  return it == values_.end() ? def : it->second;
}

}  // namespace kartova::test
