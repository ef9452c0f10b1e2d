#include "demo/DemoTiles.h"

// Palette use of the indoor tileset (see DemoPalettes.cpp): 0 wooden floor and furniture,
// 1 wallpaper, 2 rugs, 3 windows and pictures, 4 plants, 5 books, 6 beds (their colour changes
// with the map bank), 7 stairs and the dark outside of the room.
namespace kartova::demo {
namespace {

enum Palette { kWood, kWallPal, kRugPal, kGlassPal, kPlantPal, kBookPal, kBedPal, kMetalPal };

PixelCanvas Floor(int width, int height) {
  PixelCanvas c(width, height, 1);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int board = y / 4;
      if (y % 4 == 3) c.Set(x, y, 2);
      else if ((x + board * 5) % 16 == 3) c.Set(x, y, 2);
      else if (y % 4 == 0 && (x + board * 3) % 7 == 0) c.Set(x, y, 0);
    }
  }
  return c;
}

PixelCanvas Wall() {
  PixelCanvas c(32, 32, 1);
  for (int y = 4; y < 27; ++y) {
    for (int x = 0; x < 32; x += 4) c.Set(x + 1, y, 2);
  }
  for (int y = 6; y < 27; y += 6) {
    for (int x = 3; x < 32; x += 4) c.Set(x, y, 0);
  }
  c.HLine(0, 0, 32, 3);
  c.HLine(0, 1, 32, 2);
  c.HLine(0, 2, 32, 0);
  c.HLine(0, 27, 32, 0);
  c.FillRect(0, 28, 32, 3, 2);
  c.HLine(0, 31, 32, 3);
  return c;
}

PixelCanvas Window() {
  PixelCanvas c = PixelCanvas::FromRows({
      "3333333333333333",
      "3000000330000003",
      "3022222330222203",
      "3020222330202223",
      "3022022330220223",
      "3022202330222023",
      "3022220330222203",
      "3333333333333333",
      "3000000330000003",
      "3022222330222223",
      "3022222330202223",
      "3022222330220223",
      "3022222330222223",
      "3022222330222223",
      "3333333333333333",
      "0000000000000000",
  });
  return c;
}

PixelCanvas Picture() {
  return PixelCanvas::FromRows({
      "3333333333333333",
      "3000000000000003",
      "3022222222222203",
      "3022222222222203",
      "3022222202222203",
      "3022222000222203",
      "3022220000022203",
      "3022200000002203",
      "3022000000000203",
      "3020000000000003",
      "3000000000000003",
      "3000000000000003",
      "3000000000000003",
      "3000000000000003",
      "3000000000000003",
      "3333333333333333",
  });
}

PixelCanvas Shelf(int width) {
  PixelCanvas c(width, 24, 0);
  for (int shelf = 0; shelf < 3; ++shelf) {
    const int top = shelf * 8;
    for (int x = 2; x < width - 2; ++x) {
      const int book = (x + shelf * 3) / 2;
      const std::uint8_t colour = book % 3 == 0 ? 1 : (book % 3 == 1 ? 2 : 0);
      const int height = 4 + (book * 7) % 3;
      for (int y = top + 7 - height; y < top + 7; ++y) c.Set(x, y, colour);
      if (x % 2 == 0) c.VLine(x, top + 7 - height, height, 3);
    }
    c.HLine(0, top + 7, width, 3);
  }
  c.VLine(0, 0, 24, 3);
  c.VLine(1, 0, 24, 0);
  c.VLine(width - 1, 0, 24, 3);
  c.HLine(0, 0, width, 3);
  return c;
}

PixelCanvas Table() {
  PixelCanvas c = Floor(16, 16);
  c.FillRect(1, 2, 14, 9, 3);
  c.FillRect(2, 3, 12, 6, 0);
  c.HLine(2, 9, 12, 2);
  c.FillRect(3, 11, 2, 4, 3);
  c.FillRect(11, 11, 2, 4, 3);
  c.HLine(4, 4, 5, 1);
  return c;
}

PixelCanvas Bed() {
  PixelCanvas c(16, 24, 1);
  c.FillRect(0, 0, 16, 24, 3);
  c.FillRect(1, 1, 14, 22, 1);
  c.FillRect(2, 2, 12, 6, 0);
  c.HLine(2, 8, 12, 3);
  for (int y = 10; y < 22; y += 3) c.HLine(2, y, 12, 2);
  c.VLine(1, 9, 14, 2);
  c.VLine(14, 9, 14, 2);
  return c;
}

PixelCanvas Plant() {
  return PixelCanvas::FromRows({
      "1111111331111111",
      "1111113003111111",
      "1113313002133111",
      "1130023002300311",
      "1300002302000031",
      "1302000320002031",
      "1130220302202311",
      "1113330000333111",
      "1111302222031111",
      "1111333333331111",
      "1111322222231111",
      "1111322222231111",
      "1111132222311111",
      "1111132222311111",
      "1111113333111111",
      "1111111111111111",
  });
}

PixelCanvas Rug(int width, int height) {
  PixelCanvas c(width, height, 1);
  c.FillRect(0, 0, width, height, 3);
  c.FillRect(1, 1, width - 2, height - 2, 2);
  c.FillRect(3, 3, width - 6, height - 6, 1);
  for (int y = 5; y < height - 5; y += 4) {
    for (int x = 5 + (y / 4) % 2 * 2; x < width - 5; x += 4) c.Set(x, y, 0);
  }
  return c;
}

PixelCanvas Stairs() {
  PixelCanvas c(16, 16, 2);
  for (int step = 0; step < 4; ++step) {
    c.HLine(0, step * 4, 16, 0);
    c.HLine(0, step * 4 + 1, 16, 1);
    c.HLine(0, step * 4 + 3, 16, 3);
  }
  c.VLine(0, 0, 16, 3);
  c.VLine(15, 0, 16, 3);
  return c;
}

PixelCanvas Counter() {
  PixelCanvas c(32, 16, 1);
  c.HLine(0, 0, 32, 3);
  c.FillRect(0, 1, 32, 5, 0);
  c.HLine(0, 6, 32, 3);
  c.FillRect(0, 7, 32, 8, 2);
  for (int x = 3; x < 32; x += 8) c.VLine(x, 8, 6, 1);
  c.HLine(0, 15, 32, 3);
  return c;
}

}  // namespace

IndoorTiles MakeIndoorTiles() {
  IndoorTiles t;
  TilesetArt& art = t.art;
  auto u8 = [](int v) { return static_cast<std::uint8_t>(v); };
  const auto floor = art.AddTiles(Floor(32, 32), kWood);
  const auto wall = art.AddTiles(Wall(), kWallPal);
  // A block made from a base and a piece laid over it: piece tile k at (px + k % pw, py + k / pw).
  auto compose = [&](const std::vector<int>& base, const std::vector<int>& piece, int px, int py,
                     int pw) {
    BlockTiles b{};
    for (int i = 0; i < 16; ++i) b[static_cast<std::size_t>(i)] = u8(base[static_cast<std::size_t>(i)]);
    for (std::size_t k = 0; k < piece.size(); ++k) {
      const int x = px + static_cast<int>(k) % pw, y = py + static_cast<int>(k) / pw;
      b[static_cast<std::size_t>(y * 4 + x)] = u8(piece[k]);
    }
    return art.AddBlock(b);
  };
  t.floor = compose(floor, {}, 0, 0, 1);
  t.wall = compose(wall, {}, 0, 0, 1);
  t.wall_window = compose(wall, art.AddTiles(Window(), kGlassPal), 1, 1, 2);
  t.wall_picture = compose(wall, art.AddTiles(Picture(), kGlassPal), 1, 1, 2);
  t.wall_shelf = compose(wall, art.AddTiles(Shelf(16), kBookPal), 1, 1, 2);
  t.outside = compose(std::vector<int>(16, art.AddTile(PixelCanvas(8, 8, 3), kMetalPal)), {}, 0, 0, 1);
  t.table = compose(floor, art.AddTiles(Table(), kWood), 1, 1, 2);
  t.bed = compose(floor, art.AddTiles(Bed(), kBedPal), 1, 0, 2);
  t.plant = compose(floor, art.AddTiles(Plant(), kPlantPal), 2, 0, 2);
  t.rug = compose(floor, art.AddTiles(Rug(32, 32), kRugPal), 0, 0, 4);
  t.stairs = compose(floor, art.AddTiles(Stairs(), kMetalPal), 0, 0, 2);
  t.counter = compose(floor, art.AddTiles(Counter(), kWood), 0, 0, 4);
  t.shop_shelf = compose(wall, art.AddTiles(Shelf(32), kBookPal), 0, 1, 4);
  // The exit mat fills the lower left quarter, the warp's cell.
  t.exit = compose(floor, art.AddTiles(Rug(16, 16), kRugPal), 0, 2, 2);
  return t;
}

}  // namespace kartova::demo
