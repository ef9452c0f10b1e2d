#include "cli/MapLoading.h"

#include <algorithm>
#include <ostream>

#include "rom/Address.h"

namespace kartova::cli {

SplitArguments SplitOptions(const std::vector<std::string>& args,
                            const std::vector<std::string>& known_options) {
  SplitArguments split;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.size() < 3 || a.compare(0, 2, "--") != 0) {
      split.positional.push_back(a);
      continue;
    }
    const std::size_t eq = a.find('=');
    const std::string name = a.substr(2, eq == std::string::npos ? std::string::npos : eq - 2);
    if (std::find(known_options.begin(), known_options.end(), name) == known_options.end()) {
      split.error = "unknown option '" + a + "'";
      return split;
    }
    if (eq != std::string::npos) {
      split.options[name] = a.substr(eq + 1);
    } else if (i + 1 < args.size()) {
      split.options[name] = args[++i];
    } else {
      split.error = "--" + name + " needs a value";
      return split;
    }
  }
  return split;
}

std::optional<int> SmallNumber(const std::string& text) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
    return std::nullopt;
  return std::stoi(text);
}

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
  return std::nullopt;
}

std::optional<int> LoadMap(const CommandContext& ctx, const MapCommandLine& line,
                           LoadedMap& loaded) {
  const std::optional<std::string> missing =
      LoadListedMap(line.split.positional[0], ctx.settings, line.bank, line.map, line.time, loaded);
  if (!missing) return std::nullopt;
  ctx.err << *missing << "\n";
  return 1;
}

int ReportGridError(const CommandContext& ctx, const LoadedMap& loaded) {
  if (!loaded.grid_error) return 0;
  ctx.err << loaded.grid_error->GermanMessage() << "\n";
  return 1;
}

}  // namespace kartova::cli
