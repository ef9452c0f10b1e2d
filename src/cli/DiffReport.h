#pragma once

#include <string>
#include <vector>

#include "cli/JsonText.h"
#include "cli/RomDiff.h"

namespace kartova::cli {

// The three forms `diff` prints a comparison in; docs/cli.md shows each.

// {"maps": [...], "other": [...]} and "length": [A, B] when the file lengths differ. A map
// object has bank, map, name, then only what differs: only_in, size, primary, secondary,
// blocks, events.
Json DiffJson(const RomDiff& diff);

// One line per changed map ("1.2 Weg 11: 3 blocks, primary[6] 09→0A, warp 1"), then a line
// for the other bytes and one for the length when there are any; empty when the ROMs agree.
std::string DiffText(const RomDiff& diff);

// The patch for `apply` that turns A into B as far as a patch can. What it cannot express is
// added to `left_out`, one sentence each, for the warnings on the error stream.
Json DiffPatch(const RomDiff& diff, std::vector<std::string>& left_out);

}  // namespace kartova::cli
