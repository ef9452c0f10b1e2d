#include "events/MapEventSet.h"

#include "maps/MapHeaders.h"
#include "rom/Address.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

// The order in which the kinds follow each other in the two blocks of the ROM.
constexpr std::array<int, 2> kScriptHeaderKinds = {kEventEnter, kEventTime};
constexpr std::array<int, 4> kEventListKinds = {kEventWarp, kEventTrigger, kEventSign,
                                                kEventPeople};

std::size_t RecordSize(int kind) {
  CheckIndex(kind, kEventKindCount);
  return static_cast<std::size_t>(kEventRecordSize[static_cast<std::size_t>(kind)]);
}

// A count byte and its records, read with one positioned read; what the file does not hold
// stays zero.
void ReadList(RomFile& rom, int kind, MapEventSet& events) {
  const std::size_t count = rom.ReadByte();
  std::vector<std::uint8_t> bytes(count * RecordSize(kind), 0);
  if (!bytes.empty()) rom.ReadBytes(bytes.data(), bytes.size());
  events.SetRecords(kind, std::move(bytes));
}

template <std::size_t N>
FileRegion ListsRegion(std::int64_t offset, const std::array<int, N>& kinds,
                       const MapEventSet& events) {
  FileRegion region{offset, {}};
  for (int kind : kinds) {
    // The game counts each list in one byte.
    if (events.Count(kind) > 255) throw RuntimeError::Overflow();
    region.bytes.push_back(static_cast<std::uint8_t>(events.Count(kind)));
    const std::vector<std::uint8_t>& records = events.Records(kind);
    region.bytes.insert(region.bytes.end(), records.begin(), records.end());
  }
  return region;
}

}  // namespace

int MapEventSet::Count(int kind) const {
  return static_cast<int>(Records(kind).size() / RecordSize(kind));
}

int MapEventSet::LastIndex(int kind) const { return Count(kind) - 1; }

std::span<const std::uint8_t> MapEventSet::Record(int kind, int index) const {
  CheckIndex(index, Count(kind));
  const std::size_t size = RecordSize(kind);
  return std::span<const std::uint8_t>(records_[static_cast<std::size_t>(kind)])
      .subspan(static_cast<std::size_t>(index) * size, size);
}

std::span<std::uint8_t> MapEventSet::Record(int kind, int index) {
  CheckIndex(index, Count(kind));
  const std::size_t size = RecordSize(kind);
  return std::span<std::uint8_t>(records_[static_cast<std::size_t>(kind)])
      .subspan(static_cast<std::size_t>(index) * size, size);
}

const std::vector<std::uint8_t>& MapEventSet::Records(int kind) const {
  CheckIndex(kind, kEventKindCount);
  return records_[static_cast<std::size_t>(kind)];
}

void MapEventSet::SetRecords(int kind, std::vector<std::uint8_t> bytes) {
  const std::size_t size = RecordSize(kind);
  bytes.resize(bytes.size() / size * size);
  records_[static_cast<std::size_t>(kind)] = std::move(bytes);
}

void MapEventSet::Clear() {
  for (auto& records : records_) records.clear();
}

bool MapEventSet::Empty() const {
  for (const auto& records : records_) {
    if (!records.empty()) return false;
  }
  return true;
}

std::int64_t ScriptHeaderOffset(const SecondaryHeaderBuffer& secondary) {
  return BankHiLoToOffset(secondary.bytes[6], secondary.bytes[8], secondary.bytes[7]);
}

std::int64_t EventListsOffset(const SecondaryHeaderBuffer& secondary) {
  // The event header starts with two bytes the editor has never touched.
  return BankHiLoToOffset(secondary.bytes[6], secondary.bytes[10], secondary.bytes[9]) + 2;
}

void LoadMapEvents(RomFile& rom, const SecondaryHeaderBuffer& secondary, MapEventSet& events) {
  events.Clear();
  rom.Seek(ScriptHeaderOffset(secondary));
  for (int kind : kScriptHeaderKinds) ReadList(rom, kind, events);
  rom.Seek(EventListsOffset(secondary));
  for (int kind : kEventListKinds) ReadList(rom, kind, events);
}

std::vector<FileRegion> EventSaveRegions(const SecondaryHeaderBuffer& secondary,
                                         const MapEventSet& events) {
  return {ListsRegion(ScriptHeaderOffset(secondary), kScriptHeaderKinds, events),
          ListsRegion(EventListsOffset(secondary), kEventListKinds, events)};
}

}  // namespace kartova
