// kartova-cli apply in process on a 2 MiB ROM of 400 maps: a patch that touches 50 maps, each
// with three blocks, a header byte and a warp record. The goal is under 100 ms on a two-core
// machine plus the safe writes: one per changed map into the working copy, one into the ROM.
// BM_SafeWrites measures those writes alone, so that the difference shows the rest.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "DemoMapModels.h"
#include "cli/Command.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

constexpr int kPatchedMaps = 50;

struct PatchedMap {
  int bank, map, width, height;
};

// The demo with every map bank filled up to 16 or 15 maps with copies of its maps, each copy
// given a warp; the copies the patch edits are listed in `patched`.
struct LargeWorld {
  std::unique_ptr<bench::TempRom> rom;
  std::vector<PatchedMap> patched;
};

const LargeWorld& World() {
  static const LargeWorld world = [] {
    const std::vector<MapDecl> models = bench::DemoMaps();
    RomBuilder builder = DemoRomBuilder();
    std::vector<PatchedMap> copies;
    std::size_t next = 0;
    for (int bank = 1; bank <= kMapBankCount; ++bank) {
      while (builder.MapCount(bank) < (bank <= 10 ? 16 : 15)) {
        MapDecl m = models[next++ % models.size()];
        m.warps = {{2, 2, 1, 1, 1}};
        copies.push_back({bank, builder.MapCount(bank) + 1, m.width, m.height});
        builder.Map(bank, std::move(m));
      }
    }
    LargeWorld w{std::make_unique<bench::TempRom>(builder.Build()), {}};
    // Spread over the banks: every seventh copy.
    for (std::size_t i = 0; i < copies.size() && w.patched.size() < kPatchedMaps; i += 7) w.patched.push_back(copies[i]);
    return w;
  }();
  return world;
}

// The patch with every touched byte set to `value`; two values in turn make every run write.
std::string PatchText(int value) {
  char hex[3];
  std::snprintf(hex, sizeof hex, "%02X", value & 0xFF);
  const std::string hh = hex;
  std::string text = "[";
  for (const PatchedMap& m : World().patched) {
    if (text.size() > 1) text += ",";
    text += "{\"bank\":" + std::to_string(m.bank) + ",\"map\":" + std::to_string(m.map) + ",\"blocks\":[[0,0," +
            std::to_string(value) + "],[1,0," + std::to_string(value) + "],[" + std::to_string(m.width - 1) + "," +
            std::to_string(m.height - 1) + "," + std::to_string(value) + "]],\"primary\":{\"6\":\"" + hh +
            "\"},\"events\":{\"warp\":{\"0\":\"0202" + hh + "0101\"}}}";
  }
  return text + "]";
}

const cli::Command& ApplyCommand() {
  for (const cli::Command& c : cli::Commands())
    if (c.name == "apply") return c;
  throw std::logic_error("apply is not linked in");
}

// Argument: 1 for --dry-run.
void BM_Apply(benchmark::State& state) {
  const bench::DemoSettings settings;
  const std::string& rom = World().rom->path();
  const bench::TempRom patch_a(std::vector<std::uint8_t>{}), patch_b(std::vector<std::uint8_t>{});
  // A dry run leaves the ROM as it is: a third value, which no real run writes, changes it each time.
  const bool dry_run = state.range(0) == 1;
  for (const auto& [file, value] : {std::pair{&patch_a, dry_run ? 0x63 : 0x21}, std::pair{&patch_b, dry_run ? 0x63 : 0x42}}) {
    const std::string text = PatchText(value);
    WriteRegionsSafely(file->path(), {FileRegion{0, {text.begin(), text.end()}}});
  }
  bool a = true;
  std::size_t runs_text = 0;
  for (auto _ : state) {
    std::vector<std::string> args = {rom, (a ? patch_a : patch_b).path()};
    if (dry_run) args.push_back("--dry-run");
    std::ostringstream out, errors;
    if (ApplyCommand().run(cli::CommandContext{args, settings, out, errors}) != 0)
      state.SkipWithError(("apply failed: " + errors.str()).c_str());
    runs_text = out.str().size();
    a = !a;
  }
  state.counters["maps"] = static_cast<double>(World().patched.size());
  state.counters["output_bytes"] = static_cast<double>(runs_text);
}
BENCHMARK(BM_Apply)->ArgName("dry_run")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

// The safe writes a real run makes, alone: 51 one-byte writes into a 2 MiB file.
void BM_SafeWrites(benchmark::State& state) {
  const bench::TempRom rom(std::vector<std::uint8_t>(kDefaultImageSize, 0));
  std::uint8_t b = 0;
  for (auto _ : state)
    for (int i = 0; i <= kPatchedMaps; ++i) WriteRegionsSafely(rom.path(), {FileRegion{0x1000, {++b}}});
}
BENCHMARK(BM_SafeWrites)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace kartova
