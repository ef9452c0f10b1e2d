#include "demo/DemoRom.h"

#include <utility>

#include "demo/DemoPalettes.h"
#include "demo/DemoWorld.h"
#include "rom/HexText.h"

namespace kartova {
namespace demo {

constexpr std::int64_t kScriptStubOffset = 0x3F00;  // within the script bank
constexpr int kScriptStubCount = 32;

int ScriptBank(int map_bank) { return 0x2B + map_bank; }

std::uint16_t Script(int n) {
  if (n < 0 || n >= kScriptStubCount) throw RomBuildError("demo: no script stub " + std::to_string(n));
  return static_cast<std::uint16_t>(0x4000 | (kScriptStubOffset + n));
}

namespace {

// The location names in the game's upper-case writing; the editor title-cases them.
const char* const kLocationNames[] = {
    "MÜHLENTAL", "WEG 11", "WEG 12", "WEG 13", "NORD HAFEN-STADT", "WEIßENSEE", "FELSENGROTTE",
    "ALTE MÜHLE", "SÜDSTRAND", "KÖNIGS-STRAßE", "BERG-PASS", "ÜBERFAHRT", "STILLER WALD",
};

const std::vector<std::string> kTilesetNames = {
    "Außenwelt", "Außenwelt (Kopie)", "Außenwelt (Kopie)", "Haus innen", "Höhle"};
const std::vector<std::string> kLightingTableNames = {"Draußen", "Drinnen", "Höhle"};
const std::vector<std::string> kMusicNames = {
    "Stille", "Titelmelodie", "Mühlental", "Wanderweg", "Am See", "Hafen", "Zuhause",
    "Laden", "Grotte", "Kampf", "Sieg"};
const std::vector<std::string> kTimeNames = {
    "Morgen", "Tag", "Nacht / Höhle", "Dunkelheit", "???", "???", "Nacht / Höhle", "Dunkelheit"};

// The demo's scripts do nothing the editor could show; each pointer leads to a byte of its own
// in a reserved area at the end of the map bank's script bank.
void AddScriptStubs(RomBuilder& builder) {
  for (int map_bank = 1; map_bank <= 3; ++map_bank) {
    builder.Data(ScriptBank(map_bank) * 0x4000 + kScriptStubOffset,
                 std::vector<std::uint8_t>(kScriptStubCount, 0x90));
  }
}

TilesetDecl Tileset(const TilesetArt& art, std::uint8_t special_set) {
  return {.graphics = art.Graphics(), .blocks = art.BlockData(), .palette_map = art.PaletteMap(),
          .special_palette_set = special_set};
}

void AppendList(std::string& ini, const std::string& section, const std::vector<std::string>& names) {
  ini.append("\n[").append(section).append("]\ncount=");
  ini.append(Hex(static_cast<std::int64_t>(names.size()))).append("\n");
  for (std::size_t i = 0; i < names.size(); ++i) {
    ini.append(Hex2(static_cast<std::int64_t>(i))).append("=").append(names[i]).append("\n");
  }
}

}  // namespace
}  // namespace demo

RomBuilder DemoRomBuilder() {
  using namespace demo;
  RomBuilder builder;
  builder.Title(kDemoTitle);
  OutdoorTiles outdoor = MakeOutdoorTiles();
  const IndoorTiles indoor = MakeIndoorTiles();
  const CaveTiles cave = MakeCaveTiles();
  AddOutdoorMaps(builder, outdoor);
  AddIndoorMaps(builder, indoor, cave);
  // The outdoor blocks are complete only now: the maps add the path and shore pieces they use.
  builder.Tileset(kOutdoorTileset, demo::Tileset(outdoor.art, 0))
      .Tileset(kIndoorTileset, demo::Tileset(indoor.art, 0))
      .Tileset(kCaveTileset, demo::Tileset(cave.art, kCavePaletteSet));
  AddDemoPalettes(builder);
  AddScriptStubs(builder);
  for (std::size_t i = 0; i < std::size(kLocationNames); ++i) {
    builder.LocationName(static_cast<int>(i), kLocationNames[i]);
  }
  return builder;
}

std::vector<std::uint8_t> BuildDemoRom() { return DemoRomBuilder().Build(); }

std::string DemoDefinitionSection() {
  std::string section;
  for (std::size_t i = 0; i < 16; ++i) {
    const int b = i < kDemoTitle.size() ? static_cast<unsigned char>(kDemoTitle[i]) : 0;
    section += Hex2(b);
  }
  return section;
}

std::string DemoDefinitionIni() {
  std::string ini = "; ROM definition of the Kartova demo ROM (demo.gbc).\n";
  ini.append("[").append(DemoDefinitionSection()).append("]\n");
  ini += "HeaderLengthA=9\nMapNameTable=92384\nTilesetBase=2DFA\n";
  ini += "TilesetNames=DemoTilesets\nAbilityNames=DemoBeleuchtung\n";
  ini += "MusicNames=DemoMusik\nTimeNames=DemoTageszeit\n";
  demo::AppendList(ini, "DemoTilesets", demo::kTilesetNames);
  demo::AppendList(ini, "DemoBeleuchtung", demo::kLightingTableNames);
  demo::AppendList(ini, "DemoMusik", demo::kMusicNames);
  demo::AppendList(ini, "DemoTageszeit", demo::kTimeNames);
  return ini;
}

}  // namespace kartova
