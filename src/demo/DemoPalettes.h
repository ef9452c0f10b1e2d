#pragma once

#include "demo/RomBuilder.h"

namespace kartova::demo {

// Lighting tables of the demo, chosen by primary header byte 2 ("AbilityNames").
inline constexpr int kOutdoorLighting = 0;
inline constexpr int kIndoorLighting = 1;
// The cave tileset takes its colours from this special palette set instead.
inline constexpr int kCavePaletteSet = 1;

// Declares the demo's palettes for every lighting: the time-of-day palettes of the outdoor and
// indoor tilesets, their lighting tables, the per-map-bank colours of palette 6 (roofs, beds
// and crystals change colour from bank to bank) and the cave's special palette set.
void AddDemoPalettes(RomBuilder& builder);

}  // namespace kartova::demo
