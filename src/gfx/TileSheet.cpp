#include "gfx/TileSheet.h"

namespace kartova {

namespace {
constexpr int kTileRows = 16;
constexpr int kTileColumns = 16;
constexpr int kLastRowBeforeGap = 5;
constexpr int kFirstRowAfterGap = 8;
constexpr int kBytesPerTileLine = 2;

int NextTileRow(int r) { return r == kLastRowBeforeGap ? kFirstRowAfterGap : r + 1; }

std::uint8_t PaletteNibble(const PaletteMap& map, int r, int c) {
  std::uint8_t b = map[static_cast<std::size_t>(r * 8 + c / 2)];
  return (c % 2 == 0) ? (b & 0x0F) : (b >> 4);
}

void DecodeLine(std::uint8_t lo, std::uint8_t hi, std::uint8_t palette, int x0, int y,
                TileSheet& sheet, TileSheetWide& wide) {
  for (int x = 0; x < 8; ++x) {
    const int mask = 0x80 >> x;
    const int value = ((lo & mask) ? 1 : 0) + ((hi & mask) ? 2 : 0);
    // Palette nibbles 8..15 fold back onto palettes 0..7.
    const auto index = static_cast<std::uint8_t>((palette * 4 + value) & 31);
    sheet.Set(x0 + x, y, index);
    wide.Set(2 * (x0 + x), y, index);
    wide.Set(2 * (x0 + x) + 1, y, index);
  }
}
}  // namespace

void DecodeTiles(const GraphicsBuffer& buffer, std::int64_t length, const PaletteMap& palette_map,
                 TileSheet& sheet, TileSheetWide& wide) {
  std::int64_t q = 0;
  for (int r = 0; r < kTileRows; r = NextTileRow(r)) {
    for (int c = 0; c < kTileColumns; ++c) {
      const std::uint8_t palette = PaletteNibble(palette_map, r, c);
      for (int y = 0; y < 8; ++y) {
        if (q == length) return;
        DecodeLine(buffer[static_cast<std::size_t>(q)], buffer[static_cast<std::size_t>(q + 1)],
                   palette, c * 8, r * 8 + y, sheet, wide);
        q += kBytesPerTileLine;
      }
    }
  }
}

}  // namespace kartova
