#include <string>

#include "demo/DemoWorld.h"

namespace kartova::demo {
namespace {

char At(const MapRows& rows, int x, int y) {
  // Beyond the map edge the terrain runs on, so paths and water reach into the neighbours.
  const int h = static_cast<int>(rows.size());
  const int w = static_cast<int>(rows[0].size());
  x = x < 0 ? 0 : (x >= w ? w - 1 : x);
  y = y < 0 ? 0 : (y >= h ? h - 1 : y);
  return rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
}

template <typename Same>
Neighbours NeighboursOf(const MapRows& rows, int x, int y, Same same) {
  return {same(At(rows, x, y - 1)), same(At(rows, x, y + 1)), same(At(rows, x - 1, y)),
          same(At(rows, x + 1, y)), same(At(rows, x - 1, y - 1)), same(At(rows, x + 1, y - 1)),
          same(At(rows, x - 1, y + 1)), same(At(rows, x + 1, y + 1))};
}

void CheckRows(const MapRows& rows) {
  if (rows.empty()) throw RomBuildError("demo map: no rows");
  for (std::string_view r : rows) {
    if (r.size() != rows[0].size()) {
      throw RomBuildError("demo map: row \"" + std::string(r) + "\" has another width");
    }
  }
}

std::uint8_t Unknown(char c) {
  throw RomBuildError(std::string("demo map: unknown block character '") + c + "'");
}

template <typename Paint>
std::vector<std::uint8_t> PaintEach(const MapRows& rows, Paint paint) {
  CheckRows(rows);
  const int w = static_cast<int>(rows[0].size());
  const int h = static_cast<int>(rows.size());
  std::vector<std::uint8_t> blocks(static_cast<std::size_t>(w * h));
  for (int y = 0; y < h; ++y) {
    for (int x = 0; x < w; ++x) {
      blocks[static_cast<std::size_t>(y * w + x)] = paint(At(rows, x, y), x, y);
    }
  }
  return blocks;
}

// Houses are drawn at their top left block; the blocks marked 'x' are filled from there.
void StampHouses(const MapRows& rows, const OutdoorTiles& tiles, std::vector<std::uint8_t>& blocks) {
  const int w = static_cast<int>(rows[0].size());
  for (char kind : {'h', 'H'}) {
    const int width = kind == 'h' ? 2 : 3;
    for (auto [x, y] : FindBlocks(rows, kind)) {
      for (int dy = 0; dy < 2; ++dy) {
        for (int dx = 0; dx < width; ++dx) {
          const std::size_t part = static_cast<std::size_t>(dy * width + dx);
          const int block = kind == 'h' ? tiles.small_house[part] : tiles.big_house[part];
          blocks[static_cast<std::size_t>((y + dy) * w + x + dx)] = static_cast<std::uint8_t>(block);
        }
      }
    }
  }
}

}  // namespace

std::vector<std::pair<int, int>> FindBlocks(const MapRows& rows, char c) {
  std::vector<std::pair<int, int>> found;
  for (std::size_t y = 0; y < rows.size(); ++y) {
    for (std::size_t x = 0; x < rows[y].size(); ++x) {
      if (rows[y][x] == c) found.emplace_back(static_cast<int>(x), static_cast<int>(y));
    }
  }
  return found;
}

std::pair<std::uint8_t, std::uint8_t> EventCell(std::pair<int, int> block) {
  return {static_cast<std::uint8_t>(block.first * 2), static_cast<std::uint8_t>(block.second * 2 + 1)};
}

// '.' grass, ',' grass with tufts, 'g' tall grass, '*' flowers, 'T' trees, '#' path, 's' sand,
// '~' water, '=' pier, 'S' sign, 'R' rock, 'F' fence, 'C' cliff, 'M' cave mouth,
// 'h' / 'H' small / big house (top left block), 'x' the rest of a house.
std::vector<std::uint8_t> PaintOutdoor(OutdoorTiles& tiles, const MapRows& rows) {
  auto is_water = [](char c) { return c == '~' || c == '='; };
  auto path_meets = [&](char c) {
    return c == '#' || c == 's' || c == 'M' || is_water(c) || c == 'h' || c == 'H' || c == 'x';
  };
  auto blocks = PaintEach(rows, [&](char c, int x, int y) -> std::uint8_t {
    switch (c) {
      case '.': return static_cast<std::uint8_t>(tiles.grass);
      case ',': return static_cast<std::uint8_t>(tiles.grass_tufts);
      case 'g': return static_cast<std::uint8_t>(tiles.tall_grass);
      case '*': return static_cast<std::uint8_t>(tiles.flowers);
      case 'T': return static_cast<std::uint8_t>(tiles.trees);
      case 'S': return static_cast<std::uint8_t>(tiles.sign);
      case 'R': return static_cast<std::uint8_t>(tiles.rock);
      case 'F': return static_cast<std::uint8_t>(tiles.fence);
      case '=': return static_cast<std::uint8_t>(tiles.pier);
      case 'C': return static_cast<std::uint8_t>(tiles.cliff);
      case 'M': return static_cast<std::uint8_t>(tiles.cave_mouth);
      case 'h': case 'H': case 'x': return 0;  // stamped below
      case '#': case 's':
        return static_cast<std::uint8_t>(
            tiles.art.AddBlock(AutoBlock(tiles.path, NeighboursOf(rows, x, y, path_meets), x + y)));
      case '~':
        return static_cast<std::uint8_t>(
            tiles.art.AddBlock(AutoBlock(tiles.water, NeighboursOf(rows, x, y, is_water), x + y)));
      default: return Unknown(c);
    }
  });
  StampHouses(rows, tiles, blocks);
  return blocks;
}

// ' ' outside the room, 'W' wall, 'w' wall with window, 'P' wall with picture, 'B' wall with
// bookshelf, '.' floor, 't' table, 'b' bed, 'p' plant, 'r' rug, 'z' stairs, 'c' counter,
// 'k' shop shelf, 'e' exit mat.
std::vector<std::uint8_t> PaintIndoor(const IndoorTiles& tiles, const MapRows& rows) {
  return PaintEach(rows, [&](char c, int, int) -> std::uint8_t {
    switch (c) {
      case ' ': return static_cast<std::uint8_t>(tiles.outside);
      case 'W': return static_cast<std::uint8_t>(tiles.wall);
      case 'w': return static_cast<std::uint8_t>(tiles.wall_window);
      case 'P': return static_cast<std::uint8_t>(tiles.wall_picture);
      case 'B': return static_cast<std::uint8_t>(tiles.wall_shelf);
      case '.': return static_cast<std::uint8_t>(tiles.floor);
      case 't': return static_cast<std::uint8_t>(tiles.table);
      case 'b': return static_cast<std::uint8_t>(tiles.bed);
      case 'p': return static_cast<std::uint8_t>(tiles.plant);
      case 'r': return static_cast<std::uint8_t>(tiles.rug);
      case 'z': return static_cast<std::uint8_t>(tiles.stairs);
      case 'c': return static_cast<std::uint8_t>(tiles.counter);
      case 'k': return static_cast<std::uint8_t>(tiles.shop_shelf);
      case 'e': return static_cast<std::uint8_t>(tiles.exit);
      default: return Unknown(c);
    }
  });
}

// '#' rock (a wall face where open floor lies below), '.' floor, ',' pebbles, 'm' moss,
// 'o' boulder, '*' crystals, '~' pool, 'D' ladder down, 'U' ladder up, 'E' exit.
std::vector<std::uint8_t> PaintCave(const CaveTiles& tiles, const MapRows& rows) {
  const int h = static_cast<int>(rows.size());
  return PaintEach(rows, [&](char c, int x, int y) -> std::uint8_t {
    switch (c) {
      case '#': {
        const char below = At(rows, x, y + 1);
        const bool face = y + 1 < h && below != '#' && below != '*';
        return static_cast<std::uint8_t>(face ? tiles.wall_face : tiles.rock);
      }
      case '.': return static_cast<std::uint8_t>(tiles.floor);
      case ',': return static_cast<std::uint8_t>(tiles.floor_pebbles);
      case 'm': return static_cast<std::uint8_t>(tiles.moss);
      case 'o': return static_cast<std::uint8_t>(tiles.boulder);
      case '*': return static_cast<std::uint8_t>(tiles.crystals);
      case '~': return static_cast<std::uint8_t>(tiles.pool);
      case 'D': return static_cast<std::uint8_t>(tiles.ladder_down);
      case 'U': return static_cast<std::uint8_t>(tiles.ladder_up);
      case 'E': return static_cast<std::uint8_t>(tiles.exit);
      default: return Unknown(c);
    }
  });
}

}  // namespace kartova::demo
