#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "demo/DemoRom.h"
#include "events/MapEventSet.h"
#include "maps/MapHeaders.h"
#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

// Every kind of event stands on at least two demo maps, and every warp leads to a warp of a map
// with a warp back: a double click on a warp jumps to its target.
TEST(DemoEventsTest, EveryKindAppearsOnSeveralMapsAndEveryWarpLeadsBack) {
  const BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  test::TempDir dir;
  test::WriteFileBytes(dir.File("demo.gbc"), demo.bytes);
  RomFile rom = RomFile::OpenForRead(dir.File("demo.gbc"));
  std::map<MapRef, MapEventSet> maps;
  int with_kind[kEventKindCount] = {};
  for (const auto& [ref, at] : demo.layout.maps) {
    SecondaryHeaderBuffer secondary;
    std::copy_n(demo.bytes.begin() + at.secondary_header, secondary.bytes.size(), secondary.bytes.begin());
    LoadMapEvents(rom, secondary, maps[ref]);
    for (int kind = 0; kind < kEventKindCount; ++kind) with_kind[kind] += maps[ref].Count(kind) > 0;
  }
  for (int kind = 0; kind < kEventKindCount; ++kind) EXPECT_GE(with_kind[kind], 2) << "kind " << kind;

  for (const auto& [ref, events] : maps) {
    for (int i = 0; i < events.Count(kEventWarp); ++i) {
      const auto warp = events.Record(kEventWarp, i);
      SCOPED_TRACE(testing::Message() << "warp " << i << " of map " << ref.bank << "." << ref.number);
      const auto target = maps.find(MapRef{warp[3], warp[4]});
      ASSERT_NE(target, maps.end());
      const MapEventSet& there = target->second;
      EXPECT_TRUE(warp[2] >= 1 && warp[2] <= there.Count(kEventWarp)) << int{warp[2]};
      bool back = false;
      for (int j = 0; j < there.Count(kEventWarp); ++j)
        back = back || MapRef{there.Record(kEventWarp, j)[3], there.Record(kEventWarp, j)[4]} == ref;
      EXPECT_TRUE(back);
    }
  }
}

}  // namespace
}  // namespace kartova
