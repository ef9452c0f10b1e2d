// Figures of the graphics core: composing the blocks of a tileset, reusing and copying the map
// view's buffer, and the whole tileset stage with the bordered grid of a large map, headers
// included, as a map load runs them.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "BenchSupport.h"

#include "demo/RomBuilder.h"
#include "gfx/BlockSet.h"
#include "gfx/ExtendedMap.h"
#include "gfx/Palettes.h"
#include "gfx/TilesetLoader.h"
#include "gfx/ViewBuffer.h"
#include "rom/RomFile.h"

namespace kartova {
namespace {

using bench::RandomBytes;
using bench::TempRom;

struct Tiles {
  TileSheet sheet;
  TileSheetWide wide;
  BlockData data{};
  BlockSet blocks;

  Tiles() {
    GraphicsBuffer buffer{};
    PaletteMap map{};
    const auto bytes = RandomBytes(buffer.size() + map.size() + data.size(), 1);
    std::copy_n(bytes.begin(), buffer.size(), buffer.begin());
    std::copy_n(bytes.begin() + buffer.size(), map.size(), map.begin());
    std::copy_n(bytes.begin() + buffer.size() + map.size(), data.size(), data.begin());
    DecodeTiles(buffer, 3584, map, sheet, wide);
    ComposeBlocks(data, sheet, wide, blocks);
  }
};

ExtendedMap RandomGrid(int width, int height) {
  ExtendedMap grid;
  grid.Reset(width, height, 0);
  const auto bytes = RandomBytes(static_cast<std::size_t>(grid.Width() * grid.Height()), 2);
  for (int y = 0; y < grid.Height(); ++y) {
    for (int x = 0; x < grid.Width(); ++x) grid.Set(x, y, bytes[y * grid.Width() + x]);
  }
  return grid;
}

void BM_ComposeBlocks(benchmark::State& state) {
  Tiles t;
  for (auto _ : state) {
    ComposeBlocks(t.data, t.sheet, t.wide, t.blocks);
    benchmark::DoNotOptimize(t.blocks.StripRow(0));
  }
}
BENCHMARK(BM_ComposeBlocks)->Unit(benchmark::kMicrosecond);

// At 1920 × 1080 and zoom 2 the buffer has 8 lines of vertical slack (and none horizontally).
void BM_ViewScrollInsideTheSlack(benchmark::State& state) {
  Tiles t;
  const ExtendedMap grid = RandomGrid(100, 100);
  ViewBuffer view;
  view.Render(grid, t.blocks, {640, 448, 1920, 1080, 2});
  int v = 0;
  std::int64_t rebuilds = 0;
  for (auto _ : state) {
    v = (v + 1) % 9;
    rebuilds += view.Render(grid, t.blocks, {640, 448 + v, 1920, 1080, 2});
  }
  state.counters["rebuilds"] = static_cast<double>(rebuilds);
}
BENCHMARK(BM_ViewScrollInsideTheSlack);

void BM_ViewCopyVisible1920x1080(benchmark::State& state) {
  Tiles t;
  const ExtendedMap grid = RandomGrid(100, 100);
  ViewBuffer view;
  view.Render(grid, t.blocks, {640, 448, 1920, 1080, 2});
  IndexedImage out;
  for (auto _ : state) {
    view.CopyVisible(out);
    benchmark::DoNotOptimize(out.pixels.data());
  }
}
BENCHMARK(BM_ViewCopyVisible1920x1080)->Unit(benchmark::kMicrosecond);

// The headers, the tileset stage and the grid of a 100 × 100 map with four neighbours.
void BM_MapLoadGraphicsStages(benchmark::State& state) {
  TilesetDecl tileset;
  tileset.graphics = RandomBytes(96 * 16, 4);
  tileset.blocks = RandomBytes(4096, 5);
  MapDecl big{.width = 100, .height = 100, .blocks = RandomBytes(100 * 100, 6)};
  for (Direction d : {Direction::kNorth, Direction::kSouth, Direction::kWest, Direction::kEast})
    big.connections.push_back({.direction = d, .target = {1, 2}, .offset = 0});
  RomBuilder builder;
  builder.Tileset(0, tileset).Map(1, big).Map(1, {.width = 100, .height = 100});
  const BuiltRom built = builder.BuildWithLayout();
  const MapLayout& layout = built.layout.Map(1, 1);
  TempRom rom(built.bytes);
  TilesetGraphics graphics;
  ExtendedMap grid;
  for (auto _ : state) {
    RomFile file = RomFile::OpenForRead(rom.path());
    TilesetRequest request;
    file.Seek(layout.primary_header);
    file.ReadBytes(request.primary.data(), request.primary.size());
    std::array<std::uint8_t, 60> secondary{};
    file.Seek(layout.secondary_header);
    file.ReadBytes(secondary.data(), secondary.size());
    LoadTilesetGraphics(file, request, graphics);
    BuildExtendedMap(file, secondary, 9, grid);
    file.Close();
  }
}
BENCHMARK(BM_MapLoadGraphicsStages)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kartova
