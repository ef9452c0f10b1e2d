#include "demo/DemoPalettes.h"

#include <algorithm>
#include <array>

namespace kartova::demo {
namespace {

struct Rgb {
  int r, g, b;  // 0..31 each
};
using Base = std::array<std::array<Rgb, 4>, 8>;

std::uint16_t Word(Rgb c) {
  auto clamp = [](int v) { return std::clamp(v, 0, 31); };
  return static_cast<std::uint16_t>(clamp(c.r) | (clamp(c.g) << 5) | (clamp(c.b) << 10));
}

// The lightings are drawn from the day colours: morning warm, night dim and blue, darkness
// nearly black but still readable.
enum Lighting { kMorning, kDay, kNight, kDarkness };

Rgb Light(Rgb c, Lighting l) {
  switch (l) {
    case kMorning: return {c.r + 2, c.g, c.b - 3};
    case kDay: return c;
    case kNight: return {c.r * 9 / 20, c.g * 10 / 20, c.b * 15 / 20 + 3};
    case kDarkness: return {c.r / 5, c.g / 5, c.b * 7 / 20 + 1};
  }
  return c;
}

GbcPalette Palette(const std::array<Rgb, 4>& colours, Lighting l) {
  GbcPalette p{};
  for (std::size_t i = 0; i < 4; ++i) p[i] = Word(Light(colours[i], l));
  return p;
}

// Palette 6 of every tileset has its colours 1 and 2 from the map bank; a placeholder sits here.
constexpr Rgb kBankColour = {16, 16, 16};

constexpr Base kOutdoor = {{
    {{{22, 31, 14}, {13, 26, 8}, {6, 17, 5}, {2, 7, 3}}},    // grass
    {{{31, 28, 19}, {25, 20, 11}, {13, 26, 8}, {6, 17, 5}}},  // path and sand, grass edge
    {{{20, 29, 10}, {13, 26, 8}, {4, 14, 6}, {1, 5, 3}}},     // trees
    {{{31, 29, 21}, {14, 24, 31}, {6, 14, 28}, {2, 6, 16}}},  // water, beach
    {{{31, 31, 29}, {28, 24, 17}, {17, 10, 5}, {5, 3, 3}}},   // house walls, doors, windows
    {{{31, 31, 16}, {13, 26, 8}, {30, 8, 8}, {6, 17, 5}}},    // flowers, tall grass
    {{{31, 26, 20}, kBankColour, kBankColour, {6, 2, 2}}},    // roofs
    {{{29, 29, 27}, {13, 26, 8}, {19, 16, 13}, {5, 5, 6}}},   // rock, fences, signs, planks
}};

constexpr Base kIndoor = {{
    {{{30, 24, 15}, {25, 17, 9}, {17, 10, 5}, {7, 4, 2}}},    // wooden floor and furniture
    {{{31, 31, 28}, {28, 27, 21}, {22, 20, 14}, {8, 6, 5}}},  // wallpaper
    {{{31, 25, 20}, {27, 9, 8}, {17, 4, 5}, {6, 2, 2}}},      // rugs and the door mat
    {{{31, 31, 31}, {28, 27, 21}, {10, 18, 29}, {6, 5, 5}}},  // windows and pictures on the wall
    {{{20, 30, 12}, {25, 17, 9}, {6, 17, 6}, {3, 7, 3}}},     // plants
    {{{30, 24, 15}, {25, 8, 8}, {8, 12, 25}, {5, 3, 2}}},     // books
    {{{31, 31, 31}, kBankColour, kBankColour, {5, 3, 3}}},    // beds
    {{{31, 31, 31}, {22, 22, 24}, {13, 13, 16}, {3, 3, 5}}},  // stairs, metal, outside the room
}};

constexpr Base kCave = {{
    {{{27, 23, 17}, {21, 17, 12}, {14, 11, 8}, {5, 4, 3}}},   // floor
    {{{24, 22, 20}, {16, 14, 13}, {10, 8, 8}, {3, 2, 3}}},    // rock walls
    {{{24, 29, 31}, {10, 19, 28}, {4, 10, 21}, {1, 3, 9}}},   // pools
    {{{30, 24, 14}, {21, 17, 12}, {13, 8, 3}, {4, 2, 1}}},    // ladders
    {{{20, 26, 14}, {21, 17, 12}, {9, 15, 7}, {5, 4, 3}}},    // moss
    {{{31, 31, 28}, {27, 26, 20}, {16, 14, 13}, {3, 2, 3}}},  // daylight at the exit
    {{{31, 28, 31}, kBankColour, kBankColour, {5, 2, 7}}},    // crystals
    {{{26, 24, 22}, {21, 17, 12}, {13, 12, 12}, {4, 3, 3}}},  // boulders
}};

// Palette 6 colours 1 and 2 per map bank: red roofs in bank 1, blue in bank 2, violet crystals
// in bank 3, green for the banks the demo leaves empty.
std::array<Rgb, 2> BankColours(int bank) {
  switch (bank) {
    case 1: return {{{27, 7, 5}, {17, 3, 3}}};
    case 2: return {{{7, 13, 28}, {3, 6, 18}}};
    case 3: return {{{22, 10, 29}, {12, 4, 18}}};
    default: return {{{9, 20, 9}, {4, 11, 5}}};
  }
}

// The lighting rows 0..7: morning, day, night, darkness, two rows the menu calls "???" (day),
// night again, darkness again.
constexpr Lighting kRows[8] = {kMorning, kDay, kNight, kDarkness, kDay, kDay, kNight, kDarkness};

void AddTimeOfDayPalettes(RomBuilder& builder, const Base& base, int first, int table) {
  std::array<PaletteNumbers, 8> rows{};
  for (int l = kMorning; l <= kDarkness; ++l) {
    for (int i = 0; i < 8; ++i) {
      const int number = first + l * 8 + i;
      builder.Palette(number, Palette(base[static_cast<std::size_t>(i)], static_cast<Lighting>(l)));
    }
  }
  for (std::size_t t = 0; t < 8; ++t) {
    for (int i = 0; i < 8; ++i) {
      rows[t][static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(first + kRows[t] * 8 + i);
    }
  }
  builder.LightingTable(table, rows);
}

}  // namespace

void AddDemoPalettes(RomBuilder& builder) {
  AddTimeOfDayPalettes(builder, kOutdoor, 0, kOutdoorLighting);   // palettes 0..31
  AddTimeOfDayPalettes(builder, kIndoor, 32, kIndoorLighting);    // palettes 32..63
  // The cave set is the last one, so it may fill all eight lightings. Night outside does not
  // reach into a cave, so its night row ("Night / Cave") keeps the day colours.
  std::vector<PaletteSet> cave;
  for (Lighting l : kRows) {
    PaletteSet set{};
    for (std::size_t i = 0; i < 8; ++i) set[i] = Palette(kCave[i], l == kNight ? kDay : l);
    cave.push_back(set);
  }
  builder.SpecialPaletteSet(kCavePaletteSet, cave);
  for (int bank = 0; bank <= 26; ++bank) {
    const auto c = BankColours(bank);
    builder.MapBankColours(bank, {Word(c[0]), Word(c[1])},
                           {Word(Light(c[0], kNight)), Word(Light(c[1], kNight))});
  }
}

}  // namespace kartova::demo
