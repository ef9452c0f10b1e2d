#include "demo/DemoWorld.h"

// The outdoor maps. Connections join them in all four directions; the roads meet where the
// offsets put the neighbours. Doors, the cave mouth and signs get their events from where
// they are drawn.
namespace kartova::demo {
namespace {

const MapRows kMuehlentalRows = {
    "TTTTTTTT##TTTTTTTTTT",
    "TT*..,..##.....,.*TT",
    "TT.hx...##...Hxx..TT",
    "TT.xx...##...xxx..TT",
    "TT..###########...TT",
    "TT.S....##.....*..TT",
    "TT.FFF..##..R.....TT",
    "T,......##...,.....T",
    "####################",
    "####################",
    "T.......##.....*...T",
    "T.~~~~..##..TT..,..T",
    "T.~~~~..##..TT.*.S.T",
    "T..~~...##.......*.T",
    "T.*.....##..gg.....T",
    "TTTTTTTT##TTTTTTTTTT",
};

const MapRows kWeg11Rows = {
    "CCCCCCTTTTTTTTTTTTTTTTTTTTTTTT",
    "CCCCCC..ggg....TT.....gggg..TT",
    "CCMCCC..ggg..R.TT..*..gggg...T",
    "T.#..........................T",
    "T.############################",
    "T.############################",
    "T......ggggg.....S....ggg....T",
    "TT.....ggggg..TT......ggg...TT",
    "TTT..*.......TTTT.........TTTT",
    "TTTTTTTTTTTTTTTTTTTTTTTTTTTTTT",
};

const MapRows kWeg12Rows = {
    "TTTTTTTTTTTTTTTTTT",
    "TT....ggg.....,.TT",
    "T..*..ggg..R....TT",
    "T.....ggg.....*..T",
    "T..FFFF......ggg.T",
    "T.........S..ggg.T",
    "################.T",
    "################.T",
    "T.....,...ggg.##.T",
    "T..R......ggg.##.T",
    "TT....*.......##TT",
    "TTTTTTTTTTTTTTTTTT",
};

const MapRows kWeissenseeRows = {
    "TTTTTTTT##TTTTTTTTTT",
    "TT.*....##....,..TTT",
    "T..ssss.##.sssss..TT",
    "T.ssssss##sssssss..T",
    "Tsssssssssssssssss.T",
    "~~~~~~~~~~~~~~~~~~~~",
    "~~~~~~~~~~~~~~~~~~~~",
    "~~~~~~~~~~~~~~~~~~~~",
};

const MapRows kWeg13Rows = {
    "TTTT##TTTTTT",
    "TT..##...TTT",
    "TTgg##gg..TT",
    "TTgg##gg..TT",
    "TT..##....TT",
    "TT..####..TT",
    "TTR...##..TT",
    "TT,...##gggT",
    "TT....##gggT",
    "TTS...##...T",
    "TT....##..TT",
    "TTgg..##..TT",
    "Tggg..##.*TT",
    "Tggg####..TT",
    "TT..##....TT",
    "TT..##.,..TT",
    "TT*.##..RTTT",
    "TTT.##..TTTT",
    "TT..##...TTT",
    "TTTT##TTTTTT",
};

const MapRows kHafenRows = {
    "TTTTTTTTTTTTTTTTTTTTTTTTTTTTTT",
    "TTT~~~~~~~~~~~~~~~~~~~~~~~~TTT",
    "TT~~~~~~~~~~~~~~~~~~~~~~~~~~TT",
    "T~~~~~~~~~~~~~~~~~~~~~~~~~~~~T",
    "T~~~~~~~~~~==~~~~~~~~==~~~~~~T",
    "T~~~~~~~~~~==~~~~~~~~==~~~~~~T",
    "T,~~~~~~~~~==~~~~~~~~==~~~~~,T",
    "T.###########################T",
    "T....*........##....*.....S..T",
    "T...Hxx....hx.##......hx.....T",
    "T...xxx....xx.##......xx.....T",
    "T....###################.....T",
    "T.FFFF.....R..##........FFFF.T",
    "T.*.*.*.TT....##...ggg.......T",
    "T.......TT....##...ggg..S....T",
    "TTT..,........##...........TTT",
    "TTTT.....*....##.....,....TTTT",
    "TTTTT.........##.........TTTTT",
    "TTTTTT........##........TTTTTT",
    "TTTTTTTTTTTTTT##TTTTTTTTTTTTTT",
};

std::uint8_t Width(const MapRows& rows) { return static_cast<std::uint8_t>(rows[0].size()); }
std::uint8_t Height(const MapRows& rows) { return static_cast<std::uint8_t>(rows.size()); }

MapDecl Outdoor(OutdoorTiles& tiles, const MapRows& rows, Location location, std::uint8_t music) {
  MapDecl m;
  m.tileset = kOutdoorTileset;
  m.ability = 0;  // the outdoor lighting table
  m.location = location;
  m.music = music;
  m.lighting = 1;  // day under "Auto"
  m.fishing = 1;
  m.border = static_cast<std::uint8_t>(tiles.trees);
  m.width = Width(rows);
  m.height = Height(rows);
  m.blocks = PaintOutdoor(tiles, rows);
  return m;
}

WarpDecl Warp(std::pair<int, int> block, MapRef target, int target_warp) {
  const auto [x, y] = EventCell(block);
  return {.y = y, .x = x, .target_warp = static_cast<std::uint8_t>(target_warp),
          .target_bank = static_cast<std::uint8_t>(target.bank),
          .target_map = static_cast<std::uint8_t>(target.number)};
}

std::vector<SignpostDecl> Signs(const MapRows& rows, int first_script) {
  std::vector<SignpostDecl> signs;
  for (auto block : FindBlocks(rows, 'S')) {
    const auto [x, y] = EventCell(block);
    signs.push_back({.y = y, .x = x, .type = 0, .script = Script(first_script++)});
  }
  return signs;
}

ConnectionDecl Join(Direction d, MapRef target, int offset) {
  return {.direction = d, .target = target, .offset = offset};
}

PersonDecl Person(std::uint8_t picture, int x, int y, std::uint8_t movement, int script) {
  return {.picture = picture, .y = static_cast<std::uint8_t>(y), .x = static_cast<std::uint8_t>(x),
          .facing = 0, .movement = movement, .time_dependence = 0xFF, .time_range = 0xFF,
          .function = 0, .sight_range = 0, .script = Script(script), .visibility = 0xFFFF};
}

MapDecl Muehlental(OutdoorTiles& tiles) {
  MapDecl m = Outdoor(tiles, kMuehlentalRows, kMuehlentalName, 2);
  const auto small = FindBlocks(kMuehlentalRows, 'h')[0];
  const auto big = FindBlocks(kMuehlentalRows, 'H')[0];
  // Doors are in the house's lower right (small) or lower middle (big) block.
  m.warps = {Warp({small.first + 1, small.second + 1}, kMuehlentalHaus, 1),
             Warp({big.first + 1, big.second + 1}, kMuehlentalLaden, 1)};
  m.signposts = Signs(kMuehlentalRows, 0);
  m.people = {Person(0x05, 22, 14, 0x02, 2), Person(0x0B, 6, 20, 0x03, 3)};
  m.triggers = {{.status = 0, .y = 1, .x = 17, .res1 = 0, .script = Script(4)}};
  m.enter_scripts = {{.script = Script(5), .res1 = 0, .res2 = 0}};
  m.time_scripts = {{.condition = 0x01, .script = Script(6)}};
  m.connections = {Join(Direction::kNorth, kWeg13, 4), Join(Direction::kSouth, kWeissensee, 0),
                   Join(Direction::kWest, kWeg11, 4), Join(Direction::kEast, kWeg12, 2)};
  return m;
}

MapDecl Weg11(OutdoorTiles& tiles) {
  MapDecl m = Outdoor(tiles, kWeg11Rows, kWeg11Name, 3);
  m.warps = {Warp(FindBlocks(kWeg11Rows, 'M')[0], kGrotte, 1)};
  m.signposts = Signs(kWeg11Rows, 7);
  m.people = {Person(0x0E, 30, 9, 0x01, 8)};
  m.people[0].sight_range = 4;
  m.people[0].function = 0x02;
  m.triggers = {{.status = 1, .y = 8, .x = 6, .res1 = 0, .script = Script(9)}};
  m.connections = {Join(Direction::kEast, kMuehlental, -4)};
  return m;
}

MapDecl Weg12(OutdoorTiles& tiles) {
  MapDecl m = Outdoor(tiles, kWeg12Rows, kWeg12Name, 3);
  m.signposts = Signs(kWeg12Rows, 10);
  m.people = {Person(0x0F, 20, 16, 0x00, 11)};
  m.connections = {Join(Direction::kWest, kMuehlental, -2)};
  return m;
}

MapDecl Weissensee(OutdoorTiles& tiles) {
  MapDecl m = Outdoor(tiles, kWeissenseeRows, kSeeName, 4);
  m.fishing = 3;
  m.border = static_cast<std::uint8_t>(tiles.water_block);  // the lake goes on to the south
  m.people = {Person(0x10, 12, 7, 0x00, 12), Person(0x11, 28, 8, 0x02, 13)};
  m.time_scripts = {{.condition = 0x02, .script = Script(14)}};
  m.connections = {Join(Direction::kNorth, kMuehlental, 0)};
  return m;
}

MapDecl Hafen(OutdoorTiles& tiles) {
  MapDecl m = Outdoor(tiles, kHafenRows, kHafenName, 5);
  m.fishing = 5;
  const auto big = FindBlocks(kHafenRows, 'H')[0];
  const auto small = FindBlocks(kHafenRows, 'h');
  m.warps = {Warp({big.first + 1, big.second + 1}, kHafenamt, 1),
             Warp({small[0].first + 1, small[0].second + 1}, kHafenHaus, 1),
             Warp({small[1].first + 1, small[1].second + 1}, kFischerhuette, 1)};
  m.signposts = Signs(kHafenRows, 0);
  m.people = {Person(0x12, 23, 9, 0x00, 2), Person(0x13, 40, 16, 0x02, 3),
              Person(0x05, 10, 26, 0x03, 4)};
  m.enter_scripts = {{.script = Script(5), .res1 = 0, .res2 = 0},
                     {.script = Script(6), .res1 = 1, .res2 = 0}};
  m.connections = {Join(Direction::kSouth, kWeg13, 10)};
  return m;
}

MapDecl Weg13(OutdoorTiles& tiles) {
  MapDecl m = Outdoor(tiles, kWeg13Rows, kWeg13Name, 3);
  m.signposts = Signs(kWeg13Rows, 7);
  m.people = {Person(0x0E, 14, 20, 0x01, 8), Person(0x0F, 6, 30, 0x02, 9)};
  m.people[0].sight_range = 3;
  m.people[0].function = 0x02;
  m.triggers = {{.status = 0, .y = 26, .x = 8, .res1 = 0, .script = Script(10)},
                {.status = 0, .y = 26, .x = 9, .res1 = 0, .script = Script(10)}};
  m.time_scripts = {{.condition = 0x03, .script = Script(11)}};
  m.connections = {Join(Direction::kNorth, kHafen, -10), Join(Direction::kSouth, kMuehlental, -4)};
  return m;
}

}  // namespace

void AddOutdoorMaps(RomBuilder& builder, OutdoorTiles& tiles) {
  auto add = [&](MapRef ref, MapDecl decl) {
    if (builder.MapCount(ref.bank) + 1 != ref.number) {
      throw RomBuildError("demo: maps added out of order");
    }
    decl.script_bank = ScriptBank(ref.bank);
    builder.Map(ref.bank, std::move(decl));
  };
  add(kMuehlental, Muehlental(tiles));
  add(kWeg11, Weg11(tiles));
  add(kWeg12, Weg12(tiles));
  add(kWeissensee, Weissensee(tiles));
  add(kHafen, Hafen(tiles));
  add(kWeg13, Weg13(tiles));
}

}  // namespace kartova::demo
