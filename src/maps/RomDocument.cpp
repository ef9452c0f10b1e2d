#include "maps/RomDocument.h"

#include <filesystem>
#include <utility>

#include "maps/HeaderBytesEdit.h"
#include "maps/MapNames.h"
#include "maps/RomFileChecks.h"
#include "rom/Address.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

// The file's read-only attribute: no write permission for its owner.
bool IsReadOnlyFile(const std::string& path) {
  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (ec || !std::filesystem::is_regular_file(status)) return false;
  return (status.permissions() & std::filesystem::perms::owner_write) == std::filesystem::perms::none;
}

}  // namespace

RomDocument::RomDocument() : graphics_(std::make_unique<TilesetGraphics>()) {}

void RomDocument::OpenRom(const std::string& path, const SettingsReader& settings) {
  CheckRomFile(path);
  // Everything is read into locals first, so a runtime error leaves the previous ROM current.
  RomDefinition definition = WithErrorContext({ErrorActivity::kOpeningRom, path, std::nullopt},
                                              [&] { return ReadRomDefinition(path, settings); });
  RomFile rom = RomFile::OpenExisting(path);
  MapGroupPointers groups{};
  MapCounts counts{};
  WithErrorContext({ErrorActivity::kReadingMapBankTable, path, kMapGroupTableOffset}, [&] {
    groups = ReadMapGroupTable(rom);
    for (int bank = 0; bank < kMapBankCount; ++bank)
      counts[static_cast<size_t>(bank)] = CountMapsInBank(rom, groups, bank, definition.header_length);
  });
  LocationNames names =
      WithErrorContext({ErrorActivity::kReadingLocationNames, path, definition.map_name_table},
                       [&] { return ReadLocationNames(rom, definition.map_name_table, text_table_); });
  last_system_reads_ = rom.SystemReads();
  rom.Close();

  if (path != rom_path_) {
    selected_bank_ = -1;
    selected_map_ = -1;
    EndStroke();
    history_.Clear();
    ResetSavedState();
  }
  rom_path_ = path;
  read_only_ = IsReadOnlyFile(path);
  definition_ = std::move(definition);
  group_pointers_ = groups;
  map_counts_ = counts;
  map_names_ = std::move(names);
  RememberDiskStamp();
}

MapList RomDocument::FillMapList(int bank) const {
  std::optional<std::int64_t> headers_at;  // the bank's header list
  if (bank >= 0 && bank < kMapBankCount)
    headers_at = MapGroupOffset(group_pointers_[static_cast<size_t>(bank)]);
  const ErrorContext context = RomContext(ErrorActivity::kReadingMapList, headers_at);
  RomFile rom = RomFile::OpenExisting(rom_path_);
  MapList list = WithErrorContext(context, [&] {
    return ReadMapList(rom, group_pointers_, map_counts_, bank, definition_.header_length, map_names_);
  });
  if (list.error) list.error->AddContext(context);
  last_system_reads_ = rom.SystemReads();
  return list;
}

ErrorContext RomDocument::RomContext(ErrorActivity activity, std::optional<std::int64_t> offset) const {
  return ErrorContext{activity, rom_path_, offset};
}

std::vector<std::string> RomDocument::LocationList() const { return LocationItems(map_names_); }

std::int64_t RomDocument::HeaderOffset(int bank, int map) const {
  CheckIndex(bank, kMapBankCount);
  if (map < INT16_MIN || map > INT16_MAX) throw RuntimeError::Overflow();  // a 16-bit list index
  CheckedInt32(static_cast<std::int64_t>(definition_.header_length) * map);
  return CheckedInt32(MapHeaderOffset(group_pointers_[static_cast<size_t>(bank)], definition_.header_length, map));
}

MapLoadResult RomDocument::LoadSelectedMap(int bank, int map, const MapLoadListener& listener) {
  MapLoadResult result;
  const MapLoadListener done = [&](MapLoadStep step) {
    result.steps.push_back(step);
    if (listener) listener(step);
  };
  EndStroke();
  history_.CloseGesture();
  // Discarding header edits is a step of its own that can be undone; every other load
  // replaces what the steps refer to, and the history starts anew.
  if (apply_mode_ != kApplyRestoreHeaders) history_.Clear();
  selected_bank_ = bank;
  selected_map_ = map;
  RomFile rom = RomFile::OpenExisting(rom_path_);
  std::optional<RuntimeError> grid_error;
  try {
    grid_error = RunLoadStages(rom, bank, map, result, done);
  } catch (...) {
    last_load_read_past_end_ = rom.ReadPastEnd();
    throw;
  }
  result.read_past_end = last_load_read_past_end_ = rom.ReadPastEnd();
  last_system_reads_ = rom.SystemReads();
  rom.Close();
  RememberDiskStamp();
  if (grid_error) throw *grid_error;
  return result;
}

std::optional<RuntimeError> RomDocument::RunLoadStages(RomFile& rom, int bank, int map, MapLoadResult& result,
                                                       const MapLoadListener& done) {
  std::optional<RuntimeError> grid_error;
  const bool restoring = apply_mode_ == kApplyRestoreHeaders;
  const PrimaryHeaderBuffer primary_before = primary_;
  const SecondaryHeaderBuffer secondary_before = secondary_;
  if (apply_mode_ != kApplyEditedHeaders && reload_scope_ == kReloadFull) {
    ReadHeaders(rom, bank, map);
    saved_primary_ = primary_;
    saved_secondary_ = secondary_;
    result.headers_read = true;
    if (restoring)
      history_.Push(std::make_unique<HeaderBytesEdit>("Header wiederherstellen", primary_before,
                                                      secondary_before, primary_, secondary_));
  }
  DeriveMapValues();
  if (apply_mode_ != kApplyEditedHeaders) done(MapLoadStep::kHeaderPage);
  if (apply_mode_ != kApplyRestoreHeaders) {
    if (reload_scope_ != kReloadEventsOnly) {
      LoadTilesetStage(rom);
      done(MapLoadStep::kTileset);
    }
    if (reload_scope_ != kReloadMapOnly) {
      LoadEventsStage(rom);
      done(MapLoadStep::kEvents);
    }
    done(MapLoadStep::kEventControls);
    if (reload_scope_ == kReloadFull || reload_scope_ == kReloadMapOnly) {
      grid_error = BuildExtendedMapStage(rom);
      done(MapLoadStep::kMapBuilt);
    } else if (reload_scope_ == kReloadEventsOnly) {
      done(MapLoadStep::kMapRedraw);
    }
  }
  return grid_error;
}

void RomDocument::ReadHeaders(RomFile& rom, int bank, int map) {
  std::optional<std::int64_t> at;  // unknown when the offset itself overflows
  try {
    at = HeaderOffset(bank, map);
    ReadPrimaryHeader(rom, *at, primary_);
    ReadSecondaryHeader(rom, primary_, secondary_);
  } catch (RuntimeError& error) {
    error.AddContext(RomContext(ErrorActivity::kReadingHeaders, at));
    throw;
  }
}

void RomDocument::DeriveMapValues() {
  map_height_ = secondary_.Height();
  map_width_ = secondary_.Width();
  block_data_pointer_ = secondary_.BlockDataPointer();
  link_row_length_ = (map_width_ + 7) * 2;
}

// The tileset stage: tileset record, graphics, tile sheets, palettes and blocks.
void RomDocument::LoadTilesetStage(RomFile& rom) {
  TilesetRequest request;
  request.tileset_base = definition_.tileset_base;
  request.primary = primary_.bytes;
  request.time_of_day = time_of_day_;
  request.map_bank = selected_bank_ + 1;
  // The offset named is the tileset table's: only its pointer leads to the map's record.
  WithErrorContext(RomContext(ErrorActivity::kReadingTileset, definition_.tileset_base),
                   [&] { LoadTilesetGraphics(rom, request, *graphics_); });
}

// The events stage: script header and event header with their six record lists.
void RomDocument::LoadEventsStage(RomFile& rom) {
  WithErrorContext(RomContext(ErrorActivity::kReadingEvents, ScriptHeaderOffset(secondary_)),
                   [&] { LoadMapEvents(rom, secondary_, events_); });
  saved_events_ = events_;
}

// The bordered block grid with the neighbours' strips and the connection list. A strip that
// would land outside the grid ends the stage; the cells filled before it stay.
std::optional<RuntimeError> RomDocument::BuildExtendedMapStage(RomFile& rom) {
  std::optional<RuntimeError> error;
  try {
    BuildExtendedMap(rom, secondary_.bytes, definition_.header_length, grid_);
  } catch (const RuntimeError& raised) {
    error = raised;
    error->AddContext(RomContext(ErrorActivity::kBuildingMap, secondary_.BlockDataFileOffset()));
  }
  RememberSavedBlocks();
  return error;
}

bool RomDocument::SetTimeOfDay(int value, int bank) {
  if (value == time_of_day_) return false;
  time_of_day_ = value;
  RomFile rom = RomFile::OpenExisting(rom_path_);
  WithErrorContext(RomContext(ErrorActivity::kReadingPalettes), [&] {
    LoadPalettes(rom, SelectPalettes(graphics_->record, primary_.bytes, time_of_day_, bank + 1),
                 graphics_->colours);
  });
  last_system_reads_ = rom.SystemReads();
  return true;
}

}  // namespace kartova
