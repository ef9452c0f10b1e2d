#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/JsonText.h"
#include "rom/SettingsReader.h"

namespace kartova::cli {

// What render-all does with every map.
struct RenderAllOptions {
  std::string rom;
  std::string out_dir;  // must exist
  int time = 8;         // 0..7 a lighting of the Palette / Lighting menu, 8 Auto
  int zoom = 1;         // 1 or 2
  int jobs = 1;         // threads, from 1
};

// What became of one map.
struct MapRendering {
  int bank = 0;  // 1..26
  int map = 0;   // from 1
  // The location name as the map list shows it; none where the list could not be read.
  std::optional<std::string> name;
  // Size in blocks, known once the map's headers were read.
  std::optional<int> width;
  std::optional<int> height;
  std::string file;   // the picture's name in the output directory, once it is written
  std::string error;  // why there is no picture: the load's message or the write's reason
  bool read_past_end = false;  // the load read past the end of the ROM file
};

// Every map of every bank, in bank and map order, as the map lists count them.
// OpenRom's errors (RomOpenError, runtime errors) propagate.
std::vector<MapRendering> ListAllMaps(const std::string& rom, const SettingsReader& settings);

// Called after each map with the number of maps done so far, one call at a time.
using RenderProgress = std::function<void(std::size_t done, std::size_t total)>;

// Loads and renders every listed map into OUT_DIR/BANK-MAP.png, each map in a document of its
// own, so that the picture is the one `render` writes for that map whatever ran before it
// and on whichever thread. Fills in the size and the file or the error of each.
void RenderMaps(std::vector<MapRendering>& maps, const RenderAllOptions& options,
                const SettingsReader& settings, const RenderProgress& progress = {});

// The file `name` in the directory dir (both UTF-8).
std::string PathIn(const std::string& dir, const std::string& name);

// index.json: one object per map, in the given order.
Json IndexJson(const std::vector<MapRendering>& maps);

}  // namespace kartova::cli
