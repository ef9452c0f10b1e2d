// kartova-cli info ROM: what the editor learns about a ROM when it opens it.

#include <ostream>

#include "cli/Command.h"
#include "cli/JsonText.h"
#include "maps/RomDocument.h"
#include "rom/RomDefinition.h"

namespace kartova::cli {

namespace {

void AddDefinition(Json& info, const RomDefinition& def) {
  info["title"] = def.section;
  info["headerLength"] = def.header_length;
  info["mapNameTable"] = def.map_name_table;
  info["tilesetBase"] = def.tileset_base;

  // One label per header byte beyond the ninth, as the header page shows them.
  Json names = Json::array();
  for (std::int32_t i = 0; i < def.header_length - 9; ++i)
    names.push_back(def.extra_header_byte_names[static_cast<std::size_t>(i)]);
  info["extraHeaderByteNames"] = std::move(names);

  Json lists = Json::object();
  lists["TilesetNames"] = def.name_lists[RomDefinition::kTilesetNames];
  lists["AbilityNames"] = def.name_lists[RomDefinition::kAbilityNames];
  lists["MusicNames"] = def.name_lists[RomDefinition::kMusicNames];
  lists["TimeNames"] = def.name_lists[RomDefinition::kTimeNames];
  info["lists"] = std::move(lists);
}

// The map bank table as read, the maps counted in each bank and the location names.
void AddMapBankTable(Json& info, const RomDocument& doc) {
  info["groupPointers"] = doc.GroupPointers();
  info["mapCounts"] = doc.MapCountPerBank();
  info["mapNames"] = doc.MapNames();
}

// The whole `info` document. Facts about the ROM beyond its definition get their keys here,
// each from its own Add... function.
Json BuildInfo(const std::string& rom_path, const SettingsReader& settings) {
  RomDocument doc;
  doc.OpenRom(rom_path, settings);
  Json info = Json::object();
  AddDefinition(info, doc.Definition());
  AddMapBankTable(info, doc);
  return info;
}

constexpr const char* kUsage = "info ROM";

int RunInfo(const CommandContext& ctx) {
  const SplitArguments split = SplitOptions(ctx.args, {});
  if (!split.error.empty() || split.positional.size() != 1)
    return CommandUsageError(ctx, split, "info needs exactly one ROM file", kUsage);
  ctx.out << JsonText(BuildInfo(split.positional[0], ctx.settings));
  return 0;
}

const CommandRegistrar kInfoCommand(Command{
    "info", kUsage, "Print the ROM definition and map bank table as JSON.",
    "Prints as JSON the ROM definition the editor uses for ROM: the title bytes at 0x134 as 32 "
    "hex digits (the name of the definition section), headerLength, mapNameTable and "
    "tilesetBase, the labels of the header bytes beyond the ninth (extraHeaderByteNames) and "
    "the name lists (lists: TilesetNames, AbilityNames, MusicNames, TimeNames); then the map "
    "bank table: groupPointers (the 26 pointers as read), mapCounts (the maps counted in each "
    "bank) and mapNames (the 95 location names as the editor shows them). A ROM file that "
    "does not exist, a directory, and a file too small to hold the map bank table are "
    "refused with a message; nothing is created.",
    RunInfo});

}  // namespace

}  // namespace kartova::cli
