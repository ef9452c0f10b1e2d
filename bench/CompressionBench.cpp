// Graphics compression figures: decompressing one 4096-byte tileset (from memory and from the
// ROM file, opened per call as a map load does) and compressing it.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "gfx/GraphicsCompressor.h"
#include "gfx/GraphicsDecompressor.h"
#include "rom/RomFile.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Tile = std::array<std::uint8_t, 16>;  // 8 rows of two bit planes

Tile SolidTile(int colour) {
  Tile t{};
  for (int row = 0; row < 8; ++row) {
    t[row * 2] = colour & 1 ? 0xFF : 0x00;
    t[row * 2 + 1] = colour & 2 ? 0xFF : 0x00;
  }
  return t;
}

// A few stray pixels of other colours on a plain ground, like grass or sand.
Tile SpeckledTile(std::mt19937& rng) {
  Tile t = SolidTile(static_cast<int>(rng() % 2));
  for (int n = static_cast<int>(rng() % 6); n > 0; --n) {
    const int row = static_cast<int>(rng() % 8);
    const auto bit = static_cast<std::uint8_t>(0x80 >> (rng() % 8));
    t[row * 2] ^= bit;
    if (rng() % 2) t[row * 2 + 1] |= bit;
  }
  return t;
}

// Two alternating rows, like bricks, fences or water.
Tile PatternTile(std::mt19937& rng) {
  Tile t{};
  const auto a = static_cast<std::uint8_t>(rng()), b = static_cast<std::uint8_t>(rng());
  const auto c = static_cast<std::uint8_t>(rng()), d = static_cast<std::uint8_t>(rng());
  for (int row = 0; row < 8; ++row) {
    t[row * 2] = row % 2 ? a : c;
    t[row * 2 + 1] = row % 2 ? b : d;
  }
  return t;
}

// Letters and outlines: one shade, so both planes carry the same byte.
Tile GlyphTile(std::mt19937& rng) {
  Tile t{};
  for (int row = 1; row < 7; ++row) {
    t[row * 2] = t[row * 2 + 1] = static_cast<std::uint8_t>(rng() & 0x7E);
  }
  return t;
}

Tile DetailTile(std::mt19937& rng) {
  Tile t{};
  for (auto& b : t) b = static_cast<std::uint8_t>(rng());
  return t;
}

Tile MirroredTile(const Tile& from) {
  Tile t{};
  for (std::size_t k = 0; k < t.size(); ++k) t[k] = ReverseBits(from[k]);
  return t;
}

// 256 tiles of the kinds a tileset holds, with the duplicates and mirrored halves of
// buildings, trees and signs that make such data compress.
Bytes MakeTileset() {
  std::mt19937 rng(0x6BC);
  std::vector<Tile> tiles = {SolidTile(0), SolidTile(1), SolidTile(2), SolidTile(3)};
  while (tiles.size() < 256) {
    const unsigned kind = rng() % 10;
    if (kind < 2) {
      tiles.push_back(SpeckledTile(rng));
    } else if (kind < 4) {
      tiles.push_back(PatternTile(rng));
    } else if (kind < 5) {
      tiles.push_back(GlyphTile(rng));
    } else if (kind < 7) {
      tiles.push_back(DetailTile(rng));
    } else if (kind < 9) {
      tiles.push_back(MirroredTile(tiles[rng() % tiles.size()]));
    } else {
      tiles.push_back(tiles[rng() % tiles.size()]);
    }
  }
  Bytes data;
  for (const Tile& t : tiles) data.insert(data.end(), t.begin(), t.end());
  return data;
}

void BM_DecompressTilesetFromMemory(benchmark::State& state) {
  const Bytes stream = CompressGraphics(MakeTileset());
  GraphicsBuffer buffer{};
  for (auto _ : state) {
    benchmark::DoNotOptimize(DecompressGraphics(stream, buffer));
    benchmark::ClobberMemory();
  }
  state.counters["stream_bytes"] = static_cast<double>(stream.size());
}
BENCHMARK(BM_DecompressTilesetFromMemory);

void BM_DecompressTilesetFromRomFile(benchmark::State& state) {
  const Bytes stream = CompressGraphics(MakeTileset());
  Bytes rom(0x20000, 0xFF);
  std::copy(stream.begin(), stream.end(), rom.begin() + 0x1A3F0);
  const bench::TempRom file_on_disk(rom);
  GraphicsBuffer buffer{};
  for (auto _ : state) {
    RomFile file = RomFile::OpenForRead(file_on_disk.path());
    benchmark::DoNotOptimize(DecompressGraphics(file, 0x1A3F0, buffer));
    file.Close();
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_DecompressTilesetFromRomFile);

void BM_CompressTileset(benchmark::State& state) {
  const Bytes tileset = MakeTileset();
  std::size_t size = 0;
  for (auto _ : state) {
    Bytes stream = CompressGraphics(tileset);
    size = stream.size();
    benchmark::DoNotOptimize(stream.data());
  }
  state.counters["stream_bytes"] = static_cast<double>(size);
}
BENCHMARK(BM_CompressTileset)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kartova
