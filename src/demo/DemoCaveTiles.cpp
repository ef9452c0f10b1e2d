#include "demo/DemoTiles.h"

// Palette use of the cave tileset, whose colours come from the special palette set: 0 floor,
// 1 rock, 2 pools, 3 ladders, 4 moss, 5 daylight at the exit, 6 crystals (colours by map bank),
// 7 boulders. Colour 1 of palettes 3, 4 and 7 is the floor colour, so those stand on the floor.
namespace kartova::demo {
namespace {

enum Palette { kFloorPal, kRockPal, kPoolPal, kLadderPal, kMossPal, kLightPal, kCrystalPal, kBoulderPal };

PixelCanvas Floor(std::uint32_t seed, int pebbles) {
  PixelCanvas c(16, 16, 1);
  Noise noise(seed);
  for (int i = 0; i < 14; ++i) c.Set(noise.Below(16), noise.Below(16), 2);
  for (int i = 0; i < 6; ++i) c.Set(noise.Below(16), noise.Below(16), 0);
  for (int i = 0; i < pebbles; ++i) {
    const int x = noise.Below(14), y = noise.Below(14);
    c.HLine(x, y, 2, 0);
    c.HLine(x, y + 1, 2, 2);
    c.Set(x + 2, y + 1, 3);
    c.HLine(x, y + 2, 2, 3);
  }
  return c;
}

PixelCanvas Moss() {
  PixelCanvas c = Floor(9, 0);
  Noise noise(21);
  for (int i = 0; i < 10; ++i) {
    const int x = noise.Below(16), y = noise.Below(16);
    c.HLine(x, y, 3, 2);
    c.Set(x + 1, y - 1, 0);
  }
  return c;
}

PixelCanvas Rock() { return Stones(16, 5, 17, {0, 1, 2, 3}); }

PixelCanvas WallFace() {
  PixelCanvas c(32, 32, 1);
  c.Paste(Rock(), 0, 0);
  c.Paste(Rock(), 16, 0);
  for (int y = 16; y < 30; ++y) {
    for (int x = 0; x < 32; ++x) {
      if ((x * 7 + y / 5 * 3) % 11 == 0) c.Set(x, y, 2);
    }
  }
  for (int x = 0; x < 32; x += 6) c.VLine(x + (x / 6) % 3, 17, 9 + (x / 6) % 4, 3);
  c.HLine(0, 16, 32, 0);
  c.HLine(0, 30, 32, 2);
  c.HLine(0, 31, 32, 3);
  return c;
}

// The outdoor boulder with a longer highlight on its crown.
PixelCanvas Boulder() {
  PixelCanvas c = RoundBoulder();
  c.Set(9, 2, 0);
  return c;
}

PixelCanvas Crystals() {
  return PixelCanvas::FromRows({
      "3333333333333333",
      "3333330333333333",
      "3333301033333333",
      "3333301233333033",
      "3303301233330103",
      "3010301233330123",
      "3012301233330123",
      "3012301233301123",
      "3012301230301123",
      "3012301201030123",
      "3012301201230123",
      "3012301201230123",
      "3312301201231223",
      "3332222222222233",
      "3333333333333333",
      "3333333333333333",
  });
}

PixelCanvas Pool() {
  PixelCanvas c(32, 32, 2);
  for (int y = 0; y < 32; ++y) {
    for (int x = 0; x < 32; ++x) {
      if ((x + 2 * y) % 13 == 0 && y % 6 == 2) c.HLine(x, y, 4, 1);
      if ((x * 3 + y) % 29 == 0 && y % 6 == 4) c.Set(x, y, 0);
    }
  }
  // A dark rim all round, with the corners rounded off.
  for (int i = 0; i < 32; ++i) {
    c.Set(i, 0, 3);
    c.Set(i, 31, 3);
    c.Set(0, i, 3);
    c.Set(31, i, 3);
    c.Set(i, 1, 1);
    c.Set(1, i, 1);
  }
  for (auto [x, y] : {std::pair{1, 1}, {30, 1}, {1, 30}, {30, 30}}) c.Set(x, y, 3);
  return c;
}

PixelCanvas LadderDown() {
  return PixelCanvas::FromRows({
      "1111111111111111",
      "1133333333333311",
      "1333333333333331",
      "3320000000000233",
      "3322222222222233",
      "3320333333330233",
      "3320000000000233",
      "3322222222222233",
      "3320333333330233",
      "3320000000000233",
      "3322222222222233",
      "3320333333330233",
      "3333333333333333",
      "1333333333333331",
      "1133333333333311",
      "1111111111111111",
  });
}

PixelCanvas LadderUp() {
  return PixelCanvas::FromRows({
      "1113011111130311",
      "1113022222230311",
      "1113000000000311",
      "1113022222230311",
      "1113011111130311",
      "1113022222230311",
      "1113000000000311",
      "1113022222230311",
      "1113011111130311",
      "1113022222230311",
      "1113000000000311",
      "1113022222230311",
      "1113011111130311",
      "1113011111130311",
      "1112211111122111",
      "1111111111111111",
  });
}

PixelCanvas Daylight() {
  return PixelCanvas::FromRows({
      "3333333333333333",
      "3222222222222223",
      "3221111111111223",
      "3211000000001123",
      "3210000000000123",
      "3210000000000123",
      "3210000000000123",
      "3210000000000123",
      "3210000000000123",
      "3210000000000123",
      "3210000000000123",
      "3211000000001123",
      "3221111111111223",
      "3222222222222223",
      "3322222222222233",
      "3333333333333333",
  });
}

}  // namespace

CaveTiles MakeCaveTiles() {
  CaveTiles t;
  TilesetArt& art = t.art;
  auto u8 = [](int v) { return static_cast<std::uint8_t>(v); };
  PixelCanvas floor_canvas(32, 32);
  floor_canvas.Paste(Floor(1, 0), 0, 0);
  floor_canvas.Paste(Floor(2, 0), 16, 0);
  floor_canvas.Paste(Floor(3, 0), 0, 16);
  floor_canvas.Paste(Floor(1, 0), 16, 16);
  const auto floor = art.AddTiles(floor_canvas, kFloorPal);
  PixelCanvas rock_canvas(32, 32);
  for (int y = 0; y < 32; y += 16) {
    for (int x = 0; x < 32; x += 16) rock_canvas.Paste(Rock(), x, y);
  }
  const auto rock = art.AddTiles(rock_canvas, kRockPal);
  auto compose = [&](const std::vector<int>& base, const std::vector<int>& piece, int px, int py) {
    BlockTiles b{};
    for (int i = 0; i < 16; ++i) b[static_cast<std::size_t>(i)] = u8(base[static_cast<std::size_t>(i)]);
    const int pw = piece.size() == 16 ? 4 : 2;
    for (std::size_t k = 0; k < piece.size(); ++k) {
      const int x = px + static_cast<int>(k) % pw, y = py + static_cast<int>(k) / pw;
      b[static_cast<std::size_t>(y * 4 + x)] = u8(piece[k]);
    }
    return art.AddBlock(b);
  };
  t.floor = compose(floor, {}, 0, 0);
  t.rock = compose(rock, {}, 0, 0);
  t.wall_face = compose(art.AddTiles(WallFace(), kRockPal), {}, 0, 0);
  PixelCanvas pebbles(32, 32);
  pebbles.Paste(Floor(4, 3), 0, 0);
  pebbles.Paste(Floor(5, 2), 16, 0);
  pebbles.Paste(Floor(6, 2), 0, 16);
  pebbles.Paste(Floor(7, 3), 16, 16);
  t.floor_pebbles = compose(art.AddTiles(pebbles, kFloorPal), {}, 0, 0);
  t.moss = compose(floor, art.AddTiles(Moss(), kMossPal), 1, 1);
  t.boulder = compose(floor, art.AddTiles(Boulder(), kBoulderPal), 1, 1);
  t.crystals = compose(rock, art.AddTiles(Crystals(), kCrystalPal), 1, 1);
  t.pool = compose(art.AddTiles(Pool(), kPoolPal), {}, 0, 0);
  // Ladders and the exit lie in the lower left quarter, the warp's cell.
  t.ladder_down = compose(floor, art.AddTiles(LadderDown(), kLadderPal), 0, 2);
  t.ladder_up = compose(floor, art.AddTiles(LadderUp(), kLadderPal), 0, 2);
  t.exit = compose(floor, art.AddTiles(Daylight(), kLightPal), 0, 2);
  return t;
}

}  // namespace kartova::demo
