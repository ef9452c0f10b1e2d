#pragma once

#include <array>
#include <cstdint>

#include "demo/RomBuilder.h"

namespace kartova {

// What the connection record needs to know about a map.
struct MapGeometry {
  int width = 0;
  int height = 0;
  std::int64_t blocks = 0;  // file offset of the block data
};

// The 12-byte record joining `self` to `neighbour` (map `target`) in direction d, the
// neighbour's column 0 (north, south) or row 0 (west, east) lying at `offset` of self.
// The strip is the three rows or columns of the neighbour next to the shared edge, clipped to
// self's bordered working copy (width + 6 by height + 6 blocks, 0xC700 at its top-left).
// Throws RomBuildError when the maps do not meet or the neighbour is thinner than the strip.
std::array<std::uint8_t, 12> MakeConnectionRecord(Direction d, const MapGeometry& self,
                                                  const MapGeometry& neighbour,
                                                  const MapRef& target, int offset);

}  // namespace kartova
