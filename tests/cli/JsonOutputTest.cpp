#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>

#include "cli/CliProcess.h"
#include "support/PlainWorld.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

// The text scripts read, to the byte: keys in their order, two spaces of indentation, arrays of
// numbers on one line, empty lists as []. Pieces of what the tool printed before its JSON went
// through a library; the colours between them are 32 lines of "RRGGBB".
constexpr const char* kMap22NightStart = R"({
  "bank": 2,
  "map": 2,
  "offset": 606226,
  "primary": "25000030400000000000FF000000000000000304032600402C0040024000",
  "secondary": "010404260C402C08400A40080201034003C70303070039C7000000000000000000000000000000000000000000000000000000000000000000000000",
  "width": 4,
  "height": 4,
  "grid": [
    "01010102010001010101",
    "01010103030301010101",
)";
constexpr const char* kMap22NightConnections = R"(
  ],
  "connections": [
    {
      "direction": 0,
      "rect": [3, 0, 5, 2],
      "bank": 2,
      "map": 1
    }
  ],
  "colours": [
    "080808",
)";
constexpr const char* kMap22NightEnd = R"(
    "0000FF"
  ],
  "events": {
    "enter": [],
    "time": [],
    "warp": [],
    "trigger": [],
    "sign": [],
    "people": []
  }
}
)";

class JsonOutputTest : public ::testing::Test {
 protected:
  JsonOutputTest() {
    test::WriteFileBytes(rom, test::PlainWorld().Build());
    test::WriteFileText(ini, "");
  }
  test::TempDir dir;
  std::string rom = dir.File("plain.gbc"), ini = dir.File("k.ini");
};

TEST_F(JsonOutputTest, MapAndExportPrintTheTextTheyAlwaysPrinted) {
  test::CliResult r = test::RunCli({"--ini", ini, "map", rom, "2", "2", "--time", "2"});
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string start = kMap22NightStart, connections = kMap22NightConnections, end = kMap22NightEnd;
  EXPECT_EQ(r.out.substr(0, start.size()), start);
  EXPECT_NE(r.out.find("    \"01010101010101010101\"" + connections), std::string::npos) << r.out;
  ASSERT_GE(r.out.size(), end.size());
  EXPECT_EQ(r.out.substr(r.out.size() - end.size()), end);

  const std::string file = dir.File("x.map");
  r = test::RunCli({"--ini", ini, "export-map", rom, "2", "1", file});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "{\n  \"file\": \"" + file + "\",\n  \"width\": 3,\n  \"height\": 4,\n  \"bytes\": 13\n}\n");
}

TEST_F(JsonOutputTest, TextThatIsNoUtf8BecomesReplacementCharacters) {
  // Control characters and DEL escaped, as always; Latin-1 bytes in the INI file are read as
  // Windows-1252 and so arrive as UTF-8.
  test::WriteFileText(ini, "[Settings]\nMusicNames=M\n[M]\ncount=1\n00=a\x7F" "b\tc\xE9\n");
  test::CliResult r = test::RunCli({"--ini", ini, "info", rom});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("\"MusicNames\": [\n      \"00 - a\\u007fb\\tc\xC3\xA9\"\n    ]"), std::string::npos)
      << r.out;

#if defined(__linux__)
  // A file name is whatever bytes the system allows; the JSON stays valid UTF-8 all the same.
  const std::string raw = dir.File("caf\xE9-\xFF.map");
  r = test::RunCliDirect({"--ini", ini, "export-map", rom, "2", "1", raw});
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string shown = dir.File("caf\xEF\xBF\xBD-\xEF\xBF\xBD.map");
  EXPECT_NE(r.out.find("\"file\": \"" + shown + "\","), std::string::npos) << r.out;
  QJsonParseError error{};
  const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(r.out), &error).object();
  EXPECT_EQ(error.error, QJsonParseError::NoError);
  EXPECT_EQ(json["file"].toString().toStdString(), shown);
  EXPECT_EQ(test::ReadFileText(raw).size(), 13u);
#endif
}

}  // namespace
}  // namespace kartova
