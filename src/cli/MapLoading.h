#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/Arguments.h"
#include "cli/Command.h"
#include "maps/RomDocument.h"
#include "rom/RuntimeError.h"

namespace kartova::cli {

// A map loaded as the editor loads it when it is chosen in the map list: the ROM opened, the
// map looked up in its bank's list, then every stage of a full load run at the given time of
// day. A runtime error of the grid stage leaves the grid as far as it was filled; it is kept
// in grid_error so that the command still shows the map and then reports it.
struct LoadedMap {
  RomDocument document;
  int bank = 1;  // 1..26
  int map = 1;   // from 1
  std::optional<RuntimeError> grid_error;
  // The load read past the end of the ROM file (a truncated ROM).
  bool read_past_end = false;
};

// The command line of a command on one map: ROM BANK MAP, then the command's own positional
// arguments (positional_count in all), and --time N among known_options.
struct MapCommandLine {
  SplitArguments split;
  int bank = 0;        // 1..26
  int map = 0;         // from 1
  int time = 8;        // 0..7 a lighting of the Palette / Lighting menu, 8 (the default) Auto
  bool valid = false;  // all of the above given as said, and no unknown option

  // The number given with --name, fallback when it is not given, nullopt when it is no number.
  std::optional<int> Option(const std::string& name, int fallback) const;
};
MapCommandLine ParseMapCommandLine(const std::vector<std::string>& args,
                                   std::size_t positional_count,
                                   const std::vector<std::string>& known_options);

// Loads map `map` (from 1) of map bank `bank` (1..26) of the ROM at rom_path into `loaded` at
// lighting `time`, as LoadMap does. Returns the message for a map the bank does not list
// ("Fehler: Ziel-Map (B.M) existiert nicht."); RomOpenError and runtime errors propagate.
std::optional<std::string> LoadListedMap(const std::string& rom_path, const SettingsReader& settings,
                                         int bank, int map, int time, LoadedMap& loaded);

// Loads the map a valid command line names. Prints the message and returns the exit status on
// failure: 1 for a map the bank does not list ("Fehler: Ziel-Map (B.M) existiert nicht.").
// RomOpenError for a file that is no ROM (missing, a directory, too small) and runtime errors
// propagate. A load that read past the end of the file is warned about; it is no failure.
std::optional<int> LoadMap(const CommandContext& ctx, const MapCommandLine& line,
                           LoadedMap& loaded);

// Reports a grid error kept by LoadMap on the error stream: 1 if there was one, else 0.
int ReportGridError(const CommandContext& ctx, const LoadedMap& loaded);

}  // namespace kartova::cli
