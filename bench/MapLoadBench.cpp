// A full map load of the demo's largest map through the document (headers, tileset, blocks,
// bordered grid), a full view-buffer rebuild of a 1920 x 1080 view at zoom 2 from the
// document's grid, and a lighting change.

#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "demo/DemoWorld.h"
#include "gfx/ViewBuffer.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

// Nord Hafen-Stadt, 30 x 20 blocks, the largest demo map.
constexpr int kBank = demo::kHafen.bank - 1;
constexpr int kMap = demo::kHafen.number - 1;

RomDocument& LoadedDocument() {
  static RomDocument doc;
  static const bool loaded = [] {
    doc.OpenRom(bench::DemoRomPath(), bench::DemoSettings());
    doc.LoadSelectedMap(kBank, kMap);
    return true;
  }();
  (void)loaded;
  return doc;
}

void BM_FullMapLoad(benchmark::State& state) {
  RomDocument& doc = LoadedDocument();
  for (auto _ : state) {
    doc.LoadSelectedMap(kBank, kMap);
    benchmark::DoNotOptimize(doc.Grid().Row(0));
  }
  state.counters["system_reads"] = doc.LastSystemReads();
}
BENCHMARK(BM_FullMapLoad)->Unit(benchmark::kMicrosecond);

void BM_ViewBufferRebuild1920x1080Zoom2(benchmark::State& state) {
  const RomDocument& doc = LoadedDocument();
  ViewBuffer buffer;
  const ViewBuffer::View view{
      .scroll_x = 40, .scroll_y = 40, .picture_width = 1920, .picture_height = 1080, .zoom = 2};
  for (auto _ : state) {
    buffer.Invalidate();
    buffer.Render(doc.Grid(), doc.Blocks(), view);
    benchmark::DoNotOptimize(buffer.Image().pixels.data());
  }
  state.counters["pixels"] = static_cast<double>(buffer.Image().pixels.size());
}
BENCHMARK(BM_ViewBufferRebuild1920x1080Zoom2)->Unit(benchmark::kMicrosecond);

void BM_LightingChange(benchmark::State& state) {
  RomDocument& doc = LoadedDocument();
  int time = 0;
  for (auto _ : state) {
    time = (time + 1) % 8;
    doc.SetTimeOfDay(time, kBank);
    benchmark::DoNotOptimize(doc.Colours());
  }
  state.counters["system_reads"] = doc.LastSystemReads();
}
BENCHMARK(BM_LightingChange)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kartova
