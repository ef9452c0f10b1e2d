#include "cli/RomDiff.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "maps/MapSnapshot.h"
#include "maps/RomFileChecks.h"
#include "rom/RomDefinition.h"
#include "rom/RuntimeError.h"

namespace kartova::cli {

namespace {

// The stretches of the files that the map comparison accounts for, as half-open intervals.
class Coverage {
 public:
  void Add(std::int64_t offset, std::int64_t length) {
    if (length > 0) spans_.push_back({offset, offset + length});
  }
  // Sorted and merged; call once before asking.
  void Finish() {
    std::sort(spans_.begin(), spans_.end());
    std::vector<std::pair<std::int64_t, std::int64_t>> merged;
    for (const auto& s : spans_) {
      if (!merged.empty() && s.first <= merged.back().second)
        merged.back().second = std::max(merged.back().second, s.second);
      else
        merged.push_back(s);
    }
    spans_ = std::move(merged);
  }
  // Asked with rising offsets only.
  bool Covers(std::int64_t offset) {
    while (next_ < spans_.size() && spans_[next_].second <= offset) ++next_;
    return next_ < spans_.size() && spans_[next_].first <= offset;
  }

 private:
  std::vector<std::pair<std::int64_t, std::int64_t>> spans_;
  std::size_t next_ = 0;
};

// The first `length` bytes of two header buffers.
template <std::size_t N>
std::vector<ByteChange> CompareBytes(const std::array<std::uint8_t, N>& a, const std::array<std::uint8_t, N>& b,
                                     std::size_t length) {
  std::vector<ByteChange> changes;
  for (std::size_t i = 0; i < std::min(length, N); ++i)
    if (a[i] != b[i]) changes.push_back({static_cast<int>(i), a[i], b[i]});
  return changes;
}

// The secondary header as the game reads it: the fixed fields and a connection record for
// each direction flag; the slots behind them belong to whatever follows.
std::size_t SecondaryLength(const SecondaryHeaderBuffer& secondary) {
  std::size_t length = SecondaryHeaderBuffer::kConnectionSlotsOffset;
  for (std::uint8_t flag : {SecondaryHeaderBuffer::kNorth, SecondaryHeaderBuffer::kSouth,
                            SecondaryHeaderBuffer::kWest, SecondaryHeaderBuffer::kEast})
    if (secondary.ConnectionFlags() & flag) length += SecondaryHeaderBuffer::kConnectionRecordSize;
  return length;
}

// Where the compared parts of a map lie: the header record (HeaderLengthA bytes: the rest of
// the 30 a save writes is the next record, compared with its own map), the secondary header
// with its connection records, the block rows and the two event blocks.
std::vector<ByteSpan> Parts(const MapSnapshot& s, std::int32_t header_length) {
  std::vector<ByteSpan> parts;
  for (const FileRegion& region : s.SaveRegions())
    parts.push_back({region.offset, static_cast<std::int64_t>(region.bytes.size())});
  parts[0].length = header_length;
  parts[1].length = static_cast<std::int64_t>(SecondaryLength(s.secondary));
  return parts;
}

// Cell by cell where both maps have the cell.
std::vector<CellChange> CompareCells(const MapSnapshot& a, const MapSnapshot& b) {
  std::vector<CellChange> changes;
  const int width = std::min(a.Width(), b.Width());
  const int height = std::min(a.Height(), b.Height());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const std::uint8_t old_block = a.blocks[static_cast<std::size_t>(y * a.Width() + x)];
      const std::uint8_t new_block = b.blocks[static_cast<std::size_t>(y * b.Width() + x)];
      if (old_block != new_block) changes.push_back({x, y, old_block, new_block});
    }
  }
  return changes;
}

// A save writes the rows in the size of the grid it loaded (A's), wherever the headers point
// then; so B's bytes reach the file when A's cells take them position by position.
void PlanPatchCells(const MapSnapshot& a, const MapSnapshot& b, MapDiff& diff) {
  if (!diff.SizeChanged()) {
    diff.patch_blocks = diff.blocks;
    return;
  }
  const std::size_t shared = std::min(a.blocks.size(), b.blocks.size());
  for (std::size_t i = 0; i < shared; ++i) {
    if (a.blocks[i] == b.blocks[i]) continue;
    const int x = static_cast<int>(i % static_cast<std::size_t>(a.Width()));
    const int y = static_cast<int>(i / static_cast<std::size_t>(a.Width()));
    diff.patch_blocks.push_back({x, y, a.blocks[i], b.blocks[i]});
  }
  diff.rows_cut = b.blocks.size() > a.blocks.size();
}

std::vector<std::uint8_t> RecordBytes(const MapEventSet& events, int kind, int index) {
  const auto record = events.Record(kind, index);
  return {record.begin(), record.end()};
}

EventKindDiff CompareKind(const MapEventSet& a, const MapEventSet& b, int kind) {
  EventKindDiff diff;
  diff.old_count = a.Count(kind);
  diff.new_count = b.Count(kind);
  for (int i = 0; i < std::max(diff.old_count, diff.new_count); ++i) {
    RecordChange change{i, std::nullopt, std::nullopt};
    if (i < diff.old_count) change.old_record = RecordBytes(a, kind, i);
    if (i < diff.new_count) change.new_record = RecordBytes(b, kind, i);
    if (change.old_record != change.new_record) diff.records.push_back(std::move(change));
  }
  return diff;
}

std::string NameOf(const MapSnapshot& snapshot, const LocationNames& names) {
  const std::uint8_t location = snapshot.primary.Location();
  return location < kLocationCount ? names[location] : std::string();
}

MapDiff CompareMap(const MapSnapshot& a, const MapSnapshot& b, std::int32_t header_length) {
  MapDiff diff;
  diff.old_size = {a.Width(), a.Height()};
  diff.new_size = {b.Width(), b.Height()};
  diff.primary = CompareBytes(a.primary.bytes, b.primary.bytes, static_cast<std::size_t>(header_length));
  diff.secondary = CompareBytes(a.secondary.bytes, b.secondary.bytes,
                                std::max(SecondaryLength(a.secondary), SecondaryLength(b.secondary)));
  diff.blocks = CompareCells(a, b);
  PlanPatchCells(a, b, diff);
  for (int kind = 0; kind < kEventKindCount; ++kind)
    diff.events[static_cast<std::size_t>(kind)] = CompareKind(a.events, b.events, kind);
  return diff;
}

bool Differs(const MapDiff& diff) {
  return diff.SizeChanged() || !diff.primary.empty() || !diff.secondary.empty() || !diff.blocks.empty() ||
         diff.EventsDiffer();
}

// A part that lies at the same place in both ROMs is compared there, so the bytes it takes in
// both are map bytes. What only one of them takes (rows of a map that grew, the records of a
// list that got longer) belonged to something else in the other ROM and stays for `other`
// when it differs. A part that moved (its pointer changed) is compared as B holds it at its
// new place, which is where a patch writes it: those bytes are map bytes, the ones at the old
// place are not.
void CoverParts(const MapSnapshot& a, const MapSnapshot& b, std::int32_t header_length, Coverage& coverage) {
  const std::vector<ByteSpan> parts_a = Parts(a, header_length);
  const std::vector<ByteSpan> parts_b = Parts(b, header_length);
  for (std::size_t i = 0; i < parts_a.size(); ++i) {
    if (parts_a[i].offset == parts_b[i].offset)
      coverage.Add(parts_a[i].offset, std::min(parts_a[i].length, parts_b[i].length));
    else
      coverage.Add(parts_b[i].offset, parts_b[i].length);
  }
}

// The bytes that differ within the shorter file's length and that no map accounts for.
std::vector<ByteSpan> OtherRuns(const std::string& old_path, const std::string& new_path, std::int64_t length,
                               Coverage& coverage) {
  std::ifstream a(old_path, std::ios::binary), b(new_path, std::ios::binary);
  constexpr std::int64_t kChunk = 256 * 1024;
  std::vector<char> chunk_a(kChunk), chunk_b(kChunk);
  std::vector<ByteSpan> runs;
  for (std::int64_t at = 0; at < length; at += kChunk) {
    const std::int64_t n = std::min(kChunk, length - at);
    a.read(chunk_a.data(), n);
    b.read(chunk_b.data(), n);
    // Both files were measured a moment ago; one that shrank meanwhile cannot be compared.
    if (a.gcount() != n) throw std::runtime_error("could not read " + old_path);
    if (b.gcount() != n) throw std::runtime_error("could not read " + new_path);
    for (std::int64_t i = 0; i < n; ++i) {
      if (chunk_a[static_cast<std::size_t>(i)] == chunk_b[static_cast<std::size_t>(i)]) continue;
      const std::int64_t offset = at + i;
      if (coverage.Covers(offset)) continue;
      if (!runs.empty() && runs.back().offset + runs.back().length == offset)
        ++runs.back().length;
      else
        runs.push_back({offset, 1});
    }
  }
  return runs;
}

}  // namespace

bool MapDiff::EventsDiffer() const {
  return std::any_of(events.begin(), events.end(), [](const EventKindDiff& k) { return !k.Empty(); });
}

RomDiff DiffRoms(const std::string& old_path, const std::string& new_path, const SettingsReader& settings) {
  // Checked before the definition is read: reading the title would create a missing file.
  CheckRomFile(old_path);
  CheckRomFile(new_path);
  const RomDefinition definition = WithErrorContext({ErrorActivity::kOpeningRom, old_path, std::nullopt},
                                                    [&] { return ReadRomDefinition(old_path, settings); });
  MapSnapshotReader old_rom(old_path, definition), new_rom(new_path, definition);
  RomDiff diff;
  diff.old_length = old_rom.FileSize();
  diff.new_length = new_rom.FileSize();
  Coverage coverage;
  for (int bank = 0; bank < kMapBankCount; ++bank) {
    const int old_count = old_rom.Counts()[static_cast<std::size_t>(bank)];
    const int new_count = new_rom.Counts()[static_cast<std::size_t>(bank)];
    for (int map = 0; map < std::max(old_count, new_count); ++map) {
      MapDiff map_diff;
      if (map < old_count && map < new_count) {
        const MapSnapshot a = old_rom.Read(bank, map), b = new_rom.Read(bank, map);
        CoverParts(a, b, definition.header_length, coverage);
        map_diff = CompareMap(a, b, definition.header_length);
        if (!Differs(map_diff)) continue;
        map_diff.name = NameOf(a, old_rom.Names());
      } else {
        const bool in_old = map < old_count;
        map_diff.only_in = in_old ? 'A' : 'B';
        map_diff.name = NameOf(in_old ? old_rom.Read(bank, map) : new_rom.Read(bank, map), old_rom.Names());
      }
      map_diff.bank = bank + 1;
      map_diff.map = map + 1;
      diff.maps.push_back(std::move(map_diff));
    }
  }
  coverage.Finish();
  diff.other = OtherRuns(old_path, new_path, std::min(diff.old_length, diff.new_length), coverage);
  return diff;
}

}  // namespace kartova::cli
