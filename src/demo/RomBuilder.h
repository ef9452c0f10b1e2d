#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Lays out a complete, consistent ROM image in memory: title, map bank table, primary and
// secondary headers, connections, block data, tilesets with compressed graphics, palettes,
// location names, scripts and events. Every pointer is written with the conversions the
// editor reads it with, so reader and writer agree by construction.
//
//   auto rom = RomBuilder()
//                  .Title("TESTROM")
//                  .Tileset(0, tileset)
//                  .Map(1, {.tileset = 0, .width = 10, .height = 8, .blocks = blocks})
//                  .Map(1, {.width = 4, .height = 4,
//                           .connections = {{.direction = Direction::kNorth,
//                                            .target = {1, 1}, .offset = 2}}})
//                  .LocationName(0, "NORD HAFEN-STADT")
//                  .Build();
//
// Map banks are counted from 1 (1..26) and maps within a bank from 1, as the game's
// connection and warp records name them; ROM banks are 0x4000-byte pieces of the file.
// Whatever cannot be laid out (a full bank, two things at one place, a map that would not be
// counted) throws RomBuildError with a message saying what and where.
namespace kartova {

class RomBuildError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

inline constexpr std::size_t kDefaultImageSize = 0x200000;  // 2 MiB, 128 ROM banks

// Fixed places the editor reads directly (not from the ROM definition).
inline constexpr std::int64_t kPaletteMapBankOffset = 0xD5C;      // bank byte of all palette maps
inline constexpr std::int64_t kLightingPointerTable = 0xB6CE;     // 8 pointers, by header byte 2 & 7
inline constexpr std::int64_t kLightingTableBase = 0x8000;        // (pointer & 0x3FFF) + this
inline constexpr std::int64_t kPaletteBase = 0xB75E;              // palette n at + n * 8
inline constexpr std::int64_t kMapBankColourBase = 0xB9AE;        // + map bank * 8 (+ 4 at night)
inline constexpr std::int64_t kSpecialPaletteBase = 0x150043;     // + (set - 1) * 192 + t * 64
inline constexpr std::int64_t kSpecialPaletteSetSize = 192;       // three lightings of 8 palettes
inline constexpr std::int64_t kReplacementTileBase = 0x208817;    // + h9 * 336, tilesets 1 and 2
inline constexpr std::int64_t kReplacementTileSize = 336;         // 21 tiles, 75..95
inline constexpr int kLocationNameCount = 95;
inline constexpr std::uint8_t kWorkingCopyBase = 0xC7;            // high byte of 0xC700

enum class Direction : int { kNorth = 0, kSouth = 1, kWest = 2, kEast = 3 };

// Flag bit of a direction in secondary header byte 11: north 0x08 ... east 0x01.
constexpr std::uint8_t ConnectionFlag(Direction d) {
  return static_cast<std::uint8_t>(0x08 >> static_cast<int>(d));
}

struct MapRef {
  int bank = 1;    // map bank, 1..26
  int number = 1;  // map number within the bank, from 1
  auto operator<=>(const MapRef&) const = default;
};

// One neighbour. Unless `raw` is given, the builder computes the 12-byte record from both
// maps: the strip source in the neighbour's block data, the destination in this map's
// bordered working copy (0xC700 = top-left border block, width + 6 columns), the strip length
// clipped to the working copy, the neighbour's width, the position change bytes and the
// window (the neighbour's working-copy cell where the player enters it).
struct ConnectionDecl {
  Direction direction = Direction::kNorth;
  MapRef target{};
  // For north and south: the column of this map where the neighbour's column 0 lies; for west
  // and east: the row of this map where the neighbour's row 0 lies. May be negative.
  int offset = 0;
  std::optional<std::array<std::uint8_t, 12>> raw{};  // written as is
};

// Script pointers are 16-bit pointers into the map's script bank, stored little-endian.
struct EnterScriptDecl {
  std::uint16_t script = 0x4000;
  std::uint8_t res1 = 0;
  std::uint8_t res2 = 0;
};

struct TimeScriptDecl {
  std::uint8_t condition = 0;
  std::uint16_t script = 0x4000;
};

// Event positions are in map tiles (two per block side).
struct WarpDecl {
  std::uint8_t y = 0;
  std::uint8_t x = 0;
  std::uint8_t target_warp = 1;  // 1-based: t means the t-th warp of the target map
  std::uint8_t target_bank = 1;  // map bank, 1..26
  std::uint8_t target_map = 1;   // 1-based
};

struct TriggerDecl {
  std::uint8_t status = 0;
  std::uint8_t y = 0;
  std::uint8_t x = 0;
  std::uint8_t res1 = 0;
  std::uint16_t script = 0x4000;
  std::uint8_t res2 = 0;
  std::uint8_t res3 = 0;
};

struct SignpostDecl {
  std::uint8_t y = 0;
  std::uint8_t x = 0;
  std::uint8_t type = 0;
  std::uint16_t script = 0x4000;
};

struct PersonDecl {
  std::uint8_t picture = 0;
  std::uint8_t y = 0;  // map tiles; the record stores y + 4
  std::uint8_t x = 0;  // map tiles; the record stores x + 4
  std::uint8_t facing = 0;
  std::uint8_t movement = 0;
  std::uint8_t time_dependence = 0;
  std::uint8_t time_range = 0;
  std::uint8_t function = 0;
  std::uint8_t sight_range = 0;
  std::uint16_t script = 0x4000;
  std::uint16_t visibility = 0xFFFF;  // event flag word, stored little-endian
};

struct MapDecl {
  // Primary header.
  std::uint8_t tileset = 0;   // at most 0x28, or the map is not counted
  std::uint8_t ability = 0;   // byte 2, also chooses the lighting table (& 7)
  std::uint8_t location = 0;  // 0..0x5E
  std::uint8_t music = 0;
  std::uint8_t lighting = 0;  // byte 7
  std::uint8_t fishing = 0;   // byte 8, at most 0x0D
  std::vector<std::uint8_t> extra_header_bytes{};  // bytes 9.., at most HeaderLength - 9

  // Secondary header.
  std::uint8_t border = 0;
  std::uint8_t width = 1;
  std::uint8_t height = 1;
  std::vector<std::uint8_t> blocks{};  // row-major, width * height; empty: all border block
  std::vector<ConnectionDecl> connections{};  // any order; stored north, south, west, east
  std::optional<std::uint8_t> connection_flags{};  // overrides the flags the connections give

  // Scripts and events, in the script bank.
  std::vector<EnterScriptDecl> enter_scripts{};
  std::vector<TimeScriptDecl> time_scripts{};
  std::vector<WarpDecl> warps{};
  std::vector<TriggerDecl> triggers{};
  std::vector<SignpostDecl> signposts{};
  std::vector<PersonDecl> people{};

  // ROM banks to place things in; unset: the builder chooses.
  std::optional<int> secondary_header_bank{};
  std::optional<int> block_bank{};
  std::optional<int> script_bank{};
};

// Record bytes 6-11 are not read by the editor; the builder writes them as given.
struct TilesetDecl {
  std::vector<std::uint8_t> graphics{};  // 2 bits per pixel, 16 bytes a tile, at most 4096 bytes
  std::optional<std::vector<std::uint8_t>> compressed_graphics{};  // written as is instead
  std::vector<std::uint8_t> blocks{};    // 16 sheet tile numbers per block; padded to 4096
  // A nibble per sheet tile (low nibble even tile): 48 bytes for 0x00..0x5F, 16 bytes the
  // editor passes over, 64 bytes for 0x80..0xFF.
  std::array<std::uint8_t, 128> palette_map{};
  std::uint8_t special_palette_set = 0;  // record byte 12; 0 = time-of-day palettes
  std::array<std::uint8_t, 6> other_bytes{};  // record bytes 6-11
};

// Sets the palette of a sheet tile (0x00..0x5F, 0x80..0xFF) in a palette map.
void SetTilePalette(std::array<std::uint8_t, 128>& palette_map, int sheet_tile, int palette);

// Four colour words: bits 0-4 red, 5-9 green, 10-14 blue.
using GbcPalette = std::array<std::uint16_t, 4>;
using PaletteNumbers = std::array<std::uint8_t, 8>;  // palettes 0..7 of one lighting
using PaletteSet = std::array<GbcPalette, 8>;        // 8 palettes of one lighting

// Where Build put things (file offsets), for tests that read or break them.
struct MapLayout {
  std::int64_t primary_header = 0;
  std::int64_t secondary_header = 0;
  std::int64_t blocks = 0;
  std::int64_t script_header = 0;
  std::int64_t event_header = 0;  // the two bytes the editor passes over
};

struct TilesetLayout {
  std::int64_t record = 0;
  std::int64_t graphics = 0;
  std::int64_t graphics_size = 0;  // compressed, with the end mark
  std::int64_t blocks = 0;
  std::int64_t palette_map = 0;
};

struct RomLayout {
  std::array<std::uint16_t, 26> group_pointers{};
  std::map<MapRef, MapLayout> maps{};
  std::map<int, TilesetLayout> tilesets{};
  std::array<std::int64_t, kLocationNameCount> names{};  // offset of each name string
  int palette_map_bank = 0;

  const MapLayout& Map(int bank, int number) const;  // throws RomBuildError if undeclared
};

struct BuiltRom {
  std::vector<std::uint8_t> bytes{};
  RomLayout layout{};
};

class RomBuilder {
 public:
  RomBuilder();

  // Cartridge title: up to 16 ASCII characters, the rest zero; or all 16 bytes.
  RomBuilder& Title(std::string_view title);
  RomBuilder& TitleBytes(const std::array<std::uint8_t, 16>& bytes);
  RomBuilder& ImageSize(std::size_t bytes);  // at least 2 MiB
  RomBuilder& FillByte(std::uint8_t b);      // free space, 0x00 by default

  // What the ROM definition would say (the builder writes the structures there).
  RomBuilder& HeaderLength(int length);       // 9..30
  RomBuilder& MapNameTable(std::int64_t offset);
  RomBuilder& TilesetBase(std::int64_t offset);

  // A map appended to a map bank (1..26): its number is the count of maps in that bank.
  // Each bank's header list in bank 0x25 ends with a record whose tileset byte is 0xFF, and
  // the lists never overlap, so the editor's count finds exactly the declared maps.
  RomBuilder& Map(int map_bank, MapDecl decl);
  int MapCount(int map_bank) const;

  // Location name i (0..94) in the game's upper-case writing, UTF-8 (umlauts, ß, hyphen,
  // blank, digits, letters, punctuation); the terminator is added. Undeclared names are empty.
  RomBuilder& LocationName(int index, std::string_view text);
  // Name bytes as they stand, the terminator not added.
  RomBuilder& RawLocationName(int index, std::vector<std::uint8_t> bytes);

  // Tilesets 0..255. The table runs up to the highest number declared or used by a map;
  // numbers without a tileset of their own repeat the record of the lowest declared one.
  // Without any tileset a blank one (no tiles, zero blocks) serves the maps.
  RomBuilder& Tileset(int number, TilesetDecl decl);

  // Time-of-day palettes: palette n (0..255) at 0xB75E + n * 8. The places of the numbers
  // 74..100 hold the map-bank colours (74 + bank); declaring both at one place throws.
  RomBuilder& Palette(int number, const GbcPalette& colours);
  // The palette numbers for header byte 2 & 7 = table (0..7), one PaletteNumbers per lighting
  // 0..7. Undeclared tables read as palettes 0..7.
  RomBuilder& LightingTable(int table, const std::array<PaletteNumbers, 8>& numbers);
  // Colours 1 and 2 of palette 6 for a map bank (0..26), by day and for the night lighting.
  RomBuilder& MapBankColours(int map_bank, std::array<std::uint16_t, 2> day,
                             std::array<std::uint16_t, 2> night);
  // Special palette set s (1..): one PaletteSet per lighting from 0. A set owns 3 lightings
  // (192 bytes); the editor reads lighting t at + t * 64, so lightings 3..7 of set s are what
  // sets s + 1 and s + 2 hold. Give more than 3 only for the last set; they are then written
  // where the next sets would lie.
  RomBuilder& SpecialPaletteSet(int set, std::vector<PaletteSet> lightings);
  // The 21 tiles (336 bytes) that replace tiles 75..95 of tilesets 1 and 2 for header
  // byte 9 = h9. Only in images larger than 2 MiB.
  RomBuilder& ReplacementTiles(int h9, std::vector<std::uint8_t> bytes);

  // Bytes at a fixed place, reserved like every other structure (overlaps throw).
  RomBuilder& Data(std::int64_t offset, std::vector<std::uint8_t> bytes);
  // Bytes written over the finished image, over anything: for deliberately broken data.
  // Only a patch reaching outside the image throws.
  RomBuilder& Patch(std::int64_t offset, std::vector<std::uint8_t> bytes);

  std::vector<std::uint8_t> Build() const;
  BuiltRom BuildWithLayout() const;

 private:
  friend class RomLayoutWriter;

  std::array<std::uint8_t, 16> title_{};
  std::size_t image_size_ = kDefaultImageSize;
  std::uint8_t fill_ = 0x00;
  int header_length_ = 9;
  std::int64_t map_name_table_ = 0x92384;
  std::int64_t tileset_base_ = 0x2DFA;
  std::array<std::vector<MapDecl>, 26> maps_{};
  std::map<int, std::vector<std::uint8_t>> names_;  // encoded, with terminator
  std::map<int, TilesetDecl> tilesets_;
  std::map<int, GbcPalette> palettes_;
  std::map<int, std::array<PaletteNumbers, 8>> lighting_tables_;
  std::map<int, std::pair<std::array<std::uint16_t, 2>, std::array<std::uint16_t, 2>>>
      bank_colours_;
  std::map<int, std::vector<PaletteSet>> special_sets_;
  std::map<int, std::vector<std::uint8_t>> replacement_tiles_;
  std::vector<std::pair<std::int64_t, std::vector<std::uint8_t>>> data_{};
  std::vector<std::pair<std::int64_t, std::vector<std::uint8_t>>> patches_{};
};

}  // namespace kartova
