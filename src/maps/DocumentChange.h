#pragma once

#include <vector>

namespace kartova {

class ExtendedMap;
class MapEventSet;
struct PrimaryHeaderBuffer;
struct SecondaryHeaderBuffer;

// A cell of the bordered block grid.
struct GridCell {
  int x = 0;
  int y = 0;
  bool operator==(const GridCell&) const = default;
};

// What an edit, an undo or a redo changed in the document, so that the views redraw only that:
// the header buffers (the header page is refilled), the events, single grid cells (each block
// is patched into the view), or the whole map (the view is redrawn).
struct DocumentChange {
  bool headers = false;
  bool events = false;
  int event_kind = -1;  // the record an event edit changed, when it was one record
  int event_index = -1;
  bool whole_map = false;
  std::vector<GridCell> cells;

  bool Empty() const { return !headers && !events && !whole_map && cells.empty(); }
  void Add(const DocumentChange& other);
};

// The buffers of the current map that edits change. Only edits write through it; pages ask the
// document for an edit.
struct EditTarget {
  PrimaryHeaderBuffer& primary;
  SecondaryHeaderBuffer& secondary;
  ExtendedMap& grid;
  MapEventSet& events;
};

}  // namespace kartova
