#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>
#include <string>
#include <vector>

#include "cli/CliProcess.h"
#include "demo/RomBuilder.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::RunCli;
using test::WriteFileText;

const std::string kKartovaSection = "4B4152544F5641" + std::string(18, '0');  // "KARTOVA"

class InfoCommandTest : public ::testing::Test {
 protected:
  InfoCommandTest() { test::WriteFileBytes(Rom(), RomBuilder().Title("KARTOVA").Build()); }
  std::string Rom() const { return dir_.File("kartova.gbc"); }
  std::string Ini() const { return dir_.File("definitions.ini"); }
  test::CliResult Info(const std::string& rom) const { return RunCli({"--ini", Ini(), "info", rom}); }

  test::TempDir dir_;
};

QJsonObject Parsed(const std::string& json) {
  QJsonParseError error{};
  QJsonDocument doc = QJsonDocument::fromJson(QByteArray::fromStdString(json), &error);
  EXPECT_EQ(error.error, QJsonParseError::NoError) << json;
  return doc.object();
}

TEST_F(InfoCommandTest, PrintsTheDefinitionAsJson) {
  WriteFileText(Ini(), "[Settings]\r\nTimeNames=Times\r\n[" + kKartovaSection + "]\r\n"
                       "HeaderLengthA=12\r\nMapNameTable=92400\r\nTilesetBase=2E00\r\n"
                       "ResName0=Flags\r\nResName1=Say \"hi\"\tback\\slash\r\n"
                       "TilesetNames=Tilesets\r\nMusicNames=Music\r\n"
                       "[Tilesets]\r\ncount=2\r\n00=Cave\r\n01=Stra\xDF" "e\r\n"
                       "[Music]\r\ncount=1\r\n00=ctl\x01\r\n[Times]\r\ncount=0\r\n");
  const test::CliResult r = Info(Rom());
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  // The definition comes first; keys about the map tables follow it.
  const std::string definition =
      "{\n  \"title\": \"" + kKartovaSection + "\",\n  \"headerLength\": 12,\n"
      "  \"mapNameTable\": 599040,\n  \"tilesetBase\": 11776,\n"
      "  \"extraHeaderByteNames\": [\n    \"Flags:\",\n"
      "    \"Say \\\"hi\\\"\\tback\\\\slash:\",\n    \"Res:\"\n  ],\n"
      "  \"lists\": {\n    \"TilesetNames\": [\n      \"00 - Cave\",\n"
      "      \"01 - Stra\xC3\x9F" "e\"\n    ],\n    \"AbilityNames\": [],\n"
      "    \"MusicNames\": [\n      \"00 - ctl\\u0001\"\n    ],\n    \"TimeNames\": []\n  }";
  EXPECT_EQ(r.out.substr(0, definition.size()), definition);
  Parsed(r.out);  // and the whole output is valid JSON
}

TEST_F(InfoCommandTest, FilesThatAreNoRomAreRefusedAndNothingIsCreated) {
  WriteFileText(Ini(), "; nothing for these ROMs\n");
  test::WriteFileBytes(dir_.File("tiny.gbc"), std::vector<std::uint8_t>(0x134, 0));
  const std::string missing = dir_.File("new.gbc");
  const struct {
    std::string path, message;
  } cases[] = {
      {missing, "Datei nicht gefunden: " + missing},
      {dir_.path().string(), "Ist ein Verzeichnis: " + dir_.path().string()},
      {dir_.File("tiny.gbc"),
       "Die Datei ist zu klein f\xC3\xBCr ein Rom dieses Spiels: " + dir_.File("tiny.gbc")},
  };
  for (const auto& c : cases) {
    const test::CliResult r = Info(c.path);
    EXPECT_EQ(r.status, 1) << c.path;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, c.message + "\n");
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
  // The map commands check the ROM the same way.
  const test::CliResult r = RunCli({"--ini", Ini(), "map", missing, "1", "1"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "Datei nicht gefunden: " + missing + "\n");
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(InfoCommandTest, BadDefinitionsAndArguments) {
  WriteFileText(Ini(), "[" + kKartovaSection + "]\nHeaderLengthA=31\n");
  test::CliResult r = Info(Rom());
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "Laufzeitfehler '9': Index au\xC3\x9F" "erhalb des g\xC3\xBCltigen Bereichs\n");

  EXPECT_EQ(RunCli({"--ini", Ini(), "info", Rom(), Rom()}).status, 2);
  r = RunCli({"--ini", dir_.File("absent.ini"), "info", Rom()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("absent.ini"), std::string::npos) << r.err;
}

}  // namespace
}  // namespace kartova
