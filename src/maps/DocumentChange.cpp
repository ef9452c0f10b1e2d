#include "maps/DocumentChange.h"

namespace kartova {

void DocumentChange::Add(const DocumentChange& other) {
  headers = headers || other.headers;
  events = events || other.events;
  whole_map = whole_map || other.whole_map;
  cells.insert(cells.end(), other.cells.begin(), other.cells.end());
}

}  // namespace kartova
