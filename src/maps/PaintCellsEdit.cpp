#include "maps/PaintCellsEdit.h"

#include "gfx/ExtendedMap.h"

namespace kartova {

namespace {
std::int64_t Key(int x, int y) { return (static_cast<std::int64_t>(y) << 32) | static_cast<std::uint32_t>(x); }
}  // namespace

PaintCellsEdit::PaintCellsEdit(std::string text, bool whole_map)
    : Edit(std::move(text)), whole_map_(whole_map) {}

void PaintCellsEdit::Record(int x, int y, std::uint8_t before, std::uint8_t after) {
  const auto [it, added] = index_.try_emplace(Key(x, y), cells_.size());
  if (added)
    cells_.push_back({x, y, before, after});
  else
    cells_[it->second].after = after;
}

bool PaintCellsEdit::ChangesAnything() const {
  for (const Cell& cell : cells_)
    if (cell.before != cell.after) return true;
  return false;
}

DocumentChange PaintCellsEdit::Apply(EditTarget& target, bool undo) const {
  DocumentChange change;
  change.whole_map = whole_map_;
  // Another map may have been loaded since; cells outside the grid are not there to restore.
  for (const Cell& cell : cells_) {
    if (!target.grid.Contains(cell.x, cell.y)) continue;
    target.grid.Row(cell.y)[cell.x] = undo ? cell.before : cell.after;
    if (!whole_map_) change.cells.push_back({cell.x, cell.y});
  }
  return change;
}

DocumentChange PaintCellsEdit::Undo(EditTarget& target) const { return Apply(target, true); }

DocumentChange PaintCellsEdit::Redo(EditTarget& target) const { return Apply(target, false); }

}  // namespace kartova
