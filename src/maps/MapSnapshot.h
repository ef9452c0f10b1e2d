#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "events/MapEventSet.h"
#include "maps/MapBankTable.h"
#include "maps/MapHeaders.h"
#include "rom/FileRegion.h"
#include "rom/RomDefinition.h"
#include "rom/RomFile.h"

namespace kartova {

// The parts of one map that a full save writes, read as a map load reads them but without the
// tileset, the palettes and the neighbours' strips: what it takes to compare a map of one ROM
// with the same map of another.
struct MapSnapshot {
  std::int64_t header_offset = 0;  // the primary header, as RomDocument::HeaderOffset
  PrimaryHeaderBuffer primary;
  SecondaryHeaderBuffer secondary;
  // The map's cells at the block-data pointer, width × height, row after row.
  std::vector<std::uint8_t> blocks;
  MapEventSet events;

  int Width() const { return secondary.Width(); }
  int Height() const { return secondary.Height(); }

  // The regions a full save of this map writes, in the save's order: primary header,
  // secondary header, block rows, script header, event lists.
  std::vector<FileRegion> SaveRegions() const;
};

// One ROM read map by map with a given definition (not necessarily the one its own title
// selects), through one handle on the file for the whole run. Opening checks the file as
// OpenRom does (RomOpenError) and reads the map bank table and the location names; runtime
// errors carry the file and what was being read.
class MapSnapshotReader {
 public:
  MapSnapshotReader(const std::string& path, const RomDefinition& definition);

  const MapCounts& Counts() const { return counts_; }
  const LocationNames& Names() const { return names_; }
  std::int64_t FileSize() const { return rom_.Size(); }

  // Map `map` (0-based) of bank (0..25). The subscript error for another bank, the overflow
  // error for a header offset that leaves 32 bits. What lies past the end of the file reads
  // as a load reads it: zeros.
  MapSnapshot Read(int bank, int map);

 private:
  std::string path_;
  std::int32_t header_length_ = 9;
  RomFile rom_;
  MapGroupPointers groups_{};
  MapCounts counts_{};
  LocationNames names_;
};

}  // namespace kartova
