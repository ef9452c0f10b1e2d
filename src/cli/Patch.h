#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "cli/JsonText.h"

namespace kartova::cli {

// One thing wrong with a patch: where in the JSON (such as "[3].events.warp.7", "" for the
// whole document) and what, in a few words.
struct PatchProblem {
  std::string path;
  std::string what;
  // "PATH: WHAT", or WHAT alone for the whole document.
  std::string Text() const;
};

// The edits of one entry of a patch, as the patch gives them; each keeps its JSON path for
// the checks against the map.
struct BlockEdit {
  std::int64_t x = 0, y = 0;  // map coordinates from 0, the margin not counted
  std::uint8_t block = 0;
  std::string path;
};
struct HeaderByteEdit {
  int index = 0;
  std::uint8_t value = 0;
  std::string path;
};
struct EventRecordEdit {
  int kind = 0;   // EventKind
  int index = 0;  // in ROM order, as `map` lists the records
  std::vector<std::uint8_t> bytes;
  std::string path;
};
struct MapEdit {
  std::string path;  // "[3]"
  int bank = 1;      // 1..26
  int map = 1;       // from 1
  std::vector<BlockEdit> blocks;
  std::vector<HeaderByteEdit> primary;
  std::vector<HeaderByteEdit> secondary;
  std::vector<EventRecordEdit> events;
  std::optional<std::string> import_file;  // resolved against the patch's directory
};

// The patch text as JSON: a syntax error (with its line and column) or a top level that is no
// array is the problem.
std::variant<Json, PatchProblem> ParsePatchText(const std::string& text);

// Entry `index` of the patch checked for its form: only known keys, bank and map given as
// numbers, coordinates and indices as numbers in their ranges, bytes and records as hex of
// the right length, the kinds of events known, and an import naming a readable regular file
// (relative paths taken from patch_directory). What depends on the map is checked later.
std::variant<MapEdit, PatchProblem> ParseMapEdit(const Json& entry, std::size_t index,
                                                 const std::string& patch_directory);

// The event kind a patch names ("warp", "trigger", "sign", "people", "enter", "time").
std::optional<int> EventKindNamed(const std::string& name);
const char* EventKindName(int kind);

}  // namespace kartova::cli
