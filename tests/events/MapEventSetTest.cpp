#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "events/MapEventSet.h"
#include "maps/MapHeaders.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"
#include "support/EventWorld.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Map 1.1's records as the builder lays them out, by kind.
const std::array<Bytes, kEventKindCount> kFullMapRecords = {
    Bytes{3, 4, 1, 2, 3, 5, 6, 2, 1, 1},
    Bytes{1, 2, 3, 4, 0xBC, 0x4A, 5, 6},
    Bytes{8, 9, 1, 0xEF, 0x4D, 10, 11, 2, 0x10, 0x40},
    Bytes{0x1A, 8, 9, 1, 2, 3, 4, 5, 6, 0x34, 0x52, 0x78, 0x56,  // y and x stored + 4
          0x1B, 4, 254, 0, 0, 0, 0, 0, 0, 0x00, 0x40, 0xFF, 0xFF},
    Bytes{0x23, 0x41, 1, 2, 0x01, 0x50, 3, 4},
    Bytes{7, 0x67, 0x45}};

// The number of the runtime error f raises, 0 for none.
int ErrorNumber(const std::function<void()>& f) {
  try {
    f();
  } catch (const RuntimeError& e) {
    return e.number();
  }
  return 0;
}

class MapEventSetTest : public ::testing::Test {
 protected:
  SecondaryHeaderBuffer Secondary(int number) const {
    SecondaryHeaderBuffer secondary;
    std::copy_n(world.bytes.begin() + world.layout.Map(1, number).secondary_header, secondary.bytes.size(),
                secondary.bytes.begin());
    return secondary;
  }
  MapEventSet Load(const Bytes& image, const SecondaryHeaderBuffer& secondary) {
    test::WriteFileBytes(path, image);
    RomFile rom = RomFile::OpenForRead(path);
    MapEventSet events;
    events.SetRecords(kEventWarp, Bytes(50, 0xEE));  // a previous map's events must go
    LoadMapEvents(rom, secondary, events);
    return events;
  }

  test::TempDir dir;
  std::string path = dir.File("rom.gbc");
  const BuiltRom world = test::EventWorld();
  const MapLayout& full = world.layout.Map(1, 1);
  const std::size_t people = static_cast<std::size_t>(full.event_header + 2 + 11 + 9 + 11 + 1);
};

TEST_F(MapEventSetTest, LoadsEveryKindAndWritesBackExactlyWhatItHolds) {
  const SecondaryHeaderBuffer secondary = Secondary(1);
  MapEventSet events = Load(world.bytes, secondary);
  for (std::size_t kind = 0; kind < kEventKindCount; ++kind) {
    const Bytes& expected = kFullMapRecords[kind];
    const int last = static_cast<int>(expected.size()) / kEventRecordSize[kind] - 1;
    EXPECT_EQ(events.Records(static_cast<int>(kind)), expected) << kind;
    ASSERT_EQ(events.LastIndex(static_cast<int>(kind)), last) << kind;
    const auto record = events.Record(static_cast<int>(kind), last);
    EXPECT_TRUE(std::equal(record.begin(), record.end(), expected.end() - std::ssize(record))) << kind;
  }
  // Unedited: byte for byte, the 0x77 0x88 between the blocks untouched.
  Bytes image = world.bytes;
  ApplyRegions(image, EventSaveRegions(secondary, events));
  EXPECT_TRUE(image == world.bytes);

  events.Record(kEventPeople, 1)[2] = 0x42;
  events.Record(kEventTime, 0)[0] = 0x99;
  ApplyRegions(image, EventSaveRegions(secondary, events));
  Bytes expected = world.bytes;
  expected[people + 13 + 2] = 0x42;
  expected[static_cast<std::size_t>(full.script_header + 1 + 8 + 1)] = 0x99;
  EXPECT_TRUE(image == expected);
}

TEST_F(MapEventSetTest, AnEmptyMapHasSixZeroCountsAndNothingElse) {
  const SecondaryHeaderBuffer secondary = Secondary(2);
  const MapEventSet events = Load(world.bytes, secondary);
  EXPECT_TRUE(events.Empty());
  for (int kind = 0; kind < kEventKindCount; ++kind) EXPECT_EQ(events.LastIndex(kind), -1);
  const MapLayout& at = world.layout.Map(1, 2);
  EXPECT_EQ(EventSaveRegions(secondary, events),
            (std::vector<FileRegion>{{at.script_header, {0, 0}}, {at.event_header + 2, {0, 0, 0, 0}}}));
}

TEST_F(MapEventSetTest, WildCountsAndShortFilesReadZerosPastTheEnd) {
  const SecondaryHeaderBuffer secondary = Secondary(1);
  Bytes image = world.bytes;
  image[static_cast<std::size_t>(full.event_header + 2)] = 255;
  MapEventSet events = Load(image, secondary);
  EXPECT_EQ(events.Count(kEventWarp), 255);
  EXPECT_EQ(events.Count(kEventEnter), 2);  // the script header is read before the lists

  // Cut in the middle of the second person: what is missing reads as zero.
  image = Bytes(world.bytes.begin(), world.bytes.begin() + static_cast<std::ptrdiff_t>(people + 13 + 6));
  Bytes expected = kFullMapRecords[kEventPeople];
  std::fill(expected.begin() + 13 + 6, expected.end(), 0);
  EXPECT_EQ(Load(image, secondary).Records(kEventPeople), expected);

  // A count byte as the last byte of the file, and lists wholly past the end.
  image.resize(static_cast<std::size_t>(full.event_header + 3));
  image.back() = 255;
  events = Load(image, secondary);
  EXPECT_EQ(events.Records(kEventWarp), Bytes(255 * 5, 0));
  EXPECT_EQ(events.Count(kEventPeople), 0);
  SecondaryHeaderBuffer wild;
  wild.bytes.fill(0xFF);
  EXPECT_TRUE(Load(world.bytes, wild).Empty());
}

TEST_F(MapEventSetTest, SubscriptsAndCountsOutsideTheLimitsRaiseErrors) {
  MapEventSet events;
  events.SetRecords(kEventTrigger, Bytes(8 * 2 + 5, 1));  // the partial record is dropped
  EXPECT_EQ(events.Count(kEventTrigger), 2);
  const MapEventSet& shown = events;
  constexpr int kSubscript = RuntimeError::kSubscriptOutOfRange;
  for (const auto& [kind, index] :
       {std::pair<int, int>{kEventTrigger, 2}, {kEventTrigger, -1}, {kEventWarp, 0}, {kEventKindCount, 0}, {-1, 0}}) {
    EXPECT_EQ(ErrorNumber([&] { events.Record(kind, index); }), kSubscript);
    EXPECT_EQ(ErrorNumber([&] { shown.Record(kind, index); }), kSubscript);
  }
  EXPECT_EQ(ErrorNumber([&] { events.Records(kEventKindCount); }), kSubscript);

  // A count must fit in its byte.
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    const auto size = static_cast<std::size_t>(kEventRecordSize[static_cast<std::size_t>(kind)]);
    MapEventSet many;
    many.SetRecords(kind, Bytes(255 * size, 3));
    EXPECT_EQ(ErrorNumber([&] { EventSaveRegions({}, many); }), 0) << kind;
    many.SetRecords(kind, Bytes(256 * size, 3));
    EXPECT_EQ(ErrorNumber([&] { EventSaveRegions({}, many); }), RuntimeError::kOverflow) << kind;
  }
}

}  // namespace
}  // namespace kartova
