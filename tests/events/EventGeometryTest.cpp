#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <tuple>
#include <vector>

#include "events/EventGeometry.h"
#include "events/MapEventSet.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Scrolled by half a tile plus two tiles across and a quarter tile plus one tile down: the first
// visible tile is column -4, row -5, the last column 6, row 3.
constexpr EventViewport kView{.h_scroll = 40, .v_scroll = 20, .width = 160, .height = 128, .cell = 16};
constexpr EventViewport kSmall{.h_scroll = 40, .v_scroll = 20, .width = 160, .height = 128, .cell = 8};

Bytes Warp(int x, int y) { return {static_cast<std::uint8_t>(y), static_cast<std::uint8_t>(x), 1, 1, 1}; }
Bytes Person(int x, int y) {  // map tiles; stored 4 further on
  Bytes record(13, 0);
  record[1] = static_cast<std::uint8_t>(y + kPeopleOffset);
  record[2] = static_cast<std::uint8_t>(x + kPeopleOffset);
  return record;
}
Bytes Join(std::initializer_list<Bytes> records) {
  Bytes out;
  for (const Bytes& r : records) out.insert(out.end(), r.begin(), r.end());
  return out;
}

TEST(EventGeometryTest, TileUnderMouseFollowsScrollAndZoom) {
  const std::tuple<EventViewport, int, int, EventTile> cases[] = {
      {kView, 0, 0, {-4, -5}},   {kView, 7, 11, {-4, -5}}, {kView, 8, 12, {-3, -4}},
      {kView, -1, -4, {-4, -5}},  // still in the half tile
      {kView, -9, -5, {-5, -6}},  // left of the picture
      {kSmall, 7, 3, {-1, -4}},  {kSmall, 8, 4, {0, -3}},  {{.width = 10, .height = 10}, 0, 0, {-6, -6}}};
  for (const auto& [view, x, y, tile] : cases) EXPECT_EQ(TileUnderMouse(view, x, y), tile) << x << "," << y;
}

TEST(EventGeometryTest, StoredPositionsAndTheSelectionMarkerOnVisibleEventsOnly) {
  MapEventSet events;
  events.SetRecords(kEventWarp, Join({Warp(3, 2), Warp(6, 3), Warp(7, 3), Warp(3, 4)}));
  events.SetRecords(kEventTrigger, {0, 5, 6, 0, 0, 0, 0, 0});
  events.SetRecords(kEventSign, {5, 6, 0, 0, 0});
  events.SetRecords(kEventPeople, Join({Person(3, 2), Person(7, 0)}));
  events.SetRecords(kEventEnter, Bytes(4, 0));
  EXPECT_EQ(StoredPosition(events, kEventTrigger, 0), (EventTile{6, 5}));
  EXPECT_EQ(StoredPosition(events, kEventSign, 0), (EventTile{6, 5}));
  EXPECT_EQ(StoredPosition(events, kEventPeople, 0), (EventTile{7, 6}));
  EXPECT_THROW(StoredPosition(events, kEventEnter, 0), RuntimeError);
  EXPECT_THROW(StoredPosition(events, kEventWarp, 4), RuntimeError);

  EventViewport right = kView;
  right.h_scroll = 200;  // first visible column 6, half a tile cut off
  const std::tuple<int, int, EventViewport, std::optional<PixelPoint>> marks[] = {
      {kEventWarp, 0, kView, PixelPoint{104, 108}}, {kEventWarp, 1, kView, PixelPoint{152, 124}},  // partly
      {kEventWarp, 2, kView, std::nullopt},         {kEventWarp, 3, kView, std::nullopt},
      {kEventPeople, 0, kView, PixelPoint{104, 108}}, {kEventPeople, 1, kView, std::nullopt},
      {kEventEnter, 0, kView, std::nullopt},        {kEventWarp, kNoEventIndex, kView, std::nullopt},
      {kEventWarp, 0, right, std::nullopt},         {kEventWarp, 1, right, PixelPoint{-8, 124}}};
  for (const auto& [kind, index, view, mark] : marks)
    EXPECT_EQ(SelectionMarkerPosition(events, kind, index, view), mark) << kind << " " << index;
  EXPECT_THROW(SelectionMarkerPosition(events, kEventWarp, 4, kView), RuntimeError);
  EXPECT_EQ(CellOnPicture(kEventWarp, {3, 2}, right), (PixelPoint{-56, 108}));
  EXPECT_TRUE(StoredPositionVisible(kEventPeople, {4, -1}, kView));
  EXPECT_FALSE(StoredPositionVisible(kEventPeople, {3, 8}, kView));
}

TEST(EventGeometryTest, HitTestSelectsTheFirstAndMovesEachListToItsLast) {
  MapEventSet events;
  events.SetRecords(kEventWarp, Join({Warp(3, 2), Warp(9, 9), Warp(3, 2)}));
  events.SetRecords(kEventTrigger, {0, 2, 3, 0, 0, 0, 0, 0});  // byte 1 row, byte 2 column
  events.SetRecords(kEventSign, {3, 2, 0, 0, 0});              // row 3, not the tile
  events.SetRecords(kEventPeople, Join({Person(0, 0), Person(3, 2)}));
  const EventHits hits = HitTest(events, {3, 2});
  EXPECT_EQ(std::pair(hits.first_kind, hits.first_index), std::pair(int{kEventWarp}, 0));
  EXPECT_EQ(hits.last_in_kind, (std::array<int, 4>{2, 0, -1, 1}));
  EXPECT_FALSE(HitTest(events, {-1, 7}).Any());

  events.SetRecords(kEventWarp, {});
  events.SetRecords(kEventPeople, Join({Person(3, 2), Person(-4, -4)}));
  const EventHits margin = HitTest(events, {-4, -4});  // stored 0, 0
  EXPECT_EQ(std::pair(margin.first_kind, margin.first_index), std::pair(int{kEventPeople}, 1));
}

TEST(EventGeometryTest, MoveClampsToMapAndMarginAndWritesChangedAxesOnly) {
  Bytes warp = Warp(3, 2);
  EventMove move = MoveEvent(kEventWarp, warp, 30, -3, {3, 2}, 10, 8);
  EXPECT_EQ(move.stored, (EventTile{25, 0}));
  EXPECT_TRUE(move.x_written && move.y_written);
  EXPECT_EQ(warp, Warp(25, 0));

  Bytes person = Person(3, 2);
  move = MoveEvent(kEventPeople, person, -10, 100, {7, 6}, 10, 8);
  EXPECT_EQ(move.stored, (EventTile{0, 25}));  // stored: 0 .. 29 across, 0 .. 25 down
  EXPECT_EQ(person, Person(-4, 21));

  Bytes trigger = {0, 5, 9, 0, 0, 0, 0, 0};
  move = MoveEvent(kEventTrigger, trigger, 3, 5, {3, 5}, 10, 8);
  EXPECT_FALSE(move.Changed());
  EXPECT_EQ(trigger[2], 9);  // the drag began at column 3: nothing moved across
  move = MoveEvent(kEventTrigger, trigger, 3, 6, {3, 5}, 10, 8);
  EXPECT_TRUE(!move.x_written && move.y_written);
  EXPECT_EQ(trigger, (Bytes{0, 6, 9, 0, 0, 0, 0, 0}));

  Bytes short_span = {1, 2, 3};
  EXPECT_THROW(MoveEvent(kEventTrigger, short_span, 0, 0, {5, 5}, 10, 8), RuntimeError);
  EXPECT_EQ(short_span, (Bytes{1, 2, 3}));
  Bytes wide = Warp(0, 0);
  EXPECT_THROW(MoveEvent(kEventWarp, wide, 300, 1, {0, 0}, 200, 8), RuntimeError);  // no byte holds it
  EXPECT_EQ(wide, Warp(0, 0));
  EXPECT_THROW(MoveEvent(kEventEnter, wide, 1, 1, {0, 0}, 10, 8), RuntimeError);
}

TEST(EventGeometryTest, CentringClampsToTheScrollRange) {
  const auto centre = [](EventTile stored, const EventViewport& view, int h_max, int v_max) {
    const ScrollPair scroll = CentreOn(stored, view, h_max, v_max);
    return std::pair(scroll.h, scroll.v);
  };
  EXPECT_EQ(centre({3, 2}, kView, 1000, 1000), std::pair(10 * 16 - 88, 9 * 16 - 72));
  EXPECT_EQ(centre({0, 0}, kSmall, 1000, 1000), std::pair(0, 0));  // would be 56 - 84 and 56 - 68
  EXPECT_EQ(centre({200, 250}, kView, 300, 400), std::pair(300, 400));
}

}  // namespace
}  // namespace kartova
