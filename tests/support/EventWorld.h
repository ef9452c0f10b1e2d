#pragma once

#include "demo/RomBuilder.h"

namespace kartova::test {

// Map 1.1 has events of every kind, two of most so that lists show their order; map 1.2 has
// none. The two bytes at 1.1's event header, neither read nor written, are 0x77 0x88.
inline BuiltRom EventWorld() {
  MapDecl full;
  full.enter_scripts = {{0x4123, 1, 2}, {0x5001, 3, 4}};
  full.time_scripts = {{7, 0x4567}};
  full.warps = {{3, 4, 1, 2, 3}, {5, 6, 2, 1, 1}};
  full.triggers = {{1, 2, 3, 4, 0x4ABC, 5, 6}};
  full.signposts = {{8, 9, 1, 0x4DEF}, {10, 11, 2, 0x4010}};
  full.people = {{0x1A, 4, 5, 1, 2, 3, 4, 5, 6, 0x5234, 0x5678}, {0x1B, 0, 250, 0, 0, 0, 0, 0, 0, 0x4000, 0xFFFF}};
  RomBuilder builder;
  builder.Map(1, full).Map(1, MapDecl{});
  const std::int64_t header = builder.BuildWithLayout().layout.Map(1, 1).event_header;
  return builder.Patch(header, {0x77, 0x88}).BuildWithLayout();
}

}  // namespace kartova::test
