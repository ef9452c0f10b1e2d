#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <sys/stat.h>

#include <filesystem>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Map 2.1 of the demo, the harbour town: 30 x 20 blocks. The .map rules themselves are the
// document's, tested with it; here the command lines, their output and what reaches the ROM.
constexpr int kCells = 30 * 20;

class MapFileCommandsTest : public test::CliTest {
 protected:
  MapFileCommandsTest() { Write(demo.bytes, DemoDefinitionIni()); }
  test::CliResult Run(const std::string& command, const std::string& file, const std::string& map = "1") {
    return CliTest::Run({command, rom, "2", map, file});
  }
  static std::string Json(const test::CliResult& r) {  // compact, the keys sorted
    return QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).toJson(QJsonDocument::Compact).toStdString();
  }

  std::string map_file = dir.File("hafen.map");
  BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  std::int64_t blocks = demo.layout.Map(2, 1).blocks;
};

TEST_F(MapFileCommandsTest, ExportThenImportRoundTripsAndImportWritesOnlyTheRows) {
  test::WriteFileBytes(map_file, Bytes(700, 0xAB));  // longer than the export: its tail stays
  test::CliResult r = Run("export-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Json(r), R"({"bytes":601,"file":")" + map_file + R"(","height":20,"width":30})");
  Bytes expected{0xFF};
  expected.insert(expected.end(), demo.bytes.begin() + blocks, demo.bytes.begin() + blocks + kCells);
  expected.resize(700, 0xAB);
  EXPECT_EQ(test::ReadFileBytes(map_file), expected);

  r = Run("import-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string offset = std::to_string(blocks);
  EXPECT_EQ(Json(r), R"({"bytes":600,"offset":)" + offset + R"(,"read":600})");
  EXPECT_EQ(test::ReadFileBytes(rom), demo.bytes);

  test::WriteFileBytes(map_file, {0xFF, 0x31, 0x32, 0x33});
  r = Run("import-map", map_file);
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Json(r), R"({"bytes":600,"offset":)" + offset + R"(,"read":3})");
  expected = demo.bytes;
  std::copy_n(Bytes{0x31, 0x32, 0x33}.begin(), 3, expected.begin() + blocks);
  EXPECT_EQ(test::ReadFileBytes(rom), expected);
}

TEST_F(MapFileCommandsTest, FailuresLeaveTheRomAsItWas) {
  for (const char* command : {"export-map", "import-map"}) {
    test::CliResult r = Run(command, dir.path().string());
    EXPECT_EQ(r.status, 1) << command;
    EXPECT_NE(r.err.find("is a directory"), std::string::npos) << r.err;
    EXPECT_EQ(Run(command, map_file, "9").err, "kartova-cli: Fehler: Ziel-Map (2.9) existiert nicht.\n");
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

  test::WriteFileBytes(map_file, Bytes(kCells, 0x05));
  std::filesystem::permissions(rom, std::filesystem::perms(0444));
  const test::CliResult r = Run("import-map", map_file);
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "kartova-cli: could not write " + rom + ": Die Datei ist schreibgeschützt.\n");
  EXPECT_EQ(test::ReadFileBytes(rom), demo.bytes);
  EXPECT_EQ(Run("export-map", map_file).status, 0);  // exporting only reads the ROM
  EXPECT_EQ(test::ReadFileBytes(map_file).size(), 1u + kCells);
}

}  // namespace
}  // namespace kartova
