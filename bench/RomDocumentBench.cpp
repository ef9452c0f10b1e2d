// Opening the demo ROM (definition, map bank table, map counts, location names) and loading one
// map's headers, both through the file on disk as the editor does them.

#include <benchmark/benchmark.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "demo/DemoRom.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

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
  std::string ReadSetting(const std::string& section, const std::string& key, const std::string& def) const override {
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

// The demo ROM written once to a temporary file for all benchmarks.
struct TemporaryRom {
  TemporaryRom() {
    const auto name = "kartova-bench-" + std::to_string(std::random_device{}()) + ".gbc";
    path = (std::filesystem::temp_directory_path() / name).string();
    const std::vector<std::uint8_t> bytes = BuildDemoRom();
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }
  ~TemporaryRom() {
    std::error_code ec;
    std::filesystem::remove(path, ec);
  }
  std::string path;
};

const std::string& RomPath() {
  static const TemporaryRom rom;
  return rom.path;
}

void BM_OpenRom(benchmark::State& state) {
  const DemoSettings settings;
  const std::string& path = RomPath();
  RomDocument doc;
  for (auto _ : state) {
    doc.OpenRom(path, settings);
    benchmark::DoNotOptimize(doc.MapCountPerBank());
  }
  state.counters["system_reads"] = doc.LastSystemReads();
}
BENCHMARK(BM_OpenRom)->Unit(benchmark::kMicrosecond);

void BM_LoadHeaders(benchmark::State& state) {
  const DemoSettings settings;
  RomDocument doc;
  doc.OpenRom(RomPath(), settings);
  // The header stage alone: the load that reads the headers again for the header page.
  doc.SetApplyMode(kApplyRestoreHeaders);
  for (auto _ : state) {
    doc.LoadSelectedMap(0, 0);
    benchmark::DoNotOptimize(doc.Secondary().bytes);
  }
  state.counters["system_reads"] = doc.LastSystemReads();
}
BENCHMARK(BM_LoadHeaders)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kartova
