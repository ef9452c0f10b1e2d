#pragma once

#include <cstdint>

// Conversions from the game's banked pointers to file offsets. A pointer of the game addresses
// the switchable area 0x4000-0x7FFF, where the paged-in bank shows. The forms mask a malformed
// pointer differently on purpose; every reader and writer uses the form named for its data.
// Results are 64-bit; callers that need the editor's 32-bit offset pass them through
// CheckedInt32 (RuntimeError.h).
namespace kartova {

inline constexpr std::int64_t kBankSize = 0x4000;
inline constexpr std::int64_t kTitleOffset = 0x134;        // 16 bytes of cartridge title
inline constexpr std::int64_t kTitleLength = 16;
inline constexpr std::int64_t kMapGroupTableOffset = 0x940ED;  // 26 pointers into bank 0x25
inline constexpr int kMapBankCount = 26;
inline constexpr std::int64_t kMapGroupBase = 0x90000;

// Pointers read as one 16-bit value beside a bank number (connection and event data).
constexpr std::int64_t BankPointerToOffset(std::int64_t bank, std::int64_t pointer) {
  return bank * 0x4000 + (pointer & 0x3FFF);
}

// Pointers held as separate high and low bytes beside a bank byte (block data, event data).
constexpr std::int64_t BankHiLoToOffset(std::int64_t bank, std::int64_t hi, std::int64_t lo) {
  return bank * 0x4000 + ((hi & 0x3F) * 0x100) + lo;
}

// Primary header -> secondary header: only bit 14 of the pointer is cleared, bit 15 is kept.
constexpr std::int64_t SecondaryHeaderOffset(std::int64_t bank, std::int64_t hi, std::int64_t lo) {
  return bank * 0x4000 + ((hi & 0xBF) * 0x100) + lo;
}

// A pointer into the bank of the table it was found in (the location-name table).
constexpr std::int64_t SameBankOffset(std::int64_t table_offset, std::int64_t pointer) {
  return (table_offset & 0x7FFFC000) + (pointer & 0x3FFF);
}

// The map-header group pointers all point into bank 0x25.
constexpr std::int64_t MapGroupOffset(std::int64_t pointer) { return kMapGroupBase + pointer; }

// Primary header of map `index` (0-based) in a bank whose group pointer is `group_pointer`.
constexpr std::int64_t MapHeaderOffset(std::int64_t group_pointer, std::int64_t header_length,
                                       std::int64_t index) {
  return kMapGroupBase + group_pointer + header_length * index;
}

}  // namespace kartova
