#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>

#include <filesystem>
#include <functional>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "support/BadInputs.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Map 1.1 (4 x 3, blocks 0..11) has a warp and two people; map 1.2 (5 x 2) a signpost and
// a neighbour to the north, map 1.1. B starts as a copy of A and each case changes it.
BuiltRom TwoMaps() {
  MapDecl hafen{.location = 1, .width = 4, .height = 3, .warps = {{2, 3, 1, 1, 2}},
                .people = {{.picture = 5}, {.picture = 6}}};
  for (std::uint8_t b = 0; b < 12; ++b) hafen.blocks.push_back(b);
  MapDecl weg{.location = 2, .width = 5, .height = 2,
              .connections = {{.direction = Direction::kNorth, .target = {1, 1}}}, .signposts = {{1, 1, 0, 0x4000}}};
  return RomBuilder().LocationName(1, "NORDHAFEN").LocationName(2, "WEG 11").Map(1, hafen).Map(1, weg)
      .BuildWithLayout();
}

class DiffCommandTest : public test::CliTest {
 protected:
  DiffCommandTest() { Write(world.bytes); }
  test::CliResult Diff(const Bytes& b, std::vector<std::string> options = {}) {
    test::WriteFileBytes(other, b);
    options.insert(options.begin(), {"diff", rom, other});
    return Run(options);
  }
  static std::string Compact(const std::string& json) {  // the keys sorted
    return QJsonDocument::fromJson(QByteArray::fromStdString(json)).toJson(QJsonDocument::Compact).toStdString();
  }
  Bytes Changed(const std::function<void(Bytes&)>& change) const {
    Bytes b = world.bytes;
    change(b);
    return b;
  }
  static void Set(Bytes& b, std::int64_t at, std::uint8_t value) { b[static_cast<std::size_t>(at)] = value; }

  BuiltRom world = TwoMaps();
  const MapLayout& hafen = world.layout.Map(1, 1);
  const MapLayout& weg = world.layout.Map(1, 2);
  std::string other = dir.File("b.gbc");
};

TEST_F(DiffCommandTest, ARomWithItselfIsTheSame) {
  for (const auto& [option, out] : std::vector<std::pair<std::string, std::string>>{
           {"", "{\n  \"maps\": [],\n  \"other\": []\n}\n"}, {"--text", ""}, {"--patch", "[]\n"}}) {
    const test::CliResult r = Diff(world.bytes, option.empty() ? std::vector<std::string>{} : std::vector{option});
    EXPECT_EQ(r.status, 0) << option << r.err;
    EXPECT_EQ(r.out, out) << option;
    EXPECT_EQ(r.err, "") << option;
  }
}

// Each kind of difference alone, found exactly and nothing else.
TEST_F(DiffCommandTest, EachKindOfDifferenceIsFoundExactly) {
  const std::string maps = R"({"maps":[{"bank":1,)";
  const std::string none = R"({"maps":[],)";
  struct Case {
    const char* what;
    std::function<void(Bytes&)> change;
    std::string json;
  };
  const std::vector<Case> cases = {
      {"primary byte", [&](Bytes& b) { Set(b, hafen.primary_header + 6, 0x0A); },
       maps + R"("map":1,"name":"Nordhafen","primary":{"6":["00","0A"]}}],"other":[]})"},
      {"secondary byte", [&](Bytes& b) { Set(b, weg.secondary_header + 0, 0x07); },
       maps + R"("map":2,"name":"Weg 11","secondary":{"0":["00","07"]}}],"other":[]})"},
      {"blocks", [&](Bytes& b) { Set(b, hafen.blocks + 6, 0x33); Set(b, hafen.blocks + 11, 0x44); },
       maps + R"("blocks":[[2,1,6,51],[3,2,11,68]],"map":1,"name":"Nordhafen"}],"other":[]})"},
      {"size", [&](Bytes& b) { Set(b, hafen.secondary_header + 1, 2); },
       maps + R"("map":1,"name":"Nordhafen","secondary":{"1":["03","02"]},"size":[[4,3],[4,2]]}],"other":[]})"},
      {"event record", [&](Bytes& b) { Set(b, hafen.event_header + 3, 0x09); },
       maps + R"("events":{"warp":{"0":["0203010102","0903010102"]}},"map":1,"name":"Nordhafen"}],"other":[]})"},
      {"record count", [&](Bytes& b) { Set(b, hafen.event_header + 10, 1); },
       maps + R"("events":{"people":{"1":["0604040000000000000040FFFF",null],"count":[2,1]}},)" +
           R"("map":1,"name":"Nordhafen"}],"other":[]})"},
      {"other bytes", [&](Bytes& b) { Set(b, 0x200, 1); Set(b, 0x201, 1); Set(b, 0x203, 1); },
       none + R"("other":[{"length":2,"offset":512},{"length":1,"offset":515}]})"},
      {"file length", [&](Bytes& b) { b.insert(b.end(), {1, 2, 3}); },
       R"({"length":[2097152,2097155],"maps":[],"other":[]})"},
  };
  for (const Case& c : cases) {
    const test::CliResult r = Diff(Changed(c.change));
    EXPECT_EQ(r.status, 1) << c.what << r.err;
    EXPECT_EQ(Compact(r.out), c.json) << c.what;
  }
}

TEST_F(DiffCommandTest, TextSummaryHasALinePerMapThenOtherBytesAndLength) {
  const Bytes b = Changed([&](Bytes& b) {
    Set(b, hafen.primary_header + 6, 0x0A);
    Set(b, hafen.blocks + 6, 0x33);
    Set(b, hafen.event_header + 3, 0x09);
    for (int i = 12; i < 16; ++i) b[static_cast<std::size_t>(weg.secondary_header + i)] ^= 0xFF;  // its connection
    Set(b, 0x200, 1);
    b.push_back(0);
  });
  const test::CliResult r = Diff(b, {"--text"});
  EXPECT_EQ(r.status, 1) << r.err;
  EXPECT_EQ(r.out,
            "1.1 Nordhafen: 1 block, primary[6] 00→0A, warp 1\n"
            "1.2 Weg 11: secondary 4 bytes\n"
            "other: 1 byte in 1 run, the first at 0x200\n"
            "length: 2097152→2097153\n");
}

TEST_F(DiffCommandTest, PatchSetsTheNewValuesAndSaysWhatItLeavesOut) {
  const Bytes b = Changed([&](Bytes& b) {
    Set(b, hafen.blocks + 6, 0x33);
    Set(b, hafen.primary_header + 6, 0x0A);
    Set(b, hafen.event_header + 3, 0x09);
    Set(b, hafen.event_header + 10, 1);
    Set(b, weg.secondary_header + 0, 0x07);
    Set(b, 0x200, 1);
  });
  const test::CliResult r = Diff(b, {"--patch"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, R"([
  {
    "bank": 1,
    "map": 1,
    "blocks": [
      [2, 1, 51]
    ],
    "primary": {
      "6": "0A"
    },
    "events": {
      "warp": {
        "0": "0903010102"
      }
    }
  },
  {
    "bank": 1,
    "map": 2,
    "secondary": {
      "0": "07"
    }
  }
]
)");
  EXPECT_EQ(r.err,
            "kartova-cli: warning: map 1.1 has 2 people records in A and 1 in B; a patch cannot add or "
            "remove records\n"
            "kartova-cli: warning: 1 byte outside the maps differs (1 run, see diff without --patch); a patch "
            "leaves them out\n");
}

TEST_F(DiffCommandTest, ExitStatusTwoForTroubleWithAMessage) {
  test::WriteFileBytes(other, world.bytes);
  const std::string missing = dir.File("missing.gbc");
  for (const auto& [args, message] : std::vector<std::pair<std::vector<std::string>, std::string>>{
           {{"diff", rom, missing}, "missing.gbc"},
           {{"diff", missing, rom}, "missing.gbc"},
           {{"diff", rom}, "Usage: kartova-cli [--ini FILE] diff A B"},
           {{"diff", rom, other, other}, "Usage: kartova-cli [--ini FILE] diff A B"},
           {{"diff", rom, other, "--text", "--patch"}, "at most one of --text and --patch"},
           {{"diff", rom, other, "--txt"}, "unknown option '--txt'"},
       }) {
    const test::CliResult r = Run(args);
    EXPECT_EQ(r.status, 2) << message;
    EXPECT_NE(r.err.find(message), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
  }
  EXPECT_FALSE(std::filesystem::exists(missing));
  // A definition the editor refuses: HeaderLengthA above 30.
  test::WriteFileText(ini, "[Settings]\nHeaderLengthA=31\n");
  const test::CliResult r = Run({"diff", rom, other});
  EXPECT_EQ(r.status, 2);
  EXPECT_NE(r.err.find("Laufzeitfehler '9'"), std::string::npos) << r.err;
}

// On the demo: a map changed with import-map is reported as that map's blocks only.
TEST_F(DiffCommandTest, DemoWithAnImportedMapDiffersInThatMapsBlocks) {
  Write(BuildDemoRom(), DemoDefinitionIni());
  test::WriteFileBytes(other, BuildDemoRom());
  const std::string map_file = dir.File("rows.map");
  test::WriteFileBytes(map_file, {0xFF, 0x07, 0x07, 0x07});
  ASSERT_EQ(Run({"import-map", other, "2", "1", map_file}).status, 0);
  const test::CliResult r = Run({"diff", rom, other, "--text"});
  EXPECT_EQ(r.status, 1) << r.err;
  EXPECT_EQ(r.out, "2.1 Nord Hafen-Stadt: 3 blocks\n");
}

// Broken ROMs (and definitions) on either side: a result or a clean failure, never a crash.
TEST_F(DiffCommandTest, BrokenRomsDifferOrFailCleanly) {
  Write(BuildDemoRom(), DemoDefinitionIni());
  for (const test::BadInput& input : test::BadInputs()) {
    test::WriteBadInput(input, other);
    test::WriteFileText(ini, input.ini.value_or(DemoDefinitionIni()));
    for (const auto& [a, b] : {std::pair{rom, other}, std::pair{other, rom}}) {
      const test::CliResult r = Run({"diff", a, b, "--text"});
      EXPECT_TRUE(r.status >= 0 && r.status <= 2) << input.name << ": " << r.status << r.err;
      EXPECT_EQ(r.status == 2, r.err.rfind("kartova-cli: ", 0) == 0) << input.name << r.err;
    }
  }
}

}  // namespace
}  // namespace kartova
