#pragma once

#include "demo/RomBuilder.h"

namespace kartova::test {

// A world whose blocks are one colour each, so that a picture of it can be checked pixel by
// pixel: tile t has colour value t everywhere, tiles 1..3 use palettes 2, 5 and 7, and block b
// is tile b only. Blocks 0..3 therefore show colour-table entries 0 (grey 0x0421), 9 (red),
// 22 (green) and 31 (blue). Lighting 1 gives the red tiles palette 12 (white); palette 6 of
// map bank 2 is red by day and blue at night.
//
// Map 2.1: 3 x 4 blocks {0 1 2 / 2 1 0 / 3 3 3 / 0 0 0}, border 3.
// Map 2.2: 4 x 4 blocks of its border 1, with 2.1 to the north at column 0.
RomBuilder PlainWorld();

}  // namespace kartova::test
