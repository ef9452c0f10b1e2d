#include "gfx/ExtendedMap.h"

#include "rom/Address.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {
constexpr int kStripDepth = 3;  // a neighbour strip is three blocks deep
constexpr int kConnectionRecordSize = 12;
constexpr int kFirstConnectionSlot = 12;
constexpr int kConnectionFlagsByte = 11;
constexpr const char* kDirectionNames[kDirectionCount] = {" (Oben)", " (Unten)", " (Links)",
                                                          " (Rechts)"};

struct ConnectionRecord {
  std::uint8_t bank;
  std::uint8_t map;
  std::uint16_t source;
  std::uint16_t destination;
  std::uint8_t length;
  std::uint8_t neighbour_width;
};

std::uint16_t LittleEndian(const std::uint8_t* p) {
  return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}

ConnectionRecord ReadRecord(std::span<const std::uint8_t, 60> secondary, int slot) {
  const std::uint8_t* r = secondary.data() + kFirstConnectionSlot + slot * kConnectionRecordSize;
  return {r[0], r[1], LittleEndian(r + 2), LittleEndian(r + 4), r[6], r[7]};
}

// Follows the neighbour's bank and number through the map bank table, its primary header and
// its secondary header to the bank of its block data; the strip source lies in that bank.
std::int64_t StripSourceOffset(RomFile& file, const ConnectionRecord& rec, int header_length) {
  file.Seek(kMapGroupTableOffset + (std::int64_t{rec.bank} - 1) * 2);
  const std::uint16_t group_pointer = file.ReadWord();
  file.Seek(MapHeaderOffset(group_pointer, header_length, std::int64_t{rec.map} - 1));
  const std::uint8_t secondary_bank = file.ReadByte();
  file.Skip(2);  // tileset, sprite set
  const std::uint16_t secondary_pointer = file.ReadWord();
  file.Seek(BankPointerToOffset(secondary_bank, secondary_pointer));
  file.Skip(3);  // border, height, width
  const std::uint8_t blocks_bank = file.ReadByte();
  return std::int64_t{blocks_bank} * kBankSize + (rec.source & 0x3FFF);
}

// Reads `count` strip bytes into the row `y` from column `x`, after making sure they all land
// inside the grid. The cells keep their blocks where the file ends.
void ReadStripRow(RomFile& file, ExtendedMap& grid, int x, int y, int count) {
  if (!grid.Contains(x, y) || (count > 0 && !grid.Contains(x + count - 1, y)))
    throw RuntimeError::SubscriptOutOfRange();
  file.ReadBytes(grid.Row(y) + x, static_cast<std::size_t>(count));
}

void CopyStrip(RomFile& file, const ConnectionRecord& rec, int direction, ExtendedMap& grid,
               GridConnection& connection) {
  const int offset = rec.destination - ExtendedMap::kWorkingCopyBase;
  const int row = offset / grid.Width();
  const int column = offset - row * grid.Width();
  const int length = rec.length;
  ConnectionRect rect;
  if (direction == kDirectionNorth || direction == kDirectionSouth) {
    for (int i = 0; i < kStripDepth; ++i) {
      ReadStripRow(file, grid, column, row + i, length);
      file.Skip((rec.neighbour_width - length) & 255);
    }
    rect = {static_cast<std::int16_t>(column), static_cast<std::int16_t>(row),
            static_cast<std::int16_t>(column + length - 1), static_cast<std::int16_t>(row + 2)};
  } else {
    for (int i = 0; i < length; ++i) {
      ReadStripRow(file, grid, column, row + i, kStripDepth);
      file.Skip(rec.neighbour_width - kStripDepth);
    }
    rect = {static_cast<std::int16_t>(column), static_cast<std::int16_t>(row),
            static_cast<std::int16_t>(column + 2), static_cast<std::int16_t>(row + length - 1)};
  }
  connection.present = true;
  connection.rect = rect;
  connection.bank = rec.bank;
  connection.map = rec.map;
}

void ReadMapRows(RomFile& file, std::span<const std::uint8_t, 60> secondary, ExtendedMap& grid) {
  file.Seek(BankHiLoToOffset(secondary[3], secondary[5], secondary[4]));
  for (int y = 0; y < grid.MapHeight(); ++y)
    file.ReadBytes(grid.Row(y + ExtendedMap::kMargin) + ExtendedMap::kMargin,
                   static_cast<std::size_t>(grid.MapWidth()));
}
}  // namespace

void ExtendedMap::Reset(int map_width, int map_height, std::uint8_t fill) {
  map_width_ = map_width < 0 ? 0 : map_width;
  map_height_ = map_height < 0 ? 0 : map_height;
  cells_.assign(static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()), fill);
}

std::uint8_t ExtendedMap::At(int x, int y) const {
  if (!Contains(x, y)) throw RuntimeError::SubscriptOutOfRange();
  return Row(y)[x];
}

void ExtendedMap::Set(int x, int y, std::uint8_t block) {
  if (!Contains(x, y)) throw RuntimeError::SubscriptOutOfRange();
  Row(y)[x] = block;
}

const GridConnection& ExtendedMap::Connection(int direction) const {
  CheckIndex(direction, kDirectionCount);
  return connections_[static_cast<std::size_t>(direction)];
}

GridConnection& ExtendedMap::Connection(int direction) {
  CheckIndex(direction, kDirectionCount);
  return connections_[static_cast<std::size_t>(direction)];
}

std::vector<std::string> ExtendedMap::ConnectionItems() const {
  std::vector<std::string> items;
  for (int d = 0; d < kDirectionCount; ++d) {
    if (connections_[static_cast<std::size_t>(d)].present)
      items.push_back(std::to_string(items.size() + 1) + kDirectionNames[d]);
  }
  return items;
}

void BuildExtendedMap(RomFile& file, std::span<const std::uint8_t, 60> secondary, int header_length,
                      ExtendedMap& grid) {
  grid.Reset(secondary[2], secondary[1], secondary[0]);
  for (int d = 0; d < kDirectionCount; ++d) grid.Connection(d) = GridConnection{};
  ReadMapRows(file, secondary, grid);

  const std::uint8_t flags = secondary[kConnectionFlagsByte];
  int slot = 0;
  for (int d = 0; d < kDirectionCount; ++d) {
    if ((flags & (0x08 >> d)) == 0) continue;
    const ConnectionRecord rec = ReadRecord(secondary, slot++);
    file.Seek(StripSourceOffset(file, rec, header_length));
    CopyStrip(file, rec, d, grid, grid.Connection(d));
  }
}

}  // namespace kartova
