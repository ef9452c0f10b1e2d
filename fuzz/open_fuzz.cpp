// Opens a ROM with a fuzzed INI store: the demo image with patches over the places the editor
// reads at open (title, map group table, the header lists of bank 0x25, the location names),
// or an arbitrary file; then lists the maps of every bank.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "maps/RomDocument.h"

using namespace kartova;
using namespace kartova::fuzz;

namespace {

bool EndsWith(const std::string& s, const std::string& end) {
  return s.size() >= end.size() && s.compare(s.size() - end.size(), end.size(), end) == 0;
}

// What an open sets.
struct DocumentState {
  std::string path;
  std::string section;
  std::int32_t header_length = 0;
  std::vector<std::vector<std::string>> name_lists;
  MapGroupPointers groups{};
  MapCounts counts{};
  LocationNames names;
  bool operator==(const DocumentState&) const = default;
};

DocumentState State(const RomDocument& doc) {
  const RomDefinition& def = doc.Definition();
  return {doc.RomPath(),       def.section,
          def.header_length,   {def.name_lists.begin(), def.name_lists.end()},
          doc.GroupPointers(), doc.MapCountPerBank(),
          doc.MapNames()};
}

void CheckMapLists(const RomDocument& doc) {
  for (int bank = 0; bank < kMapBankCount; ++bank) {
    MapList list;
    try {
      list = doc.FillMapList(bank);
    } catch (const RuntimeError&) {
      continue;
    }
    const std::size_t counted = doc.MapCountPerBank()[static_cast<std::size_t>(bank)];
    Check(list.entries.size() <= counted, "more maps listed than counted");
    Check(list.error || list.entries.size() == counted, "a list ended early without an error");
    for (std::size_t n = 0; n < list.entries.size(); ++n) {
      const std::string suffix = " - " + std::to_string(bank + 1) + "." + std::to_string(n + 1);
      Check(EndsWith(list.entries[n], suffix), "a map list entry without its bank and number");
      try {
        doc.HeaderOffset(bank, static_cast<int>(n));
      } catch (const RuntimeError&) {
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static RomCaseFiles files(RomCaseFiles::Mode::kInPlace);
  // One document for all inputs: a failed open must leave it exactly as the last good one
  // left it, and a document is costly to make (its tileset buffers are a megabyte).
  static RomDocument doc;
  const RomCase c = DecodeRomCase(std::span(data, size));
  const std::string path = files.Prepare(c);

  const DocumentState before = State(doc);
  try {
    doc.OpenRom(path, files.Settings());
  } catch (const RuntimeError&) {
    Check(State(doc) == before, "a failed open changed the document");
    return 0;
  } catch (const RomOpenError&) {
    Check(State(doc) == before, "a refused open changed the document");
    return 0;
  }
  Check(doc.IsOpen() && doc.RomPath() == path && !doc.MapLoaded(), "an open ROM with a map loaded");
  Check(doc.Definition().header_length >= 9, "a header length below nine");
  Check(doc.LocationList().size() == static_cast<std::size_t>(kLocationCount), "not 95 locations");
  CheckMapLists(doc);
  return 0;
}
