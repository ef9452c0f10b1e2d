#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "maps/Edit.h"

namespace kartova {

// Blocks put into cells of the map: a paint stroke from press to release, or a .map import.
// Each cell keeps the block it had before its first change and the block it got last, so a
// stroke that crosses a cell twice is undone to what the cell held before the stroke.
class PaintCellsEdit : public Edit {
 public:
  struct Cell {
    int x = 0;
    int y = 0;
    std::uint8_t before = 0;
    std::uint8_t after = 0;
  };

  // whole_map: the views redraw the whole map rather than cell by cell (an import).
  PaintCellsEdit(std::string text, bool whole_map);

  // Records that cell (x, y) went from `before` to `after`.
  void Record(int x, int y, std::uint8_t before, std::uint8_t after);
  const std::vector<Cell>& Cells() const { return cells_; }

  DocumentChange Undo(EditTarget& target) const override;
  DocumentChange Redo(EditTarget& target) const override;
  bool ChangesAnything() const override;

 private:
  DocumentChange Apply(EditTarget& target, bool undo) const;

  bool whole_map_;
  std::vector<Cell> cells_;
  std::unordered_map<std::int64_t, std::size_t> index_;  // x, y -> place in cells_
};

}  // namespace kartova
