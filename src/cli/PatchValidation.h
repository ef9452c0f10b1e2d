#pragma once

#include <optional>

#include "cli/Patch.h"

namespace kartova {
class RomDocument;
}

namespace kartova::cli {

// The first edit of the entry that the loaded map cannot take: a cell outside the map as its
// header gives its size, a primary header byte the ROM's definition does not count to the
// map's record (a save writes the 30 bytes of the buffer, but those past the record are the
// next record's), a record the map does not have.
std::optional<PatchProblem> CheckAgainstMap(const MapEdit& edit, const RomDocument& document);

}  // namespace kartova::cli
