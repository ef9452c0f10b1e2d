#include <gtest/gtest.h>

#include <filesystem>

#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"
#include "rom/Address.h"
#include "rom/RuntimeError.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

template <typename Buffer>
Bytes Of(const Buffer& b) {
  return {b.bytes.begin(), b.bytes.end()};
}

MapDecl MapOf(std::uint8_t location, std::uint8_t width, std::uint8_t tileset = 0) {
  MapDecl m;
  m.location = location;
  m.width = width;
  m.height = 9;
  m.tileset = tileset;
  return m;
}

class RomDocumentTest : public ::testing::Test {
 protected:
  RomDocumentTest() {
    world = RomBuilder()
                .Map(1, MapOf(1, 10, 3))
                .Map(1, MapOf(2, 20, 0x28))
                .Map(3, MapOf(94, 4))
                .LocationName(1, "NORD HAFEN-STADT")
                .LocationName(2, "WEG 12")
                .LocationName(94, "MÜHLENTAL")
                .BuildWithLayout();
    test::WriteFileBytes(path, world.bytes);
  }

  test::TempDir dir;
  std::string path = dir.File("world.gbc");
  BuiltRom world;
  test::MemorySettings settings;
  RomDocument doc;
};

TEST_F(RomDocumentTest, OpenCountsMapsReadsNamesAndListsABank) {
  doc.OpenRom(path, settings);
  EXPECT_EQ(doc.RomPath(), path);
  EXPECT_FALSE(doc.ReadOnly());
  MapCounts expected{};
  expected[0] = 2;
  expected[2] = 1;
  EXPECT_EQ(doc.MapCountPerBank(), expected);
  EXPECT_EQ(doc.GroupPointers()[25], world.layout.group_pointers[25]);
  EXPECT_EQ(doc.LocationList()[94], "5E - Mühlental");
  EXPECT_EQ(doc.FillMapList(0).entries, (std::vector<std::string>{"Nord Hafen-Stadt - 1.1", "Weg 12 - 1.2"}));
  EXPECT_TRUE(doc.FillMapList(1).entries.empty());
  doc.LoadSelectedMap(0, 1);
  EXPECT_EQ(doc.MapHeight(), 9);
  EXPECT_EQ(doc.MapWidth(), 20);
  EXPECT_EQ(doc.BlockDataPointer(), doc.Secondary().bytes[5] * 256 + doc.Secondary().bytes[4]);
}

TEST_F(RomDocumentTest, ScopeAndApplyModeDecideWhichStagesRun) {
  using S = MapLoadStep;
  struct Case {
    int scope, mode;
    bool headers;
    std::vector<S> steps;
  } cases[] = {
      {kReloadFull, kApplyNormal, true, {S::kHeaderPage, S::kTileset, S::kEvents, S::kEventControls, S::kMapBuilt}},
      {kReloadMapOnly, kApplyNormal, false, {S::kHeaderPage, S::kTileset, S::kEventControls, S::kMapBuilt}},
      {kReloadEventsOnly, kApplyNormal, false, {S::kHeaderPage, S::kEvents, S::kEventControls, S::kMapRedraw}},
      {kReloadFull, kApplyRestoreHeaders, true, {S::kHeaderPage}},
      {kReloadFull, kApplyEditedHeaders, false, {S::kTileset, S::kEvents, S::kEventControls, S::kMapBuilt}},
  };
  doc.OpenRom(path, settings);
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << "scope " << c.scope << " mode " << c.mode);
    SecondaryHeaderBuffer edited = doc.Secondary();
    edited.bytes[2] = 0x33;  // an edited width
    doc.EditHeaders(doc.Primary(), edited, "Width");
    doc.SetReloadScope(c.scope);
    doc.SetApplyMode(c.mode);
    std::vector<S> heard;
    MapLoadResult r = doc.LoadSelectedMap(0, 0, [&](S s) { heard.push_back(s); });
    EXPECT_EQ(r.headers_read, c.headers);
    EXPECT_EQ(heard, c.steps);
    EXPECT_EQ(doc.LinkRowLength(), ((c.headers ? 10 : 0x33) + 7) * 2);  // derived every time
  }
}

TEST_F(RomDocumentTest, LongerRecordsAreReadWithWhatFollowsThem) {
  MapDecl first = MapOf(1, 1);
  first.extra_header_bytes = {0xE1, 0xE2, 0xE3};
  test::WriteFileBytes(path, RomBuilder().HeaderLength(12).Map(2, first).Map(2, MapOf(2, 1, 5)).Build());
  settings.Set("Settings", "HeaderLengthA", "12");
  doc.OpenRom(path, settings);
  EXPECT_EQ(doc.MapCountPerBank()[1], 2);
  doc.LoadSelectedMap(1, 0);
  EXPECT_EQ(doc.Primary().bytes[11], 0xE3);
  EXPECT_EQ(doc.Primary().bytes[12 + 1], 5);  // the next record's tileset
  EXPECT_EQ(doc.HeaderOffset(1, 1), doc.HeaderOffset(1, 0) + 12);
}

TEST_F(RomDocumentTest, WildBankAndMapNumbersNeverCrash) {
  Bytes bytes = world.bytes;
  bytes[0x940ED + 2] = bytes[0x940ED + 3] = 0xFF;  // bank 2 points behind every list
  test::WriteFileBytes(path, bytes);
  doc.OpenRom(path, settings);
  EXPECT_EQ(doc.MapCountPerBank()[1], 0);
  EXPECT_NO_THROW(doc.LoadSelectedMap(1, 200));
  EXPECT_NO_THROW(doc.LoadSelectedMap(0, -1));
  EXPECT_THROW(doc.LoadSelectedMap(26, 0), RuntimeError);
  EXPECT_THROW(doc.LoadSelectedMap(0, 40000), RuntimeError);  // no 16-bit list index
}

TEST_F(RomDocumentTest, ChangesOnDiskAreSeenByTheNextOperation) {
  doc.OpenRom(path, settings);
  doc.LoadSelectedMap(0, 0);
  Bytes changed = world.bytes;
  changed[world.layout.Map(1, 2).primary_header + 5] = 95;
  test::WriteFileBytes(path, changed);
  MapList list = doc.FillMapList(0);
  EXPECT_EQ(list.entries, (std::vector<std::string>{"Nord Hafen-Stadt - 1.1"}));
  ASSERT_TRUE(list.error);
  EXPECT_EQ(list.error->GermanMessage(), "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs");

  // Cut in front of the header lists: the header reads find nothing and leave the buffers.
  const Bytes primary = Of(doc.Primary());
  test::WriteFileBytes(path, Bytes(world.bytes.begin(), world.bytes.begin() + 0x94000));
  doc.LoadSelectedMap(0, 1);
  EXPECT_EQ(Of(doc.Primary()), primary);
  // Opened again, it is no ROM any more: the group table is gone.
  EXPECT_THROW(doc.OpenRom(path, settings), RomOpenError);
  EXPECT_EQ(doc.MapCountPerBank()[0], 2);

  test::WriteFileBytes(path, world.bytes);

  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
  doc.OpenRom(path, settings);
  EXPECT_TRUE(doc.ReadOnly());
}

// The context the runtime error of `operation` carries (none when it raised nothing).
template <typename Operation>
ErrorContext ContextOf(Operation&& operation) {
  try {
    operation();
  } catch (const RuntimeError& error) {
    if (error.context()) return *error.context();
    ADD_FAILURE() << "a runtime error without a context";
    return {};
  }
  ADD_FAILURE() << "no runtime error";
  return {};
}

// Each stage names itself, the ROM and what it was reading. Palettes and events cannot raise one.
TEST_F(RomDocumentTest, RuntimeErrorsSayWhatWasReadFromWhichFileWhere) {
  using A = ErrorActivity;
  auto expect = [&](const ErrorContext& c, A activity, std::optional<std::int64_t> offset) {
    EXPECT_EQ(c.activity, activity);
    EXPECT_EQ(c.file, path);
    EXPECT_EQ(c.offset, offset);
  };
  settings.Set("Settings", "HeaderLengthA", "31");  // longer than a header buffer
  expect(ContextOf([&] { doc.OpenRom(path, settings); }), A::kOpeningRom, std::nullopt);
  settings.Set("Settings", "HeaderLengthA", "9");
  settings.Set("Settings", "MapNameTable", "7FFFFFF0");  // the last entry lies beyond 32 bits
  expect(ContextOf([&] { doc.OpenRom(path, settings); }), A::kReadingLocationNames, 0x7FFFFFF0);
  settings.Set("Settings", "MapNameTable", "92384");

  // A bank of 300 records that all look like headers: more maps than a byte can count.
  Bytes endless = world.bytes;
  for (int bank = 0; bank < kMapBankCount; ++bank) {
    endless[static_cast<std::size_t>(kMapGroupTableOffset + 2 * bank)] = 0x00;
    endless[static_cast<std::size_t>(kMapGroupTableOffset + 2 * bank + 1)] = 0x80;
  }
  for (int n = 0; n < 300; ++n) {
    const auto at = static_cast<std::size_t>(MapGroupOffset(0x8000) + 9 * n);
    std::fill(endless.begin() + static_cast<std::ptrdiff_t>(at), endless.begin() + static_cast<std::ptrdiff_t>(at + 9), 0);
    endless[at + 4] = 0x40;  // the secondary header pointer 0x4000
  }
  test::WriteFileBytes(path, endless);
  expect(ContextOf([&] { doc.OpenRom(path, settings); }), A::kReadingMapBankTable, kMapGroupTableOffset);
  test::WriteFileBytes(path, world.bytes);

  settings.Set("Settings", "TilesetBase", "7FFFFFFE");  // its table pointer lies beyond 32 bits
  doc.OpenRom(path, settings);
  expect(ContextOf([&] { doc.LoadSelectedMap(0, 0); }), A::kReadingTileset, 0x7FFFFFFE);
  settings.Set("Settings", "TilesetBase", "2DFA");
  doc.OpenRom(path, settings);
  // No 16-bit list index: the header's offset is not known, and a save cannot place it.
  expect(ContextOf([&] { doc.LoadSelectedMap(0, 40000); }), A::kReadingHeaders, std::nullopt);
  const SavePlan plan = doc.SaveRegions(kReloadFull);
  ASSERT_TRUE(plan.error && plan.error->context());
  expect(*plan.error->context(), A::kSaving, std::nullopt);

  Bytes unnamed = world.bytes;
  unnamed[static_cast<std::size_t>(world.layout.Map(1, 2).primary_header + 5)] = 95;
  test::WriteFileBytes(path, unnamed);
  const MapList list = doc.FillMapList(0);
  ASSERT_TRUE(list.error && list.error->context());
  expect(*list.error->context(), A::kReadingMapList, world.layout.Map(1, 1).primary_header);
  EXPECT_EQ(list.error->GermanMessage(), "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs");
}

TEST_F(RomDocumentTest, ALoadTellsWhetherItReadPastTheEndOfTheFile) {
  doc.OpenRom(path, settings);
  EXPECT_FALSE(doc.LoadSelectedMap(0, 1).read_past_end);
  EXPECT_FALSE(doc.LastLoadReadPastEnd());
  // Cut inside the map's block rows: the load still runs to its end, on what is there.
  const MapLayout& at = world.layout.Map(1, 2);
  ASSERT_GT(at.blocks, at.secondary_header);
  test::WriteFileBytes(path, Bytes(world.bytes.begin(), world.bytes.begin() + at.blocks + 20));
  const MapLoadResult cut = doc.LoadSelectedMap(0, 1);
  EXPECT_TRUE(cut.read_past_end);
  EXPECT_TRUE(doc.LastLoadReadPastEnd());
  EXPECT_EQ(cut.steps.back(), MapLoadStep::kMapBuilt);
  test::WriteFileBytes(path, world.bytes);
  EXPECT_FALSE(doc.LoadSelectedMap(0, 1).read_past_end);
  EXPECT_FALSE(doc.LastLoadReadPastEnd());
}

}  // namespace
}  // namespace kartova
