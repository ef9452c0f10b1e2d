#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>

#include "cli/CliProcess.h"
#include "support/EventWorld.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

TEST(MapEventsJsonTest, ListsEveryRecordAsItsBytesInRomOrderAfterTheRestOfTheMap) {
  test::TempDir dir;
  const std::string rom = dir.File("events.gbc"), ini = dir.File("k.ini");
  test::WriteFileBytes(rom, test::EventWorld().bytes);
  test::WriteFileText(ini, "");
  const std::string expected[] = {
      R"({"enter":["23410102","01500304"],)"
      R"("people":["1A080901020304050634527856","1B04FE0000000000000040FFFF"],)"  // positions + 4
      R"("sign":["080901EF4D","0A0B021040"],"time":["076745"],"trigger":["01020304BC4A0506"],)"
      R"("warp":["0304010203","0506020101"]})",
      R"({"enter":[],"people":[],"sign":[],"time":[],"trigger":[],"warp":[]})"};
  for (int map : {1, 2}) {
    const test::CliResult r = test::RunCli({"--ini", ini, "map", rom, "1", std::to_string(map)});
    ASSERT_EQ(r.status, 0) << r.err;
    const QJsonObject events = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object()["events"].toObject();
    EXPECT_EQ(QJsonDocument(events).toJson(QJsonDocument::Compact).toStdString(), expected[map - 1]);
    // The lists follow each other as the ROM holds them, after everything else of the map.
    std::size_t at = r.out.find("\"colours\"");
    for (const char* key : {"events", "enter", "time", "warp", "trigger", "sign", "people"}) {
      at = r.out.find('"' + std::string(key) + '"', at);
      ASSERT_NE(at, std::string::npos) << key;
    }
  }
}

}  // namespace
}  // namespace kartova
