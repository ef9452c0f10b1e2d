#include "cli/PatchApplication.h"

#include <ostream>
#include <utility>

#include "cli/MapLoading.h"
#include "cli/Messages.h"
#include "cli/PatchValidation.h"
#include "gfx/ExtendedMap.h"

namespace kartova::cli {

namespace {

// The time of day does not matter to what is saved; Auto is what `map` loads with.
constexpr int kAutoLighting = 8;

void ApplyBlocks(const MapEdit& edit, RomDocument& doc) {
  if (edit.blocks.empty()) return;
  // All cells of the entry are one stroke, as one drag of the pencil.
  doc.BeginStroke();
  for (const BlockEdit& b : edit.blocks)
    doc.PaintCell(static_cast<int>(b.x) + ExtendedMap::kMargin, static_cast<int>(b.y) + ExtendedMap::kMargin, b.block);
  doc.EndStroke();
}

template <typename Buffer>
Buffer WithBytes(Buffer buffer, const std::vector<HeaderByteEdit>& edits) {
  for (const HeaderByteEdit& e : edits) buffer.bytes[static_cast<std::size_t>(e.index)] = e.value;
  return buffer;
}

void ApplyEdits(const MapEdit& edit, RomDocument& doc) {
  ApplyBlocks(edit, doc);
  if (!edit.primary.empty()) doc.EditHeaders(WithBytes(doc.Primary(), edit.primary), doc.Secondary(), "Header ändern");
  if (!edit.secondary.empty())
    doc.EditHeaders(doc.Primary(), WithBytes(doc.Secondary(), edit.secondary), "Header ändern");
  for (const EventRecordEdit& e : edit.events) doc.EditEventRecord(e.kind, e.index, e.bytes, "Event ändern");
}

}  // namespace

PatchApplication::PatchApplication(const SettingsReader& settings, std::ostream& err, std::string rom_label,
                                   std::string patch_directory)
    : settings_(settings), err_(err), rom_label_(std::move(rom_label)), patch_directory_(std::move(patch_directory)) {}

std::optional<PatchProblem> PatchApplication::Apply(const Json& entries, const std::string& rom_path) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    std::variant<MapEdit, PatchProblem> parsed = ParseMapEdit(entries[i], i, patch_directory_);
    if (auto* problem = std::get_if<PatchProblem>(&parsed)) return std::move(*problem);
    const MapEdit& edit = std::get<MapEdit>(parsed);
    current_ = edit.path + " (map " + std::to_string(edit.bank) + "." + std::to_string(edit.map) + ")";
    LoadedMap loaded;
    if (LoadListedMap(rom_path, settings_, edit.bank, edit.map, kAutoLighting, loaded)) {
      const int count = loaded.document.MapCountPerBank()[static_cast<std::size_t>(edit.bank - 1)];
      return PatchProblem{edit.path + ".map", "map " + std::to_string(edit.bank) + "." + std::to_string(edit.map) +
                                                  " does not exist; bank " + std::to_string(edit.bank) + " has " +
                                                  std::to_string(count) + " map" + (count == 1 ? "" : "s")};
    }
    if (loaded.read_past_end) PrintWarning(err_, ReadPastEndWarning(rom_label_, edit.bank, edit.map));
    // A map whose load failed part-way is no basis for a save, as for import-map.
    if (loaded.grid_error) throw *loaded.grid_error;
    RomDocument& doc = loaded.document;
    if (auto problem = CheckAgainstMap(edit, doc)) return problem;
    ApplyEdits(edit, doc);
    if (edit.import_file) {
      importing_ = true;
      doc.ImportMap(*edit.import_file);
      importing_ = false;
    }
    // An entry that changes nothing leaves the file alone.
    if (doc.IsModified()) doc.SaveRom(kReloadFull);
  }
  current_.clear();
  return std::nullopt;
}

}  // namespace kartova::cli
