#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sys/stat.h>

#include <filesystem>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "support/PlainWorld.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Map 2.1 of the demo, the harbour town: 30 x 20 blocks.
constexpr int kWidth = 30, kHeight = 20;

class MapFileCommandsTest : public ::testing::Test {
 protected:
  MapFileCommandsTest() {
    test::WriteFileBytes(rom, demo.bytes);
    test::WriteFileText(ini, DemoDefinitionIni());
  }
  test::CliResult Run(const std::string& command, const std::string& file, const std::string& map = "1") {
    return test::RunCli({"--ini", ini, command, rom, "2", map, file});
  }
  static QJsonObject Json(const test::CliResult& r) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
  }
  // The demo ROM with the first bytes of map 2.1's block rows replaced.
  Bytes WithRows(const Bytes& rows) const {
    Bytes expected = demo.bytes;
    std::copy(rows.begin(), rows.end(), expected.begin() + blocks);
    return expected;
  }

  test::TempDir dir;
  std::string rom = dir.File("demo.gbc"), ini = dir.File("demo.ini"), map_file = dir.File("hafen.map");
  BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  std::int64_t blocks = demo.layout.Map(2, 1).blocks;
};

TEST_F(MapFileCommandsTest, ExportThenImportLeavesTheRomByteIdentical) {
  test::WriteFileBytes(map_file, Bytes(700, 0xAB));  // longer than the export: its tail stays
  test::CliResult r = Run("export-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Json(r)["file"].toString().toStdString(), map_file);
  EXPECT_EQ(Json(r)["width"].toInt(), kWidth);
  EXPECT_EQ(Json(r)["height"].toInt(), kHeight);
  EXPECT_EQ(Json(r)["bytes"].toInt(), 1 + kWidth * kHeight);
  Bytes expected{0xFF};
  expected.insert(expected.end(), demo.bytes.begin() + blocks, demo.bytes.begin() + blocks + kWidth * kHeight);
  expected.resize(700, 0xAB);
  EXPECT_EQ(test::ReadFileBytes(map_file), expected);

  r = Run("import-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Json(r)["offset"].toInteger(), blocks);
  EXPECT_EQ(Json(r)["bytes"].toInt(), kWidth * kHeight);
  EXPECT_EQ(Json(r)["read"].toInt(), kWidth * kHeight);
  EXPECT_EQ(test::ReadFileBytes(rom), demo.bytes);
}

TEST_F(MapFileCommandsTest, ImportWritesOnlyTheBlockRows) {
  // Without the marker the data starts at byte 0, in rows of the map's width.
  Bytes rows(kWidth * kHeight);
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<std::uint8_t>(i % 7 + 1);
  test::WriteFileBytes(map_file, rows);
  test::CliResult r = Run("import-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(test::ReadFileBytes(rom), WithRows(rows));

  // A short file with the marker changes its first blocks; the others stay as saved before.
  test::WriteFileBytes(map_file, {0xFF, 9, 9, 9});
  r = Run("import-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Json(r)["read"].toInt(), 3);
  EXPECT_EQ(Json(r)["bytes"].toInt(), kWidth * kHeight);
  rows[0] = rows[1] = rows[2] = 9;
  EXPECT_EQ(test::ReadFileBytes(rom), WithRows(rows));

  // A missing file is created empty and the ROM keeps its blocks.
  const std::string missing = dir.File("new.map");
  r = Run("import-map", missing);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Json(r)["read"].toInt(), 0);
  EXPECT_TRUE(std::filesystem::exists(missing));
  EXPECT_EQ(std::filesystem::file_size(missing), 0u);
  EXPECT_EQ(test::ReadFileBytes(rom), WithRows(rows));
}

TEST_F(MapFileCommandsTest, FailuresLeaveTheRomAsItWas) {
  const std::string folder = dir.path().string();
  for (const char* command : {"export-map", "import-map"}) {
    test::CliResult r = Run(command, folder);
    EXPECT_EQ(r.status, 1) << command;
    EXPECT_NE(r.err.find("is a directory"), std::string::npos) << r.err;
    EXPECT_EQ(Run(command, map_file, "9").err, "Fehler: Ziel-Map (2.9) existiert nicht.\n");
    for (const auto& bad : std::vector<std::vector<std::string>>{
             {command, rom, "2", "1"}, {command, rom, "0", "1", map_file},
             {command, rom, "2", "1", map_file, "--time", "2"}, {command, rom, "2", "1", map_file, "x"}}) {
      r = test::RunCli(bad);
      EXPECT_EQ(r.status, 2) << r.err;
      EXPECT_NE(r.err.find(std::string("Usage: kartova-cli [--ini FILE] ") + command), std::string::npos);
    }
  }
  EXPECT_EQ(Run("import-map", dir.File("no/such/dir.map")).err.find("kartova-cli: could not read"), 0u);
  ASSERT_EQ(::mkfifo(dir.File("pipe").c_str(), 0600), 0);  // reading it would block forever
  EXPECT_EQ(Run("import-map", dir.File("pipe")).err, "kartova-cli: " + dir.File("pipe") + " is not a regular file\n");

  test::WriteFileBytes(map_file, Bytes(kWidth * kHeight, 0x05));
  std::filesystem::permissions(rom, std::filesystem::perms::owner_read | std::filesystem::perms::group_read |
                                        std::filesystem::perms::others_read);
  const test::CliResult r = Run("import-map", map_file);
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "kartova-cli: could not write " + rom + ": Die Datei ist schreibgeschützt.\n");
  EXPECT_EQ(test::ReadFileBytes(rom), demo.bytes);
  // Exporting only reads the ROM.
  EXPECT_EQ(Run("export-map", map_file).status, 0);
  EXPECT_EQ(test::ReadFileBytes(map_file).size(), 1u + kWidth * kHeight);
}

TEST_F(MapFileCommandsTest, AStripOutsideTheGridExportsTheMapButImportsNothing) {
  RomBuilder b = test::PlainWorld();
  const std::array<std::uint8_t, 12> south = {2, 1, 0x00, 0x40, 0x00, 0xC9, 3, 3, 0, 0, 0, 0};
  b.Map(2, {.width = 2, .height = 2, .blocks = {2, 2, 2, 2},
            .connections = {{.direction = Direction::kSouth, .target = {2, 1}, .raw = south}}});
  const Bytes world = b.Build();
  test::WriteFileBytes(rom, world);
  const std::string message = "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs\n";
  test::CliResult r = Run("export-map", map_file, "3");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, message);
  EXPECT_EQ(test::ReadFileBytes(map_file), (Bytes{0xFF, 2, 2, 2, 2}));
  test::WriteFileBytes(map_file, {1, 1, 1, 1});
  r = Run("import-map", map_file, "3");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, message);
  EXPECT_EQ(test::ReadFileBytes(rom), world);
}

}  // namespace
}  // namespace kartova
