#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

// The "Map Link Data" view: the bordered block grid of the current map as lines of two-digit hex
// block numbers, and the arithmetic that turns a caret in that text into a cell, its map position
// and the two addresses a connection record would hold for it. Hand-written connection records
// are checked against these numbers, so the digits must come out exactly as the game counts.
namespace kartova {

// A cell in map positions: the map proper is 0..width-1 / 0..height-1, the border -3..-1 and
// width..width+2 / height..height+2.
struct LinkPosition {
  int x = 0;
  int y = 0;
  bool operator==(const LinkPosition&) const = default;
};

// A selection in the text: a cell is two characters at an even offset of its line.
struct LinkSelection {
  int start = 0;
  int length = 0;
  bool operator==(const LinkSelection&) const = default;
};

// What the fields beside the text show for the selected cell.
struct LinkCell {
  LinkPosition position;          // Text7 (x) and Text8 (y), shown in decimal
  std::string block_pointer_text;  // Text9: four hex digits, or "NA" outside the map proper
  std::string working_copy_text;   // Text10: the cell's address in the game's working copy
};

// The map the fields are computed for: size in blocks and the 16-bit block-data pointer
// (secondary header bytes 4-5, little-endian).
struct LinkMapInfo {
  int width = 0;
  int height = 0;
  int block_data_pointer = 0;
};

// Key codes the view reacts to.
inline constexpr int kLinkKeyLeft = 37;
inline constexpr int kLinkKeyUp = 38;
inline constexpr int kLinkKeyRight = 39;
inline constexpr int kLinkKeyDown = 40;

// Characters per line including the two-character line break: (width + 7) * 2.
constexpr int LinkRowLength(int width) { return (width + 7) * 2; }

// Limits a position to the bordered map: -3 .. width + 2 and -3 .. height + 2.
LinkPosition LimitToBorderedMap(LinkPosition position, int width, int height);

class LinkData {
 public:
  // No map: an empty text.
  LinkData() = default;
  // `grid` holds (width + 6) * (height + 6) block numbers, row by row from the top; cells the
  // span does not reach show as 00.
  LinkData(std::span<const std::uint8_t> grid, int width, int height);

  const std::string& Text() const { return text_; }
  int TextLength() const { return static_cast<int>(text_.size()); }
  int RowLength() const { return row_length_; }

  // The fields for the cell whose text starts at `caret` (clamped into the text).
  LinkCell ReadCell(int caret, const LinkMapInfo& map) const;
  // Snaps a click to the cell under the caret; a caret on a line break goes to the line's last
  // cell. The result always lies inside the text (empty selection for an empty text).
  LinkSelection Click(int caret) const;
  // Moves the caret for an arrow key and snaps it; other keys give no selection change.
  std::optional<LinkSelection> PressKey(int caret, int key_code) const;
  // Selects the cell at a map position from the connection buttons, after limiting it.
  LinkSelection Mark(LinkPosition position, const LinkMapInfo& map) const;

 private:
  int ClampCaret(int caret) const;
  int MovedCaret(int caret, int key_code) const;

  std::string text_;
  int row_length_ = LinkRowLength(0);
};

}  // namespace kartova
