// kartova-cli map ROM BANK MAP [--time N]: one map as the editor loads it, as JSON.

#include <array>
#include <ostream>
#include <string>
#include <utility>

#include "cli/Command.h"
#include "cli/EventKindNames.h"
#include "cli/JsonText.h"
#include "cli/MapLoading.h"
#include "events/MapEventSet.h"
#include "gfx/ExtendedMap.h"
#include "rom/HexText.h"

namespace kartova::cli {

namespace {

constexpr const char* kUsage = "map ROM BANK MAP [--time N]";

template <std::size_t N>
std::string HexBytes(const std::array<std::uint8_t, N>& bytes) {
  std::string out;
  for (std::uint8_t b : bytes) out += Hex2(b);
  return out;
}

// Every row of the bordered grid, two hex digits a block.
Json GridJson(const ExtendedMap& grid) {
  Json rows = Json::array();
  for (int y = 0; y < grid.Height(); ++y) {
    std::string row;
    row.reserve(static_cast<std::size_t>(grid.Width()) * 2);
    for (int x = 0; x < grid.Width(); ++x) row += Hex2(grid.Row(y)[x]);
    rows.push_back(row);
  }
  return rows;
}

Json ConnectionsJson(const ExtendedMap& grid) {
  Json list = Json::array();
  for (int d = 0; d < kDirectionCount; ++d) {
    const GridConnection& c = grid.Connection(d);
    if (!c.present) continue;
    Json item = Json::object();
    item["direction"] = d;
    Json rect = Json::array();
    for (int v : {c.rect.x1, c.rect.y1, c.rect.x2, c.rect.y2}) rect.push_back(v);
    item["rect"] = rect;
    item["bank"] = c.bank;
    item["map"] = c.map;
    list.push_back(item);
  }
  return list;
}

Json ColoursJson(const ColourTable& colours) {
  Json list = Json::array();
  for (int k = 0; k < ColourTable::kPaletteEntries; ++k) {
    const ColourEntry e = colours.Entry(k);
    list.push_back(Hex2(e.red) + Hex2(e.green) + Hex2(e.blue));
  }
  return list;
}

// Each record as its bytes in ROM order, so a warp reads "0305010218".
Json EventsJson(const MapEventSet& events) {
  Json json = Json::object();
  for (const auto& [name, kind] : kEventKindNames) {
    Json list = Json::array();
    for (int index = 0; index < events.Count(kind); ++index) {
      std::string record;
      for (std::uint8_t b : events.Record(kind, index)) record += Hex2(b);
      list.push_back(record);
    }
    json[name] = list;
  }
  return json;
}

Json MapJson(const LoadedMap& loaded) {
  const RomDocument& doc = loaded.document;
  Json json = Json::object();
  json["bank"] = loaded.bank;
  json["map"] = loaded.map;
  json["offset"] = doc.HeaderOffset(loaded.bank - 1, loaded.map - 1);
  json["primary"] = HexBytes(doc.Primary().bytes);
  json["secondary"] = HexBytes(doc.Secondary().bytes);
  json["width"] = doc.Secondary().Width();
  json["height"] = doc.Secondary().Height();
  json["grid"] = GridJson(doc.Grid());
  json["connections"] = ConnectionsJson(doc.Grid());
  json["colours"] = ColoursJson(doc.Colours());
  json["events"] = EventsJson(doc.Events());
  return json;
}

int RunMap(const CommandContext& ctx) {
  const MapCommandLine line = ParseMapCommandLine(ctx.args, 3, {"time"});
  if (!line.valid)
    return CommandUsageError(ctx, line.split,
                             "map needs a ROM file, a map bank 1-26 and a map number from 1; --time takes 0-8",
                             kUsage);
  LoadedMap loaded;
  if (const std::optional<int> failed = LoadMap(ctx, line, loaded)) return *failed;
  ctx.out << JsonText(MapJson(loaded));
  return ReportGridError(ctx, loaded);
}

const CommandRegistrar kMapCommand(Command{
    "map", kUsage, "Print one map as the editor loads it, as JSON.",
    "Loads map MAP (counted from 1, as the map list shows it) of map bank BANK (1-26) as the "
    "editor does and prints it as JSON: bank, map, offset (the file offset of the primary "
    "header), primary (its 30 bytes as hex digits), secondary (the 60 bytes of the secondary "
    "header), width and height in blocks, grid (the bordered block grid, height + 6 rows of "
    "two hex digits a block), connections (per present direction in the order north, south, "
    "west, east: direction 0-3, rect [x1, y1, x2, y2] in grid cells, bank and map of the "
    "neighbour), colours (colour-table entries 0-31 as RRGGBB) and events (the lists enter, "
    "time, warp, trigger, sign and people, each record as its bytes in hex, in ROM order). "
    "--time N picks the lighting "
    "0-7 of the Palette / Lighting menu, 8 (the default) is Auto. A map number beyond the "
    "bank's maps fails with \"Fehler: Ziel-Map (BANK.MAP) existiert nicht.\". A neighbour "
    "strip outside the grid prints the grid as far as it was built, then the runtime error, "
    "and exits with 1.",
    RunMap});

}  // namespace

}  // namespace kartova::cli
