#include "maps/LinkData.h"

#include <algorithm>

#include "rom/HexText.h"

namespace kartova {

namespace {
// The map proper starts three blocks into the bordered grid on both axes.
constexpr int kBorder = 3;
// Sizes are header bytes; anything larger is garbage and is cut so the arithmetic stays in range.
constexpr int kMaxSide = 0xFFFF;
// The game's working copy of the current map holds the bordered grid from 0xC700 on. The view
// reaches that address as cell index - 0x3900 cut to its last four hex digits, which is
// 0x10000 - 0x3900 = 0xC700 ahead of the index.
constexpr std::int64_t kWorkingCopyDistance = 0x3900;
}  // namespace

LinkPosition LimitToBorderedMap(LinkPosition position, int width, int height) {
  position.x = std::clamp(position.x, -kBorder, std::clamp(width, 0, kMaxSide) + kBorder - 1);
  position.y = std::clamp(position.y, -kBorder, std::clamp(height, 0, kMaxSide) + kBorder - 1);
  return position;
}

LinkData::LinkData(std::span<const std::uint8_t> grid, int width, int height) {
  width = std::clamp(width, 0, 0xFF);
  height = std::clamp(height, 0, 0xFF);
  row_length_ = LinkRowLength(width);
  const std::size_t columns = static_cast<std::size_t>(width) + 2 * kBorder;
  const std::size_t rows = static_cast<std::size_t>(height) + 2 * kBorder;
  text_.reserve(rows * static_cast<std::size_t>(row_length_));
  for (std::size_t row = 0; row < rows; ++row) {
    if (row > 0) text_ += "\r\n";
    for (std::size_t column = 0; column < columns; ++column) {
      const std::size_t index = row * columns + column;
      text_ += Hex2(index < grid.size() ? grid[index] : 0);
    }
  }
}

int LinkData::ClampCaret(int caret) const { return std::clamp(caret, 0, TextLength()); }

LinkCell LinkData::ReadCell(int caret, const LinkMapInfo& map) const {
  const int p = ClampCaret(caret);
  LinkCell cell;
  cell.position.y = p / row_length_ - kBorder;
  cell.position.x = (p % row_length_) / 2 - kBorder;
  const std::int64_t x = cell.position.x;
  const std::int64_t y = cell.position.y;
  const std::int64_t index = (static_cast<std::int64_t>(map.width) + 2 * kBorder) * (y + kBorder) +
                             x + kBorder;
  cell.working_copy_text = Hex4(index - kWorkingCopyDistance);
  if (x >= 0 && x < map.width && y >= 0 && y < map.height)
    cell.block_pointer_text = Hex4(map.block_data_pointer + y * map.width + x);
  else
    cell.block_pointer_text = "NA";
  return cell;
}

LinkSelection LinkData::Click(int caret) const {
  int start = ClampCaret(caret);
  start -= start % 2;
  // Both characters of a line break (and the end of the text) belong to the line's last cell.
  if (start % row_length_ == row_length_ - 2) start -= 2;
  start = std::clamp(start, 0, std::max(TextLength() - 2, 0));
  return {start, std::min(2, TextLength() - start)};
}

int LinkData::MovedCaret(int caret, int key_code) const {
  const int p = ClampCaret(caret);
  const int length = TextLength();
  const int l = row_length_;
  switch (key_code) {
    case kLinkKeyLeft:
      if (p % l != 0) return p - 2;
      if (p != 0) return p - 4;  // over the line break to the last cell above
      return length - 2;
    case kLinkKeyRight:
      if (p >= (p / l + 1) * l - 4) return p == length - 2 ? 0 : p + 4;
      return p + 2;
    case kLinkKeyUp:
      return p / l >= 1 ? p - l : p;
    case kLinkKeyDown:
      return (length - p - 1) / l >= 1 ? p + l : p;
    default:
      return p;
  }
}

std::optional<LinkSelection> LinkData::PressKey(int caret, int key_code) const {
  if (key_code < kLinkKeyLeft || key_code > kLinkKeyDown) return std::nullopt;
  return Click(MovedCaret(caret, key_code));
}

LinkSelection LinkData::Mark(LinkPosition position, const LinkMapInfo& map) const {
  const LinkPosition limited = LimitToBorderedMap(position, map.width, map.height);
  const std::int64_t start = (static_cast<std::int64_t>(limited.y) + kBorder) * row_length_ +
                             (static_cast<std::int64_t>(limited.x) + kBorder) * 2;
  // A map size that disagrees with the text's own can only move the mark to the nearest cell.
  return Click(static_cast<int>(std::min<std::int64_t>(start, TextLength())));
}

}  // namespace kartova
