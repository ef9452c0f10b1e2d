#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "rom/FileRegion.h"

namespace kartova {

class RomFile;
struct SecondaryHeaderBuffer;

// Kinds of events, numbered as the editor's field frames and lists number them.
enum EventKind : int {
  kEventWarp = 0,
  kEventTrigger = 1,
  kEventSign = 2,
  kEventPeople = 3,
  kEventEnter = 4,
  kEventTime = 5,
};
inline constexpr int kEventKindCount = 6;
// Bytes of one record of each kind.
inline constexpr std::array<int, kEventKindCount> kEventRecordSize = {5, 8, 5, 13, 4, 3};

// A map's events as the ROM holds them: six arrays of raw records, kept byte for byte as read,
// so that a save writes back exactly what was loaded. The editor changes fields of existing
// records but never adds or removes one, so every block goes back to its place at its length.
class MapEventSet {
 public:
  // Index of the last record of a kind, -1 when it has none.
  int LastIndex(int kind) const;
  int Count(int kind) const;
  // The bytes of record `index` of a kind; an index outside the list raises the subscript
  // error.
  std::span<const std::uint8_t> Record(int kind, int index) const;
  std::span<std::uint8_t> Record(int kind, int index);
  // All records of a kind, back to back.
  const std::vector<std::uint8_t>& Records(int kind) const;
  // Replaces the records of a kind: bytes.size() / record size records (a partial record at
  // the end is dropped).
  void SetRecords(int kind, std::vector<std::uint8_t> bytes);
  void Clear();
  bool Empty() const;

  bool operator==(const MapEventSet&) const = default;

 private:
  std::array<std::vector<std::uint8_t>, kEventKindCount> records_{};
};

// Where the two event blocks of a map lie: both in the script bank (secondary header byte 6).
// The script header is at the script pointer (bytes 7-8); the event lists start two bytes
// after the event header pointer (bytes 9-10), the two bytes there being neither read nor
// written.
std::int64_t ScriptHeaderOffset(const SecondaryHeaderBuffer& secondary);
std::int64_t EventListsOffset(const SecondaryHeaderBuffer& secondary);

// Reads both blocks: at the script header the Enter count and records, then the Time count and
// records; at the event lists warps, triggers, signposts and people, each a count byte and its
// records. One positioned read per count and per block of records. What lies past the end of
// the file reads as zero bytes; the counts stay as the file gives them.
void LoadMapEvents(RomFile& rom, const SecondaryHeaderBuffer& secondary, MapEventSet& events);

// What a save writes for the events: two regions, the script header (Enter count and records,
// Time count and records) and the event lists (warps, triggers, signposts, people, each with
// its count). A list of more than 255 records cannot be counted in a byte: the overflow error.
std::vector<FileRegion> EventSaveRegions(const SecondaryHeaderBuffer& secondary,
                                         const MapEventSet& events);

}  // namespace kartova
