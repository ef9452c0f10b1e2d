// Opening the demo ROM (definition, map bank table, map counts, location names) and loading one
// map's headers, both through the file on disk as the editor does them.

#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

using bench::DemoRomPath;
using bench::DemoSettings;

void BM_OpenRom(benchmark::State& state) {
  const DemoSettings settings;
  const std::string& path = DemoRomPath();
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
  doc.OpenRom(DemoRomPath(), settings);
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
