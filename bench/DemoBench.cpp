#include <benchmark/benchmark.h>

#include "demo/DemoRom.h"

namespace {

// The whole demo: drawing the tiles, painting the maps, laying out and compressing.
void BM_BuildDemoRom(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<std::uint8_t> rom = kartova::BuildDemoRom();
    benchmark::DoNotOptimize(rom.data());
  }
}
BENCHMARK(BM_BuildDemoRom)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace
