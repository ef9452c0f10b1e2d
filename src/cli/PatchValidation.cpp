#include "cli/PatchValidation.h"

#include <algorithm>
#include <string>

#include "maps/RomDocument.h"

namespace kartova::cli {

namespace {

std::string MapName(const MapEdit& edit) { return "map " + std::to_string(edit.bank) + "." + std::to_string(edit.map); }

std::optional<PatchProblem> CheckBlocks(const MapEdit& edit, const ExtendedMap& grid) {
  for (const BlockEdit& b : edit.blocks) {
    if (b.x >= grid.MapWidth())
      return PatchProblem{b.path, "x " + std::to_string(b.x) + " is outside " + MapName(edit) + ", which is " +
                                      std::to_string(grid.MapWidth()) + " blocks wide"};
    if (b.y >= grid.MapHeight())
      return PatchProblem{b.path, "y " + std::to_string(b.y) + " is outside " + MapName(edit) + ", which is " +
                                      std::to_string(grid.MapHeight()) + " blocks high"};
  }
  return std::nullopt;
}

std::optional<PatchProblem> CheckPrimary(const MapEdit& edit, int header_length) {
  for (const HeaderByteEdit& e : edit.primary)
    if (e.index >= header_length)
      return PatchProblem{e.path, "the ROM's definition gives a primary header " + std::to_string(header_length) +
                                      " bytes (0-" + std::to_string(header_length - 1) + ")"};
  return std::nullopt;
}

std::optional<PatchProblem> CheckEvents(const MapEdit& edit, const MapEventSet& events) {
  for (const EventRecordEdit& e : edit.events) {
    const int count = events.Count(e.kind);
    if (e.index >= count)
      return PatchProblem{e.path, MapName(edit) + " has " + std::to_string(count) + " " + EventKindName(e.kind) +
                                      " record" + (count == 1 ? "" : "s") +
                                      (count > 0 ? " (0-" + std::to_string(count - 1) + ")" : "")};
  }
  return std::nullopt;
}

}  // namespace

std::optional<PatchProblem> CheckAgainstMap(const MapEdit& edit, const RomDocument& document) {
  if (auto problem = CheckBlocks(edit, document.Grid())) return problem;
  if (auto problem = CheckPrimary(edit, std::min(document.HeaderLength(), PrimaryHeaderBuffer::kSize))) return problem;
  return CheckEvents(edit, document.Events());
}

}  // namespace kartova::cli
