#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sys/stat.h>

#include <filesystem>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "demo/RomBuilder.h"
#include "rom/HexText.h"
#include "support/BadInputs.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Map 1.1: 6 x 4 blocks numbered 0..23 row after row, one Enter script, two warps, a signpost.
// Map 1.2: 3 x 3 blocks of 07. The edits themselves are the document's, tested with it; here
// what a patch reaches, in which order, what is refused, and what the tool prints.
BuiltRom World() {
  MapDecl a{.border = 1, .width = 6, .height = 4};
  for (int i = 0; i < 24; ++i) a.blocks.push_back(static_cast<std::uint8_t>(i));
  a.enter_scripts = {{0x4123, 1, 2}};
  a.warps = {{3, 4, 1, 2, 3}, {5, 6, 2, 1, 1}};
  a.signposts = {{8, 9, 1, 0x4DEF}};
  MapDecl b{.width = 3, .height = 3, .blocks = Bytes(9, 7)};
  return RomBuilder().Map(1, a).Map(1, b).BuildWithLayout();
}

std::string HexOf(const Bytes& bytes) {
  std::string text;
  for (std::uint8_t b : bytes) text += Hex2(b);
  return text;
}

class ApplyCommandTest : public test::CliTest {
 protected:
  ApplyCommandTest() { Write(world.bytes); }

  test::CliResult Apply(const std::string& patch, std::vector<std::string> extra = {}) {
    test::WriteFileText(patch_file, patch);
    std::vector<std::string> args = {"apply", rom, patch_file};
    args.insert(args.end(), extra.begin(), extra.end());
    return Run(args);
  }
  // A patch of one entry for map 1.1 with the given members.
  static std::string OnMap11(const std::string& members) { return R"([{"bank": 1, "map": 1, )" + members + "}]"; }

  // The runs as the tool prints them, compacted with the keys sorted.
  static std::string Compact(const std::string& json) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(json)).toJson(QJsonDocument::Compact).toStdString();
  }
  std::string RunAt(std::int64_t offset, const Bytes& now) const {
    const Bytes old(world.bytes.begin() + offset, world.bytes.begin() + offset + static_cast<std::int64_t>(now.size()));
    return R"({"new":")" + HexOf(now) + R"(","offset":)" + std::to_string(offset) + R"(,"old":")" + HexOf(old) + "\"}";
  }
  Bytes With(std::vector<std::pair<std::int64_t, Bytes>> changes) const {
    Bytes image = world.bytes;
    for (const auto& [offset, now] : changes) std::copy(now.begin(), now.end(), image.begin() + offset);
    return image;
  }
  // The file as it is on disk: its inode and modification time tell a file rewritten with the
  // same bytes from one left alone.
  std::pair<ino_t, std::filesystem::file_time_type> Stamp() const {
    struct stat st{};
    ::stat(rom.c_str(), &st);
    return {st.st_ino, std::filesystem::last_write_time(rom)};
  }

  BuiltRom world = World();
  const MapLayout& m11 = world.layout.Map(1, 1);
  const MapLayout& m12 = world.layout.Map(1, 2);
  std::int64_t first_warp = m11.event_header + 3;  // after the two bytes passed over and the count
  std::string patch_file = dir.File("edits.json");
};

TEST_F(ApplyCommandTest, EachEditKindChangesExactlyItsBytesAndReportsThem) {
  test::WriteFileBytes(dir.File("rows.map"), {0xFF, 0x0A, 0x0B, 0x0C});
  const struct {
    std::string members;
    std::int64_t offset;
    Bytes now;
  } cases[] = {
      {R"("blocks": [[1, 2, 99]])", m11.blocks + 2 * 6 + 1, {0x63}},
      {R"("primary": {"6": "2a"})", m11.primary_header + 6, {0x2A}},
      {R"("secondary": {"0": "07"})", m11.secondary_header, {0x07}},
      {R"("events": {"warp": {"1": "0A0B0C0D0E"}})", first_warp + 5, {0x0A, 0x0B, 0x0C, 0x0D, 0x0E}},
      {R"("events": {"enter": {"0": "01020304"}})", m11.script_header + 1, {0x01, 0x02, 0x03, 0x04}},
      {R"("import": "rows.map")", m11.blocks, {0x0A, 0x0B, 0x0C}},
  };
  for (const auto& c : cases) {
    test::WriteFileBytes(rom, world.bytes);
    const test::CliResult r = Apply(OnMap11(c.members));
    ASSERT_EQ(r.status, 0) << c.members << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(Compact(r.out), "[" + RunAt(c.offset, c.now) + "]") << c.members;
    EXPECT_EQ(test::ReadFileBytes(rom), With({{c.offset, c.now}})) << c.members;
  }
}

TEST_F(ApplyCommandTest, EditsOfAMapGoInTheirOrderAndEntriesOneAfterTheOther) {
  // Blocks before the import: the import wins, whichever way the entry lists them. A cell named
  // twice takes the later block.
  test::WriteFileBytes(dir.File("rows.map"), {0x0A, 0x0B});
  test::CliResult r = Apply(OnMap11(R"("import": "rows.map", "blocks": [[0, 0, 50], [2, 0, 50], [2, 0, 51]])"));
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(test::ReadFileBytes(rom), With({{m11.blocks, {0x0A, 0x0B, 51}}}));

  // The same map twice: the second entry loads what the first saved. Widening the map first
  // makes x = 6 a cell of it; the other way round the cell does not exist yet.
  test::WriteFileBytes(rom, world.bytes);
  r = Apply(R"([{"bank": 1, "map": 1, "secondary": {"2": "07"}},
                {"bank": 1, "map": 1, "blocks": [[6, 0, 200]]}])");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(test::ReadFileBytes(rom), With({{m11.secondary_header + 2, {7}}, {m11.blocks + 6, {200}}}));
  test::WriteFileBytes(rom, world.bytes);
  r = Apply(R"([{"bank": 1, "map": 1, "blocks": [[6, 0, 200]]},
                {"bank": 1, "map": 1, "secondary": {"2": "07"}}])");
  EXPECT_EQ(r.status, 2);
  EXPECT_EQ(r.err, "kartova-cli: " + patch_file + ": [0].blocks[0]: x 6 is outside map 1.1, which is 6 blocks wide\n");
  EXPECT_EQ(test::ReadFileBytes(rom), world.bytes);
}

TEST_F(ApplyCommandTest, RunsAreMergedWhereTheyTouchAndListedInFileOrder) {
  ASSERT_LT(m11.blocks, m12.blocks);
  // Map 1.2 comes first in the patch but lies behind 1.1 in the file; (0,0) and (1,0) touch,
  // (3,0) does not; the warp record and its neighbour byte of the signpost list stay apart.
  const test::CliResult r = Apply(R"([{"bank": 1, "map": 2, "blocks": [[0, 0, 1]]},
      {"bank": 1, "map": 1, "blocks": [[3, 0, 40], [0, 0, 30], [1, 0, 31]]}])");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(Compact(r.out), "[" + RunAt(m11.blocks, {30, 31}) + "," + RunAt(m11.blocks + 3, {40}) + "," +
                                RunAt(m12.blocks, {1}) + "]");
}

TEST_F(ApplyCommandTest, DryRunReportsWhatTheRealRunWritesAndWritesNothing) {
  const std::string patch = R"([{"bank": 1, "map": 2, "blocks": [[2, 2, 9]]},
      {"bank": 1, "map": 1, "primary": {"5": "03"}, "events": {"sign": {"0": "0102030405"}}}])";
  const auto before = Stamp();
  const test::CliResult first = Apply(patch, {"--dry-run"});
  ASSERT_EQ(first.status, 0) << first.err;
  EXPECT_EQ(Stamp(), before);
  EXPECT_EQ(test::ReadFileBytes(rom), world.bytes);
  for (auto place : {1, 2}) {  // the flag anywhere among the arguments
    std::vector<std::string> args = {"apply", rom, patch_file};
    args.insert(args.begin() + place, "--dry-run");
    EXPECT_EQ(Run(args).out, first.out);
  }
  const test::CliResult real = Apply(patch);
  ASSERT_EQ(real.status, 0) << real.err;
  EXPECT_EQ(real.out, first.out);
  EXPECT_NE(test::ReadFileBytes(rom), world.bytes);
  EXPECT_NE(first.out, "[]\n");
}

TEST_F(ApplyCommandTest, APatchThatChangesNothingLeavesTheFileAlone) {
  const auto before = Stamp();
  for (const char* patch : {"[]", R"([{"bank": 1, "map": 1}])",
                            R"([{"bank": 1, "map": 1, "blocks": [[0, 0, 0]], "secondary": {"0": "01"},
                                 "events": {"warp": {"0": "0304010203"}}}])",
                            R"([{"bank": 1, "map": 2, "blocks": [[0, 0, 1]]}, {"bank": 1, "map": 2, "blocks": [[0, 0, 7]]}])"}) {
    const test::CliResult r = Apply(patch);
    EXPECT_EQ(r.status, 0) << patch << r.err;
    EXPECT_EQ(r.out, "[]\n") << patch;
    EXPECT_EQ(Stamp(), before) << patch;
  }
  EXPECT_EQ(test::ReadFileBytes(rom), world.bytes);
}

TEST_F(ApplyCommandTest, AnInvalidPatchNamesItsFirstProblemAndChangesNothing) {
  test::WriteFileBytes(dir.File("ok.map"), {0xFF});
  const std::string valid = R"({"bank": 1, "map": 1, "blocks": [[0, 0, 9]]})";
  const struct {
    std::string patch;
    std::string message;  // after "kartova-cli: PATCH: "
  } cases[] = {
      {"[{", "line 1, column 3: syntax error"},
      {"", "line 1, column 1: syntax error while parsing value - unexpected end of input"},
      {R"({"bank": 1})", "a patch is a JSON array of map edits"},
      {"[" + valid + ", 3]", "[1]: an entry is an object"},
      {"[" + valid + R"(, {"bank": 1, "map": 1, "blox": []}])", "[1].blox: unknown key"},
      {R"([{"map": 1}])", "[0]: bank is missing"},
      {R"([{"bank": 1}])", "[0]: map is missing"},
      {R"([{"bank": 1.0, "map": 1}])", "[0].bank: bank is an integer"},
      {R"([{"bank": 27, "map": 1}])", "[0].bank: bank 27 is outside 1-26"},
      {R"([{"bank": 1, "map": 0}])", "[0].map: map 0 is outside"},
      {R"([{"bank": 1, "map": 3}])", "[0].map: map 1.3 does not exist; bank 1 has 2 maps"},
      {R"([{"bank": 2, "map": 1}])", "[0].map: map 2.1 does not exist; bank 2 has 0 maps"},
      {OnMap11(R"("blocks": [[0, 0, 1], [0, 4, 1]])"), "[0].blocks[1]: y 4 is outside map 1.1, which is 4 blocks high"},
      {OnMap11(R"("blocks": [[-1, 0, 1]])"), "[0].blocks[0]: x and y count from 0"},
      {OnMap11(R"("blocks": [[0, 0, 256]])"), "[0].blocks[0]: block 256 is outside 0-255"},
      {OnMap11(R"("blocks": [[0, 0]])"), "[0].blocks[0]: a block is [x, y, block]"},
      {OnMap11(R"("blocks": {"0": 1})"), "[0].blocks: blocks is an array"},
      {OnMap11(R"("primary": {"9": "00"})"), "[0].primary.9: the ROM's definition gives a primary header 9 bytes (0-8)"},
      {OnMap11(R"("primary": {"30": "00"})"), "[0].primary.30: primary index 30 is outside 0-29"},
      {OnMap11(R"("primary": {"07": "00"})"), "[0].primary.07: an index is a decimal number"},
      {OnMap11(R"("primary": {"x": "00"})"), "[0].primary.x: an index is a decimal number"},
      {OnMap11(R"("secondary": {"60": "00"})"), "[0].secondary.60: secondary index 60 is outside 0-59"},
      {OnMap11(R"("secondary": {"1": "0G"})"), "[0].secondary.1: a byte is two hex digits"},
      {OnMap11(R"("secondary": {"1": "100"})"), "[0].secondary.1: a byte is two hex digits"},
      {OnMap11(R"("secondary": {"1": 16})"), "[0].secondary.1: a byte is two hex digits"},
      {OnMap11(R"("events": {"warps": {}})"), "[0].events.warps: unknown event kind"},
      {OnMap11(R"("events": {"warp": ["0102030405"]})"), "[0].events.warp: warp is an object"},
      {OnMap11(R"("events": {"warp": {"0": "01020304"}})"), "[0].events.warp.0: a warp record is 10 hex digits"},
      {OnMap11(R"("events": {"people": {"0": "00"}})"), "[0].events.people.0: a people record is 26 hex digits"},
      {OnMap11(R"("events": {"warp": {"2": "0102030405"}})"), "[0].events.warp.2: map 1.1 has 2 warp records (0-1)"},
      {OnMap11(R"("events": {"trigger": {"0": "0102030405060708"}})"), "[0].events.trigger.0: map 1.1 has 0 trigger records"},
      {"[" + valid + R"(, {"bank": 1, "map": 1, "import": "missing.map"}])",
       "[1].import: cannot read " + dir.File("missing.map") + ": No such file or directory"},
      {OnMap11(R"("import": ".")"), "[0].import: cannot read " + dir.path().string() + "/.: Is a directory"},
  };
  const auto before = Stamp();
  for (const auto& c : cases) {
    const test::CliResult r = Apply(c.patch);
    EXPECT_EQ(r.status, 2) << c.patch;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err.find("kartova-cli: " + patch_file + ": " + c.message), 0u) << r.err;
    EXPECT_EQ(Stamp(), before) << c.patch;
  }
  EXPECT_EQ(test::ReadFileBytes(rom), world.bytes);
  // The import path is taken from the patch's directory, not the working directory.
  EXPECT_EQ(Apply(OnMap11(R"("import": "ok.map")")).status, 0);
}

TEST_F(ApplyCommandTest, ExitStatusesOfUsageAndFileErrors) {
  test::WriteFileText(patch_file, OnMap11(R"("blocks": [[0, 0, 9]])"));
  for (const auto& args : std::vector<std::vector<std::string>>{
           {"apply", rom}, {"apply", rom, patch_file, "extra"}, {"apply", rom, patch_file, "--dry-run=1"},
           {"apply", rom, patch_file, "--time", "2"}}) {
    const test::CliResult r = test::RunCli(args);
    EXPECT_EQ(r.status, 2) << r.err;
    EXPECT_NE(r.err.find("Usage: kartova-cli [--ini FILE] apply ROM PATCH.json [--dry-run]"), std::string::npos);
  }
  test::CliResult r = Run({"apply", rom, dir.File("none.json")});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: could not read " + dir.File("none.json") + ": No such file or directory\n");
  r = Run({"apply", dir.File("none.gbc"), patch_file});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: Datei nicht gefunden: " + dir.File("none.gbc") + "\n");

  std::filesystem::permissions(rom, std::filesystem::perms(0444));
  r = Run({"apply", rom, patch_file, "--dry-run"});  // a dry run only reads
  EXPECT_EQ(r.status, 0) << r.err;
  r = Run({"apply", rom, patch_file});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "kartova-cli: could not write " + rom + ": Die Datei ist schreibgeschützt.\nkartova-cli: " + rom +
                       " was not changed\n");
  EXPECT_EQ(test::ReadFileBytes(rom), world.bytes);
}

// On a broken ROM the command either fails, with a message and the ROM as it was, or the runs
// it prints are exactly the difference between the file before and after: old bytes that were
// there, new bytes that are there now, no two runs touching, nothing changed outside them.
using ApplyBadInputTest = ::testing::TestWithParam<test::BadInput>;

TEST_P(ApplyBadInputTest, FailsCleanlyOrReportsExactlyWhatItWrote) {
  const test::BadInput& input = GetParam();
  const test::TempDir dir;
  const std::string rom = dir.File("rom.gbc"), ini = dir.File("def.ini"), patch = dir.File("p.json");
  test::WriteBadInput(input, rom);
  test::WriteFileText(ini, input.ini.value_or(DemoDefinitionIni()));
  test::WriteFileBytes(dir.File("in.map"), {0xFF, 0x01, 0x02, 0x03});
  test::WriteFileText(patch, R"([{"bank": 1, "map": 1, "blocks": [[0, 0, 1]], "primary": {"6": "01"}, "import": "in.map"},
                                 {"bank": 1, "map": 2, "secondary": {"0": "02"}}])");
  const Bytes before = test::ReadFileBytes(rom);
  const test::CliResult r = test::RunCli({"--ini", ini, "apply", rom, patch}, {{"ASAN_OPTIONS", "detect_leaks=0"}});
  EXPECT_TRUE(r.status >= 0 && r.status <= 2) << "status " << r.status << "\n" << r.err;
  EXPECT_EQ(r.err.find("Sanitizer"), std::string::npos) << r.err;
  EXPECT_EQ(r.err.find("runtime error:"), std::string::npos) << r.err;
  const Bytes after = test::ReadFileBytes(rom);
  if (r.status != 0) {
    EXPECT_NE(r.err, "");
    EXPECT_TRUE(before == after) << "a failed apply changed the ROM";
    return;
  }
  Bytes expected = before;
  std::int64_t end_of_last = -1;
  for (const QJsonValue& value : QJsonDocument::fromJson(QByteArray::fromStdString(r.out)).array()) {
    const QJsonObject run = value.toObject();
    const auto offset = static_cast<std::int64_t>(run["offset"].toDouble());
    const QByteArray old = QByteArray::fromHex(run["old"].toString().toLatin1());
    const QByteArray now = QByteArray::fromHex(run["new"].toString().toLatin1());
    EXPECT_GT(offset, end_of_last) << "runs out of order or touching";
    end_of_last = offset + now.size();
    ASSERT_LE(offset + old.size(), static_cast<std::int64_t>(before.size()));
    EXPECT_EQ(Bytes(old.begin(), old.end()), Bytes(before.begin() + offset, before.begin() + offset + old.size()));
    if (expected.size() < static_cast<std::size_t>(end_of_last)) expected.resize(static_cast<std::size_t>(end_of_last), 0);
    std::copy(now.begin(), now.end(), expected.begin() + offset);
  }
  EXPECT_TRUE(expected == after) << "the runs do not tell what was written";
}

INSTANTIATE_TEST_SUITE_P(BadInputControl, ApplyBadInputTest, ::testing::Values(test::IntactDemoInput()),
                         test::BadInputName);
INSTANTIATE_TEST_SUITE_P(BadInput, ApplyBadInputTest, ::testing::ValuesIn(test::BadInputs()), test::BadInputName);

}  // namespace
}  // namespace kartova
