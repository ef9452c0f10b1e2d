#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "demo/DemoTiles.h"
#include "demo/RomBuilder.h"

// The demo world: two towns, the routes between them, a beach, house interiors and a cave.
namespace kartova::demo {

inline constexpr int kOutdoorTileset = 0;
inline constexpr int kIndoorTileset = 3;
inline constexpr int kCaveTileset = 4;

// Location bytes.
enum Location : std::uint8_t {
  kMuehlentalName, kWeg11Name, kWeg12Name, kWeg13Name, kHafenName, kSeeName, kGrotteName,
};

// The maps, by map bank and number.
inline constexpr MapRef kMuehlental{1, 1}, kWeg11{1, 2}, kWeg12{1, 3}, kWeissensee{1, 4},
    kMuehlentalHaus{1, 5}, kMuehlentalLaden{1, 6};
inline constexpr MapRef kHafen{2, 1}, kWeg13{2, 2}, kHafenHaus{2, 3}, kHafenamt{2, 4},
    kFischerhuette{2, 5};
inline constexpr MapRef kGrotte{3, 1}, kGrotteTiefe{3, 2};

// ROM banks of each map bank's scripts; the script stubs lie at the end of each.
int ScriptBank(int map_bank);
// A script pointer to stub number n of a map bank's script bank.
std::uint16_t Script(int n);

// A map drawn as text, one character per block; see the painters for the characters.
using MapRows = std::vector<std::string_view>;

// Block positions (column, row) of every occurrence of c, row by row.
std::vector<std::pair<int, int>> FindBlocks(const MapRows& rows, char c);
// The event cell of a door, exit or sign drawn in the block at (column, row): its lower left
// quarter, in map tiles (two per block side).
std::pair<std::uint8_t, std::uint8_t> EventCell(std::pair<int, int> block);

std::vector<std::uint8_t> PaintOutdoor(OutdoorTiles& tiles, const MapRows& rows);
std::vector<std::uint8_t> PaintIndoor(const IndoorTiles& tiles, const MapRows& rows);
std::vector<std::uint8_t> PaintCave(const CaveTiles& tiles, const MapRows& rows);

// Adds the maps in map-number order within each bank: outdoor maps first, then the rest.
void AddOutdoorMaps(RomBuilder& builder, OutdoorTiles& tiles);
void AddIndoorMaps(RomBuilder& builder, const IndoorTiles& indoor, const CaveTiles& cave);

}  // namespace kartova::demo
