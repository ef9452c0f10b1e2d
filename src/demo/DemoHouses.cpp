#include "demo/DemoTiles.h"

// Houses of the outdoor tileset: a roof in palette 6 (its colours change with the map bank)
// over a wall in palette 4, each house 2 blocks high and 2 or 3 blocks wide, the door at house
// tile columns 4-5 in the bottom row, so that it fills one event cell.
namespace kartova::demo {
namespace {

constexpr int kRoofPal = 6;
constexpr int kWallPal = 4;

PixelCanvas Roof(int width) {
  PixelCanvas c(width, 32, 1);
  for (int y = 2; y < 29; ++y) {
    for (int x = 0; x < width; ++x) {
      const int row = y / 4;
      const bool seam = (x + (row % 2) * 4) % 8 == 0 && y % 4 != 3;
      if (y % 4 == 3 || seam) c.Set(x, y, 2);
      else if (y % 4 == 0 && x % 8 == 3 + (row % 2) * 4 % 8) c.Set(x, y, 0);
    }
  }
  c.HLine(0, 0, width, 3);
  c.HLine(0, 1, width, 0);
  c.HLine(0, 2, width, 2);
  c.HLine(0, 29, width, 2);
  c.HLine(0, 30, width, 0);
  c.HLine(0, 31, width, 3);
  for (int y = 0; y < 32; ++y) {
    c.Set(0, y, 3);
    c.Set(width - 1, y, 3);
    if (y > 0 && y < 31) c.Set(width - 2, y, 2);
  }
  // Chimney near the right end.
  const int cx = width - 14;
  c.FillRect(cx, 3, 6, 9, 2);
  c.FillRect(cx + 1, 4, 2, 7, 0);
  c.VLine(cx, 3, 9, 3);
  c.VLine(cx + 5, 3, 9, 3);
  c.HLine(cx - 1, 2, 8, 3);
  c.HLine(cx, 12, 6, 3);
  return c;
}

void Window(PixelCanvas& c, int x, int y) {
  c.FillRect(x, y, 14, 11, 3);
  c.FillRect(x + 1, y + 1, 12, 8, 0);
  c.FillRect(x + 2, y + 5, 4, 3, 2 - 1);
  c.FillRect(x + 8, y + 5, 4, 3, 2 - 1);
  c.VLine(x + 7, y + 1, 8, 3);
  c.HLine(x + 1, y + 5, 12, 3);
  c.HLine(x - 1, y + 10, 16, 2);
}

void Door(PixelCanvas& c, int x) {
  c.FillRect(x + 1, 13, 14, 19, 3);
  c.FillRect(x + 2, 14, 12, 18, 2);
  c.VLine(x + 7, 15, 17, 3);
  c.FillRect(x + 3, 16, 3, 5, 1);
  c.FillRect(x + 10, 16, 3, 5, 1);
  c.Set(x + 6, 24, 0);
  c.Set(x + 9, 24, 0);
  c.HLine(x + 1, 31, 14, 0);
}

PixelCanvas Wall(int width) {
  PixelCanvas c(width, 32, 1);
  for (int y = 4; y < 30; y += 5) {
    for (int x = 1; x < width - 1; x += 2) c.Set(x, y, 2);
  }
  c.HLine(0, 0, width, 3);
  c.HLine(0, 1, width, 2);
  c.HLine(0, 2, width, 2);
  c.HLine(0, 30, width, 2);
  c.HLine(0, 31, width, 3);
  c.VLine(0, 0, 32, 3);
  c.VLine(width - 1, 0, 32, 3);
  c.VLine(width - 2, 3, 27, 2);
  Window(c, 9, 8);
  if (width > 64) Window(c, 73, 8);
  Door(c, 32);
  return c;
}

}  // namespace

void AddHouseParts(TilesetArt& art, int blocks_wide, std::array<int, 6>& out) {
  const int width = blocks_wide * 32;
  const std::vector<int> roof = art.AddTiles(Roof(width), kRoofPal);
  const std::vector<int> wall = art.AddTiles(Wall(width), kWallPal);
  const int tiles_wide = blocks_wide * 4;
  for (int by = 0; by < 2; ++by) {
    const std::vector<int>& part = by == 0 ? roof : wall;
    for (int bx = 0; bx < blocks_wide; ++bx) {
      BlockTiles b{};
      for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) {
          b[static_cast<std::size_t>(y * 4 + x)] = static_cast<std::uint8_t>(
              part[static_cast<std::size_t>(y * tiles_wide + bx * 4 + x)]);
        }
      }
      out[static_cast<std::size_t>(by * blocks_wide + bx)] = art.AddBlock(b);
    }
  }
}

}  // namespace kartova::demo
