#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "rom/Address.h"
#include "rom/RuntimeError.h"

namespace kartova {

class RomFile;

inline constexpr int kLocationCount = 95;  // location bytes 0..94 name a place

// A file that ends before the last of the 26 group pointers cannot be a ROM of the game.
inline constexpr std::int64_t kSmallestRomSize = kMapGroupTableOffset + 2 * kMapBankCount;

// The 16-bit group pointers of the 26 map banks, bank 1 first, as read.
using MapGroupPointers = std::array<std::int32_t, kMapBankCount>;
// Maps counted per bank, bank 1 first.
using MapCounts = std::array<std::uint8_t, kMapBankCount>;
using LocationNames = std::array<std::string, kLocationCount>;

// Reads the 26 pointers at the fixed group-table place. Pointers past the end of the file read 0.
MapGroupPointers ReadMapGroupTable(RomFile& rom);

// Counts the maps of bank (0..25) by walking its header list until a record does not look like
// a header, or until the walk has run as far as (HeaderLength - 1) * n into another bank's list
// that starts behind this one. A count above 255 raises the overflow error.
std::uint8_t CountMapsInBank(RomFile& rom, const MapGroupPointers& groups, int bank,
                             std::int32_t header_length);

// The entries of the map list of one bank: "name - b.n" for map n of bank b (both from 1).
// When a listed map's location byte is above 94 the list ends there with the subscript error:
// `entries` holds the maps before it and `error` the error to report.
struct MapList {
  std::vector<std::string> entries;
  std::optional<RuntimeError> error;
};

// Reads the location byte of each counted map of bank (0..25; anything else raises the
// subscript error before a byte is read).
MapList ReadMapList(RomFile& rom, const MapGroupPointers& groups, const MapCounts& counts, int bank,
                    std::int32_t header_length, const LocationNames& names);

}  // namespace kartova
