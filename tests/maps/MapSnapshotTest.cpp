#include <gtest/gtest.h>

#include "demo/DemoRom.h"
#include "maps/MapSnapshot.h"
#include "maps/RomDocument.h"
#include "maps/RomFileChecks.h"
#include "rom/RomDefinition.h"
#include "support/EventWorld.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

class MapSnapshotTest : public ::testing::Test {
 protected:
  RomDefinition Definition() const { return ReadRomDefinition(path, settings); }

  test::TempDir dir;
  std::string path = dir.File("rom.gbc");
  test::MemorySettings settings;
};

// A snapshot is what a full load holds of the parts a save writes, and plans the same save.
TEST_F(MapSnapshotTest, EveryMapReadsAsTheDocumentLoadsIt) {
  for (const std::vector<std::uint8_t>& bytes : {BuildDemoRom(), test::EventWorld().bytes}) {
    test::WriteFileBytes(path, bytes);
    RomDocument doc;
    doc.OpenRom(path, settings);
    MapSnapshotReader reader(path, Definition());
    EXPECT_EQ(reader.Counts(), doc.MapCountPerBank());
    EXPECT_EQ(reader.Names(), doc.MapNames());
    EXPECT_EQ(reader.FileSize(), static_cast<std::int64_t>(bytes.size()));
    for (int bank = 0; bank < kMapBankCount; ++bank) {
      for (int map = 0; map < doc.MapCountPerBank()[static_cast<std::size_t>(bank)]; ++map) {
        SCOPED_TRACE(testing::Message() << "map " << bank + 1 << "." << map + 1);
        doc.LoadSelectedMap(bank, map);
        const MapSnapshot snapshot = reader.Read(bank, map);
        EXPECT_EQ(snapshot.header_offset, doc.HeaderOffset(bank, map));
        EXPECT_EQ(snapshot.primary.bytes, doc.Primary().bytes);
        EXPECT_EQ(snapshot.secondary.bytes, doc.Secondary().bytes);
        EXPECT_EQ(snapshot.events, doc.Events());
        EXPECT_EQ(snapshot.SaveRegions(), doc.SaveRegions(kReloadFull).regions);
      }
    }
  }
}

TEST_F(MapSnapshotTest, BadFilesAndIndicesFailAsTheDocumentDoes) {
  EXPECT_THROW(MapSnapshotReader(dir.File("missing.gbc"), RomDefinition{}), RomOpenError);
  test::WriteFileBytes(path, test::EventWorld().bytes);
  MapSnapshotReader reader(path, Definition());
  for (const auto& [bank, map] : std::vector<std::pair<int, int>>{{26, 0}, {-1, 0}, {0, 40000}})
    EXPECT_THROW(reader.Read(bank, map), RuntimeError) << bank << "." << map;
}

}  // namespace
}  // namespace kartova
