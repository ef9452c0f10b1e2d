#include "cli/MapLoading.h"

#include <ostream>

#include "cli/Messages.h"
#include "rom/Address.h"

namespace kartova::cli {

std::optional<int> MapCommandLine::Option(const std::string& name, int fallback) const {
  if (!split.options.count(name)) return fallback;
  return SmallNumber(split.options.at(name));
}

MapCommandLine ParseMapCommandLine(const std::vector<std::string>& args,
                                   std::size_t positional_count,
                                   const std::vector<std::string>& known_options) {
  MapCommandLine line;
  line.split = SplitOptions(args, known_options);
  const auto& p = line.split.positional;
  const bool counted = p.size() == positional_count;
  const std::optional<int> bank = counted ? SmallNumber(p[1]) : std::nullopt;
  const std::optional<int> map = counted ? SmallNumber(p[2]) : std::nullopt;
  const std::optional<int> time = line.Option("time", 8);
  line.valid = line.split.error.empty() && bank && map && time;
  if (!line.valid) return line;
  line.bank = *bank;
  line.map = *map;
  line.time = *time;
  line.valid = line.bank >= 1 && line.bank <= kMapBankCount && line.map >= 1 && line.time <= 8;
  return line;
}

std::optional<std::string> LoadListedMap(const std::string& rom_path, const SettingsReader& settings,
                                         int bank, int map, int time, LoadedMap& loaded) {
  loaded.bank = bank;
  loaded.map = map;
  RomDocument& doc = loaded.document;
  doc.OpenRom(rom_path, settings);
  // The map list of the bank decides which map numbers exist, as in the editor's selector.
  const MapList list = doc.FillMapList(bank - 1);
  if (list.error) throw *list.error;
  if (static_cast<std::size_t>(map) > list.entries.size())
    return "Fehler: Ziel-Map (" + std::to_string(bank) + "." + std::to_string(map) + ") existiert nicht.";
  // The lighting is chosen first, as in the editor's menu; the load reads its palettes.
  doc.SetTimeOfDay(time, bank - 1);
  bool grid_built = false;
  try {
    doc.LoadSelectedMap(bank - 1, map - 1,
                        [&](MapLoadStep step) { grid_built |= step == MapLoadStep::kMapBuilt; });
  } catch (const RuntimeError& error) {
    if (!grid_built) throw;
    loaded.grid_error = error;
  }
  loaded.read_past_end = doc.LastLoadReadPastEnd();
  return std::nullopt;
}

std::optional<int> LoadMap(const CommandContext& ctx, const MapCommandLine& line,
                           LoadedMap& loaded) {
  const std::optional<std::string> missing =
      LoadListedMap(line.split.positional[0], ctx.settings, line.bank, line.map, line.time, loaded);
  if (missing) {
    PrintError(ctx.err, *missing);
    return 1;
  }
  if (loaded.read_past_end)
    PrintWarning(ctx.err, ReadPastEndWarning(line.split.positional[0], line.bank, line.map));
  return std::nullopt;
}

int ReportGridError(const CommandContext& ctx, const LoadedMap& loaded) {
  if (!loaded.grid_error) return 0;
  PrintError(ctx.err, RuntimeErrorText(*loaded.grid_error));
  return 1;
}

}  // namespace kartova::cli
