#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <string>
#include <vector>

#include "cli/CliProcess.h"
#include "demo/RomBuilder.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

// Map 1.1 has two records of most kinds, so the lists show their order; map 1.2 has none.
std::vector<std::uint8_t> EventRom() {
  MapDecl full;
  full.enter_scripts = {{0x4123, 1, 2}, {0x5001, 3, 4}};
  full.time_scripts = {{7, 0x4567}};
  full.warps = {{3, 5, 1, 2, 0x18}, {5, 6, 2, 1, 1}};
  full.triggers = {{1, 2, 3, 4, 0x4ABC, 5, 6}};
  full.signposts = {{8, 9, 1, 0x4DEF}, {10, 11, 2, 0x4010}};
  full.people = {{0x1A, 4, 5, 1, 2, 3, 4, 5, 6, 0x5234, 0x5678}};
  return RomBuilder().Map(1, full).Map(1, MapDecl{}).Build();
}

class MapEventsJsonTest : public ::testing::Test {
 protected:
  MapEventsJsonTest() {
    test::WriteFileBytes(rom, EventRom());
    test::WriteFileText(ini, "");
  }
  test::CliResult Map(const std::string& number) { return test::RunCli({"--ini", ini, "map", rom, "1", number}); }
  static std::vector<std::string> List(const QJsonObject& events, const char* name) {
    std::vector<std::string> out;
    for (const QJsonValue& v : events[name].toArray()) out.push_back(v.toString().toStdString());
    return out;
  }

  test::TempDir dir;
  std::string rom = dir.File("events.gbc"), ini = dir.File("k.ini");
};

TEST_F(MapEventsJsonTest, ListsEveryRecordAsItsBytesInRomOrder) {
  const test::CliResult r = Map("1");
  ASSERT_EQ(r.status, 0) << r.err;
  const QJsonObject events = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object()["events"].toObject();
  using Strings = std::vector<std::string>;
  EXPECT_EQ(List(events, "enter"), (Strings{"23410102", "01500304"}));
  EXPECT_EQ(List(events, "time"), (Strings{"076745"}));
  EXPECT_EQ(List(events, "warp"), (Strings{"0305010218", "0506020101"}));
  EXPECT_EQ(List(events, "trigger"), (Strings{"01020304BC4A0506"}));
  EXPECT_EQ(List(events, "sign"), (Strings{"080901EF4D", "0A0B021040"}));
  EXPECT_EQ(List(events, "people"), (Strings{"1A080901020304050634527856"}));  // positions + 4

  // The lists follow each other as the ROM holds them, after everything else of the map.
  std::size_t at = r.out.find("\"colours\"");
  ASSERT_NE(at, std::string::npos);
  for (const char* key : {"\"events\"", "\"enter\"", "\"time\"", "\"warp\"", "\"trigger\"", "\"sign\"", "\"people\""}) {
    const std::size_t next = r.out.find(key, at);
    ASSERT_NE(next, std::string::npos) << key;
    at = next;
  }
}

TEST_F(MapEventsJsonTest, AMapWithoutEventsHasSixEmptyLists) {
  const test::CliResult r = Map("2");
  ASSERT_EQ(r.status, 0) << r.err;
  const QJsonObject events = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object()["events"].toObject();
  EXPECT_EQ(events.keys().size(), 6);
  for (const char* name : {"enter", "time", "warp", "trigger", "sign", "people"}) {
    ASSERT_TRUE(events[name].isArray()) << name;
    EXPECT_TRUE(events[name].toArray().isEmpty()) << name;
  }
}

}  // namespace
}  // namespace kartova
