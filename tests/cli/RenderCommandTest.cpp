#include <gtest/gtest.h>

#include <QJsonArray>
#include <array>
#include <filesystem>

#include "cli/CliProcess.h"
#include "cli/DecodedPng.h"
#include "rom/HexText.h"
#include "support/PlainWorld.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;
using test::PlainWorld;

class RenderCommandTest : public test::CliTest {
 protected:
  std::string png = dir.File("map.png");
};

// Map 2.2's JSON is pinned to the byte in JsonOutputTest; here map 2.1 at lighting 1 and the usage.
TEST_F(RenderCommandTest, MapPrintsHeadersGridAndColoursAndRefusesWrongArguments) {
  const BuiltRom world = PlainWorld().BuildWithLayout();
  Write(world.bytes);
  test::CliResult r = Run({"map", "--time", "1", rom, "2", "1"});
  ASSERT_EQ(r.status, 0) << r.err;
  const QJsonObject json = test::JsonOf(r);
  const MapLayout& at = world.layout.Map(2, 1);
  auto hex = [&](std::int64_t offset, int n) {
    std::string out;
    for (int i = 0; i < n; ++i) out += Hex2(world.bytes[static_cast<std::size_t>(offset + i)]);
    return out;
  };
  EXPECT_EQ(json["map"].toInt(), 1);
  EXPECT_EQ(json["offset"].toInteger(), at.primary_header);
  EXPECT_EQ(json["primary"].toString().toStdString(), hex(at.primary_header, 30));
  EXPECT_EQ(json["secondary"].toString().toStdString(), hex(at.secondary_header, 60));
  EXPECT_EQ(json["width"].toInt(), 3);
  EXPECT_EQ(json["height"].toInt(), 4);
  EXPECT_EQ(json["colours"].toArray()[9].toString(), "FFFFFF");
  EXPECT_EQ(json["connections"].toArray().size(), 0);
  EXPECT_EQ(json["grid"].toArray()[3].toString(), "030303000102030303");

  r = Run({"map", rom, "2", "3"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "kartova-cli: Fehler: Ziel-Map (2.3) existiert nicht.\n");
  EXPECT_EQ(Run({"map", dir.path().string(), "1", "1"}).err,
            "kartova-cli: Ist ein Verzeichnis: " + dir.path().string() + "\n");
  for (const auto& bad : std::vector<std::vector<std::string>>{
           {"map", rom, "2", "1", "--time", "9"}, {"map", rom, "2", "1", "--zoom", "2"},
           {"map", rom, "0", "1"}, {"map", rom, "27", "1"}, {"map", rom, "2", "0"},
           {"map", rom, "x", "1"}, {"map", rom, "2", "-1"}, {"map", rom, "2", "1.5"}, {"map", rom, "2"},
           {"render", rom, "2", "1", png, "--zoom", "3"}, {"render", rom, "2", "1"}}) {
    r = Run(bad);
    EXPECT_EQ(r.status, 2) << bad[2] << " " << bad.back() << r.err;
    EXPECT_NE(r.err.find("Usage: kartova-cli [--ini FILE] " + bad[0] + " ROM BANK MAP"), std::string::npos);
  }
}

TEST_F(RenderCommandTest, RenderWritesTheBorderedGridInTheTableColours) {
  Write(PlainWorld().Build());
  test::CliResult r = Run({"render", rom, "2", "1", png});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "");
  test::DecodedPng picture = test::ReadPng(png);
  ASSERT_TRUE(picture.ok) << picture.error;
  ASSERT_EQ(picture.width, 9u * 32);
  ASSERT_EQ(picture.height, 10u * 32);
  EXPECT_EQ(picture.Rgb(0, 0), 0x0000FFu);            // border block 3
  EXPECT_EQ(picture.Rgb(3 * 32 + 5, 3 * 32), 0x080808u);  // block 0
  EXPECT_EQ(picture.Rgb(4 * 32 + 31, 3 * 32 + 31), 0xFF0000u);
  EXPECT_EQ(picture.Rgb(5 * 32, 3 * 32 + 7), 0x00FF00u);
  EXPECT_EQ(picture.Rgb(9 * 32 - 1, 10 * 32 - 1), 0x0000FFu);

  r = Run({"render", "--zoom=2", rom, "2", "1", png, "--time", "1"});
  ASSERT_EQ(r.status, 0) << r.err;
  picture = test::ReadPng(png);
  ASSERT_TRUE(picture.ok) << picture.error;
  ASSERT_EQ(picture.width, 9u * 64);
  ASSERT_EQ(picture.height, 10u * 64);
  EXPECT_EQ(picture.Rgb(4 * 64 + 63, 3 * 64), 0xFFFFFFu);  // block 1 at lighting 1
  EXPECT_EQ(picture.Rgb(3 * 64 + 1, 4 * 64 + 63), 0x00FF00u);

  EXPECT_EQ(Run({"render", rom, "2", "3", png}).err, "kartova-cli: Fehler: Ziel-Map (2.3) existiert nicht.\n");
}

// Map 2.3's south strip would lie outside its grid: every map command fails with the runtime
// error, yet shows what it has of the map, and import-map writes nothing.
TEST_F(RenderCommandTest, AStripOutsideTheGridFailsEveryMapCommandButTheMapIsStillShown) {
  RomBuilder b = PlainWorld();
  const std::array<std::uint8_t, 12> south = {2, 1, 0x00, 0x40, 0x00, 0xC9, 3, 3, 0, 0, 0, 0};
  b.Map(2, {.width = 2, .height = 2, .blocks = {2, 2, 2, 2},
            .connections = {{.direction = Direction::kSouth, .target = {2, 1}, .raw = south}}});
  const BuiltRom built = b.BuildWithLayout();
  const Bytes& world = built.bytes;
  Write(world);
  const auto fails = [&](const std::vector<std::string>& args) {
    const test::CliResult r = Run(args);
    EXPECT_EQ(r.status, 1) << args[0];
    EXPECT_EQ(r.err, "kartova-cli: Laufzeitfehler '9': Index außerhalb des gültigen Bereichs (while building the "
                     "map from rom.gbc, block data at 0x" + Hex6(built.layout.Map(2, 3).blocks) + ")\n")
        << args[0];
    return r;
  };
  EXPECT_EQ(test::JsonOf(fails({"map", rom, "2", "3"}))["grid"].toArray()[3].toString(), "0000000202000000");
  fails({"render", rom, "2", "3", png});
  EXPECT_EQ(test::ReadPng(png).Rgb(3 * 32, 3 * 32), 0x00FF00u);
  const std::string map_file = dir.File("x.map");
  fails({"export-map", rom, "2", "3", map_file});
  EXPECT_EQ(test::ReadFileBytes(map_file), (Bytes{0xFF, 2, 2, 2, 2}));
  test::WriteFileBytes(map_file, {1, 1, 1, 1});
  fails({"import-map", rom, "2", "3", map_file});
  EXPECT_EQ(test::ReadFileBytes(rom), world);
}

// A ROM cut short inside a map's block rows: every command that loads the map says so on
// standard error and does its work as before, with the same exit status.
TEST_F(RenderCommandTest, AMapThatReadsPastTheEndOfTheFileIsWarnedAbout) {
  const BuiltRom built = PlainWorld().BuildWithLayout();
  const std::int64_t cut = built.layout.Map(2, 2).blocks + 1;
  ASSERT_GT(cut, 0x94121);  // still large enough to be opened
  Write(Bytes(built.bytes.begin(), built.bytes.begin() + cut));
  const std::string warning = "kartova-cli: warning: map 2.2: " + rom +
                              " is shorter than the data the map points to; what lies past its end was not read\n";
  const test::CliResult all = Run({"render-all", rom, dir.File("all")});
  EXPECT_EQ(all.status, 0);
  EXPECT_NE(all.err.find(warning), std::string::npos) << all.err;
  // Last, as its save writes the rows the file lacked.
  const std::string map_file = dir.File("x.map");
  for (const std::vector<std::string>& args : {std::vector<std::string>{"map", rom, "2", "2"},
                                               {"render", rom, "2", "2", png},
                                               {"export-map", rom, "2", "2", map_file},
                                               {"import-map", rom, "2", "2", map_file}}) {
    const test::CliResult r = Run(args);
    EXPECT_EQ(r.status, 0) << args[0];
    EXPECT_EQ(r.err, warning) << args[0];
  }
  EXPECT_TRUE(test::ReadPng(png).ok);
  EXPECT_EQ(test::ReadFileBytes(map_file).size(), 1u + 4 * 4);
  Write(built.bytes);
  EXPECT_EQ(Run({"map", rom, "2", "2"}).err, "");
}

// PlainWorld's blocks 0..3 are one colour each: colour-table entries 0, 9, 22 and 31.
constexpr std::array<std::uint8_t, 4> kBlockEntry = {0, 9, 22, 31};

TEST_F(RenderCommandTest, ThePngHoldsExactlyTheGridsIndicesAndTheColourTable) {
  Write(PlainWorld().Build());
  const test::CliResult map = Run({"map", rom, "2", "2", "--time", "2"});
  ASSERT_EQ(map.status, 0) << map.err;
  ASSERT_EQ(Run({"render", rom, "2", "2", png, "--time", "2"}).status, 0);
  const test::DecodedPng picture = test::ReadPng(png);
  ASSERT_TRUE(picture.ok) << picture.error;
  EXPECT_EQ(picture.bit_depth, 8);
  EXPECT_EQ(picture.colour_type, 3);  // indexed
  // Nothing but the picture: no gamma, no text, no time stamp.
  EXPECT_EQ(picture.chunks.front(), "IHDR");
  EXPECT_EQ(picture.chunks[1], "PLTE");
  EXPECT_EQ(picture.chunks.back(), "IEND");
  for (std::size_t i = 2; i + 1 < picture.chunks.size(); ++i) EXPECT_EQ(picture.chunks[i], "IDAT");

  const QJsonObject json = test::JsonOf(map);
  const QJsonArray colours = json["colours"].toArray();
  ASSERT_EQ(picture.palette.size(), 256u);
  for (std::size_t k = 0; k < 256; ++k) {
    const std::string rgb = Hex2(picture.palette[k][0]) + Hex2(picture.palette[k][1]) + Hex2(picture.palette[k][2]);
    EXPECT_EQ(rgb, k < 32 ? colours[static_cast<qsizetype>(k)].toString().toStdString() : "000000") << k;
  }
  const QJsonArray grid = json["grid"].toArray();
  ASSERT_EQ(picture.height, static_cast<std::uint32_t>(grid.size()) * 32);
  ASSERT_EQ(picture.width, static_cast<std::uint32_t>(grid[0].toString().size() / 2) * 32);
  std::vector<std::uint8_t> expected;
  for (std::uint32_t y = 0; y < picture.height; ++y) {
    const std::string row = grid[y / 32].toString().toStdString();
    for (std::uint32_t x = 0; x < picture.width; ++x)
      expected.push_back(kBlockEntry.at(std::stoi(row.substr(x / 32 * 2, 2), nullptr, 16)));
  }
  EXPECT_TRUE(picture.pixels == expected);

  // Double size: every pixel becomes a square of four.
  ASSERT_EQ(Run({"render", rom, "2", "2", png, "--time", "2", "--zoom", "2"}).status, 0);
  const test::DecodedPng twice = test::ReadPng(png);
  ASSERT_TRUE(twice.ok) << twice.error;
  ASSERT_EQ(twice.width, picture.width * 2);
  ASSERT_EQ(twice.height, picture.height * 2);
  EXPECT_EQ(twice.palette, picture.palette);
  std::size_t differing = 0;
  for (std::uint32_t y = 0; y < twice.height; ++y)
    for (std::uint32_t x = 0; x < twice.width; ++x) differing += twice.Index(x, y) != picture.Index(x / 2, y / 2);
  EXPECT_EQ(differing, 0u);
}

TEST_F(RenderCommandTest, AWriteThatFailsIsReportedWithTheSystemsReason) {
  Write(PlainWorld().Build());
  const std::string missing = dir.File("no-such-folder/map.png");
  test::CliResult r = Run({"render", rom, "2", "1", missing});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: could not write " + missing + ": No such file or directory\n");
  r = Run({"render", rom, "2", "1", dir.path().string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: could not write " + dir.path().string() + ": Is a directory\n");

#if defined(__linux__)
  // A file that fills up part-way (past a file size limit of one or two KiB) is not left
  // behind as a picture cut short.
  const std::string big = dir.File("limited.png");
  r = test::RunCli({"-c", "ulimit -f 2 && trap '' XFSZ && exec \"$0\" \"$@\"", KARTOVA_CLI_PATH,
                    "--ini", ini, "render", rom, "2", "1", big, "--zoom", "2"},
                   {}, "/bin/sh");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: could not write " + big + ": File too large\n");
  EXPECT_FALSE(std::filesystem::exists(big));
#endif

  // A device that is always full takes the file but none of its bytes. It is no file of ours
  // and must still be there afterwards.
  if (!std::filesystem::is_character_file("/dev/full")) GTEST_SKIP() << "no /dev/full";
  r = Run({"render", rom, "2", "1", "/dev/full"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: could not write /dev/full: No space left on device\n");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

}  // namespace
}  // namespace kartova
