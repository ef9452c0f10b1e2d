#include "gfx/TilesetLoader.h"

#include "rom/Address.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {
constexpr int kTilesetNumberByte = 1;
constexpr int kSharedTileSelectByte = 9;

// The tileset table is found through a pointer at TilesetBase + 3 and a bank byte 16 bytes
// behind it.
std::int64_t TilesetRecordOffset(RomFile& file, std::int64_t tileset_base, int tileset_number) {
  file.Seek(CheckedInt32(tileset_base + 3));
  const std::uint16_t table_pointer = file.ReadWord();
  file.Skip(16);
  const std::uint8_t table_bank = file.ReadByte();
  return BankPointerToOffset(table_bank, table_pointer) +
         std::int64_t{tileset_number} * kTilesetRecordSize;
}

PaletteMap ReadPaletteMap(RomFile& file, const TilesetRecord& record) {
  file.Seek(kPaletteMapBankByte);
  const std::uint8_t bank = file.ReadByte();
  PaletteMap map{};
  file.Seek(BankPointerToOffset(bank, record.PaletteMapPointer()));
  file.ReadBytes(map.data(), map.size());
  return map;
}

// Tilesets 1 and 2 share 21 tiles that change with header byte 9.
void ReadSharedTiles(RomFile& file, std::uint8_t select, GraphicsBuffer& buffer) {
  file.Seek(kSharedTileGraphics + std::int64_t{select} * kSharedTileBytes);
  file.ReadBytes(buffer.data() + kSharedTilePosition, kSharedTileBytes);
}
}  // namespace

std::int64_t TilesetRecord::GraphicsOffset() const {
  return BankHiLoToOffset(bytes[0], bytes[2], bytes[1]);
}

std::int64_t TilesetRecord::BlockDataOffset() const {
  return BankPointerToOffset(bytes[3], bytes[4] | (bytes[5] << 8));
}

std::uint16_t TilesetRecord::PaletteMapPointer() const {
  return static_cast<std::uint16_t>(bytes[13] | (bytes[14] << 8));
}

PaletteSelection SelectPalettes(const TilesetRecord& record,
                                std::span<const std::uint8_t, 30> primary, int time_of_day,
                                int map_bank) {
  PaletteSelection s;
  s.time_of_day = time_of_day;
  s.sprite_set = primary[2];
  s.lighting = primary[7];
  s.special_set = record.SpecialPaletteSet();
  s.map_bank = map_bank;
  return s;
}

void LoadTilesetGraphics(RomFile& file, const TilesetRequest& request, TilesetGraphics& g) {
  const int tileset_number = request.primary[kTilesetNumberByte];
  file.Seek(TilesetRecordOffset(file, request.tileset_base, tileset_number));
  file.ReadBytes(g.record.bytes.data(), g.record.bytes.size());

  g.length = DecompressGraphics(file, g.record.GraphicsOffset(), g.buffer);
  LoadPalettes(file,
               SelectPalettes(g.record, request.primary, request.time_of_day, request.map_bank),
               g.colours);
  if (tileset_number == 1 || tileset_number == 2)
    ReadSharedTiles(file, request.primary[kSharedTileSelectByte], g.buffer);

  DecodeTiles(g.buffer, g.length, ReadPaletteMap(file, g.record), g.sheet, g.sheet_wide);

  file.Seek(g.record.BlockDataOffset());
  file.ReadBytes(g.block_data.data(), g.block_data.size());
  ComposeBlocks(g.block_data, g.sheet, g.sheet_wide, g.blocks);
}

}  // namespace kartova
