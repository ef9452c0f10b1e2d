// Saving the largest demo map into its 2 MiB ROM, and undoing a paint stroke: the two things a
// user waits for after pressing a key. The save is measured whole (safe write with its flush
// and rename) and without the file system (plan and new image only), so that the difference
// shows what the disk costs.

#include <benchmark/benchmark.h>

#include "BenchSupport.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

using bench::DemoSettings;
using bench::TempRom;

// Map 2.1, the harbour town: 30 x 20 blocks, the demo's largest.
constexpr int kBank = 1;
constexpr int kMap = 0;

void LoadLargestMap(RomDocument& doc, const std::string& path, const DemoSettings& settings) {
  doc.OpenRom(path, settings);
  doc.LoadSelectedMap(kBank, kMap);
}

void BM_SaveFull(benchmark::State& state) {
  const DemoSettings settings;
  const TempRom rom(BuildDemoRom());
  RomDocument doc;
  LoadLargestMap(doc, rom.path(), settings);
  std::uint8_t block = 0;
  for (auto _ : state) {
    // A real edit each time, so that every save has something new to write.
    doc.PaintCell(ExtendedMap::kMargin, ExtendedMap::kMargin, ++block);
    doc.SaveRom(kReloadFull);
  }
  state.counters["file_bytes"] = static_cast<double>(ReadWholeFile(rom.path()).size());
}
BENCHMARK(BM_SaveFull)->Unit(benchmark::kMillisecond);

// Everything of a full save but the temporary file, its flush and the rename.
void BM_SavePlanAndImage(benchmark::State& state) {
  const DemoSettings settings;
  const TempRom rom(BuildDemoRom());
  RomDocument doc;
  LoadLargestMap(doc, rom.path(), settings);
  std::size_t region_bytes = 0;
  for (auto _ : state) {
    const SavePlan plan = doc.SaveRegions(kReloadFull);
    std::vector<std::uint8_t> image = ReadWholeFile(rom.path());
    ApplyRegions(image, plan.regions);
    benchmark::DoNotOptimize(image.data());
    region_bytes = 0;
    for (const FileRegion& region : plan.regions) region_bytes += region.bytes.size();
  }
  state.counters["region_bytes"] = static_cast<double>(region_bytes);
}
BENCHMARK(BM_SavePlanAndImage)->Unit(benchmark::kMillisecond);

// One undo and one redo of a 200-cell stroke per iteration.
void BM_UndoRedoStroke(benchmark::State& state) {
  const DemoSettings settings;
  RomDocument doc;
  LoadLargestMap(doc, bench::DemoRomPath(), settings);
  doc.BeginStroke();
  for (int i = 0; i < 200; ++i)
    doc.PaintCell(ExtendedMap::kMargin + i % 30, ExtendedMap::kMargin + i / 30, static_cast<std::uint8_t>(i));
  doc.EndStroke();
  std::size_t cells = 0;
  for (auto _ : state) {
    cells = doc.Undo().cells.size();
    benchmark::DoNotOptimize(doc.Redo().cells.data());
  }
  state.counters["cells"] = static_cast<double>(cells);
}
BENCHMARK(BM_UndoRedoStroke)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kartova
