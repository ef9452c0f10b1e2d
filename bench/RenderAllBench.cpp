// kartova-cli render-all in process on a 2 MiB ROM of 400 maps in all 26 map banks: every map
// loaded, drawn and written as a PNG into a temporary directory, then the index. The goal is
// under a second of wall time on a two-core machine.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

#include "BenchSupport.h"
#include "DemoMapModels.h"
#include "cli/Command.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

constexpr int kMapTotal = 400;

// The demo with every map bank filled up to 16 maps (the first ten) or 15 (the others):
// copies of the demo's maps in turn, with a few blocks changed so that no two are alike.
std::vector<std::uint8_t> BuildLargeWorld() {
  const std::vector<MapDecl> models = bench::DemoMaps();
  RomBuilder builder = DemoRomBuilder();
  std::mt19937 rng(2024);
  std::size_t next = 0;
  for (int bank = 1; bank <= kMapBankCount; ++bank) {
    const int wanted = bank <= 10 ? 16 : 15;
    while (builder.MapCount(bank) < wanted) {
      MapDecl m = models[next++ % models.size()];
      for (int k = 0; k < 4; ++k) m.blocks[rng() % m.blocks.size()] = m.blocks[rng() % m.blocks.size()];
      builder.Map(bank, std::move(m));
    }
  }
  return builder.Build();
}

const bench::TempRom& LargeWorld() {
  static const bench::TempRom rom(BuildLargeWorld());
  return rom;
}

class TempDirectory {
 public:
  TempDirectory()
      : path_(std::filesystem::temp_directory_path() /
              ("kartova-render-all-" + std::to_string(std::random_device{}()))) {}
  ~TempDirectory() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

const cli::Command& RenderAllCommand() {
  for (const cli::Command& c : cli::Commands())
    if (c.name == "render-all") return c;
  throw std::logic_error("render-all is not linked in");
}

// Arguments: threads, zoom.
void BM_RenderAll(benchmark::State& state) {
  const bench::DemoSettings settings;
  const std::string& rom = LargeWorld().path();
  const TempDirectory out;
  const std::vector<std::string> args = {rom, out.path(), "--jobs", std::to_string(state.range(0)),
                                         "--zoom", std::to_string(state.range(1))};
  std::ostringstream sink, errors;
  for (auto _ : state) {
    const int status = RenderAllCommand().run(cli::CommandContext{args, settings, sink, errors});
    if (status != 0) state.SkipWithError(("render-all failed: " + errors.str()).c_str());
  }
  std::uintmax_t bytes = 0;
  int pictures = 0;
  for (const auto& entry : std::filesystem::directory_iterator(out.path())) {
    if (entry.path().extension() != ".png") continue;
    bytes += entry.file_size();
    ++pictures;
  }
  state.counters["maps"] = pictures;
  state.counters["png_bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_RenderAll)
    ->ArgNames({"jobs", "zoom"})
    ->Args({1, 1})
    ->Args({2, 1})
    ->Args({2, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

}  // namespace
}  // namespace kartova
