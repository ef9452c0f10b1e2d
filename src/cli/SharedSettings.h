#pragma once

#include <map>
#include <mutex>
#include <string>
#include <tuple>

#include "rom/SettingsReader.h"

namespace kartova::cli {

// The settings store for many threads at once: each value is read from the wrapped store once,
// under a lock, and served from memory after that. A batch run thus sees one consistent set of
// definitions even while someone edits the INI file, and the store (an INI file parsed anew on
// every read, or the per-user registry) is never used by two threads at the same time.
class SharedSettings : public SettingsReader {
 public:
  explicit SharedSettings(const SettingsReader& store) : store_(store) {}

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override;

 private:
  const SettingsReader& store_;
  mutable std::mutex mutex_;
  // The default is part of the key: it is the answer for a key that is absent.
  mutable std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

}  // namespace kartova::cli
