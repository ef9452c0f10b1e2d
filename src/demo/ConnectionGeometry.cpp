#include "demo/ConnectionGeometry.h"

#include <algorithm>
#include <string>

#include "rom/Address.h"

namespace kartova {
namespace {

constexpr int kWorkingCopyStart = 0xC700;
constexpr int kBorder = 3;

struct Strip {
  int source_index = 0;  // into the neighbour's block data
  int dest_row = 0;
  int dest_column = 0;
  int length = 0;
  int y_change = 0;
  int x_change = 0;
  int window_row = 0;  // in the neighbour's working copy
  int window_column = 0;
};

// Where the neighbour's run along the shared edge lands in self's working copy: first cell,
// first cell of the neighbour that shows there, and how many.
struct Span {
  int first = 0;
  int source_first = 0;
  int length = 0;
};

Span Overlap(int self_extent, int neighbour_extent, int offset) {
  const int first = std::max(0, kBorder + offset);
  const int end = std::min(self_extent + 2 * kBorder, kBorder + offset + neighbour_extent);
  return {first, first - kBorder - offset, end - first};
}

Strip VerticalStrip(bool north, const MapGeometry& self, const MapGeometry& n, int offset) {
  const Span s = Overlap(self.width, n.width, offset);
  Strip strip;
  const int source_row = north ? n.height - kBorder : 0;
  strip.source_index = source_row * n.width + s.source_first;
  strip.dest_row = north ? 0 : self.height + kBorder;
  strip.dest_column = s.first;
  strip.length = s.length;
  // The game moves the player to the neighbour's far edge and shifts it along the edge.
  strip.y_change = north ? n.height * 2 - 1 : 0;
  strip.x_change = -offset * 2;
  strip.window_row = north ? n.height + kBorder - 1 : kBorder;
  strip.window_column = kBorder + std::max(0, -offset);
  return strip;
}

Strip HorizontalStrip(bool west, const MapGeometry& self, const MapGeometry& n, int offset) {
  const Span s = Overlap(self.height, n.height, offset);
  Strip strip;
  const int source_column = west ? n.width - kBorder : 0;
  strip.source_index = s.source_first * n.width + source_column;
  strip.dest_row = s.first;
  strip.dest_column = west ? 0 : self.width + kBorder;
  strip.length = s.length;
  strip.y_change = -offset * 2;
  strip.x_change = west ? n.width * 2 - 1 : 0;
  strip.window_row = kBorder + std::max(0, -offset);
  strip.window_column = west ? n.width + kBorder - 1 : kBorder;
  return strip;
}

void Fail(const std::string& why) { throw RomBuildError("RomBuilder: connection " + why); }

}  // namespace

std::array<std::uint8_t, 12> MakeConnectionRecord(Direction d, const MapGeometry& self,
                                                  const MapGeometry& neighbour,
                                                  const MapRef& target, int offset) {
  const bool vertical = d == Direction::kNorth || d == Direction::kSouth;
  const int depth = vertical ? neighbour.height : neighbour.width;
  if (depth < kBorder) {
    Fail("to map " + std::to_string(target.bank) + "." + std::to_string(target.number) +
         ": the neighbour is thinner than the three-block strip");
  }
  const Strip strip = vertical ? VerticalStrip(d == Direction::kNorth, self, neighbour, offset)
                               : HorizontalStrip(d == Direction::kWest, self, neighbour, offset);
  if (strip.length < 1) {
    Fail("to map " + std::to_string(target.bank) + "." + std::to_string(target.number) +
         ": the maps do not meet at offset " + std::to_string(offset));
  }
  if (strip.length > 255 || neighbour.width > 255) Fail("strip is too long");
  const std::int64_t source = neighbour.blocks + strip.source_index;
  const int dest = kWorkingCopyStart + strip.dest_row * (self.width + 6) + strip.dest_column;
  const int window = kWorkingCopyStart + strip.window_row * (neighbour.width + 6) +
                     strip.window_column;
  if (dest > 0xFFFF || window > 0xFFFF) Fail("address lies beyond 0xFFFF: the map is too large");
  const int source_pointer = 0x4000 | static_cast<int>(source & 0x3FFF);
  return {static_cast<std::uint8_t>(target.bank),
          static_cast<std::uint8_t>(target.number),
          static_cast<std::uint8_t>(source_pointer & 0xFF),
          static_cast<std::uint8_t>(source_pointer >> 8),
          static_cast<std::uint8_t>(dest & 0xFF),
          static_cast<std::uint8_t>(dest >> 8),
          static_cast<std::uint8_t>(strip.length),
          static_cast<std::uint8_t>(neighbour.width),
          static_cast<std::uint8_t>(strip.y_change & 0xFF),
          static_cast<std::uint8_t>(strip.x_change & 0xFF),
          static_cast<std::uint8_t>(window & 0xFF),
          static_cast<std::uint8_t>(window >> 8)};
}

}  // namespace kartova
