#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "demo/BankAllocator.h"
#include "demo/RomBuilder.h"

namespace kartova {

// Turns a RomBuilder's declarations into the image: reserves the fixed places, allocates
// everything else bank by bank, writes every pointer with the editor's conversions, then
// applies the unchecked patches. One writer builds one image.
class RomLayoutWriter {
 public:
  explicit RomLayoutWriter(const RomBuilder& in);
  BuiltRom Run();

 private:
  void Validate() const;
  void ValidateMap(int bank, int number, const MapDecl& m) const;
  void ReserveFixed();
  void PlaceHeaderLists();
  void PlaceMapData();
  void WriteMap(int bank, int number, const MapDecl& m);
  void WritePrimaryHeader(const MapLayout& at, const MapDecl& m);
  std::vector<std::uint8_t> SecondaryHeader(const MapLayout& at, const MapDecl& m) const;
  std::vector<std::uint8_t> ConnectionRecords(const MapDecl& m) const;
  std::vector<std::uint8_t> ScriptHeader(const MapDecl& m) const;
  std::vector<std::uint8_t> EventHeader(const MapDecl& m) const;
  void PlaceTilesets();
  void PlaceTileset(int number, const TilesetDecl& t);
  void WriteTilesetTable();
  void PlacePalettes();
  void PlaceNames();
  void WriteCartridgeHeader();
  void ApplyPatches();

  void Put(std::int64_t offset, std::span<const std::uint8_t> bytes);
  void PutByte(std::int64_t offset, std::uint8_t b);
  void PutWord(std::int64_t offset, std::uint16_t w);
  void PutPalette(std::int64_t offset, const GbcPalette& p);

  const RomBuilder& in_;
  std::vector<std::uint8_t> image_;
  BankAllocator alloc_;
  RomLayout layout_;
  std::int64_t tileset_table_ = 0;
  int tileset_count_ = 0;  // entries in the table
};

// A 16-bit pointer into the switchable bank area for a file offset, and its ROM bank.
inline std::uint16_t BankedPointer(std::int64_t offset) {
  return static_cast<std::uint16_t>(0x4000 | (offset & 0x3FFF));
}
inline std::uint8_t RomBankOf(std::int64_t offset) {
  if (offset / 0x4000 > 0xFF) {
    throw RomBuildError("RomBuilder: a bank byte cannot reach ROM bank 0x" +
                        std::to_string(offset / 0x4000));
  }
  return static_cast<std::uint8_t>(offset / 0x4000);
}

}  // namespace kartova
