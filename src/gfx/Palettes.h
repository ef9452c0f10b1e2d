#pragma once

#include <cstdint>

#include "gfx/ColourTable.h"

namespace kartova {

class RomFile;

// Fixed places of the palette data in the ROM (file offsets).
inline constexpr std::int64_t kPaletteSetPointers = 0xB6CE;    // word per sprite-set byte AND 7
inline constexpr std::int64_t kPaletteColours = 0xB75E;        // 8 bytes (4 colours) per palette
inline constexpr std::int64_t kMapBankColours = 0xB9AE;        // 8 bytes per map bank for palette 6
inline constexpr std::int64_t kSpecialPaletteSets = 0x150043;  // 192 bytes per special set
inline constexpr int kSpecialSetSize = 192;
inline constexpr int kTimeOfDayAuto = 8;

// What decides the colours of a map's background palettes.
struct PaletteSelection {
  int time_of_day = kTimeOfDayAuto;  // 0..7 from the lighting menu, 8 = "Auto"
  std::uint8_t sprite_set = 0;       // primary header byte 2
  std::uint8_t lighting = 0;         // primary header byte 7
  std::uint8_t special_set = 0;      // tileset record byte 12; 0 = by time of day
  int map_bank = 1;                  // selected map bank, 1..26
};

// The lighting row t the palettes are read for: the chosen time of day, or under "Auto" (and
// any value the menu does not offer) the low three bits of the header's lighting byte.
int LightingRow(const PaletteSelection& selection);

// A Game Boy Color colour word (5 bits each of red, green, blue from bit 0 up) as 8-bit
// channels. The word is taken as signed 16-bit and divided truncating toward zero, so a word
// with bit 15 set loses channel bits the way the editor always showed it.
ColourEntry ConvertColour(std::int16_t word);

// Reads the eight background palettes for the selection and writes colour-table entries
// 0..31. Palette 6 gets colours 1 and 2 of the map bank. Nothing else is touched, so a
// lighting change costs only these reads.
void LoadPalettes(RomFile& file, const PaletteSelection& selection, ColourTable& table);

}  // namespace kartova
