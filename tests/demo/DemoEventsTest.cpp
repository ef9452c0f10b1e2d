#include <gtest/gtest.h>

#include <map>
#include <string>

#include "demo/DemoRom.h"
#include "events/MapEventSet.h"
#include "maps/MapHeaders.h"
#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

// Every map of the demo with its events, read as the editor reads them.
std::map<MapRef, MapEventSet> DemoEvents() {
  const BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  test::TempDir dir;
  test::WriteFileBytes(dir.File("demo.gbc"), demo.bytes);
  RomFile rom = RomFile::OpenForRead(dir.File("demo.gbc"));
  std::map<MapRef, MapEventSet> out;
  for (const auto& [ref, at] : demo.layout.maps) {
    PrimaryHeaderBuffer primary;
    SecondaryHeaderBuffer secondary;
    ReadPrimaryHeader(rom, at.primary_header, primary);
    ReadSecondaryHeader(rom, primary, secondary);
    LoadMapEvents(rom, secondary, out[ref]);
  }
  return out;
}

TEST(DemoEventsTest, EveryKindAppearsOnSeveralMaps) {
  const auto maps = DemoEvents();
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    int with_kind = 0;
    for (const auto& [ref, events] : maps) with_kind += events.Count(kind) > 0 ? 1 : 0;
    EXPECT_GE(with_kind, 2) << "kind " << kind;
  }
}

// A double click on a warp jumps to its target warp; from there a warp must lead back.
TEST(DemoEventsTest, EveryWarpLeadsToAWarpOfAMapThatLeadsBack) {
  const auto maps = DemoEvents();
  for (const auto& [ref, events] : maps) {
    for (int i = 0; i < events.Count(kEventWarp); ++i) {
      const auto warp = events.Record(kEventWarp, i);
      SCOPED_TRACE("warp " + std::to_string(i) + " of map " + std::to_string(ref.bank) + "." + std::to_string(ref.number));
      const auto target = maps.find(MapRef{warp[3], warp[4]});
      ASSERT_NE(target, maps.end());
      EXPECT_GE(warp[2], 1);
      EXPECT_LE(warp[2], target->second.Count(kEventWarp));
      bool back = false;
      for (int j = 0; j < target->second.Count(kEventWarp); ++j) {
        const auto other = target->second.Record(kEventWarp, j);
        back = back || MapRef{other[3], other[4]} == ref;
      }
      EXPECT_TRUE(back);
    }
  }
}

}  // namespace
}  // namespace kartova
