#include "demo/RomReading.h"

namespace kartova::test {

std::vector<StripCell> ReadStrip(const Image& rom, std::span<const std::uint8_t, 12> record,
                                 int direction, int width, int header_length) {
  const int group = Word(rom, kMapGroupTableOffset + (record[0] - 1) * 2);
  const std::int64_t primary = kMapGroupBase + group + (record[1] - 1) * header_length;
  const std::int64_t secondary = BankPointerToOffset(Byte(rom, primary), Word(rom, primary + 3));
  const int blocks_bank = Byte(rom, secondary + 3);
  std::int64_t at = BankPointerToOffset(blocks_bank, record[2] | (record[3] << 8));
  const int offset = (record[4] | (record[5] << 8)) - 0xC700;
  const int row = offset / (width + 6);
  const int column = offset - row * (width + 6);
  const int length = record[6];
  const int neighbour_width = record[7];
  std::vector<StripCell> cells;
  const bool vertical = direction < 2;
  const int lines = vertical ? 3 : length;
  const int run = vertical ? length : 3;
  for (int line = 0; line < lines; ++line) {
    for (int i = 0; i < run; ++i) {
      cells.push_back({column + i, row + line, Byte(rom, at++)});
    }
    at += vertical ? ((neighbour_width - length) & 255) : neighbour_width - 3;
  }
  return cells;
}

}  // namespace kartova::test
