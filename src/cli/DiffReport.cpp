#include "cli/DiffReport.h"

#include <array>
#include <utility>

#include "cli/EventKindNames.h"
#include "rom/HexText.h"

namespace kartova::cli {

namespace {

// Header bytes named one by one in the text summary; more are only counted.
constexpr std::size_t kNamedBytes = 3;

std::string HexString(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  for (std::uint8_t b : bytes) text += Hex2(b);
  return text;
}

Json RecordJson(const std::optional<std::vector<std::uint8_t>>& record) {
  return record ? Json(HexString(*record)) : Json(nullptr);
}

std::string MapLabel(const MapDiff& m) { return std::to_string(m.bank) + "." + std::to_string(m.map); }

std::string SizeText(const MapSize& size) {
  return std::to_string(size.width) + "×" + std::to_string(size.height);
}

const EventKindDiff& KindDiff(const MapDiff& m, int kind) { return m.events[static_cast<std::size_t>(kind)]; }

// ---- JSON ------------------------------------------------------------------------------

Json ByteChangesJson(const std::vector<ByteChange>& changes) {
  Json json = Json::object();
  for (const ByteChange& c : changes)
    json[std::to_string(c.index)] = Json::array({Hex2(c.old_value), Hex2(c.new_value)});
  return json;
}

Json EventsJson(const MapDiff& m) {
  Json json = Json::object();
  for (const auto& [name, kind] : kEventKindNames) {
    const EventKindDiff& k = KindDiff(m, kind);
    if (k.Empty()) continue;
    Json records = Json::object();
    if (k.old_count != k.new_count) records["count"] = Json::array({k.old_count, k.new_count});
    for (const RecordChange& r : k.records)
      records[std::to_string(r.index)] = Json::array({RecordJson(r.old_record), RecordJson(r.new_record)});
    json[name] = std::move(records);
  }
  return json;
}

Json MapDiffJson(const MapDiff& m) {
  Json json = Json::object();
  json["bank"] = m.bank;
  json["map"] = m.map;
  json["name"] = m.name;
  if (m.only_in) {
    json["only_in"] = std::string(1, m.only_in);
    return json;
  }
  if (m.SizeChanged())
    json["size"] = Json::array({Json::array({m.old_size.width, m.old_size.height}),
                                Json::array({m.new_size.width, m.new_size.height})});
  if (!m.primary.empty()) json["primary"] = ByteChangesJson(m.primary);
  if (!m.secondary.empty()) json["secondary"] = ByteChangesJson(m.secondary);
  if (!m.blocks.empty()) {
    Json blocks = Json::array();
    for (const CellChange& c : m.blocks) blocks.push_back(Json::array({c.x, c.y, c.old_block, c.new_block}));
    json["blocks"] = std::move(blocks);
  }
  if (m.EventsDiffer()) json["events"] = EventsJson(m);
  return json;
}

// ---- Text ------------------------------------------------------------------------------

void AddHeaderParts(std::vector<std::string>& parts, const char* name, const std::vector<ByteChange>& changes) {
  if (changes.empty()) return;
  if (changes.size() > kNamedBytes) {
    parts.push_back(std::string(name) + " " + std::to_string(changes.size()) + " bytes");
    return;
  }
  for (const ByteChange& c : changes)
    parts.push_back(std::string(name) + "[" + std::to_string(c.index) + "] " + Hex2(c.old_value) + "→" +
                    Hex2(c.new_value));
}

std::string MapLine(const MapDiff& m) {
  std::vector<std::string> parts;
  if (m.only_in) parts.push_back(std::string("only in ") + m.only_in);
  if (!m.only_in && m.SizeChanged()) parts.push_back("size " + SizeText(m.old_size) + "→" + SizeText(m.new_size));
  if (!m.blocks.empty())
    parts.push_back(std::to_string(m.blocks.size()) + (m.blocks.size() == 1 ? " block" : " blocks"));
  AddHeaderParts(parts, "primary", m.primary);
  AddHeaderParts(parts, "secondary", m.secondary);
  for (const auto& [name, kind] : kEventKindNames) {
    const EventKindDiff& k = KindDiff(m, kind);
    if (k.Empty()) continue;
    std::string part = std::string(name) + " " + std::to_string(k.records.size());
    if (k.old_count != k.new_count)
      part += " (" + std::to_string(k.old_count) + "→" + std::to_string(k.new_count) + ")";
    parts.push_back(std::move(part));
  }
  std::string line = MapLabel(m) + (m.name.empty() ? "" : " " + m.name) + ":";
  for (std::size_t i = 0; i < parts.size(); ++i) line += (i == 0 ? " " : ", ") + parts[i];
  return line + "\n";
}

std::int64_t OtherBytes(const RomDiff& diff) {
  std::int64_t bytes = 0;
  for (const ByteSpan& run : diff.other) bytes += run.length;
  return bytes;
}

std::string Plural(std::int64_t n, const char* word) {
  return std::to_string(n) + " " + word + (n == 1 ? "" : "s");
}

// ---- Patch -----------------------------------------------------------------------------

Json NewBytesJson(const std::vector<ByteChange>& changes) {
  Json json = Json::object();
  for (const ByteChange& c : changes) json[std::to_string(c.index)] = Hex2(c.new_value);
  return json;
}

// Records that both ROMs have; records added or removed are reported in left_out.
Json PatchEventsJson(const MapDiff& m, std::vector<std::string>& left_out) {
  Json json = Json::object();
  for (const auto& [name, kind] : kEventKindNames) {
    const EventKindDiff& k = KindDiff(m, kind);
    if (k.old_count != k.new_count)
      left_out.push_back("map " + MapLabel(m) + " has " + std::to_string(k.old_count) + " " + name +
                         " records in A and " + std::to_string(k.new_count) +
                         " in B; a patch cannot add or remove records");
    Json records = Json::object();
    for (const RecordChange& r : k.records)
      if (r.old_record && r.new_record) records[std::to_string(r.index)] = HexString(*r.new_record);
    if (!records.empty()) json[name] = std::move(records);
  }
  return json;
}

// Null when nothing of the map can be put into a patch.
Json PatchEntry(const MapDiff& m, std::vector<std::string>& left_out) {
  if (m.only_in) {
    left_out.push_back("map " + MapLabel(m) + " is only in " + m.only_in + "; a patch cannot add or remove maps");
    return nullptr;
  }
  if (m.rows_cut)
    left_out.push_back("map " + MapLabel(m) + " grows from " + SizeText(m.old_size) + " to " +
                       SizeText(m.new_size) + " blocks; a patch writes the rows in A's size only");
  Json entry = Json::object();
  entry["bank"] = m.bank;
  entry["map"] = m.map;
  if (!m.patch_blocks.empty()) {
    Json blocks = Json::array();
    for (const CellChange& c : m.patch_blocks) blocks.push_back(Json::array({c.x, c.y, c.new_block}));
    entry["blocks"] = std::move(blocks);
  }
  if (!m.primary.empty()) entry["primary"] = NewBytesJson(m.primary);
  if (!m.secondary.empty()) entry["secondary"] = NewBytesJson(m.secondary);
  Json events = PatchEventsJson(m, left_out);
  if (!events.empty()) entry["events"] = std::move(events);
  return entry.size() > 2 ? entry : Json(nullptr);
}

}  // namespace

Json DiffJson(const RomDiff& diff) {
  Json json = Json::object();
  Json maps = Json::array();
  for (const MapDiff& m : diff.maps) maps.push_back(MapDiffJson(m));
  json["maps"] = std::move(maps);
  Json other = Json::array();
  for (const ByteSpan& run : diff.other) other.push_back(Json{{"offset", run.offset}, {"length", run.length}});
  json["other"] = std::move(other);
  if (diff.old_length != diff.new_length) json["length"] = Json::array({diff.old_length, diff.new_length});
  return json;
}

std::string DiffText(const RomDiff& diff) {
  std::string text;
  for (const MapDiff& m : diff.maps) text += MapLine(m);
  if (!diff.other.empty())
    text += "other: " + Plural(OtherBytes(diff), "byte") + " in " +
            Plural(static_cast<std::int64_t>(diff.other.size()), "run") + ", the first at 0x" +
            Hex(diff.other.front().offset) + "\n";
  if (diff.old_length != diff.new_length)
    text += "length: " + std::to_string(diff.old_length) + "→" + std::to_string(diff.new_length) + "\n";
  return text;
}

Json DiffPatch(const RomDiff& diff, std::vector<std::string>& left_out) {
  Json patch = Json::array();
  for (const MapDiff& m : diff.maps) {
    Json entry = PatchEntry(m, left_out);
    if (!entry.is_null()) patch.push_back(std::move(entry));
  }
  if (!diff.other.empty())
    left_out.push_back(Plural(OtherBytes(diff), "byte") + " outside the maps " +
                       (OtherBytes(diff) == 1 ? "differs (" : "differ (") +
                       Plural(static_cast<std::int64_t>(diff.other.size()), "run") +
                       ", see diff without --patch); a patch leaves them out");
  if (diff.old_length != diff.new_length)
    left_out.push_back("the files differ in length (" + std::to_string(diff.old_length) + " and " +
                       std::to_string(diff.new_length) + " bytes); a patch leaves that out");
  return patch;
}

}  // namespace kartova::cli
