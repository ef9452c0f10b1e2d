#pragma once

#include <cstdint>
#include <vector>

#include "rom/Address.h"

// Reads the structures of a built image back the way the editor finds them: through the fixed
// places and the address conversions, never through the builder's own layout report.
namespace kartova::test {

using Image = std::vector<std::uint8_t>;

inline int Byte(const Image& rom, std::int64_t offset) {
  return rom.at(static_cast<std::size_t>(offset));
}
inline int Word(const Image& rom, std::int64_t offset) {
  return Byte(rom, offset) | (Byte(rom, offset + 1) << 8);
}
inline std::vector<std::uint8_t> Bytes(const Image& rom, std::int64_t offset, std::int64_t n) {
  const auto begin = rom.begin() + offset;
  return {begin, begin + n};
}

inline std::int64_t PrimaryHeaderAt(const Image& rom, int bank, int number, int header_length = 9) {
  const int group = Word(rom, kMapGroupTableOffset + 2 * (bank - 1));
  return MapHeaderOffset(group, header_length, number - 1);
}

inline std::int64_t SecondaryHeaderAt(const Image& rom, std::int64_t primary) {
  return SecondaryHeaderOffset(Byte(rom, primary), Byte(rom, primary + 4), Byte(rom, primary + 3));
}

inline std::int64_t BlocksAt(const Image& rom, std::int64_t secondary) {
  return BankHiLoToOffset(Byte(rom, secondary + 3), Byte(rom, secondary + 5),
                          Byte(rom, secondary + 4));
}

inline std::int64_t ScriptHeaderAt(const Image& rom, std::int64_t secondary) {
  return BankPointerToOffset(Byte(rom, secondary + 6), Word(rom, secondary + 7));
}

inline std::int64_t EventHeaderAt(const Image& rom, std::int64_t secondary) {
  return BankPointerToOffset(Byte(rom, secondary + 6), Word(rom, secondary + 9));
}

// File offset of the tileset record `number` through the pointer and bank at TilesetBase.
inline std::int64_t TilesetRecordAt(const Image& rom, int number, std::int64_t base = 0x2DFA) {
  return BankPointerToOffset(Byte(rom, base + 21), Word(rom, base + 3)) + number * 15;
}

}  // namespace kartova::test
