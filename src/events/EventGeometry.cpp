#include "events/EventGeometry.h"

#include <algorithm>
#include <cstddef>

#include "events/MapEventSet.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

// Byte positions of the X and Y of the kinds that stand on the map.
struct PositionBytes {
  std::size_t x;
  std::size_t y;
};

PositionBytes PositionBytesOf(int kind) {
  switch (kind) {
    case kEventWarp:
    case kEventSign:
      return {1, 0};
    case kEventTrigger:
    case kEventPeople:
      return {2, 1};
    default:
      throw RuntimeError::SubscriptOutOfRange();
  }
}

long long FloorDiv(long long a, long long b) {
  long long q = a / b;
  if ((a % b != 0) && ((a < 0) != (b < 0))) --q;
  return q;
}

long long FloorMod(long long a, long long b) { return a - FloorDiv(a, b) * b; }

// The block size comes from the ROM definition; a cell below one pixel would divide by zero.
long long Cell(const EventViewport& view) { return std::max(view.cell, 1); }

int ToInt(long long v) { return static_cast<int>(CheckedInt32(v)); }

int Offset(int kind) { return kind == kEventPeople ? kPeopleOffset : 0; }

// The first visible tile on one axis, in stored coordinates of the kind.
long long FirstVisible(int kind, int scroll, const EventViewport& view) {
  return FloorDiv(scroll, Cell(view)) - kEventMarginTiles + Offset(kind);
}

long long LastVisible(int kind, int scroll, int extent, const EventViewport& view) {
  const long long cell = Cell(view);
  return FirstVisible(kind, scroll, view) + FloorDiv(static_cast<long long>(extent) + FloorMod(scroll, cell), cell);
}

}  // namespace

EventTile TileUnderMouse(const EventViewport& view, int mx, int my) {
  const long long cell = Cell(view);
  auto axis = [cell](int scroll, int mouse) {
    return FloorDiv(FloorMod(scroll, cell) + mouse, cell) + FloorDiv(scroll, cell) - kEventMarginTiles;
  };
  return {ToInt(axis(view.h_scroll, mx)), ToInt(axis(view.v_scroll, my))};
}

EventTile StoredPosition(const MapEventSet& events, int kind, int index) {
  const PositionBytes bytes = PositionBytesOf(kind);
  std::span<const std::uint8_t> record = events.Record(kind, index);
  return {record[bytes.x], record[bytes.y]};
}

std::optional<PixelPoint> SelectionMarkerPosition(const MapEventSet& events, int kind, int index,
                                                  const EventViewport& view) {
  if (kind == kEventEnter || kind == kEventTime || index == kNoEventIndex) return std::nullopt;
  const EventTile stored = StoredPosition(events, kind, index);
  if (!StoredPositionVisible(kind, stored, view)) return std::nullopt;
  return CellOnPicture(kind, stored, view);
}

bool StoredPositionVisible(int kind, EventTile stored, const EventViewport& view) {
  return stored.column >= FirstVisible(kind, view.h_scroll, view) &&
         stored.column <= LastVisible(kind, view.h_scroll, view.width, view) &&
         stored.row >= FirstVisible(kind, view.v_scroll, view) &&
         stored.row <= LastVisible(kind, view.v_scroll, view.height, view);
}

PixelPoint CellOnPicture(int kind, EventTile stored, const EventViewport& view) {
  const long long cell = Cell(view);
  auto axis = [&](int value, int scroll) {
    return (value - FirstVisible(kind, scroll, view)) * cell - FloorMod(scroll, cell);
  };
  return {ToInt(axis(stored.column, view.h_scroll)), ToInt(axis(stored.row, view.v_scroll))};
}

EventHits HitTest(const MapEventSet& events, EventTile tile) {
  EventHits hits;
  for (int kind = kEventWarp; kind <= kEventPeople; ++kind) {
    const PositionBytes bytes = PositionBytesOf(kind);
    const int offset = Offset(kind);
    for (int index = 0; index < events.Count(kind); ++index) {
      std::span<const std::uint8_t> record = events.Record(kind, index);
      if (record[bytes.x] != tile.column + offset || record[bytes.y] != tile.row + offset) continue;
      hits.last_in_kind[static_cast<std::size_t>(kind)] = index;
      if (!hits.Any()) {
        hits.first_kind = kind;
        hits.first_index = index;
      }
    }
  }
  return hits;
}

EventMove MoveEvent(int kind, std::span<std::uint8_t> record, int x, int y, EventTile drag_origin,
                    int map_width, int map_height) {
  const PositionBytes bytes = PositionBytesOf(kind);
  CheckIndex(kEventRecordSize[static_cast<std::size_t>(kind)] - 1, static_cast<long long>(record.size()));
  const int offset = Offset(kind);
  const long long limit_x = static_cast<long long>(map_width) * 2 + 6 + offset;
  const long long limit_y = static_cast<long long>(map_height) * 2 + 6 + offset;
  const long long new_x = std::max(0LL, std::min(static_cast<long long>(x) + offset, limit_x - 1));
  const long long new_y = std::max(0LL, std::min(static_cast<long long>(y) + offset, limit_y - 1));

  EventMove move;
  move.x_written = new_x != drag_origin.column;
  move.y_written = new_y != drag_origin.row;
  // A position past 255 cannot go into its byte: the assignment overflows, and nothing is
  // written.
  if ((move.x_written && new_x > 255) || (move.y_written && new_y > 255)) throw RuntimeError::Overflow();
  if (move.x_written) record[bytes.x] = static_cast<std::uint8_t>(new_x);
  if (move.y_written) record[bytes.y] = static_cast<std::uint8_t>(new_y);
  move.stored = {record[bytes.x], record[bytes.y]};
  return move;
}

ScrollPair CentreOn(EventTile stored, const EventViewport& view, int h_max, int v_max) {
  const long long cell = Cell(view);
  auto axis = [cell](int value, int extent, int max) {
    const long long centred = (static_cast<long long>(value) + 7) * cell - FloorDiv(static_cast<long long>(extent) + cell, 2);
    return static_cast<int>(std::max(0LL, std::min(centred, static_cast<long long>(std::max(max, 0)))));
  };
  return {axis(stored.column, view.width, h_max), axis(stored.row, view.height, v_max)};
}

}  // namespace kartova
