#include "gfx/Palettes.h"

#include <array>

#include "rom/RomFile.h"

namespace kartova {

namespace {
constexpr int kPaletteCount = 8;
constexpr int kColoursPerPalette = 4;
constexpr int kPaletteBytes = 8;
constexpr int kMapBankPalette = 6;

using PaletteBytes = std::array<std::uint8_t, kPaletteBytes>;

std::int16_t ColourWord(const PaletteBytes& p, int j) {
  const auto lo = p[static_cast<std::size_t>(2 * j)];
  const auto hi = p[static_cast<std::size_t>(2 * j + 1)];
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(lo | (hi << 8)));
}

// Reads one palette into `bytes`. A read past the end of the file leaves the previous
// palette's bytes in place, as the editor's one palette buffer always did.
void ReadPalette(RomFile& file, std::int64_t offset, PaletteBytes& bytes) {
  file.Seek(offset);
  file.ReadBytes(bytes.data(), bytes.size());
}

void StorePalette(int i, const PaletteBytes& bytes, ColourTable& table) {
  for (int j = 0; j < kColoursPerPalette; ++j)
    table.SetEntry(i * kColoursPerPalette + j, ConvertColour(ColourWord(bytes, j)));
}

// Colours 1 and 2 of palette 6 depend on the map bank; the second half of its 8 bytes serves
// the night rows (t AND 3 = 2).
void ReplaceMapBankColours(RomFile& file, const PaletteSelection& s, int t, PaletteBytes& bytes) {
  file.Seek(kMapBankColours + std::int64_t{s.map_bank} * 8 + ((t & 3) == 2 ? 4 : 0));
  file.ReadBytes(bytes.data() + 2, 4);
}
}  // namespace

int LightingRow(const PaletteSelection& selection) {
  if (selection.time_of_day >= 0 && selection.time_of_day <= 7) return selection.time_of_day;
  return selection.lighting & 7;
}

ColourEntry ConvertColour(std::int16_t word) {
  const int w = word;
  ColourEntry e;
  e.red = static_cast<std::uint8_t>((w & 31) * 255 / 31);
  e.green = static_cast<std::uint8_t>(((w / 32) & 31) * 255 / 31);
  e.blue = static_cast<std::uint8_t>(((w / 1024) & 31) * 255 / 31);
  return e;
}

void LoadPalettes(RomFile& file, const PaletteSelection& selection, ColourTable& table) {
  const int t = LightingRow(selection);
  std::array<std::uint8_t, kPaletteCount> numbers{};
  if (selection.special_set == 0) {
    file.Seek(kPaletteSetPointers + (selection.sprite_set & 7) * 2);
    const std::uint16_t q = file.ReadWord();
    file.Seek((q & 0x3FFF) + 0x8000 + t * 8);
    file.ReadBytes(numbers.data(), numbers.size());
  }
  PaletteBytes bytes{};
  for (int i = 0; i < kPaletteCount; ++i) {
    // A special set holds three lightings; rows 3 and up read into the sets that follow.
    const std::int64_t offset =
        selection.special_set == 0
            ? kPaletteColours + std::int64_t{numbers[static_cast<std::size_t>(i)]} * kPaletteBytes
            : kSpecialPaletteSets + std::int64_t{selection.special_set - 1} * kSpecialSetSize +
                  t * 64 + i * kPaletteBytes;
    ReadPalette(file, offset, bytes);
    if (i == kMapBankPalette) ReplaceMapBankColours(file, selection, t, bytes);
    StorePalette(i, bytes, table);
  }
}

}  // namespace kartova
