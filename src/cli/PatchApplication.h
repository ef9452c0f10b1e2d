#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "cli/JsonText.h"
#include "cli/Patch.h"
#include "rom/SettingsReader.h"

namespace kartova::cli {

// Applies the entries of a patch to a ROM file, one after the other, as the editor would: the
// map loaded (again, for a map named twice: the file holds what the earlier entry saved), its
// edits made through the document's edit operations in the order blocks, primary, secondary,
// events, import, then a full save through the safe write when the map's buffers changed.
// Each entry is checked just before it is applied, first for its form and then against the
// map as loaded, so that it is judged by what the file holds at that point.
class PatchApplication {
 public:
  // rom_label names the ROM in warnings (the path the user gave); patch_directory is where
  // relative .map paths start.
  PatchApplication(const SettingsReader& settings, std::ostream& err, std::string rom_label,
                   std::string patch_directory);

  // The first problem of the patch, or nullopt when every entry was applied. Runtime errors
  // and FileWriteError (a .map file that cannot be read, a save that failed) propagate;
  // Current() then names the entry at work.
  std::optional<PatchProblem> Apply(const Json& entries, const std::string& rom_path);

  // "[3] (map 2.1)": the entry being applied.
  const std::string& Current() const { return current_; }
  // The entry at work is reading its .map file (a FileWriteError is then a failed read).
  bool Importing() const { return importing_; }

 private:
  const SettingsReader& settings_;
  std::ostream& err_;
  std::string rom_label_;
  std::string patch_directory_;
  std::string current_;
  bool importing_ = false;
};

}  // namespace kartova::cli
