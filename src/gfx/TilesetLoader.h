#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "gfx/BlockSet.h"
#include "gfx/ColourTable.h"
#include "gfx/GraphicsDecompressor.h"
#include "gfx/Palettes.h"
#include "gfx/TileSheet.h"

namespace kartova {

class RomFile;

// Fixed places the tileset stage reads from (file offsets).
inline constexpr std::int64_t kPaletteMapBankByte = 0xD5C;     // one byte: bank of the palette maps
inline constexpr std::int64_t kSharedTileGraphics = 0x208817;  // 336 bytes per header byte 9
inline constexpr int kSharedTileBytes = 336;                   // 21 tiles
inline constexpr int kSharedTilePosition = 1200;               // tiles 75..95 of the buffer
inline constexpr int kTilesetRecordSize = 15;

// One entry of the game's tileset table (15 bytes); the editor uses the fields below.
struct TilesetRecord {
  std::array<std::uint8_t, kTilesetRecordSize> bytes{};

  std::int64_t GraphicsOffset() const;   // bank byte 0, pointer bytes 1-2
  std::int64_t BlockDataOffset() const;  // bank byte 3, pointer bytes 4-5
  std::uint8_t SpecialPaletteSet() const { return bytes[12]; }
  std::uint16_t PaletteMapPointer() const;  // bytes 13-14; its bank lies at 0xD5C
};

// What the map loader passes to the tileset stage.
struct TilesetRequest {
  std::int64_t tileset_base = 0x2DFA;      // ROM definition "TilesetBase"
  std::array<std::uint8_t, 30> primary{};  // the 30 primary header bytes as read
  int time_of_day = kTimeOfDayAuto;        // 0..7, 8 = "Auto"
  int map_bank = 1;                        // selected map bank, 1..26
};

// Everything the tileset stage produces. It lives from one map load to the next; parts a
// load cannot read (past the end of the file, or a stream that ends at once) keep what the
// previous tileset left in them.
struct TilesetGraphics {
  TilesetRecord record;
  GraphicsBuffer buffer{};
  std::int64_t length = 0;  // the decompressed length
  TileSheet sheet;
  TileSheetWide sheet_wide;
  ColourTable colours;
  BlockData block_data{};
  BlockSet blocks;
};

// The palette inputs of a loaded map, for a lighting change after the load.
PaletteSelection SelectPalettes(const TilesetRecord& record,
                                std::span<const std::uint8_t, 30> primary, int time_of_day,
                                int map_bank);

// The tileset stage of a map load: locates the tileset named by primary header byte 1,
// unpacks and decodes its tiles, loads the palettes and composes the blocks. Raises the
// overflow error when TilesetBase puts an offset beyond 32 bits.
void LoadTilesetGraphics(RomFile& file, const TilesetRequest& request, TilesetGraphics& graphics);

}  // namespace kartova
