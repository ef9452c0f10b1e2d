#include "maps/MapSnapshot.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "maps/MapNames.h"
#include "maps/RomFileChecks.h"
#include "rom/Address.h"
#include "rom/GameTextTable.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

RomFile OpenChecked(const std::string& path) {
  CheckRomFile(path);
  return RomFile::OpenExisting(path);
}

// The block rows as the grid stage reads them: one run of width × height bytes.
std::vector<std::uint8_t> ReadBlockRows(RomFile& rom, const SecondaryHeaderBuffer& secondary) {
  std::vector<std::uint8_t> cells(static_cast<std::size_t>(secondary.Width()) * secondary.Height(), 0);
  rom.Seek(secondary.BlockDataFileOffset());
  if (!cells.empty()) rom.ReadBytes(cells.data(), cells.size());
  return cells;
}

}  // namespace

std::vector<FileRegion> MapSnapshot::SaveRegions() const {
  std::vector<FileRegion> regions;
  regions.push_back({header_offset, {primary.bytes.begin(), primary.bytes.end()}});
  regions.push_back({primary.SecondaryHeaderFileOffset(), {secondary.bytes.begin(), secondary.bytes.end()}});
  regions.push_back({secondary.BlockDataFileOffset(), blocks});
  // A list read from a count byte never holds more than 255 records, so this cannot overflow.
  for (FileRegion& region : EventSaveRegions(secondary, events)) regions.push_back(std::move(region));
  return regions;
}

MapSnapshotReader::MapSnapshotReader(const std::string& path, const RomDefinition& definition)
    : path_(path), header_length_(definition.header_length), rom_(OpenChecked(path)) {
  WithErrorContext({ErrorActivity::kReadingMapBankTable, path, kMapGroupTableOffset}, [&] {
    groups_ = ReadMapGroupTable(rom_);
    for (int bank = 0; bank < kMapBankCount; ++bank)
      counts_[static_cast<std::size_t>(bank)] = CountMapsInBank(rom_, groups_, bank, header_length_);
  });
  const GameTextTable text;
  names_ = WithErrorContext({ErrorActivity::kReadingLocationNames, path, definition.map_name_table},
                            [&] { return ReadLocationNames(rom_, definition.map_name_table, text); });
}

MapSnapshot MapSnapshotReader::Read(int bank, int map) {
  MapSnapshot snapshot;
  std::optional<std::int64_t> at;  // unknown while the header's own offset is computed
  try {
    // As RomDocument::HeaderOffset: a 16-bit list index and a 32-bit offset.
    CheckIndex(bank, kMapBankCount);
    if (map < INT16_MIN || map > INT16_MAX) throw RuntimeError::Overflow();
    CheckedInt32(static_cast<std::int64_t>(header_length_) * map);
    at = snapshot.header_offset =
        CheckedInt32(MapHeaderOffset(groups_[static_cast<std::size_t>(bank)], header_length_, map));
    ReadPrimaryHeader(rom_, *at, snapshot.primary);
    ReadSecondaryHeader(rom_, snapshot.primary, snapshot.secondary);
  } catch (RuntimeError& error) {
    error.AddContext({ErrorActivity::kReadingHeaders, path_, at});
    throw;
  }
  snapshot.blocks = ReadBlockRows(rom_, snapshot.secondary);
  LoadMapEvents(rom_, snapshot.secondary, snapshot.events);
  return snapshot;
}

}  // namespace kartova
