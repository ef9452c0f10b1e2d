#include "cli/Patch.h"

#include <array>
#include <filesystem>
#include <limits>

#include "cli/Arguments.h"
#include "cli/EventKindNames.h"
#include "cli/Messages.h"
#include "events/MapEventSet.h"
#include "maps/MapHeaders.h"
#include "rom/Address.h"

namespace kartova::cli {

namespace {

using Problem = std::optional<PatchProblem>;

PatchProblem At(std::string path, std::string what) { return PatchProblem{std::move(path), std::move(what)}; }

// A JSON integer, with values beyond 64 bits held at the largest one (out of every range).
std::optional<std::int64_t> IntegerOf(const Json& value) {
  if (value.is_number_unsigned()) {
    const std::uint64_t u = value.get<std::uint64_t>();
    return u > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())
               ? std::numeric_limits<std::int64_t>::max()
               : static_cast<std::int64_t>(u);
  }
  if (value.is_number_integer()) return value.get<std::int64_t>();
  return std::nullopt;
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Pairs of hex digits, either case; nullopt for anything else (an odd count among it).
std::optional<std::vector<std::uint8_t>> HexBytesOf(const std::string& text) {
  if (text.size() % 2 != 0) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const int high = HexDigit(text[i]), low = HexDigit(text[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
  }
  return bytes;
}

// An index key: decimal digits without a leading zero, so that each index has one spelling.
std::optional<int> IndexKey(const std::string& key) {
  if (key.size() > 1 && key[0] == '0') return std::nullopt;
  return SmallNumber(key);
}

Problem ParseBlocks(const Json& value, const std::string& path, MapEdit& edit) {
  if (!value.is_array()) return At(path, "blocks is an array of [x, y, block]");
  for (std::size_t i = 0; i < value.size(); ++i) {
    const std::string at = path + "[" + std::to_string(i) + "]";
    const Json& cell = value[i];
    std::array<std::optional<std::int64_t>, 3> n;
    if (cell.is_array() && cell.size() == 3)
      for (std::size_t k = 0; k < 3; ++k) n[k] = IntegerOf(cell[k]);
    if (!n[0] || !n[1] || !n[2]) return At(at, "a block is [x, y, block], three integers");
    if (*n[0] < 0 || *n[1] < 0) return At(at, "x and y count from 0");
    if (*n[2] > 255 || *n[2] < 0) return At(at, "block " + std::to_string(*n[2]) + " is outside 0-255");
    edit.blocks.push_back({*n[0], *n[1], static_cast<std::uint8_t>(*n[2]), at});
  }
  return std::nullopt;
}

Problem ParseHeaderBytes(const Json& value, const std::string& path, int size,
                         std::vector<HeaderByteEdit>& edits) {
  const std::string name = path.substr(path.rfind('.') + 1);
  if (!value.is_object()) return At(path, name + " is an object of \"INDEX\": \"HH\"");
  for (const auto& [key, byte] : value.items()) {
    const std::string at = path + "." + key;
    const std::optional<int> index = IndexKey(key);
    if (!index) return At(at, "an index is a decimal number");
    if (*index >= size) return At(at, name + " index " + key + " is outside 0-" + std::to_string(size - 1));
    const std::optional<std::vector<std::uint8_t>> bytes =
        byte.is_string() ? HexBytesOf(byte.get<std::string>()) : std::nullopt;
    if (!bytes || bytes->size() != 1) return At(at, "a byte is two hex digits, such as \"0A\"");
    edits.push_back({*index, bytes->front(), at});
  }
  return std::nullopt;
}

Problem ParseEvents(const Json& value, const std::string& path, MapEdit& edit) {
  if (!value.is_object()) return At(path, "events is an object of the kinds warp, trigger, sign, people, enter, time");
  for (const auto& [name, records] : value.items()) {
    const std::string kind_path = path + "." + name;
    const std::optional<int> kind = EventKindNamed(name);
    if (!kind) return At(kind_path, "unknown event kind; the kinds are warp, trigger, sign, people, enter, time");
    if (!records.is_object()) return At(kind_path, name + " is an object of \"INDEX\": \"HEX\"");
    const std::size_t digits = static_cast<std::size_t>(kEventRecordSize[static_cast<std::size_t>(*kind)]) * 2;
    for (const auto& [key, hex] : records.items()) {
      const std::string at = kind_path + "." + key;
      const std::optional<int> index = IndexKey(key);
      if (!index) return At(at, "an index is a decimal number");
      std::optional<std::vector<std::uint8_t>> bytes = hex.is_string() ? HexBytesOf(hex.get<std::string>()) : std::nullopt;
      if (!bytes || bytes->size() * 2 != digits)
        return At(at, "a " + name + " record is " + std::to_string(digits) + " hex digits");
      edit.events.push_back({*kind, *index, std::move(*bytes), at});
    }
  }
  return std::nullopt;
}

Problem ParseImport(const Json& value, const std::string& path, const std::string& patch_directory,
                    MapEdit& edit) {
  if (!value.is_string() || value.get<std::string>().empty()) return At(path, "import is the name of a .map file");
  const std::string& name = value.get_ref<const std::string&>();
  namespace fs = std::filesystem;
  const fs::path given(std::u8string(name.begin(), name.end()));
  const fs::path base(std::u8string(patch_directory.begin(), patch_directory.end()));
  const std::u8string resolved = (given.is_absolute() ? given : base / given).u8string();
  const std::string file(resolved.begin(), resolved.end());
  const std::string reason = ReadFailureReason(file);
  if (!reason.empty()) return At(path, "cannot read " + file + ": " + reason);
  edit.import_file = file;
  return std::nullopt;
}

Problem ParseMapNumber(const Json& value, const std::string& path, const char* name, int high, int& out) {
  const std::optional<std::int64_t> n = IntegerOf(value);
  if (!n) return At(path, std::string(name) + " is an integer");
  if (*n < 1 || *n > high)
    return At(path, std::string(name) + " " + std::to_string(*n) + " is outside 1-" + std::to_string(high));
  out = static_cast<int>(*n);
  return std::nullopt;
}

}  // namespace

std::string PatchProblem::Text() const { return path.empty() ? what : path + ": " + what; }

std::optional<int> EventKindNamed(const std::string& name) {
  for (const auto& [n, kind] : kEventKindNames)
    if (name == n) return kind;
  return std::nullopt;
}

const char* EventKindName(int kind) {
  for (const auto& [n, k] : kEventKindNames)
    if (k == kind) return n;
  return "";
}

std::variant<Json, PatchProblem> ParsePatchText(const std::string& text) {
  Json json;
  try {
    json = Json::parse(text);
  } catch (const Json::parse_error& error) {
    // "[json.exception.parse_error.101] parse error at line 3, column 5: syntax error ..."
    std::string what = error.what();
    const std::size_t at = what.find("parse error at ");
    what = at == std::string::npos ? what.substr(what.find(']') + 1) : what.substr(at + 15);
    while (!what.empty() && what.front() == ' ') what.erase(0, 1);
    return At("", what);
  }
  if (!json.is_array()) return At("", "a patch is a JSON array of map edits");
  return json;
}

std::variant<MapEdit, PatchProblem> ParseMapEdit(const Json& entry, std::size_t index,
                                                 const std::string& patch_directory) {
  MapEdit edit;
  // Built by appending: GCC 12 takes "[" + std::to_string(index) for an overlapping copy.
  edit.path = std::string("[").append(std::to_string(index)).append("]");
  if (!entry.is_object()) return At(edit.path, "an entry is an object with bank, map and the edits");
  bool bank = false, map = false;
  // The keys are taken in the order the file gives them, so the first problem is the first
  // one in the text.
  for (const auto& [key, value] : entry.items()) {
    const std::string path = edit.path + "." + key;
    Problem problem;
    if (key == "bank") {
      problem = ParseMapNumber(value, path, "bank", kMapBankCount, edit.bank);
      bank = true;
    } else if (key == "map") {
      problem = ParseMapNumber(value, path, "map", std::numeric_limits<int>::max(), edit.map);
      map = true;
    } else if (key == "blocks") {
      problem = ParseBlocks(value, path, edit);
    } else if (key == "primary") {
      problem = ParseHeaderBytes(value, path, PrimaryHeaderBuffer::kSize, edit.primary);
    } else if (key == "secondary") {
      problem = ParseHeaderBytes(value, path, SecondaryHeaderBuffer::kSize, edit.secondary);
    } else if (key == "events") {
      problem = ParseEvents(value, path, edit);
    } else if (key == "import") {
      problem = ParseImport(value, path, patch_directory, edit);
    } else {
      problem = At(path, "unknown key; an entry has bank, map, blocks, primary, secondary, events and import");
    }
    if (problem) return *problem;
  }
  if (!bank) return At(edit.path, "bank is missing");
  if (!map) return At(edit.path, "map is missing");
  return edit;
}

}  // namespace kartova::cli
