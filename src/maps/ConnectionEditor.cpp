#include "maps/ConnectionEditor.h"

#include <algorithm>

#include "rom/Address.h"
#include "rom/HexText.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {
constexpr int kDirections = 4;
// The four connection records follow the twelve fixed bytes of the secondary header.
constexpr std::size_t kSlotsOffset = 12;
constexpr std::size_t kRecordSize = 12;
// The game copies the current map with its three-block border to 0xC700 in work RAM.
constexpr std::int64_t kWorkingCopyBase = 0xC700;
constexpr int kBorder = 3;

std::uint8_t LowByte(std::int32_t value) { return static_cast<std::uint8_t>(value & 0xFF); }
std::uint8_t HighByte(std::int32_t value) { return static_cast<std::uint8_t>((value >> 8) & 0xFF); }

std::string Hex2Bytes(std::uint8_t first, std::uint8_t second) {
  return Hex2(first) + Hex2(second);
}

std::ptrdiff_t SlotStart(int slot) {
  CheckIndex(slot, kDirections);
  return static_cast<std::ptrdiff_t>(kSlotsOffset + kRecordSize * static_cast<std::size_t>(slot));
}

int FirstEnabledFromEast(const ConnectionSelectors& selectors) {
  for (int i = kDirections - 1; i >= 0; --i)
    if (selectors.enabled[static_cast<std::size_t>(i)]) return i;
  return -1;
}
}  // namespace

std::uint8_t ConnectionFlagBit(int direction) {
  CheckIndex(direction, kDirections);
  return static_cast<std::uint8_t>(0x08 >> direction);
}

int ConnectionSlot(std::uint8_t flags, int direction) {
  CheckIndex(direction, kDirections);
  int slot = 0;
  for (int d = 0; d < direction; ++d)
    if (flags & ConnectionFlagBit(d)) ++slot;
  return slot;
}

int ConnectionSlotOfSelector(const DirectionFlags& enabled, int index) {
  const int before = std::clamp(index, 0, kDirections);
  return static_cast<int>(std::count(enabled.begin(), enabled.begin() + before, true));
}

ConnectionRecord ReadConnectionSlot(const SecondaryHeaderBytes& secondary, int slot) {
  ConnectionRecord record{};
  const auto first = secondary.begin() + SlotStart(slot);
  std::copy(first, first + static_cast<std::ptrdiff_t>(kRecordSize), record.begin());
  return record;
}

void WriteConnectionSlot(SecondaryHeaderBytes& secondary, int slot, const ConnectionRecord& record) {
  std::copy(record.begin(), record.end(), secondary.begin() + SlotStart(slot));
}

std::string ConnectionBoxText(const ConnectionRecord& r, int box) {
  switch (box) {
    case 11: return Hex2(r[0]);              // neighbour's map bank
    case 12: return Hex2Bytes(r[2], r[3]);   // strip source in the neighbour's blocks
    case 13: return Hex2Bytes(r[4], r[5]);   // strip destination in the working copy
    case 14: return Hex2(r[6]);              // strip length
    case 15: return Hex2(r[7]);              // neighbour's width
    case 16: return Hex2(r[8]);              // position change, first byte
    case 17: return Hex2(r[9]);              // position change, second byte
    case 18: return Hex2Bytes(r[10], r[11]); // window in the neighbour's working copy
    case 19: return Hex2(r[1]);              // neighbour's map number, 1-based
    default: return std::string();
  }
}

ConnectionBoxTexts ConnectionBoxTextsOf(const ConnectionRecord& record) {
  ConnectionBoxTexts texts;
  for (int box = 11; box <= 19; ++box)
    texts[static_cast<std::size_t>(box - 11)] = ConnectionBoxText(record, box);
  return texts;
}

bool StoreConnectionBox(ConnectionRecord& r, int box, std::int32_t value) {
  // The boxes show multi-byte fields in file order, so the text's high byte is the first byte.
  switch (box) {
    case 11: r[0] = LowByte(value); return true;
    case 12: r[2] = HighByte(value); r[3] = LowByte(value); return true;
    case 13: r[4] = HighByte(value); r[5] = LowByte(value); return true;
    case 14: r[6] = LowByte(value); return true;
    case 15: r[7] = LowByte(value); return true;
    // Header(16) shows byte 8 but has always written byte 9; byte 8 is only ever read.
    case 16: r[9] = LowByte(value); return true;
    case 17: r[9] = LowByte(value); return true;
    case 18: r[10] = HighByte(value); r[11] = LowByte(value); return true;
    case 19: r[1] = LowByte(value); return true;
    default: return false;
  }
}

std::string ConnectionLengthCaption(int index) {
  if (index == 0 || index == 1) return "ST-Breite:";
  if (index == 2 || index == 3) return "ST-Höhe:";
  return "ST-Größe:";
}

std::uint8_t ConnectionFlagsFromChecks(const DirectionFlags& checked) {
  std::uint8_t flags = 0;
  for (int d = 0; d < kDirections; ++d)
    if (checked[static_cast<std::size_t>(d)]) flags |= ConnectionFlagBit(d);
  return flags;
}

DirectionFlags ChecksFromConnectionFlags(std::int32_t flags) {
  DirectionFlags checked{};
  for (int d = 0; d < kDirections; ++d)
    checked[static_cast<std::size_t>(d)] = (flags & ConnectionFlagBit(d)) != 0;
  return checked;
}

ConnectionView ShowConnectionData(const SecondaryHeaderBytes& secondary,
                                  const DirectionFlags& enabled, int index) {
  ConnectionView view;
  view.slot = ConnectionSlotOfSelector(enabled, index);
  view.texts = ConnectionBoxTextsOf(ReadConnectionSlot(secondary, view.slot));
  view.length_caption = ConnectionLengthCaption(index);
  return view;
}

int SelectedConnection(const ConnectionSelectors& selectors) {
  for (int i = 0; i < kDirections; ++i)
    if (selectors.value[static_cast<std::size_t>(i)]) return i;
  return -1;
}

void SelectConnection(ConnectionSelectors& selectors, int index) {
  CheckIndex(index, kDirections);
  selectors.value = {};
  selectors.value[static_cast<std::size_t>(index)] = true;
}

int EnsureConnectionSelected(ConnectionSelectors& selectors) {
  const int selected = SelectedConnection(selectors);
  if (selected != -1 && selectors.enabled[static_cast<std::size_t>(selected)]) return -1;
  const int first = FirstEnabledFromEast(selectors);
  if (first != -1) SelectConnection(selectors, first);
  return first;
}

int ClearConnectionSelection(ConnectionSelectors& selectors) {
  selectors.value = {};
  return EnsureConnectionSelected(selectors);
}

void StoreConnectionEdit(SecondaryHeaderBytes& secondary, const ConnectionSelectors& selectors,
                         int box, std::int32_t value) {
  const int slot = ConnectionSlotOfSelector(selectors.enabled, SelectedConnection(selectors));
  ConnectionRecord record = ReadConnectionSlot(secondary, slot);
  if (StoreConnectionBox(record, box, value)) WriteConnectionSlot(secondary, slot, record);
}

LinkPosition WorkingCopyPosition(std::int64_t v, int width, int height) {
  const std::int64_t columns = std::clamp(width, 0, 0xFF) + 2 * kBorder;
  const std::int64_t rows = std::clamp(height, 0, 0xFF) + 2 * kBorder;
  const std::int64_t last = kWorkingCopyBase + columns * rows - 1;
  const std::int64_t offset = std::clamp(v, kWorkingCopyBase, last) - kWorkingCopyBase;
  return {static_cast<int>(offset % columns) - kBorder,
          static_cast<int>(offset / columns) - kBorder};
}

LinkPosition BlockDataPosition(std::int64_t v, std::int64_t pointer, int width, int height) {
  if (width <= 0 || height <= 0) return {0, 0};
  const std::int64_t columns = std::min(width, 0xFF);
  const std::int64_t cells = columns * std::min(height, 0xFF);
  const std::int64_t offset = std::clamp(v, pointer, pointer + cells - 1) - pointer;
  return {static_cast<int>(offset % columns), static_cast<int>(offset / columns)};
}

std::optional<NeighbourTarget> NeighbourTargetOf(std::int32_t bank, std::int32_t map,
                                                 std::span<const int> map_counts) {
  if (bank < 1 || bank > kMapBankCount) throw RuntimeError::SubscriptOutOfRange();
  CheckIndex(bank - 1, static_cast<long long>(map_counts.size()));
  if (map < 1 || map > map_counts[static_cast<std::size_t>(bank - 1)]) return std::nullopt;
  return NeighbourTarget{bank - 1, map - 1};
}

}  // namespace kartova
