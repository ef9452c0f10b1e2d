#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "gfx/ExtendedMap.h"
#include "gfx/TilesetLoader.h"
#include "maps/MapBankTable.h"
#include "maps/MapHeaders.h"
#include "rom/GameTextTable.h"
#include "rom/RomDefinition.h"
#include "rom/RuntimeError.h"
#include "rom/SettingsReader.h"

namespace kartova {

class RomFile;

// Which parts of a map a reload or save covers.
enum ReloadScope : int { kReloadFull = 0, kReloadMapOnly = 1, kReloadEventsOnly = 2 };

// How a map load treats the headers when it is run by the apply question of the header page.
enum ApplyMode : int {
  kApplyNormal = 0,
  kApplySelectingTab = 1,     // the ui selects a tab itself; no load runs then
  kApplyRestoreHeaders = 2,   // read the headers again and show them; leave map and events
  kApplyEditedHeaders = 3,    // keep the edited headers; reload map and events following them
};

// The points of a map load after which the ui refreshes, in the order they occur.
enum class MapLoadStep {
  kHeaderPage,     // ShowHeaderFields(-1), ShowHeaderCombos(-1), ConSel(i) enabled as Con(i),
                   // the connection editor, then the header page is redrawn
  kTileset,        // tile sheets, palettes and blocks are new
  kEvents,         // the six event lists are new
  kEventControls,  // the event controls the loader needs are enabled
  kMapBuilt,       // bordered grid and connection list are new: scroll ranges, draw, chooser
  kMapRedraw,      // only the events were reloaded: redraw the map
};
using MapLoadListener = std::function<void(MapLoadStep)>;

// What one LoadSelectedMap did.
struct MapLoadResult {
  bool headers_read = false;
  std::vector<MapLoadStep> steps;  // as reported to the listener
};

// The open ROM and the current map. The GUI and the command line both drive this one class;
// it holds everything decoded from the ROM, and every operation opens the file, reads what it
// needs and closes it again, so a change made on disk by another program is seen next time.
class RomDocument {
 public:
  RomDocument();

  // Makes the ROM at path current: its definition, the map bank table with the map count of
  // every bank and the 95 location names. A runtime error (a definition with HeaderLengthA
  // above 30, an overflow of a count or an offset) propagates and leaves the document exactly
  // as it was, previous ROM and all. The file is created empty when it is missing.
  void OpenRom(const std::string& path, const SettingsReader& settings);

  // The entries of the map list of bank (0..25): "name - b.n". A location byte above 94 ends
  // the list with the subscript error in `error`, the maps before it listed. The document's
  // counts decide how many maps are listed; the location bytes are read from the file now.
  MapList FillMapList(int bank) const;

  // Loads map `map` (0-based, as the map list index) of bank (0..25) by ReloadScope and
  // ApplyMode: the headers only for a full scope and not when edited headers are applied; the
  // derived size values always; the tileset, events and grid stages when the mode is not
  // "restore headers", each as the scope allows. The listener hears each step when it is done,
  // so the ui refreshes at the same points even when a later stage raises a runtime error.
  // The tileset stage reads with the document's time of day; a runtime error in the grid
  // stage (a neighbour's strip placed outside the grid) keeps what was filled before it, is
  // reported as kMapBuilt like a finished grid, so that the views still draw, and is thrown
  // when the load is over.
  // SuppressMapLoad and ChangesPending stay with the ui: it does not call this while the first
  // is set, and clears the second after a load that ran to the end.
  MapLoadResult LoadSelectedMap(int bank, int map, const MapLoadListener& listener = {});

  bool IsOpen() const { return !rom_path_.empty(); }
  const std::string& RomPath() const { return rom_path_; }
  // The file's read-only attribute at the last open: saving in place is not offered then.
  bool ReadOnly() const { return read_only_; }
  const RomDefinition& Definition() const { return definition_; }
  std::int32_t HeaderLength() const { return definition_.header_length; }
  const MapGroupPointers& GroupPointers() const { return group_pointers_; }
  const MapCounts& MapCountPerBank() const { return map_counts_; }
  const LocationNames& MapNames() const { return map_names_; }
  // "00 - name" ... for the location combo.
  std::vector<std::string> LocationList() const;
  const GameTextTable& TextTable() const { return text_table_; }

  int ReloadScopeValue() const { return reload_scope_; }
  void SetReloadScope(int scope) { reload_scope_ = scope; }
  int ApplyModeValue() const { return apply_mode_; }
  void SetApplyMode(int mode) { apply_mode_ = mode; }

  // The map of the last LoadSelectedMap (-1 before the first).
  int SelectedBank() const { return selected_bank_; }
  int SelectedMap() const { return selected_map_; }
  // File offset of the primary header of map `map` (0-based) of bank (0..25); the subscript
  // error for another bank, the overflow error when the offset leaves 32 bits.
  std::int64_t HeaderOffset(int bank, int map) const;

  PrimaryHeaderBuffer& Primary() { return primary_; }
  const PrimaryHeaderBuffer& Primary() const { return primary_; }
  SecondaryHeaderBuffer& Secondary() { return secondary_; }
  const SecondaryHeaderBuffer& Secondary() const { return secondary_; }

  // Taken from the secondary header at every map load, edited or not.
  int MapHeight() const { return map_height_; }
  int MapWidth() const { return map_width_; }
  std::int32_t BlockDataPointer() const { return block_data_pointer_; }
  // Bytes per row of the game's working copy of the link data: (width + 7) * 2.
  std::int32_t LinkRowLength() const { return link_row_length_; }

  // The tileset of the last tileset stage: record, tile sheets, colour table and blocks. Parts
  // a load could not read keep what the previous tileset left in them.
  const TilesetGraphics& Graphics() const { return *graphics_; }
  const ColourTable& Colours() const { return graphics_->colours; }
  const BlockSet& Blocks() const { return graphics_->blocks; }
  // The bordered block grid of the last grid stage with its connection rectangles; block
  // edits change it in place.
  const ExtendedMap& Grid() const { return grid_; }
  ExtendedMap& Grid() { return grid_; }

  // The lighting the palettes are read for: 0..7, or 8 ("Auto") for the map header's own.
  int TimeOfDay() const { return time_of_day_; }
  // A lighting change: unless value is the current one, stores it and reads the palettes of
  // the loaded map again, with palette 6 taking the colours of map bank `bank` (0..25, the
  // bank selector's position). Only the colour table changes. False when nothing was done
  // (no file access then).
  bool SetTimeOfDay(int value, int bank);

  // Reads that went to the operating system in the last OpenRom or LoadSelectedMap (the
  // definition's own title read not counted).
  int LastSystemReads() const { return last_system_reads_; }

 private:
  void ReadHeaders(RomFile& rom, int bank, int map);
  void DeriveMapValues();
  // Later stages of a map load; each reads through the open file of the load.
  void LoadTilesetStage(RomFile& rom);
  void LoadEventsStage(RomFile& rom);
  // Returns the runtime error that ended the grid early, if one did.
  std::optional<RuntimeError> BuildExtendedMapStage(RomFile& rom);

  GameTextTable text_table_;
  std::string rom_path_;
  bool read_only_ = false;
  RomDefinition definition_;
  MapGroupPointers group_pointers_{};
  MapCounts map_counts_{};
  LocationNames map_names_;

  int reload_scope_ = kReloadFull;
  int apply_mode_ = kApplyNormal;
  int selected_bank_ = -1;
  int selected_map_ = -1;
  PrimaryHeaderBuffer primary_;
  SecondaryHeaderBuffer secondary_;
  int map_height_ = 0;
  int map_width_ = 0;
  std::int32_t block_data_pointer_ = 0;
  std::int32_t link_row_length_ = 14;
  int time_of_day_ = kTimeOfDayAuto;
  // Large and kept from load to load; on the heap so that a document is cheap to hold.
  std::unique_ptr<TilesetGraphics> graphics_;
  ExtendedMap grid_;
  mutable int last_system_reads_ = 0;
};

}  // namespace kartova
