// The core part of placing a block with the mouse on the demo's largest map: the document's
// PaintCell inside an open stroke and the patch of that one block into the cached view buffer.
// The widget part (mouse event, status texts, the picture's conversion of the square) is
// measured by kartova_ui_bench.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "BenchSupport.h"
#include "demo/DemoWorld.h"
#include "gfx/MapEditing.h"
#include "gfx/ViewBuffer.h"
#include "maps/RomDocument.h"

namespace kartova {
namespace {

// Nord Hafen-Stadt, 30 x 20 blocks.
constexpr int kBank = demo::kHafen.bank - 1;
constexpr int kMap = demo::kHafen.number - 1;

// The cells of the map row after row, every other row backwards, as a drag across it goes.
std::vector<MapCell> SerpentineCells(const ExtendedMap& grid) {
  std::vector<MapCell> cells;
  for (int r = 0; r < grid.MapHeight(); ++r) {
    for (int c = 0; c < grid.MapWidth(); ++c) {
      const int column = r % 2 == 0 ? c : grid.MapWidth() - 1 - c;
      cells.push_back({ExtendedMap::kMargin + column, ExtendedMap::kMargin + r});
    }
  }
  return cells;
}

// state.range(0) is the map view's zoom.
void BM_PlaceBlockInStroke(benchmark::State& state) {
  RomDocument doc;
  doc.OpenRom(bench::DemoRomPath(), bench::DemoSettings());
  doc.LoadSelectedMap(kBank, kMap);
  const int zoom = static_cast<int>(state.range(0));
  ViewBuffer view;
  view.Render(doc.Grid(), doc.Blocks(), {0, 0, 1920, 1080, zoom});
  const std::vector<MapCell> cells = SerpentineCells(doc.Grid());
  std::size_t next = 0;
  std::uint8_t block = 1;
  std::int64_t changed = 0;
  doc.BeginStroke();
  for (auto _ : state) {
    const MapCell cell = cells[next];
    changed += doc.PaintCell(cell.x, cell.y, block);
    view.PatchBlock(doc.Grid(), doc.Blocks(), cell.x, cell.y);
    benchmark::DoNotOptimize(view.Image().pixels.data());
    // Each pass paints with another block, so that every placement changes its cell.
    if (++next == cells.size()) {
      next = 0;
      block = static_cast<std::uint8_t>(block == 1 ? 2 : 1);
    }
  }
  doc.EndStroke();
  state.counters["changed"] = benchmark::Counter(static_cast<double>(changed) / static_cast<double>(state.iterations()));
}
BENCHMARK(BM_PlaceBlockInStroke)->Arg(1)->Arg(2);

}  // namespace
}  // namespace kartova
