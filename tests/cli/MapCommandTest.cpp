#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "cli/CliProcess.h"
#include "demo/RomBuilder.h"
#include "rom/HexText.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

TEST(MapCommandTest, PrintsTheHeadersOfAListedMapAndRefusesOthers) {
  test::TempDir dir;
  MapDecl m;
  m.width = 12;
  m.height = 7;
  const BuiltRom world = RomBuilder().Map(4, m).Map(4, m).BuildWithLayout();
  const std::string rom = dir.File("world.gbc"), ini = dir.File("k.ini");
  test::WriteFileBytes(rom, world.bytes);
  test::WriteFileText(ini, "");
  auto run = [&](std::vector<std::string> args) {
    args.insert(args.begin(), {"--ini", ini, "map"});
    return test::RunCli(args);
  };
  auto hex = [&](std::int64_t at, int n) {
    std::string out;
    for (int i = 0; i < n; ++i) out += Hex2(world.bytes[static_cast<size_t>(at + i)]);
    return out;
  };

  test::CliResult r = run({rom, "4", "2"});
  ASSERT_EQ(r.status, 0) << r.err;
  const QJsonObject json = QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).object();
  const MapLayout& at = world.layout.Map(4, 2);
  EXPECT_EQ(json["map"].toInt(), 2);
  EXPECT_EQ(json["offset"].toInteger(), at.primary_header);
  EXPECT_EQ(json["primary"].toString().toStdString(), hex(at.primary_header, 30));
  EXPECT_EQ(json["secondary"].toString().toStdString(), hex(at.secondary_header, 60));
  EXPECT_EQ(json["width"].toInt(), 12);
  EXPECT_EQ(json["height"].toInt(), 7);

  r = run({rom, "4", "3"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "Fehler: Ziel-Map (4.3) existiert nicht.\n");
  for (const auto& [bank, map] : std::vector<std::pair<std::string, std::string>>{
           {"0", "1"}, {"27", "1"}, {"4", "0"}, {"x", "1"}, {"4", "-1"}, {"4", "1.5"}}) {
    r = run({rom, bank, map});
    EXPECT_EQ(r.status, 2) << bank << " " << map;
    EXPECT_NE(r.err.find("map ROM BANK MAP"), std::string::npos) << r.err;
  }
  EXPECT_EQ(run({rom, "4"}).status, 2);
  EXPECT_NE(run({dir.path().string(), "1", "1"}).err.find("is a directory"), std::string::npos);
}

}  // namespace
}  // namespace kartova
