#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "gfx/TileSheet.h"

namespace kartova {

inline constexpr int kBlockCount = 256;
inline constexpr int kBlockPixels = 32;      // a block is 4 × 4 tiles of 8 pixels
inline constexpr int kBlockDataSize = 4096;  // 16 tile numbers per block, no attributes

// The tile numbers of the 256 blocks as read from the ROM: block b is bytes b × 16 .. +15,
// byte ty × 4 + tx naming the tile in column tx, row ty.
using BlockData = std::array<std::uint8_t, kBlockDataSize>;

// All blocks of the current tileset drawn side by side, once per map load, so that every view
// draws by copying block rows: `BlockStrip` at normal width (block b at columns b × 32), and
// `BlockStripWide` with every pixel doubled in width (block b at columns b × 64).
class BlockSet {
 public:
  static constexpr int kStripWidth = kBlockCount * kBlockPixels;          // 8192
  static constexpr int kWideStripWidth = kBlockCount * kBlockPixels * 2;  // 16384
  static constexpr int kStripHeight = kBlockPixels;

  BlockSet();

  const std::uint8_t* StripRow(int y) const { return strip_.data() + y * kStripWidth; }
  const std::uint8_t* WideStripRow(int y) const { return wide_.data() + y * kWideStripWidth; }
  std::uint8_t* StripRow(int y) { return strip_.data() + y * kStripWidth; }
  std::uint8_t* WideStripRow(int y) { return wide_.data() + y * kWideStripWidth; }

  // Draws block b at zoom 1 (32 × 32) or 2 (64 × 64, each wide row on two lines) into dst,
  // whose lines are `stride` bytes apart, top line first.
  void DrawBlock(std::uint8_t block, int zoom, std::uint8_t* dst, std::ptrdiff_t stride) const;

 private:
  std::vector<std::uint8_t> strip_;
  std::vector<std::uint8_t> wide_;
};

// Composes every block from the tile sheets. Tiles 0x60..0x7F bring whatever the sheets hold.
void ComposeBlocks(const BlockData& data, const TileSheet& sheet, const TileSheetWide& wide,
                   BlockSet& blocks);

}  // namespace kartova
