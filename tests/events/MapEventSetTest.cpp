#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "demo/DemoRom.h"
#include "demo/RomBuilder.h"
#include "events/MapEventSet.h"
#include "maps/MapHeaders.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Map 1.1 has events of every kind, map 1.2 none. The event header's two leading bytes are
// made non-zero so that a reader starting there would see wrong counts.
BuiltRom TestRom() {
  MapDecl full;
  full.enter_scripts = {{0x4123, 1, 2}, {0x5001, 3, 4}};
  full.time_scripts = {{7, 0x4567}};
  full.warps = {{3, 4, 1, 2, 3}, {5, 6, 2, 1, 1}};
  full.triggers = {{1, 2, 3, 4, 0x4ABC, 5, 6}};
  full.signposts = {{8, 9, 1, 0x4DEF}, {10, 11, 2, 0x4010}};
  full.people = {{0x1A, 4, 5, 1, 2, 3, 4, 5, 6, 0x5234, 0x5678},
                 {0x1B, 0, 250, 0, 0, 0, 0, 0, 0, 0x4000, 0xFFFF}};
  RomBuilder builder;
  builder.Map(1, full).Map(1, MapDecl{});
  const BuiltRom plain = builder.BuildWithLayout();
  return builder.Patch(plain.layout.Map(1, 1).event_header, {0x77, 0x88}).BuildWithLayout();
}

const std::array<Bytes, kEventKindCount> kFullMapRecords = {
    Bytes{3, 4, 1, 2, 3, 5, 6, 2, 1, 1},
    Bytes{1, 2, 3, 4, 0xBC, 0x4A, 5, 6},
    Bytes{8, 9, 1, 0xEF, 0x4D, 10, 11, 2, 0x10, 0x40},
    Bytes{0x1A, 8, 9, 1, 2, 3, 4, 5, 6, 0x34, 0x52, 0x78, 0x56,  // y and x stored + 4
          0x1B, 4, 254, 0, 0, 0, 0, 0, 0, 0x00, 0x40, 0xFF, 0xFF},
    Bytes{0x23, 0x41, 1, 2, 0x01, 0x50, 3, 4},
    Bytes{7, 0x67, 0x45}};

class MapEventSetTest : public ::testing::Test {
 protected:
  std::string Save(const Bytes& image) {
    test::WriteFileBytes(dir.File("rom.gbc"), image);
    return dir.File("rom.gbc");
  }
  static SecondaryHeaderBuffer Secondary(RomFile& rom, const MapLayout& at) {
    PrimaryHeaderBuffer primary;
    SecondaryHeaderBuffer secondary;
    ReadPrimaryHeader(rom, at.primary_header, primary);
    ReadSecondaryHeader(rom, primary, secondary);
    return secondary;
  }
  SecondaryHeaderBuffer SecondaryOf(const BuiltRom& built, int bank, int number) {
    RomFile rom = RomFile::OpenForRead(Save(built.bytes));
    return Secondary(rom, built.layout.Map(bank, number));
  }
  static MapEventSet Load(const std::string& path, const SecondaryHeaderBuffer& secondary) {
    RomFile rom = RomFile::OpenForRead(path);
    MapEventSet events;
    events.SetRecords(kEventWarp, Bytes(50, 0xEE));  // a previous map's events must go
    LoadMapEvents(rom, secondary, events);
    return events;
  }
  // Loads every map of a built image and checks that saving it unedited changes nothing.
  void ExpectUneditedRoundTrip(const BuiltRom& built) {
    RomFile rom = RomFile::OpenForRead(Save(built.bytes));
    for (const auto& [ref, at] : built.layout.maps) {
      const SecondaryHeaderBuffer secondary = Secondary(rom, at);
      MapEventSet events;
      LoadMapEvents(rom, secondary, events);
      const std::vector<FileRegion> regions = EventSaveRegions(secondary, events);
      ASSERT_EQ(regions.size(), 2u);
      EXPECT_EQ(regions[0].offset, at.script_header);
      EXPECT_EQ(regions[1].offset, at.event_header + 2);
      for (const FileRegion& r : regions) {
        EXPECT_FALSE(r.offset <= at.event_header + 1 && at.event_header < r.End());
      }
      Bytes image = built.bytes;
      ApplyRegions(image, regions);
      EXPECT_TRUE(image == built.bytes) << "map " << ref.bank << "." << ref.number;
    }
  }
  static int ErrorNumber(const std::function<void()>& f) {
    try {
      f();
    } catch (const RuntimeError& e) {
      return e.number();
    }
    return 0;
  }
  test::TempDir dir;
};

TEST_F(MapEventSetTest, LoadsEveryKindAsTheBuilderLaidItOut) {
  const MapEventSet events = Load(dir.File("rom.gbc"), SecondaryOf(TestRom(), 1, 1));
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    const Bytes& expected = kFullMapRecords[static_cast<std::size_t>(kind)];
    const int count = static_cast<int>(expected.size()) / kEventRecordSize[static_cast<std::size_t>(kind)];
    EXPECT_EQ(events.Count(kind), count) << kind;
    EXPECT_EQ(events.LastIndex(kind), count - 1) << kind;
    EXPECT_EQ(events.Records(kind), expected) << kind;
    const auto last = events.Record(kind, count - 1);
    EXPECT_TRUE(std::equal(last.begin(), last.end(), expected.end() - std::ssize(last)));
  }
}

TEST_F(MapEventSetTest, UneditedSetsWriteBackExactlyWhatWasRead) {
  ExpectUneditedRoundTrip(TestRom());
  ExpectUneditedRoundTrip(DemoRomBuilder().BuildWithLayout());
}

TEST_F(MapEventSetTest, AnEditedFieldGoesBackToItsPlace) {
  const BuiltRom built = TestRom();
  const SecondaryHeaderBuffer secondary = SecondaryOf(built, 1, 1);
  MapEventSet events = Load(dir.File("rom.gbc"), secondary);
  events.Record(kEventPeople, 1)[2] = 0x42;
  events.Record(kEventTime, 0)[0] = 0x99;
  Bytes image = built.bytes;
  ApplyRegions(image, EventSaveRegions(secondary, events));
  const std::int64_t people = built.layout.Map(1, 1).event_header + 2 + 11 + 9 + 11 + 1;
  Bytes expected = built.bytes;
  expected[static_cast<std::size_t>(people + 13 + 2)] = 0x42;
  expected[static_cast<std::size_t>(built.layout.Map(1, 1).script_header + 1 + 8 + 1)] = 0x99;
  EXPECT_TRUE(image == expected);
}

TEST_F(MapEventSetTest, AnEmptyMapHasSixZeroCountsAndNothingElse) {
  const BuiltRom built = TestRom();
  const MapLayout& at = built.layout.Map(1, 2);
  const SecondaryHeaderBuffer secondary = SecondaryOf(built, 1, 2);
  const MapEventSet events = Load(dir.File("rom.gbc"), secondary);
  EXPECT_TRUE(events.Empty());
  for (int kind = 0; kind < kEventKindCount; ++kind) EXPECT_EQ(events.LastIndex(kind), -1);
  EXPECT_EQ(EventSaveRegions(secondary, events),
            (std::vector<FileRegion>{{at.script_header, {0, 0}}, {at.event_header + 2, {0, 0, 0, 0}}}));
}

TEST_F(MapEventSetTest, WildCountsAndShortFilesReadZerosPastTheEnd) {
  const BuiltRom built = TestRom();
  const MapLayout& at = built.layout.Map(1, 1);
  const SecondaryHeaderBuffer secondary = SecondaryOf(built, 1, 1);

  Bytes image = built.bytes;
  image[static_cast<std::size_t>(at.event_header + 2)] = 255;
  MapEventSet events = Load(Save(image), secondary);
  EXPECT_EQ(events.Count(kEventWarp), 255);
  EXPECT_EQ(events.Count(kEventEnter), 2);  // the script header is read before the lists

  // Cut the file in the middle of the second person: what is missing reads as zero.
  const std::int64_t person2 = at.event_header + 2 + 11 + 9 + 11 + 1 + 13;
  image = Bytes(built.bytes.begin(), built.bytes.begin() + person2 + 6);
  events = Load(Save(image), secondary);
  Bytes people = kFullMapRecords[kEventPeople];
  std::fill(people.begin() + 13 + 6, people.end(), 0);
  EXPECT_EQ(events.Records(kEventPeople), people);

  // A count byte as the last byte of the file, and lists wholly past the end.
  image.resize(static_cast<std::size_t>(at.event_header + 3));
  image.back() = 255;
  events = Load(Save(image), secondary);
  EXPECT_EQ(events.Records(kEventWarp), Bytes(255 * 5, 0));
  EXPECT_EQ(events.Count(kEventPeople), 0);
  SecondaryHeaderBuffer wild;
  wild.bytes.fill(0xFF);
  EXPECT_TRUE(Load(Save(built.bytes), wild).Empty());
}

TEST_F(MapEventSetTest, RecordsOutsideTheListsRaiseTheSubscriptError) {
  MapEventSet events;
  events.SetRecords(kEventTrigger, Bytes(8 * 2 + 5, 1));  // the partial record is dropped
  EXPECT_EQ(events.Count(kEventTrigger), 2);
  const MapEventSet& shown = events;
  const std::pair<int, int> outside[] = {
      {kEventTrigger, 2}, {kEventTrigger, -1}, {kEventWarp, 0}, {kEventKindCount, 0}, {-1, 0}};
  constexpr int kSubscript = RuntimeError::kSubscriptOutOfRange;
  for (const auto& [kind, index] : outside) {
    EXPECT_EQ(ErrorNumber([&] { events.Record(kind, index); }), kSubscript);
    EXPECT_EQ(ErrorNumber([&] { shown.Record(kind, index); }), kSubscript);
  }
  EXPECT_EQ(ErrorNumber([&] { events.Records(kEventKindCount); }), kSubscript);
}

TEST_F(MapEventSetTest, MoreThan255RecordsOfAKindCannotBeSaved) {
  const SecondaryHeaderBuffer secondary;
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    const auto size = static_cast<std::size_t>(kEventRecordSize[static_cast<std::size_t>(kind)]);
    MapEventSet events;
    events.SetRecords(kind, Bytes(255 * size, 3));
    EXPECT_EQ(ErrorNumber([&] { EventSaveRegions(secondary, events); }), 0) << kind;
    events.SetRecords(kind, Bytes(256 * size, 3));
    EXPECT_EQ(ErrorNumber([&] { EventSaveRegions(secondary, events); }), RuntimeError::kOverflow)
        << kind;
  }
}

}  // namespace
}  // namespace kartova
