// Saving the current map into the ROM, and the map's .map files.

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "maps/RomDocument.h"
#include "rom/RomFile.h"

namespace kartova {

namespace {

constexpr std::uint8_t kMapFileMarker = 0xFF;

// Why a .map file to import could not be opened at all.
std::string OpenFailureReason(const std::string& path) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) return "Ist ein Verzeichnis.";
  return std::strerror(errno != 0 ? errno : EIO);
}

}  // namespace

void RomDocument::AppendHeaderRegions(std::vector<FileRegion>& regions) const {
  // The primary buffer goes back where the map's header was read from; the secondary one to
  // where the primary buffer, as just written, points.
  const std::int64_t primary_at = HeaderOffset(selected_bank_, selected_map_);
  regions.push_back({primary_at, {primary_.bytes.begin(), primary_.bytes.end()}});
  regions.push_back({primary_.SecondaryHeaderFileOffset(), {secondary_.bytes.begin(), secondary_.bytes.end()}});
}

void RomDocument::AppendBlockRegion(std::vector<FileRegion>& regions) const {
  // The rows follow each other without gaps: one region.
  FileRegion rows{secondary_.BlockDataFileOffset(), {}};
  const int width = grid_.MapWidth();
  rows.bytes.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(grid_.MapHeight()));
  for (int r = 0; r < grid_.MapHeight(); ++r) {
    const std::uint8_t* row = grid_.Row(ExtendedMap::kMargin + r) + ExtendedMap::kMargin;
    rows.bytes.insert(rows.bytes.end(), row, row + width);
  }
  regions.push_back(std::move(rows));
}

SavePlan RomDocument::SaveRegions(int scope) const { return PlanSave(scope, rom_path_); }

SavePlan RomDocument::PlanSave(int scope, const std::string& file) const {
  SavePlan plan;
  if (!MapLoaded()) return plan;
  // Where the part being planned goes; unknown while the header's own offset is computed.
  std::optional<std::int64_t> at;
  try {
    if (scope == kReloadFull) AppendHeaderRegions(plan.regions);
    if (scope == kReloadFull || scope == kReloadMapOnly) {
      at = secondary_.BlockDataFileOffset();
      AppendBlockRegion(plan.regions);
    }
    if (scope == kReloadFull || scope == kReloadEventsOnly) {
      at = ScriptHeaderOffset(secondary_);
      std::vector<FileRegion> events = EventSaveRegions(secondary_, events_);
      plan.regions.insert(plan.regions.end(), events.begin(), events.end());
    }
  } catch (const RuntimeError& error) {
    plan.error = error;
    plan.error->AddContext({ErrorActivity::kSaving, file, at});
  }
  return plan;
}

void RomDocument::SaveRom(int scope) {
  EndStroke();
  history_.CloseGesture();
  const SavePlan plan = SaveRegions(scope);
  if (!plan.regions.empty()) {
    SafeWriteOptions options;
    options.fault_hook = write_fault_hook_;
    WriteRegionsSafely(rom_path_, plan.regions, options);
    RememberDiskStamp();
  }
  if (plan.error) throw *plan.error;
  if (MapLoaded()) MarkSaved(scope);
}

void RomDocument::SaveRomAs(const std::string& path) {
  EndStroke();
  history_.CloseGesture();
  const SavePlan plan = PlanSave(kReloadFull, path);
  SafeWriteOptions options;
  options.fault_hook = write_fault_hook_;
  // Saved onto itself, nothing is copied; and a ROM that vanished meanwhile is not rebuilt from
  // the few regions of one map.
  options.create_if_missing = path != rom_path_;
  if (path != rom_path_) options.source = rom_path_;
  WriteRegionsSafely(path, plan.regions, options);
  rom_path_ = path;
  RememberDiskStamp();
  // The copy is writable: a new file gets owner write, and a read-only target is refused.
  read_only_ = false;
  if (plan.error) throw *plan.error;
  if (MapLoaded()) MarkSaved(kReloadFull);
}

RomDocument::DiskStamp RomDocument::StampOf(const std::string& path) {
  DiskStamp stamp;
  std::error_code size_error, time_error;
  stamp.size = std::filesystem::file_size(path, size_error);
  stamp.written = std::filesystem::last_write_time(path, time_error);
  stamp.known = !size_error && !time_error;
  return stamp;
}

void RomDocument::RememberDiskStamp() { disk_stamp_ = StampOf(rom_path_); }

bool RomDocument::ChangedOnDisk() const {
  if (!disk_stamp_.known || rom_path_.empty()) return false;
  // A file that is gone is no change to ask about: the save itself reports it.
  const DiskStamp now = StampOf(rom_path_);
  return now.known && !(now == disk_stamp_);
}

std::vector<std::uint8_t> RomDocument::MapFileBytes() const {
  std::vector<std::uint8_t> bytes{kMapFileMarker};
  std::vector<FileRegion> rows;
  AppendBlockRegion(rows);
  bytes.insert(bytes.end(), rows.front().bytes.begin(), rows.front().bytes.end());
  return bytes;
}

void RomDocument::ExportMap(const std::string& path) const {
  SafeWriteOptions options;
  options.fault_hook = write_fault_hook_;
  options.create_if_missing = true;
  const std::vector<std::uint8_t> bytes =
      WithErrorContext({ErrorActivity::kExportingMap, path, std::nullopt}, [&] { return MapFileBytes(); });
  WriteRegionsSafely(path, {FileRegion{0, bytes}}, options);
}

MapImport RomDocument::ImportMap(const std::string& path) {
  return WithErrorContext({ErrorActivity::kImportingMap, path, std::nullopt}, [&] { return ImportRows(path); });
}

MapImport RomDocument::ImportRows(const std::string& path) {
  EndStroke();
  RomFile file = RomFile::OpenForRead(path);
  if (!file.IsOpen()) throw FileWriteError(path, OpenFailureReason(path));
  const std::uint8_t first = file.ReadByte();
  file.Seek(first == kMapFileMarker ? 1 : 0);
  MapImport result;
  auto edit = std::make_unique<PaintCellsEdit>("Map importieren", true);
  const int width = grid_.MapWidth();
  std::vector<std::uint8_t> row(static_cast<std::size_t>(width));
  for (int r = 0; r < grid_.MapHeight(); ++r) {
    std::uint8_t* cells = grid_.Row(ExtendedMap::kMargin + r) + ExtendedMap::kMargin;
    std::copy(cells, cells + width, row.begin());
    const std::size_t got = file.ReadBytes(row.data(), row.size());
    result.blocks_read += got;
    for (int c = 0; c < width; ++c) {
      edit->Record(ExtendedMap::kMargin + c, ExtendedMap::kMargin + r, cells[c], row[static_cast<std::size_t>(c)]);
      cells[c] = row[static_cast<std::size_t>(c)];
    }
  }
  history_.CloseGesture();
  history_.Push(std::move(edit));
  result.change.whole_map = true;
  return result;
}

}  // namespace kartova
