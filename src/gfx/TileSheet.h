#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "gfx/GraphicsDecompressor.h"

namespace kartova {

// The decoded tiles of a tileset: 16 × 16 tiles of 8 × 8 pixels, one colour index (0..31,
// palette × 4 + colour) per pixel. Tile n sits at column (n AND 15) × 8, row (n SHR 4) × 8.
class TileSheet {
 public:
  static constexpr int kWidth = 128;
  static constexpr int kHeight = 128;

  TileSheet() : pixels_(kWidth * kHeight, 0) {}
  std::uint8_t At(int x, int y) const { return pixels_[x + y * kWidth]; }
  void Set(int x, int y, std::uint8_t v) { pixels_[x + y * kWidth] = v; }
  const std::uint8_t* Row(int y) const { return pixels_.data() + y * kWidth; }

 private:
  std::vector<std::uint8_t> pixels_;
};

// The same picture with every pixel doubled in width, so that drawing at double size needs
// only row copies.
class TileSheetWide {
 public:
  static constexpr int kWidth = 256;
  static constexpr int kHeight = 128;

  TileSheetWide() : pixels_(kWidth * kHeight, 0) {}
  std::uint8_t At(int x, int y) const { return pixels_[x + y * kWidth]; }
  void Set(int x, int y, std::uint8_t v) { pixels_[x + y * kWidth] = v; }
  const std::uint8_t* Row(int y) const { return pixels_.data() + y * kWidth; }

 private:
  std::vector<std::uint8_t> pixels_;
};

// Which palette each tile uses, one nibble per tile, as it lies in the ROM: 48 bytes for tiles
// 0x00..0x5F, 16 bytes the game keeps for the tiles it loads elsewhere, 64 bytes for
// 0x80..0xFF. Byte (tile row × 8 + tile column ÷ 2) therefore serves every tile; even columns
// take the low nibble.
inline constexpr int kPaletteMapSize = 128;
using PaletteMap = std::array<std::uint8_t, kPaletteMapSize>;

// Decodes the 2-bit tiles of the decompression buffer into both sheets. Sheet rows 6 and 7
// (tiles 0x60..0x7F) belong to graphics the game loads on its own and are never filled here;
// the data run on into row 8 without a gap. Decoding stops as soon as the source position
// equals `length`, leaving everything not reached as it was; a length the position never
// meets (odd, or past the data) decodes all 224 slots.
void DecodeTiles(const GraphicsBuffer& buffer, std::int64_t length, const PaletteMap& palette_map,
                 TileSheet& sheet, TileSheetWide& wide);

}  // namespace kartova
