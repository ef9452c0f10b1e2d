#include "demo/DemoWorld.h"

// House interiors and the cave. Each exit leads back to the door or ladder it was entered by.
namespace kartova::demo {
namespace {

const MapRows kMuehlentalHausRows = {
    "WwPBW",
    "t...b",
    "..p..",
    ".e...",
};

const MapRows kLadenRows = {
    "kkkWwW",
    "cc...p",
    "......",
    "..e..r",
};

const MapRows kHafenHausRows = {
    "WwPW",
    "b..t",
    "...p",
    ".e..",
};

const MapRows kHafenamtRows = {
    "WBwwBW",
    "......",
    ".cc..p",
    "..rr..",
    "..e...",
};

const MapRows kFischerhuetteRows = {
    "WwWPW",
    "t...b",
    "p....",
    "..e..",
};

const MapRows kGrotteRows = {
    "################",
    "##*###....######",
    "##..,...o..#####",
    "#...##.....,..##",
    "#.m.##..~.....##",
    "#.mm........D.##",
    "##...,.......###",
    "###..o...##..,.#",
    "##.....####....#",
    "##.,....##..m..#",
    "###.......E...##",
    "################",
};

const MapRows kGrotteTiefeRows = {
    "##########",
    "#*##....##",
    "#..,..o..#",
    "#.~...#..#",
    "#....###.#",
    "##.m.....#",
    "#...,..~.#",
    "#.o....,.#",
    "#..U....##",
    "##########",
};

MapDecl Room(const IndoorTiles& tiles, const MapRows& rows, Location location, std::uint8_t music) {
  MapDecl m;
  m.tileset = kIndoorTileset;
  m.ability = 1;  // the indoor lighting table
  m.location = location;
  m.music = music;
  m.lighting = 1;
  m.border = static_cast<std::uint8_t>(tiles.outside);
  m.width = static_cast<std::uint8_t>(rows[0].size());
  m.height = static_cast<std::uint8_t>(rows.size());
  m.blocks = PaintIndoor(tiles, rows);
  return m;
}

MapDecl Cave(const CaveTiles& tiles, const MapRows& rows) {
  MapDecl m;
  m.tileset = kCaveTileset;
  m.ability = 2;
  m.location = kGrotteName;
  m.music = 8;
  m.lighting = 2;  // night / cave under "Auto"
  m.fishing = 2;
  m.border = static_cast<std::uint8_t>(tiles.rock);
  m.width = static_cast<std::uint8_t>(rows[0].size());
  m.height = static_cast<std::uint8_t>(rows.size());
  m.blocks = PaintCave(tiles, rows);
  return m;
}

WarpDecl Exit(const MapRows& rows, char c, MapRef target, int target_warp) {
  const auto [x, y] = EventCell(FindBlocks(rows, c).at(0));
  return {.y = y, .x = x, .target_warp = static_cast<std::uint8_t>(target_warp),
          .target_bank = static_cast<std::uint8_t>(target.bank),
          .target_map = static_cast<std::uint8_t>(target.number)};
}

PersonDecl Person(std::uint8_t picture, int x, int y, std::uint8_t movement, int script) {
  return {.picture = picture, .y = static_cast<std::uint8_t>(y), .x = static_cast<std::uint8_t>(x),
          .facing = 1, .movement = movement, .time_dependence = 0xFF, .time_range = 0xFF,
          .function = 0, .sight_range = 0, .script = Script(script), .visibility = 0xFFFF};
}

void Add(RomBuilder& builder, MapRef ref, MapDecl decl) {
  if (builder.MapCount(ref.bank) + 1 != ref.number) throw RomBuildError("demo: maps added out of order");
  decl.script_bank = ScriptBank(ref.bank);
  builder.Map(ref.bank, std::move(decl));
}

}  // namespace

void AddIndoorMaps(RomBuilder& builder, const IndoorTiles& indoor, const CaveTiles& cave) {
  MapDecl haus = Room(indoor, kMuehlentalHausRows, kMuehlentalName, 6);
  haus.warps = {Exit(kMuehlentalHausRows, 'e', kMuehlental, 1)};
  haus.people = {Person(0x1A, 4, 4, 0x00, 15)};
  haus.signposts = {{.y = 1, .x = 4, .type = 0, .script = Script(16)}};  // the picture
  Add(builder, kMuehlentalHaus, haus);

  MapDecl laden = Room(indoor, kLadenRows, kMuehlentalName, 7);
  laden.warps = {Exit(kLadenRows, 'e', kMuehlental, 2)};
  laden.people = {Person(0x1B, 1, 1, 0x00, 17), Person(0x05, 8, 5, 0x03, 18)};
  laden.enter_scripts = {{.script = Script(19), .res1 = 0, .res2 = 0}};
  Add(builder, kMuehlentalLaden, laden);

  MapDecl hafen_haus = Room(indoor, kHafenHausRows, kHafenName, 6);
  hafen_haus.warps = {Exit(kHafenHausRows, 'e', kHafen, 2)};
  hafen_haus.people = {Person(0x1C, 4, 3, 0x02, 12)};
  Add(builder, kHafenHaus, hafen_haus);

  MapDecl amt = Room(indoor, kHafenamtRows, kHafenName, 7);
  amt.warps = {Exit(kHafenamtRows, 'e', kHafen, 1)};
  amt.people = {Person(0x1D, 3, 3, 0x00, 13), Person(0x12, 9, 6, 0x03, 14)};
  amt.signposts = {{.y = 1, .x = 2, .type = 0, .script = Script(15)},
                   {.y = 1, .x = 8, .type = 0, .script = Script(16)}};
  amt.triggers = {{.status = 0, .y = 7, .x = 5, .res1 = 0, .script = Script(17)}};
  Add(builder, kHafenamt, amt);

  MapDecl huette = Room(indoor, kFischerhuetteRows, kHafenName, 6);
  huette.warps = {Exit(kFischerhuetteRows, 'e', kHafen, 3)};
  huette.people = {Person(0x13, 6, 2, 0x00, 18)};
  Add(builder, kFischerhuette, huette);

  MapDecl grotte = Cave(cave, kGrotteRows);
  grotte.warps = {Exit(kGrotteRows, 'E', kWeg11, 1), Exit(kGrotteRows, 'D', kGrotteTiefe, 1)};
  grotte.people = {Person(0x20, 14, 10, 0x02, 0), Person(0x21, 22, 17, 0x00, 1)};
  grotte.people[0].sight_range = 2;
  grotte.people[0].function = 0x02;
  grotte.enter_scripts = {{.script = Script(2), .res1 = 0, .res2 = 0}};
  Add(builder, kGrotte, grotte);

  MapDecl tiefe = Cave(cave, kGrotteTiefeRows);
  tiefe.warps = {Exit(kGrotteTiefeRows, 'U', kGrotte, 2)};
  tiefe.people = {Person(0x21, 11, 4, 0x00, 3)};
  tiefe.triggers = {{.status = 0, .y = 12, .x = 10, .res1 = 0, .script = Script(4)}};
  tiefe.time_scripts = {{.condition = 0x02, .script = Script(5)}};
  Add(builder, kGrotteTiefe, tiefe);
}

}  // namespace kartova::demo
