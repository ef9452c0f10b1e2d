// kartova-cli diff in process on two 2 MiB ROMs of 400 maps in all 26 map banks that differ in
// a few maps. The goal is under 200 ms for the whole process on a two-core machine.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "cli/Command.h"
#include "rom/Address.h"

namespace kartova {
namespace {

// The demo with every map bank filled up to 16 maps (the first ten) or 15 (the others), each
// a plain map of its own size and blocks with a warp and a person.
BuiltRom BuildWorld() {
  RomBuilder builder = DemoRomBuilder();
  std::mt19937 rng(2024);
  for (int bank = 1; bank <= kMapBankCount; ++bank) {
    const int wanted = bank <= 10 ? 16 : 15;
    while (builder.MapCount(bank) < wanted) {
      MapDecl m{.location = static_cast<std::uint8_t>(rng() % 20),
                .width = static_cast<std::uint8_t>(10 + rng() % 16),
                .height = static_cast<std::uint8_t>(9 + rng() % 10),
                .warps = {{1, 2, 1, 1, 1}},
                .people = {{.picture = 3}}};
      m.blocks.resize(static_cast<std::size_t>(m.width) * m.height);
      for (auto& b : m.blocks) b = static_cast<std::uint8_t>(rng() % 16);
      builder.Map(bank, std::move(m));
    }
  }
  return builder.BuildWithLayout();
}

// A copy with five maps changed: blocks, a header byte and a warp.
std::vector<std::uint8_t> Changed(const BuiltRom& world) {
  std::vector<std::uint8_t> bytes = world.bytes;
  for (int bank : {3, 7, 12, 20, 26}) {
    const MapLayout& at = world.layout.Map(bank, 5);
    bytes[static_cast<std::size_t>(at.blocks + 3)] ^= 0x11;
    bytes[static_cast<std::size_t>(at.primary_header + 6)] ^= 0x01;
    bytes[static_cast<std::size_t>(at.event_header + 3)] ^= 0x02;
  }
  return bytes;
}

struct Roms {
  BuiltRom world = BuildWorld();
  bench::TempRom a{world.bytes};
  bench::TempRom b{Changed(world)};
};

// With KARTOVA_DIFF_ROMS=DIR set, both ROMs are also written to DIR/a.gbc and DIR/b.gbc, so
// that the whole process can be timed: hyperfine 'kartova-cli diff DIR/a.gbc DIR/b.gbc'.
const Roms& TwoRoms() {
  static const Roms roms;
  static const bool kept = [] {
    if (const char* dir = std::getenv("KARTOVA_DIFF_ROMS")) {
      std::filesystem::copy_file(roms.a.path(), std::string(dir) + "/a.gbc",
                                 std::filesystem::copy_options::overwrite_existing);
      std::filesystem::copy_file(roms.b.path(), std::string(dir) + "/b.gbc",
                                 std::filesystem::copy_options::overwrite_existing);
    }
    return true;
  }();
  (void)kept;
  return roms;
}

const cli::Command& DiffCommand() {
  for (const cli::Command& c : cli::Commands())
    if (c.name == "diff") return c;
  throw std::logic_error("diff is not linked in");
}

// Argument: 0 JSON, 1 --text, 2 --patch.
void BM_Diff(benchmark::State& state) {
  const bench::DemoSettings settings;
  const Roms& roms = TwoRoms();
  std::vector<std::string> args = {roms.a.path(), roms.b.path()};
  if (state.range(0) == 1) args.push_back("--text");
  if (state.range(0) == 2) args.push_back("--patch");
  int maps = 0;
  for (auto _ : state) {
    std::ostringstream out, errors;
    const int status = DiffCommand().run(cli::CommandContext{args, settings, out, errors});
    if (status != 1) state.SkipWithError(("diff failed: " + errors.str()).c_str());
    maps = 0;
    for (char c : out.str()) maps += c == '\n';
  }
  state.counters["lines"] = maps;
  state.counters["maps"] = static_cast<double>(roms.world.layout.maps.size());
}
BENCHMARK(BM_Diff)->ArgName("form")->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kartova
