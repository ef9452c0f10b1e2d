#pragma once

#include <array>
#include <cstdint>

#include "demo/TileCanvas.h"

// The demo's three tilesets, drawn in code: the tiles, their palettes and the blocks the maps
// are made of. Block numbers are those of the tileset's block data.
namespace kartova::demo {

using BlockTiles = std::array<std::uint8_t, 16>;

// Tiles for a terrain that is drawn with edges where it meets another one (a path in grass,
// water with a beach): edges and corners in the order north, south, west, east and
// north-west, north-east, south-west, south-east.
struct AutoTiles {
  std::array<int, 2> centre{};
  std::array<int, 4> edge{};
  std::array<int, 4> outer{};  // the terrain's own corner
  std::array<int, 4> inner{};  // a corner of the other terrain reaching in
};

// Which neighbours of a block belong to the same terrain.
struct Neighbours {
  bool n = true, s = true, w = true, e = true;
  bool nw = true, ne = true, sw = true, se = true;
};
BlockTiles AutoBlock(const AutoTiles& tiles, const Neighbours& same, int variant);

struct OutdoorTiles {
  TilesetArt art;
  AutoTiles path, water;
  int grass = 0, grass_tufts = 0, tall_grass = 0, flowers = 0, trees = 0, sand = 0;
  int water_block = 0, sign = 0, rock = 0, fence = 0, pier = 0, cliff = 0, cave_mouth = 0;
  // Houses row by row; the door is at tile columns 0-1, rows 2-3 of the door block.
  std::array<int, 4> small_house{};  // 2 x 2 blocks, door in block 3
  std::array<int, 6> big_house{};    // 3 x 2 blocks, door in block 4
};
OutdoorTiles MakeOutdoorTiles();
// Draws a house 2 or 3 blocks wide and adds its blocks, row by row, to `out`.
void AddHouseParts(TilesetArt& art, int blocks_wide, std::array<int, 6>& out);

struct IndoorTiles {
  TilesetArt art;
  int floor = 0, wall = 0, wall_window = 0, wall_shelf = 0, wall_picture = 0, outside = 0;
  int table = 0, bed = 0, plant = 0, rug = 0, stairs = 0, counter = 0, shop_shelf = 0;
  // The door mat: the exit lies at tile columns 0-1, rows 2-3 of this block.
  int exit = 0;
};
IndoorTiles MakeIndoorTiles();

struct CaveTiles {
  TilesetArt art;
  int floor = 0, floor_pebbles = 0, moss = 0, rock = 0, wall_face = 0, boulder = 0;
  int crystals = 0, pool = 0, ladder_down = 0, ladder_up = 0, exit = 0;
};
CaveTiles MakeCaveTiles();

}  // namespace kartova::demo
