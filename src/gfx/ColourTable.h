#pragma once

#include <array>
#include <cstdint>

namespace kartova {

// One entry as an indexed bitmap stores it: blue, green, red, a reserved byte.
struct ColourEntry {
  std::uint8_t blue = 0;
  std::uint8_t green = 0;
  std::uint8_t red = 0;
  std::uint8_t reserved = 0;

  bool operator==(const ColourEntry&) const = default;
};

// The colours behind the 8-bit pictures. Entry k = colour (k AND 3) of background palette
// (k SHR 2); the palettes fill entries 0..31. Entries 32..256 are never written by the game's
// palettes and stay black, so a stray index shows as black rather than as a random colour.
class ColourTable {
 public:
  static constexpr int kEntryCount = 257;
  static constexpr int kPaletteEntries = 32;

  // Out-of-range indices read as black and are not written.
  ColourEntry Entry(int k) const;
  void SetEntry(int k, ColourEntry entry);
  // 0xFFRRGGBB, the form a Qt colour table wants.
  std::uint32_t Argb(int k) const;
  const std::array<ColourEntry, kEntryCount>& Entries() const { return entries_; }

  bool operator==(const ColourTable&) const = default;

 private:
  std::array<ColourEntry, kEntryCount> entries_{};
};

}  // namespace kartova
