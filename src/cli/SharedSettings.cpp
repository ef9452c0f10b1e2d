#include "cli/SharedSettings.h"

namespace kartova::cli {

std::string SharedSettings::ReadSetting(const std::string& section, const std::string& key,
                                        const std::string& def) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  auto entry = std::make_tuple(section, key, def);
  if (const auto it = values_.find(entry); it != values_.end()) return it->second;
  std::string value = store_.ReadSetting(section, key, def);
  values_.emplace(std::move(entry), value);
  return value;
}

}  // namespace kartova::cli
