#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "events/MapEventSet.h"
#include "rom/SettingsReader.h"

namespace kartova::cli {

// One header byte that differs.
struct ByteChange {
  int index = 0;
  std::uint8_t old_value = 0;
  std::uint8_t new_value = 0;
};

// One cell of the block rows that differs, in map coordinates from 0.
struct CellChange {
  int x = 0;
  int y = 0;
  std::uint8_t old_block = 0;
  std::uint8_t new_block = 0;
};

// One record of an event kind that differs; a side without the record (the counts differ) has
// no bytes.
struct RecordChange {
  int index = 0;
  std::optional<std::vector<std::uint8_t>> old_record;
  std::optional<std::vector<std::uint8_t>> new_record;
};

struct EventKindDiff {
  int old_count = 0;
  int new_count = 0;
  std::vector<RecordChange> records;  // by index
  bool Empty() const { return old_count == new_count && records.empty(); }
};

struct MapSize {
  int width = 0;
  int height = 0;
  bool operator==(const MapSize&) const = default;
};

// What differs in one map of A and B. bank and map count from 1.
struct MapDiff {
  int bank = 1;
  int map = 1;
  std::string name;    // A's location name of the map (B's for a map only B has)
  char only_in = 0;    // 'A' or 'B' for a map one of the ROMs does not list, else 0
  MapSize old_size, new_size;
  // The header record's HeaderLengthA bytes; the secondary header's 12 and the records of the
  // connections its flags announce in A or B.
  std::vector<ByteChange> primary, secondary;
  std::vector<CellChange> blocks;  // the cells both sizes have
  // The cells a patch sets so that A's block rows, written back in A's size, hold B's bytes:
  // the blocks above when the sizes agree, else by position in the rows. B's rows longer than
  // A's cannot be written by a patch (rows_cut).
  std::vector<CellChange> patch_blocks;
  bool rows_cut = false;
  std::array<EventKindDiff, kEventKindCount> events{};

  bool SizeChanged() const { return !(old_size == new_size); }
  bool EventsDiffer() const;
};

// A run of bytes that differ outside the map structures.
struct ByteSpan {
  std::int64_t offset = 0;
  std::int64_t length = 0;
};

struct RomDiff {
  std::vector<MapDiff> maps;     // bank by bank, map by map
  std::vector<ByteSpan> other;    // in file order, touching runs merged
  std::int64_t old_length = 0;
  std::int64_t new_length = 0;

  bool Same() const { return maps.empty() && other.empty() && old_length == new_length; }
};

// Compares the ROMs at old_path (A) and new_path (B), both read with the definition A's title
// selects. Maps are matched by bank and number and compared part by part: the header record
// (HeaderLengthA bytes), the secondary header with its connection records, the block rows and
// the events. A byte is a map byte when a part of a map both ROMs list takes it in A and in B
// at the same offset, or takes it in B after the part moved; every other byte that differs,
// within the length both files have, is listed in `other`. RomOpenError for a file that is no ROM and
// runtime errors propagate.
RomDiff DiffRoms(const std::string& old_path, const std::string& new_path, const SettingsReader& settings);

}  // namespace kartova::cli
