// The demo's maps as declarations (headers and blocks, no connections or events), read back
// from the demo ROM: the models the large benchmark worlds are filled with, so that their copies
// draw real scenery with the demo's tilesets.

#pragma once

#include <cstdint>
#include <vector>

#include "BenchSupport.h"
#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"

namespace kartova::bench {

inline std::vector<MapDecl> DemoMaps() {
  RomDocument doc;
  doc.OpenRom(DemoRomPath(), DemoSettings());
  std::vector<MapDecl> maps;
  for (int bank = 0; bank < kMapBankCount; ++bank) {
    for (int map = 0; map < doc.MapCountPerBank()[static_cast<std::size_t>(bank)]; ++map) {
      doc.LoadSelectedMap(bank, map);
      const auto& p = doc.Primary().bytes;
      const auto& s = doc.Secondary().bytes;
      const std::vector<std::uint8_t> file = doc.MapFileBytes();  // the marker, then the rows
      maps.push_back({.tileset = p[1], .ability = p[2], .location = p[5], .music = p[6],
                      .lighting = p[7], .border = s[0], .width = s[2], .height = s[1],
                      .blocks = std::vector<std::uint8_t>(file.begin() + 1, file.end())});
    }
  }
  return maps;
}

}  // namespace kartova::bench
