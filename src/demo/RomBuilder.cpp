#include "demo/RomBuilder.h"

#include <algorithm>
#include <string>

#include "demo/GameTextEncoder.h"
#include "demo/RomLayoutWriter.h"
#include "rom/Address.h"
#include "rom/HexText.h"

namespace kartova {
namespace {

void CheckRange(long long value, long long low, long long high, const char* what) {
  if (value < low || value > high) {
    throw RomBuildError(std::string("RomBuilder: ") + what + " " + std::to_string(value) +
                        " is outside " + std::to_string(low) + ".." + std::to_string(high));
  }
}

}  // namespace

void SetTilePalette(std::array<std::uint8_t, 128>& palette_map, int sheet_tile, int palette) {
  CheckRange(sheet_tile, 0, 255, "sheet tile");
  CheckRange(palette, 0, 15, "palette");
  if (sheet_tile >= 0x60 && sheet_tile < 0x80) {
    throw RomBuildError("RomBuilder: sheet tiles 0x60..0x7F have no palette map entry");
  }
  // The decoder passes over 16 bytes when it jumps from tile row 5 to row 8.
  const int index = sheet_tile < 0x60 ? sheet_tile / 2 : 64 + (sheet_tile - 0x80) / 2;
  std::uint8_t& b = palette_map[static_cast<std::size_t>(index)];
  if (sheet_tile % 2 == 0) {
    b = static_cast<std::uint8_t>((b & 0xF0) | palette);
  } else {
    b = static_cast<std::uint8_t>((b & 0x0F) | (palette << 4));
  }
}

const MapLayout& RomLayout::Map(int bank, int number) const {
  auto it = maps.find(MapRef{bank, number});
  if (it == maps.end()) {
    throw RomBuildError("RomBuilder: no map " + std::to_string(bank) + "." +
                        std::to_string(number) + " was declared");
  }
  return it->second;
}

RomBuilder::RomBuilder() = default;

RomBuilder& RomBuilder::Title(std::string_view title) {
  if (title.size() > 16) throw RomBuildError("RomBuilder: a title has at most 16 characters");
  title_.fill(0);
  std::copy(title.begin(), title.end(), title_.begin());
  return *this;
}

RomBuilder& RomBuilder::TitleBytes(const std::array<std::uint8_t, 16>& bytes) {
  title_ = bytes;
  return *this;
}

RomBuilder& RomBuilder::ImageSize(std::size_t bytes) {
  if (bytes < kDefaultImageSize) throw RomBuildError("RomBuilder: images are at least 2 MiB");
  if (bytes > 0x800000) throw RomBuildError("RomBuilder: images are at most 8 MiB");
  image_size_ = bytes;
  return *this;
}

RomBuilder& RomBuilder::FillByte(std::uint8_t b) {
  fill_ = b;
  return *this;
}

RomBuilder& RomBuilder::HeaderLength(int length) {
  CheckRange(length, 9, 30, "header length");
  header_length_ = length;
  return *this;
}

RomBuilder& RomBuilder::MapNameTable(std::int64_t offset) {
  CheckRange(offset, kBankSize, 0x7FFFFF, "map name table offset");
  map_name_table_ = offset;
  return *this;
}

RomBuilder& RomBuilder::TilesetBase(std::int64_t offset) {
  CheckRange(offset, 0, 0x7FFFFF, "tileset base");
  tileset_base_ = offset;
  return *this;
}

RomBuilder& RomBuilder::Map(int map_bank, MapDecl decl) {
  CheckRange(map_bank, 1, kMapBankCount, "map bank");
  maps_[static_cast<std::size_t>(map_bank - 1)].push_back(std::move(decl));
  return *this;
}

int RomBuilder::MapCount(int map_bank) const {
  CheckRange(map_bank, 1, kMapBankCount, "map bank");
  return static_cast<int>(maps_[static_cast<std::size_t>(map_bank - 1)].size());
}

RomBuilder& RomBuilder::LocationName(int index, std::string_view text) {
  CheckRange(index, 0, kLocationNameCount - 1, "location name index");
  std::vector<std::uint8_t> bytes = EncodeGameText(text);
  bytes.push_back(0x50);
  names_[index] = std::move(bytes);
  return *this;
}

RomBuilder& RomBuilder::RawLocationName(int index, std::vector<std::uint8_t> bytes) {
  CheckRange(index, 0, kLocationNameCount - 1, "location name index");
  names_[index] = std::move(bytes);
  return *this;
}

RomBuilder& RomBuilder::Tileset(int number, TilesetDecl decl) {
  CheckRange(number, 0, 255, "tileset number");
  if (decl.graphics.size() > 4096) {
    throw RomBuildError("RomBuilder: tileset graphics hold at most 4096 bytes");
  }
  if (decl.blocks.size() > 4096) {
    throw RomBuildError("RomBuilder: tileset block data holds at most 4096 bytes");
  }
  tilesets_[number] = std::move(decl);
  return *this;
}

RomBuilder& RomBuilder::Palette(int number, const GbcPalette& colours) {
  CheckRange(number, 0, 255, "palette number");
  palettes_[number] = colours;
  return *this;
}

RomBuilder& RomBuilder::LightingTable(int table, const std::array<PaletteNumbers, 8>& numbers) {
  CheckRange(table, 0, 7, "lighting table");
  lighting_tables_[table] = numbers;
  return *this;
}

RomBuilder& RomBuilder::MapBankColours(int map_bank, std::array<std::uint16_t, 2> day,
                                       std::array<std::uint16_t, 2> night) {
  CheckRange(map_bank, 0, kMapBankCount, "map bank");
  bank_colours_[map_bank] = {day, night};
  return *this;
}

RomBuilder& RomBuilder::SpecialPaletteSet(int set, std::vector<PaletteSet> lightings) {
  CheckRange(set, 1, 255, "special palette set");
  CheckRange(static_cast<long long>(lightings.size()), 1, 8, "lighting count");
  special_sets_[set] = std::move(lightings);
  return *this;
}

RomBuilder& RomBuilder::ReplacementTiles(int h9, std::vector<std::uint8_t> bytes) {
  CheckRange(h9, 0, 255, "replacement tile index");
  if (bytes.size() != static_cast<std::size_t>(kReplacementTileSize)) {
    throw RomBuildError("RomBuilder: replacement tiles are 336 bytes");
  }
  replacement_tiles_[h9] = std::move(bytes);
  return *this;
}

RomBuilder& RomBuilder::Data(std::int64_t offset, std::vector<std::uint8_t> bytes) {
  data_.emplace_back(offset, std::move(bytes));
  return *this;
}

RomBuilder& RomBuilder::Patch(std::int64_t offset, std::vector<std::uint8_t> bytes) {
  patches_.emplace_back(offset, std::move(bytes));
  return *this;
}

std::vector<std::uint8_t> RomBuilder::Build() const { return BuildWithLayout().bytes; }

BuiltRom RomBuilder::BuildWithLayout() const { return RomLayoutWriter(*this).Run(); }

}  // namespace kartova
