#include "gfx/BlockSet.h"

#include <cstring>

namespace kartova {

BlockSet::BlockSet()
    : strip_(static_cast<std::size_t>(kStripWidth) * kStripHeight, 0),
      wide_(static_cast<std::size_t>(kWideStripWidth) * kStripHeight, 0) {}

void BlockSet::DrawBlock(std::uint8_t block, int zoom, std::uint8_t* dst,
                         std::ptrdiff_t stride) const {
  if (zoom == 2) {
    for (int y = 0; y < kStripHeight; ++y) {
      const std::uint8_t* src = WideStripRow(y) + block * 64;
      std::memcpy(dst + (2 * y) * stride, src, 64);
      std::memcpy(dst + (2 * y + 1) * stride, src, 64);
    }
    return;
  }
  for (int y = 0; y < kStripHeight; ++y)
    std::memcpy(dst + y * stride, StripRow(y) + block * kBlockPixels, kBlockPixels);
}

void ComposeBlocks(const BlockData& data, const TileSheet& sheet, const TileSheetWide& wide,
                   BlockSet& blocks) {
  for (int b = 0; b < kBlockCount; ++b) {
    for (int ty = 0; ty < 4; ++ty) {
      for (int tx = 0; tx < 4; ++tx) {
        const int t = data[static_cast<std::size_t>(b * 16 + ty * 4 + tx)];
        const int sheet_row = (t >> 4) * 8;
        const int sheet_column = (t & 15) * 8;
        for (int y = 0; y < 8; ++y) {
          std::memcpy(blocks.StripRow(ty * 8 + y) + b * 32 + tx * 8,
                      sheet.Row(sheet_row + y) + sheet_column, 8);
          std::memcpy(blocks.WideStripRow(ty * 8 + y) + b * 64 + tx * 16,
                      wide.Row(sheet_row + y) + sheet_column * 2, 16);
        }
      }
    }
  }
}

}  // namespace kartova
