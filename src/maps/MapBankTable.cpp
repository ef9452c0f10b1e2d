#include "maps/MapBankTable.h"

#include <algorithm>

#include "rom/RomFile.h"

namespace kartova {

namespace {

constexpr int kCheckedBytes = 9;

// What the counting walk accepts as a primary header. Bytes past the end of the file read as
// zero, so the secondary-header pointer check ends a walk that runs off the file.

bool LooksLikeHeader(const std::array<std::uint8_t, kCheckedBytes>& r) {
  if (r[1] > 0x28) return false;  // tileset
  const int secondary_pointer = r[3] | r[4] << 8;
  if (secondary_pointer < 0x4000 || secondary_pointer > 0x7FFF) return false;
  if (r[5] > 0x5E) return false;  // location
  return r[8] <= 0x0D;            // fishing group
}

// The walk of bank `own` stops once record n reaches into a list that starts behind its own;
// the stride used here is deliberately one byte short of the record length.
bool RunsIntoAnotherList(const MapGroupPointers& groups, int own, std::int64_t header_length, int n) {
  const std::int64_t start = groups[static_cast<size_t>(own)];
  const std::int64_t reach = CheckedInt32(start + CheckedInt32((header_length - 1) * n));
  for (std::int32_t other : groups)
    if (other > start && other < reach) return true;
  return false;
}

}  // namespace

MapGroupPointers ReadMapGroupTable(RomFile& rom) {
  std::array<std::uint8_t, kMapBankCount * 2> raw{};
  rom.Seek(kMapGroupTableOffset);
  rom.ReadBytes(raw.data(), raw.size());
  MapGroupPointers groups{};
  for (int i = 0; i < kMapBankCount; ++i) groups[static_cast<size_t>(i)] = raw[2 * i] | raw[2 * i + 1] << 8;
  return groups;
}

std::uint8_t CountMapsInBank(RomFile& rom, const MapGroupPointers& groups, int bank,
                             std::int32_t header_length) {
  CheckIndex(bank, kMapBankCount);
  // The nine checked bytes are read even when HeaderLength claims less; the rest is skipped.
  const std::int64_t stride = std::max<std::int64_t>(header_length, kCheckedBytes);
  std::array<std::uint8_t, kCheckedBytes> record;
  rom.Seek(MapGroupOffset(groups[static_cast<size_t>(bank)]));
  for (int n = 1;; ++n) {
    const std::int64_t next = rom.Position() + stride;
    record.fill(0);
    rom.ReadBytes(record.data(), record.size());
    rom.Seek(next);
    if (!LooksLikeHeader(record) || RunsIntoAnotherList(groups, bank, header_length, n))
      return static_cast<std::uint8_t>(n - 1);
    // Record n passed, so the count will be at least n: past 255 it cannot be stored.
    if (n >= 256) throw RuntimeError::Overflow();
  }
}

MapList ReadMapList(RomFile& rom, const MapGroupPointers& groups, const MapCounts& counts, int bank,
                    std::int32_t header_length, const LocationNames& names) {
  CheckIndex(bank, kMapBankCount);
  const std::int64_t first = MapGroupOffset(groups[static_cast<size_t>(bank)]) + 5;  // location byte
  const std::string suffix = " - " + std::to_string(bank + 1) + ".";
  MapList list;
  for (int n = 1; n <= counts[static_cast<size_t>(bank)]; ++n) {
    rom.Seek(first + static_cast<std::int64_t>(header_length) * (n - 1));
    const std::uint8_t location = rom.ReadByte();
    if (location >= kLocationCount) {
      list.error = RuntimeError::SubscriptOutOfRange();
      break;
    }
    list.entries.push_back(names[location] + suffix + std::to_string(n));
  }
  return list;
}

}  // namespace kartova
