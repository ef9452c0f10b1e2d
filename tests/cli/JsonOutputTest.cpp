#include <gtest/gtest.h>

#include <QJsonDocument>

#include "cli/CliProcess.h"
#include "support/EventWorld.h"
#include "support/PlainWorld.h"

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

class JsonOutputTest : public test::CliTest {
 protected:
  JsonOutputTest() { Write(test::PlainWorld().Build()); }
};

TEST_F(JsonOutputTest, MapAndExportPrintTheTextTheyAlwaysPrinted) {
  test::CliResult r = Run({"map", rom, "2", "2", "--time", "2"});
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string start = kMap22NightStart, connections = kMap22NightConnections, end = kMap22NightEnd;
  EXPECT_EQ(r.out.substr(0, start.size()), start);
  EXPECT_NE(r.out.find("    \"01010101010101010101\"" + connections), std::string::npos) << r.out;
  ASSERT_GE(r.out.size(), end.size());
  EXPECT_EQ(r.out.substr(r.out.size() - end.size()), end);

  const std::string file = dir.File("x.map");
  r = Run({"export-map", rom, "2", "1", file});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "{\n  \"file\": \"" + file + "\",\n  \"width\": 3,\n  \"height\": 4,\n  \"bytes\": 13\n}\n");
}

TEST_F(JsonOutputTest, TextThatIsNoUtf8BecomesReplacementCharacters) {
  // Control characters and DEL escaped, as always; Latin-1 bytes in the INI file are read as
  // Windows-1252 and so arrive as UTF-8.
  test::WriteFileText(ini, "[Settings]\nMusicNames=M\n[M]\ncount=1\n00=a\x7F" "b\tc\xE9\n");
  test::CliResult r = Run({"info", rom});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_NE(r.out.find("\"MusicNames\": [\n      \"00 - a\\u007fb\\tc\xC3\xA9\"\n    ]"), std::string::npos)
      << r.out;

#if defined(__linux__)
  // A file name is whatever bytes the system allows (made by the shell here: Qt would pass UTF-8
  // only); the JSON stays valid UTF-8 all the same.
  const std::string raw = dir.File("caf\xE9-\xFF.map");
  r = test::RunCli({"-c", R"sh(exec "$0" --ini "$1" export-map "$2" 2 1 "$3$(printf 'caf\351-\377.map')")sh",
                    KARTOVA_CLI_PATH, ini, rom, dir.File("")},
                   {}, "/bin/sh");
  ASSERT_EQ(r.status, 0) << r.err;
  const std::string shown = dir.File("caf\xEF\xBF\xBD-\xEF\xBF\xBD.map");
  EXPECT_NE(r.out.find("\"file\": \"" + shown + "\","), std::string::npos) << r.out;
  EXPECT_EQ(test::JsonOf(r)["file"].toString().toStdString(), shown);
  EXPECT_EQ(test::ReadFileText(raw).size(), 13u);
#endif
}

// Map 1.1 of EventWorld has events of every kind, 1.2 none; the order of the lists is pinned
// with the rest of the text above.
TEST_F(JsonOutputTest, EventsAreListedAsTheirRecordBytesInRomOrder) {
  Write(test::EventWorld().bytes);
  const std::string expected[] = {
      R"({"enter":["23410102","01500304"],)"
      R"("people":["1A080901020304050634527856","1B04FE0000000000000040FFFF"],)"  // positions + 4
      R"("sign":["080901EF4D","0A0B021040"],"time":["076745"],"trigger":["01020304BC4A0506"],)"
      R"("warp":["0304010203","0506020101"]})",
      R"({"enter":[],"people":[],"sign":[],"time":[],"trigger":[],"warp":[]})"};
  for (int map : {1, 2}) {
    const test::CliResult r = Run({"map", rom, "1", std::to_string(map)});
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject events = test::JsonOf(r)["events"].toObject();
    EXPECT_EQ(QJsonDocument(events).toJson(QJsonDocument::Compact).toStdString(), expected[map - 1]);
  }
}

}  // namespace
}  // namespace kartova
