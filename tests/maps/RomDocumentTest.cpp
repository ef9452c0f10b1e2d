#include <gtest/gtest.h>

#include <filesystem>

#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"
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

}  // namespace
}  // namespace kartova
