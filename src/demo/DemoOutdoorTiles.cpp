#include <cmath>

#include "demo/DemoTiles.h"

// Palette use of the outdoor tileset (see DemoPalettes.cpp): 0 grass, 1 path, 2 trees,
// 3 water, 4 house walls, 5 flowers, 6 roofs, 7 rock, fences, signs and planks. Colour 1 of
// palettes 1 (as colour 2), 2, 5 and 7 is the grass green, so objects stand on grass.
namespace kartova::demo {
namespace {

enum Palette { kGrassPal, kPathPal, kTreePal, kWaterPal, kWallPal, kFlowerPal, kRoofPal, kStonePal };

PixelCanvas GrassTexture(std::uint32_t seed, std::uint8_t base, std::uint8_t tuft,
                         std::uint8_t light) {
  PixelCanvas c(8, 8, base);
  Noise noise(seed);
  for (int i = 0; i < 2; ++i) {
    const int x = noise.Below(8), y = noise.Below(8);
    // A tuft: two blades and the dip between them.
    c.Set(x, y, tuft);
    c.Set(x + 2, y, tuft);
    c.Set(x + 1, y + 1, tuft);
    if (light != base) c.Set(x + 1, y - 1, light);
  }
  return c;
}

PixelCanvas SandTexture(std::uint32_t seed, std::uint8_t base, std::uint8_t speck) {
  PixelCanvas c(8, 8, base);
  Noise noise(seed);
  for (int i = 0; i < 4; ++i) c.Set(noise.Below(8), noise.Below(8), speck);
  return c;
}

PixelCanvas WaterTexture(int phase) {
  // Deep water (2) with light wave crests (1) and a glint (0), two per tile, offset per phase.
  PixelCanvas c(8, 8, 2);
  const int y0 = phase ? 5 : 1;
  const int x0 = phase ? 4 : 0;
  c.HLine(x0 + 1, y0, 3, 1);
  c.Set(x0, y0 + 1, 1);
  c.Set(x0 + 4, y0 + 1, 1);
  c.Set(x0 + 2, y0 - 1, 0);
  c.HLine(x0 + 5, y0 + 3, 2, 1);
  c.Set(x0 + 3, y0 + 3, 3);
  return c;
}

// Shapes of the autotile pieces: true where the terrain itself is.
using Shape = bool (*)(int x, int y);
constexpr int kDepth = 3;  // how far the other terrain reaches into an edge tile
bool EdgeN(int, int y) { return y >= kDepth; }
bool EdgeS(int, int y) { return y <= 7 - kDepth; }
bool EdgeW(int x, int) { return x >= kDepth; }
bool EdgeE(int x, int) { return x <= 7 - kDepth; }
bool OuterNW(int x, int y) { return EdgeN(x, y) && EdgeW(x, y) && !(x == kDepth && y == kDepth); }
bool OuterNE(int x, int y) { return OuterNW(7 - x, y); }
bool OuterSW(int x, int y) { return OuterNW(x, 7 - y); }
bool OuterSE(int x, int y) { return OuterNW(7 - x, 7 - y); }
bool InnerNW(int x, int y) { return !(x < kDepth - 1 && y < kDepth - 1) && !(x + y < kDepth - 1); }
bool InnerNE(int x, int y) { return InnerNW(7 - x, y); }
bool InnerSW(int x, int y) { return InnerNW(x, 7 - y); }
bool InnerSE(int x, int y) { return InnerNW(7 - x, 7 - y); }

struct Edging {
  PixelCanvas inside[2];
  PixelCanvas outside;
  std::uint8_t rim_in;   // the terrain's pixels along the edge
  int rim_out;           // the other terrain's pixels along the edge, -1: none
};

PixelCanvas EdgePiece(const Edging& e, Shape inside) {
  PixelCanvas c(8, 8);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) {
      const bool in = inside(x, y);
      bool rim = false;
      for (auto [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
        const int nx = x + dx, ny = y + dy;
        if (nx >= 0 && nx < 8 && ny >= 0 && ny < 8 && inside(nx, ny) != in) rim = true;
      }
      std::uint8_t colour = in ? e.inside[0].At(x, y) : e.outside.At(x, y);
      if (rim && in) colour = e.rim_in;
      if (rim && !in && e.rim_out >= 0) colour = static_cast<std::uint8_t>(e.rim_out);
      c.Set(x, y, colour);
    }
  }
  return c;
}

AutoTiles MakeAutoTiles(TilesetArt& art, int palette, const Edging& e) {
  AutoTiles t;
  t.centre = {art.AddTile(e.inside[0], palette), art.AddTile(e.inside[1], palette)};
  const Shape edges[] = {EdgeN, EdgeS, EdgeW, EdgeE};
  const Shape outers[] = {OuterNW, OuterNE, OuterSW, OuterSE};
  const Shape inners[] = {InnerNW, InnerNE, InnerSW, InnerSE};
  for (std::size_t i = 0; i < 4; ++i) {
    t.edge[i] = art.AddTile(EdgePiece(e, edges[i]), palette);
    t.outer[i] = art.AddTile(EdgePiece(e, outers[i]), palette);
    t.inner[i] = art.AddTile(EdgePiece(e, inners[i]), palette);
  }
  return t;
}

// A round tree of 16 x 16 pixels: scalloped crown lit from the upper left, dark outline, trunk.
PixelCanvas Tree() {
  PixelCanvas c(16, 16, 1);
  auto crown = [](int x, int y) {
    const double dx = x - 7.5, dy = (y - 6.8) * 1.1;
    const double r = std::sqrt(dx * dx + dy * dy);
    const double a = std::atan2(dy, dx);
    return r < 7.0 + 0.5 * std::cos(6 * a);
  };
  for (int y = 12; y < 16; ++y) {
    for (int x = 6; x < 10; ++x) c.Set(x, y, (x == 6 || x == 9 || y == 15) ? 3 : 2);
  }
  c.HLine(3, 15, 3, 2);
  c.HLine(10, 15, 3, 2);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      if (!crown(x, y)) continue;
      const bool edge = !crown(x + 1, y) || !crown(x - 1, y) || !crown(x, y + 1) || !crown(x, y - 1);
      const double light = (x - 7.5) + (y - 6.5) * 1.3;
      std::uint8_t colour = light > 5 ? 2 : 1;
      if (light < -5 && (x + y) % 2 == 0) colour = 0;
      if (light > 1 && light <= 5 && (x + 2 * y) % 3 == 0) colour = 2;
      c.Set(x, y, edge ? 3 : colour);
    }
  }
  // Leaf clusters inside the crown.
  for (auto [x, y] : {std::pair{5, 4}, {9, 3}, {10, 8}, {4, 8}}) {
    c.Set(x, y, 2);
    c.Set(x + 1, y, 2);
    c.Set(x - 1, y - 1, c.At(x - 1, y - 1) == 3 ? 3 : 0);
  }
  return c;
}

// Two four-petalled flowers a tile, pale petals round a red heart; the second tile is the
// first shifted, so that a bed of them does not look like a grid.
PixelCanvas Flowers(int phase) {
  PixelCanvas c = PixelCanvas::FromRows({
      "10011111",
      "02201111",
      "02201111",
      "10011131",
      "11131001",
      "11110220",
      "13110220",
      "11111001",
  });
  return phase == 0 ? c : c.FlippedX();
}

// Two clumps of three dark blades with light gaps between them, the second clump offset so
// that a field of tall grass has no straight rows.
PixelCanvas TallGrass() {
  return PixelCanvas::FromRows({
      "13131111",
      "31313111",
      "31303111",
      "13331111",
      "11111313",
      "31113131",
      "31113130",
      "11111333",
  });
}

PixelCanvas Sign() {
  return PixelCanvas::FromRows({
      "1111111111111111",
      "1111111111111111",
      "1133333333333311",
      "1300000000000031",
      "1302202222022031",
      "1300000000000031",
      "1302222022220031",
      "1300000000000031",
      "1322222222222231",
      "1133333223333311",
      "1111113223111111",
      "1111113223111111",
      "1111113223111111",
      "1111113223111111",
      "1111122332211111",
      "1111111111111111",
  });
}

PixelCanvas Fence() {
  return PixelCanvas::FromRows({
      "11111111",
      "13311111",
      "30231111",
      "30233333",
      "30200000",
      "30222222",
      "30233333",
      "30231111",
  });
}

PixelCanvas Planks() {
  return PixelCanvas::FromRows({
      "00000000",
      "22222222",
      "22222222",
      "33333333",
      "00000000",
      "22222223",
      "22222223",
      "33333333",
  });
}

// Rock face: grey stones with a little moss in the cracks.
PixelCanvas Cliff(std::uint32_t seed) {
  PixelCanvas c = Stones(32, 11, seed, {0, 2, 2, 3});
  Noise noise(seed + 100);
  for (int i = 0; i < 14; ++i) {
    const int x = noise.Below(32), y = noise.Below(32);
    if (c.At(x, y) == 3) c.Set(x, y, 1);
  }
  return c;
}

// A dark arch cut into the rock face, open at the bottom.
PixelCanvas CaveMouth(const PixelCanvas& cliff) {
  PixelCanvas c = cliff;
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) {
      const double dx = (x - 7.5) / 6.5, dy = (y - 16.0) / 12.0;
      const double r = dx * dx + dy * dy;
      if (r < 1.0) c.Set(x, y, 3);
      else if (r < 1.35) c.Set(x, y, y < 9 && x < 8 ? 0 : 2);
    }
  }
  return c;
}

}  // namespace

BlockTiles AutoBlock(const AutoTiles& t, const Neighbours& same, int variant) {
  BlockTiles b{};
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 4; ++x) {
      const bool top = y == 0, bottom = y == 3, left = x == 0, right = x == 3;
      const bool out_n = top && !same.n, out_s = bottom && !same.s;
      const bool out_w = left && !same.w, out_e = right && !same.e;
      int tile = t.centre[static_cast<std::size_t>((x + y + variant) % 2)];
      if (out_n && out_w) tile = t.outer[0];
      else if (out_n && out_e) tile = t.outer[1];
      else if (out_s && out_w) tile = t.outer[2];
      else if (out_s && out_e) tile = t.outer[3];
      else if (out_n) tile = t.edge[0];
      else if (out_s) tile = t.edge[1];
      else if (out_w) tile = t.edge[2];
      else if (out_e) tile = t.edge[3];
      else if (top && left && !same.nw) tile = t.inner[0];
      else if (top && right && !same.ne) tile = t.inner[1];
      else if (bottom && left && !same.sw) tile = t.inner[2];
      else if (bottom && right && !same.se) tile = t.inner[3];
      b[static_cast<std::size_t>(y * 4 + x)] = static_cast<std::uint8_t>(tile);
    }
  }
  return b;
}

OutdoorTiles MakeOutdoorTiles() {
  OutdoorTiles o;
  TilesetArt& art = o.art;
  const int grass = art.AddTile(GrassTexture(1, 1, 2, 0), kGrassPal);
  const int grass_b = art.AddTile(GrassTexture(2, 1, 2, 1), kGrassPal);
  const int grass_c = art.AddTile(GrassTexture(3, 1, 2, 0), kGrassPal);
  const int tall = art.AddTile(TallGrass(), kFlowerPal);
  const int flower_a = art.AddTile(Flowers(0), kFlowerPal);
  const int flower_b = art.AddTile(Flowers(1), kFlowerPal);
  const auto trees = art.AddTiles(Tree(), kTreePal);
  const auto rock = art.AddTiles(RoundBoulder(), kStonePal);
  const auto sign = art.AddTiles(Sign(), kStonePal);
  const int fence = art.AddTile(Fence(), kStonePal);
  const int planks = art.AddTile(Planks(), kStonePal);
  const PixelCanvas cliff_canvas = Cliff(5);
  const auto cliff = art.AddTiles(cliff_canvas, kStonePal);
  // The mouth replaces the block's lower left quarter of the rock face.
  PixelCanvas mouth_canvas(16, 16);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 16; ++x) mouth_canvas.Set(x, y, cliff_canvas.At(x, y + 16));
  }
  const auto mouth = art.AddTiles(CaveMouth(mouth_canvas), kStonePal);

  o.path = MakeAutoTiles(art, kPathPal,
                         {{SandTexture(7, 0, 1), SandTexture(8, 0, 1)}, GrassTexture(1, 2, 3, 2), 1, 3});
  o.water = MakeAutoTiles(art, kWaterPal, {{WaterTexture(0), WaterTexture(1)}, PixelCanvas(8, 8, 0), 1, -1});

  auto u8 = [](int v) { return static_cast<std::uint8_t>(v); };
  auto fill4 = [&](std::array<int, 4> pattern) {
    BlockTiles b{};
    for (int y = 0; y < 4; ++y) {
      for (int x = 0; x < 4; ++x) b[static_cast<std::size_t>(y * 4 + x)] = u8(pattern[static_cast<std::size_t>((y % 2) * 2 + x % 2)]);
    }
    return art.AddBlock(b);
  };
  o.grass = fill4({grass, grass_b, grass_c, grass});
  o.grass_tufts = fill4({grass_b, grass_c, grass, grass_b});
  o.tall_grass = fill4({tall, tall, tall, tall});
  o.flowers = fill4({flower_a, grass, grass_b, flower_b});
  o.trees = fill4({trees[0], trees[1], trees[2], trees[3]});
  o.sand = art.AddBlock(AutoBlock(o.path, {}, 0));
  o.water_block = art.AddBlock(AutoBlock(o.water, {}, 0));
  // A 2 x 2 tile object on grass, its top left tile at (qx, qy) of the block.
  auto object = [&](const std::vector<int>& obj, int qx, int qy) {
    BlockTiles b{};
    const int ground[4] = {grass, grass_b, grass_c, grass};
    for (int y = 0; y < 4; ++y) {
      for (int x = 0; x < 4; ++x) {
        const bool inside = x >= qx && x < qx + 2 && y >= qy && y < qy + 2;
        b[static_cast<std::size_t>(y * 4 + x)] =
            u8(inside ? obj[static_cast<std::size_t>((y - qy) * 2 + (x - qx))] : ground[(x + 3 * y) % 4]);
      }
    }
    return art.AddBlock(b);
  };
  // Signs stand in the block's lower left quarter, where their event lies.
  o.sign = object(sign, 0, 2);
  o.rock = object(rock, 1, 1);
  o.fence = art.AddBlock({u8(grass), u8(grass_b), u8(grass_c), u8(grass),
                          u8(grass_c), u8(grass), u8(grass), u8(grass_b),
                          u8(fence), u8(fence), u8(fence), u8(fence),
                          u8(grass_b), u8(grass), u8(grass_c), u8(grass)});
  o.pier = fill4({planks, planks, planks, planks});
  BlockTiles cliff_block{};
  for (std::size_t i = 0; i < 16; ++i) cliff_block[i] = u8(cliff[i]);
  o.cliff = art.AddBlock(cliff_block);
  BlockTiles mouth_block = cliff_block;
  mouth_block[8] = u8(mouth[0]);
  mouth_block[9] = u8(mouth[1]);
  mouth_block[12] = u8(mouth[2]);
  mouth_block[13] = u8(mouth[3]);
  o.cave_mouth = art.AddBlock(mouth_block);
  std::array<int, 6> small{};
  AddHouseParts(art, 2, small);
  o.small_house = {small[0], small[1], small[2], small[3]};
  AddHouseParts(art, 3, o.big_house);
  // Ready-made path and beach pieces for the block chooser, before the maps add their own.
  for (const AutoTiles* t : {&o.path, &o.water}) {
    art.AddBlock(AutoBlock(*t, {.n = false, .w = false}, 0));
    art.AddBlock(AutoBlock(*t, {.n = false}, 0));
    art.AddBlock(AutoBlock(*t, {.n = false, .e = false}, 0));
    art.AddBlock(AutoBlock(*t, {.w = false}, 0));
    art.AddBlock(AutoBlock(*t, {}, 0));
    art.AddBlock(AutoBlock(*t, {.e = false}, 0));
    art.AddBlock(AutoBlock(*t, {.s = false, .w = false}, 0));
    art.AddBlock(AutoBlock(*t, {.s = false}, 0));
    art.AddBlock(AutoBlock(*t, {.s = false, .e = false}, 0));
  }
  return o;
}

}  // namespace kartova::demo
