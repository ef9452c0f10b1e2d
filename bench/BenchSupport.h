// What the benchmark programs share: random bytes, ROM images written to temporary files, and
// the demo ROM with its definition.

#pragma once

#include <cctype>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "demo/DemoRom.h"
#include "rom/SettingsReader.h"

namespace kartova::bench {

inline std::vector<std::uint8_t> RandomBytes(std::size_t n, unsigned seed) {
  std::mt19937 rng(seed);
  std::vector<std::uint8_t> v(n);
  for (auto& b : v) b = static_cast<std::uint8_t>(rng());
  return v;
}

// A ROM image under the temporary directory, removed with the object.
class TempRom {
 public:
  explicit TempRom(const std::vector<std::uint8_t>& bytes)
      : path_((std::filesystem::temp_directory_path() /
               ("kartova-bench-" + std::to_string(std::random_device{}()) + ".gbc"))
                  .string()) {
    std::ofstream(path_, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }
  ~TempRom() {
    std::error_code ec;
    std::filesystem::remove(path_, ec);
  }
  TempRom(const TempRom&) = delete;
  TempRom& operator=(const TempRom&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// The demo ROM, written once for the whole run.
inline const std::string& DemoRomPath() {
  static const TempRom rom(BuildDemoRom());
  return rom.path();
}

// The demo's definition, read from its INI text into memory.
class DemoSettings : public SettingsReader {
 public:
  DemoSettings() {
    std::istringstream in(DemoDefinitionIni());
    std::string line, section;
    while (std::getline(in, line)) {
      if (line.size() > 2 && line.front() == '[') {
        section = Lower(line.substr(1, line.find(']') - 1));
      } else if (const auto eq = line.find('='); eq != std::string::npos && line[0] != ';') {
        values_[{section, Lower(line.substr(0, eq))}] = line.substr(eq + 1);
      }
    }
  }
  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override {
    const auto it = values_.find({Lower(section), Lower(key)});
    return it == values_.end() ? def : it->second;
  }

 private:
  static std::string Lower(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  }
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

}  // namespace kartova::bench
