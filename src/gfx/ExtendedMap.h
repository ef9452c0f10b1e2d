#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kartova {

class RomFile;

// Directions in the order of the connection flag bits 3..0 and of the connection slots.
enum ConnectionDirection : int {
  kDirectionNorth = 0,
  kDirectionSouth = 1,
  kDirectionWest = 2,
  kDirectionEast = 3,
};
inline constexpr int kDirectionCount = 4;

// Where a neighbour's strip lies in the grid, in cells; all four -1 when there is no
// connection in that direction.
struct ConnectionRect {
  std::int16_t x1 = -1;
  std::int16_t y1 = -1;
  std::int16_t x2 = -1;
  std::int16_t y2 = -1;

  bool Contains(int x, int y) const { return x >= x1 && x <= x2 && y >= y1 && y <= y2; }
  bool operator==(const ConnectionRect&) const = default;
};

// One direction of the grid as the loader left it: the strip and the neighbour it came from
// (record bytes 0 and 1: its map bank 1..26 and its 1-based map number).
struct GridConnection {
  bool present = false;
  ConnectionRect rect;
  std::uint8_t bank = 0;
  std::uint8_t map = 0;
};

// The map's blocks with a three-block margin: (width + 6) × (height + 6) cells, the map at
// (3, 3). The margin holds the border block, overwritten by strips of the neighbouring maps.
class ExtendedMap {
 public:
  static constexpr int kMargin = 3;
  // The game's working copy of a map starts here; connection records address cells with it.
  static constexpr int kWorkingCopyBase = 0xC700;

  // Resizes to the map size and fills every cell with `fill`.
  void Reset(int map_width, int map_height, std::uint8_t fill);

  int MapWidth() const { return map_width_; }
  int MapHeight() const { return map_height_; }
  int Width() const { return map_width_ + 2 * kMargin; }
  int Height() const { return map_height_ + 2 * kMargin; }
  bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < Width() && y < Height(); }
  bool IsMapCell(int x, int y) const {
    return x >= kMargin && y >= kMargin && x < kMargin + map_width_ && y < kMargin + map_height_;
  }

  // Cell access; a cell outside the grid raises the subscript error.
  std::uint8_t At(int x, int y) const;
  void Set(int x, int y, std::uint8_t block);
  // Unchecked row access for the drawing code; y must lie in the grid.
  const std::uint8_t* Row(int y) const {
    return cells_.data() + static_cast<std::size_t>(y) * Width();
  }
  std::uint8_t* Row(int y) { return cells_.data() + static_cast<std::size_t>(y) * Width(); }

  const GridConnection& Connection(int direction) const;
  GridConnection& Connection(int direction);
  // The connection list: for each present direction, in order, "1 (Oben)", "2 (Rechts)", ...
  std::vector<std::string> ConnectionItems() const;

 private:
  int map_width_ = 0;
  int map_height_ = 0;
  std::vector<std::uint8_t> cells_ = std::vector<std::uint8_t>(36, 0);
  std::array<GridConnection, kDirectionCount> connections_{};
};

// Builds the grid of the map whose 60 secondary header bytes are given: border fill, the map
// rows from its block data, then a strip of each connected neighbour, found through the map
// bank table and the neighbour's headers (`header_length` is the primary header stride).
// Builds in place: when a strip's destination lies outside the grid, the subscript error is
// raised and the grid keeps what was filled before it.
void BuildExtendedMap(RomFile& file, std::span<const std::uint8_t, 60> secondary, int header_length,
                      ExtendedMap& grid);

}  // namespace kartova
