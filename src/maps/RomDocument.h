#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "events/MapEventSet.h"
#include "gfx/ExtendedMap.h"
#include "gfx/TilesetLoader.h"
#include "maps/DocumentChange.h"
#include "maps/EditHistory.h"
#include "maps/MapBankTable.h"
#include "maps/MapHeaders.h"
#include "maps/PaintCellsEdit.h"
#include "maps/RomFileChecks.h"
#include "rom/FileRegion.h"
#include "rom/GameTextTable.h"
#include "rom/RomDefinition.h"
#include "rom/RuntimeError.h"
#include "rom/SafeFileWriter.h"
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
  // A read of the load wanted bytes past the end of the file: the file is shorter than the
  // data the map points to (a truncated ROM), and what could not be read was taken as the
  // readers take it (zeros, or what the buffer held).
  bool read_past_end = false;
};

// What a save writes: the regions in the order they are written. A runtime error raised on
// the way (the map bank out of range, a list too long to count in a byte) ends the list there;
// what was collected before it is still written, as a save that stops midway leaves the
// bytes written so far.
struct SavePlan {
  std::vector<FileRegion> regions;
  std::optional<RuntimeError> error;
};

// What a .map import read.
struct MapImport {
  DocumentChange change;
  std::size_t blocks_read = 0;  // block bytes taken from the file
};

// The open ROM and the current map. The GUI and the command line both drive this one class;
// it holds everything decoded from the ROM, and every operation opens the file, reads what it
// needs and closes it again, so a change made on disk by another program is seen next time.
// A runtime error leaves an operation with its context (RuntimeError::context()): what was
// being read or written, the file, and the offset of the table or record when it is known.
class RomDocument {
 public:
  RomDocument();

  // Makes the ROM at path current: its definition, the map bank table with the map count of
  // every bank and the 95 location names. A path that is missing, not a regular file, not
  // readable or too small to hold the map bank table raises RomOpenError before anything is
  // read; nothing is ever created. That and a runtime error (a definition with HeaderLengthA
  // above 30, an overflow of a count or an offset, a location name too long to format)
  // propagate and leave the document exactly as it was, previous ROM and all. Another ROM than
  // the current one leaves no map loaded: the buffers of the previous ROM's map must never be
  // saved into it. Later reads of the ROM never create it either: a file that vanished reads
  // as nothing.
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
  // A map has been loaded from the current ROM (its buffers are what saving writes).
  bool MapLoaded() const { return selected_bank_ >= 0; }
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

  const PrimaryHeaderBuffer& Primary() const { return primary_; }
  const SecondaryHeaderBuffer& Secondary() const { return secondary_; }
  // The events of the last events stage.
  const MapEventSet& Events() const { return events_; }

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
  // The last LoadSelectedMap read past the end of the file (as MapLoadResult::read_past_end;
  // also set by a load that ended with a runtime error).
  bool LastLoadReadPastEnd() const { return last_load_read_past_end_; }

  // ---- Edits ----------------------------------------------------------------------------
  // Every change of the buffers goes through these, and each is a step of the history.

  // A paint stroke: from the press of the button to its release, one step. PaintCell puts the
  // block into a cell of the map itself (never the margin) and is true when the cell changed;
  // it opens a stroke if none is open.
  void BeginStroke();
  bool PaintCell(int x, int y, std::uint8_t block);
  void EndStroke();
  bool StrokeOpen() const { return stroke_ != nullptr; }

  // New contents of the header buffers, as the header page or the connection editor computed
  // them from a typed value. text names the step; edits with the same gesture key join one
  // step while the gesture is open (the keys typed into one box). Nothing changes, nothing is
  // recorded.
  DocumentChange EditHeaders(const PrimaryHeaderBuffer& primary, const SecondaryHeaderBuffer& secondary,
                             std::string text, std::string gesture_key = {});
  // New bytes for record `index` of an event kind (a field typed into, an event dragged); the
  // gesture key joins the edits of one field or one drag into one step. The subscript error
  // for a record that is not there; nothing is recorded when nothing changes.
  DocumentChange EditEventRecord(int kind, int index, std::vector<std::uint8_t> bytes, std::string text,
                                 std::string gesture_key = {});
  // The next edit starts a step of its own (the user moved to another box).
  void CloseGesture() { history_.CloseGesture(); }

  const EditHistory& History() const { return history_; }
  DocumentChange Undo();
  DocumentChange Redo();

  // The buffers differ from what the ROM file held when they were read or last saved.
  bool IsModified() const;

  // ---- Saving ---------------------------------------------------------------------------

  // The regions a save of the scope writes: for a full save both header buffers (the primary
  // one where the map's header was read, the secondary one where the primary buffer points
  // now), then the block rows at the block-data pointer, then the events; the map scope only
  // the block rows, the events scope only the events. Nothing without a loaded map.
  SavePlan SaveRegions(int scope) const;
  // Writes the regions of the scope into the ROM safely (either the old file or the new one
  // is on disk, never a mixture). FileWriteError when nothing could be written (the file is
  // unchanged then); a runtime error of the plan after its regions were written.
  void SaveRom(int scope);
  // "Save as": a copy of the current ROM under path with a full save in it, in one safe
  // write; from then on path is the current ROM.
  void SaveRomAs(const std::string& path);
  // The file on disk is not the one the document last read or wrote: another program has
  // written to it (or replaced it) since the map was loaded or saved. A save then keeps what
  // that program wrote outside the saved regions and overwrites what it wrote inside them.
  bool ChangedOnDisk() const;
  // Fault injection for the tests of failed saves.
  void SetWriteFaultHook(WriteFaultHook hook) { write_fault_hook_ = std::move(hook); }

  // ---- .map files -----------------------------------------------------------------------

  // The layout of the map as a .map file: the marker 0xFF, then the rows from the top, width
  // bytes each.
  std::vector<std::uint8_t> MapFileBytes() const;
  // Writes MapFileBytes at the start of path, safely; a longer file keeps its tail.
  void ExportMap(const std::string& path) const;
  // Reads rows of the map's width from path (after a leading 0xFF when there is one) into the
  // map, one step of the history; a short file leaves the remaining cells as they were. A
  // missing file is created empty and changes nothing. FileWriteError for a directory.
  MapImport ImportMap(const std::string& path);

 private:
  void ReadHeaders(RomFile& rom, int bank, int map);
  // The stages of LoadSelectedMap through the open file; returns the runtime error that ended
  // the grid early, if one did.
  std::optional<RuntimeError> RunLoadStages(RomFile& rom, int bank, int map, MapLoadResult& result,
                                            const MapLoadListener& done);
  // The context of a runtime error raised while reading the current ROM.
  ErrorContext RomContext(ErrorActivity activity, std::optional<std::int64_t> offset = std::nullopt) const;
  // The regions of a save of the scope; a runtime error of the plan names `file`.
  SavePlan PlanSave(int scope, const std::string& file) const;
  MapImport ImportRows(const std::string& path);
  EditTarget Target() { return EditTarget{primary_, secondary_, grid_, events_}; }
  void ResetSavedState();
  void RememberSavedBlocks();
  // After a successful save of the scope: those parts match the file now.
  void MarkSaved(int scope);
  bool BlocksModified() const;
  // The file's size and modification time now, to tell later whether someone else wrote it.
  void RememberDiskStamp();
  void AppendHeaderRegions(std::vector<FileRegion>& regions) const;
  void AppendBlockRegion(std::vector<FileRegion>& regions) const;
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
  MapEventSet events_;
  mutable int last_system_reads_ = 0;
  bool last_load_read_past_end_ = false;

  EditHistory history_;
  std::unique_ptr<PaintCellsEdit> stroke_;
  // What the file holds for the parts of the map, as last read or saved.
  PrimaryHeaderBuffer saved_primary_;
  SecondaryHeaderBuffer saved_secondary_;
  std::vector<std::uint8_t> saved_blocks_;  // the map's cells, row after row
  int saved_width_ = 0;
  int saved_height_ = 0;
  MapEventSet saved_events_;
  WriteFaultHook write_fault_hook_;
  struct DiskStamp {
    bool known = false;
    std::uintmax_t size = 0;
    std::filesystem::file_time_type written{};
    bool operator==(const DiskStamp&) const = default;
  };
  static DiskStamp StampOf(const std::string& path);
  DiskStamp disk_stamp_;
};

}  // namespace kartova
