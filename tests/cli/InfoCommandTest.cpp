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

TEST_F(InfoCommandTest, MissingShortAndBadInputs) {
  WriteFileText(Ini(), "; nothing for these ROMs\n");
  const std::string missing = dir_.File("new.gbc");
  test::CliResult r = Info(missing);
  ASSERT_EQ(r.status, 0) << r.err;
  const QJsonObject info = Parsed(r.out);
  EXPECT_EQ(info["title"].toString().toStdString(), std::string(32, '0'));
  EXPECT_EQ(info["headerLength"].toInt(), 9);
  EXPECT_TRUE(std::filesystem::exists(missing));  // created empty, as the editor does

  WriteFileText(Ini(), "[" + kKartovaSection + "]\nHeaderLengthA=31\n");
  r = Info(Rom());
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "Laufzeitfehler '9': Index au\xC3\x9F" "erhalb des g\xC3\xBCltigen Bereichs\n");

  r = Info(dir_.path().string());
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_NE(r.err.find("is a directory"), std::string::npos) << r.err;

  EXPECT_EQ(RunCli({"--ini", Ini(), "info", Rom(), Rom()}).status, 2);
  r = RunCli({"--ini", dir_.File("absent.ini"), "info", Rom()});
  EXPECT_EQ(r.status, 1);
  EXPECT_NE(r.err.find("absent.ini"), std::string::npos) << r.err;
}

}  // namespace
}  // namespace kartova
