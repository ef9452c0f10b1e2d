#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <filesystem>

#include "cli/CliProcess.h"
#include "cli/DecodedPng.h"
#include "demo/DemoRom.h"
#include "rom/HexText.h"

namespace kartova {
namespace {

namespace fs = std::filesystem;

// The demo's maps per map bank: 1.1-1.6, 2.1-2.5, 3.1-3.2.
constexpr int kDemoMapCounts[] = {6, 5, 2};
constexpr int kDemoMaps = 13;

class RenderAllCommandTest : public test::CliTest {
 protected:
  RenderAllCommandTest() { Write(BuildDemoRom(), DemoDefinitionIni()); }
  static QJsonArray Index(const std::string& dir) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(test::ReadFileText(dir + "/index.json"))).array();
  }
  // Every file of a directory by name, with its bytes.
  static std::map<std::string, std::string> Files(const std::string& dir) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(dir))
      files[entry.path().filename().string()] = test::ReadFileText(entry.path().string());
    return files;
  }
};

TEST_F(RenderAllCommandTest, RendersEveryMapAsRenderDoesAndIndexesThem) {
  const std::string out = dir.File("atlas/deep/er");  // the parents are made too
  test::CliResult r = Run({"render-all", rom, out, "--time", "2"});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "");  // no progress line: standard error is no terminal here

  const QJsonArray index = Index(out);
  ASSERT_EQ(index.size(), kDemoMaps);
  EXPECT_EQ(Files(out).size(), kDemoMaps + 1u);
  int i = 0;
  for (int bank = 1; bank <= 3; ++bank) {
    for (int map = 1; map <= kDemoMapCounts[bank - 1]; ++map, ++i) {
      const std::string id = std::to_string(bank) + "-" + std::to_string(map);
      SCOPED_TRACE(id);
      const QJsonObject entry = index[i].toObject();
      EXPECT_EQ(entry.keys().size(), 6);
      EXPECT_EQ(entry["bank"].toInt(), bank);
      EXPECT_EQ(entry["map"].toInt(), map);
      EXPECT_EQ(entry["file"].toString().toStdString(), id + ".png");

      const std::string single = dir.File(id + ".png");
      const std::vector<std::string> args = {"render", rom, std::to_string(bank), std::to_string(map), single, "--time=2"};
      ASSERT_EQ(Run(args).status, 0);
      const test::DecodedPng expected = test::ReadPng(single);
      const test::DecodedPng got = test::ReadPng(out + "/" + id + ".png");
      ASSERT_TRUE(got.ok) << got.error;
      EXPECT_EQ(got.width, static_cast<std::uint32_t>(entry["width"].toInt() + 6) * 32);
      EXPECT_EQ(got.height, static_cast<std::uint32_t>(entry["height"].toInt() + 6) * 32);
      EXPECT_EQ(got.pixels, expected.pixels);
      EXPECT_EQ(got.palette, expected.palette);
    }
  }
  // The names are the map list's, without the " - BANK.MAP" behind them.
  EXPECT_EQ(index[0].toObject()["name"].toString(), QString::fromUtf8("Mühlental"));
  EXPECT_EQ(index[6].toObject()["name"].toString(), "Nord Hafen-Stadt");
  EXPECT_EQ(index[6].toObject()["width"].toInt(), 30);
  EXPECT_EQ(index[6].toObject()["height"].toInt(), 20);
}

TEST_F(RenderAllCommandTest, TheNumberOfThreadsChangesNoByte) {
  const std::string one = dir.File("one"), two = dir.File("two");
  ASSERT_EQ(Run({"render-all", "--zoom", "2", rom, one, "--jobs", "1"}).status, 0);
  ASSERT_EQ(Run({"render-all", "--jobs=2", "--zoom=2", rom, two}).status, 0);
  const auto first = Files(one), second = Files(two);
  ASSERT_EQ(first.size(), kDemoMaps + 1u);
  for (const auto& [name, bytes] : first) EXPECT_TRUE(second.at(name) == bytes) << name;
  EXPECT_EQ(test::ReadPng(one + "/2-1.png").width, 36u * 64);

  // Into a directory that holds pictures already: they are replaced whole.
  test::WriteFileText(two + "/1-1.png", std::string(5'000'000, 'x'));
  ASSERT_EQ(Run({"render-all", rom, two, "--jobs", "2", "--zoom", "2"}).status, 0);
  EXPECT_TRUE(Files(two) == first);
}

TEST_F(RenderAllCommandTest, AMapThatFailsIsListedWithItsErrorAndTheOthersAreRendered) {
  // Map 3.3: a south neighbour strip that would lie outside the grid.
  RomBuilder b = DemoRomBuilder();
  const std::array<std::uint8_t, 12> south = {3, 1, 0x00, 0x40, 0x00, 0xC9, 3, 3, 0, 0, 0, 0};
  b.Map(3, {.tileset = 4, .width = 2, .height = 2, .blocks = {1, 1, 1, 1},
            .connections = {{.direction = Direction::kSouth, .target = {3, 1}, .raw = south}}});
  const BuiltRom built = b.BuildWithLayout();
  test::WriteFileBytes(rom, built.bytes);
  // And 1.1 cannot be written: a directory stands where its picture goes.
  const std::string out = dir.File("out");
  fs::create_directories(out + "/1-1.png");

  const test::CliResult r = Run({"render-all", rom, out});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: map 1.1: could not write " + out + "/1-1.png: Is a directory\n"
                   "kartova-cli: map 3.3: Laufzeitfehler '9': Index au\xC3\x9F" "erhalb des g\xC3\xBC"
                   "ltigen Bereichs (while building the map from rom.gbc, block data at 0x" +
                       Hex6(built.layout.Map(3, 3).blocks) + ")\n");
  const QJsonArray index = Index(out);
  ASSERT_EQ(index.size(), kDemoMaps + 1);
  const QJsonObject failed = index[kDemoMaps].toObject();
  EXPECT_EQ(failed["bank"].toInt(), 3);
  EXPECT_EQ(failed["map"].toInt(), 3);
  EXPECT_EQ(failed["width"].toInt(), 2);
  EXPECT_FALSE(failed.contains("file"));
  EXPECT_EQ(failed["error"].toString().left(17), "Laufzeitfehler '9");
  EXPECT_FALSE(fs::exists(out + "/3-3.png"));
  EXPECT_TRUE(index[0].toObject()["error"].toString().endsWith("Is a directory"));
  for (int i = 1; i < kDemoMaps; ++i) {
    const QJsonObject entry = index[i].toObject();
    EXPECT_FALSE(entry.contains("error")) << i;
    EXPECT_TRUE(test::ReadPng(out + "/" + entry["file"].toString().toStdString()).ok) << i;
  }
}

TEST_F(RenderAllCommandTest, WrongOutputDirectoriesAndUsage) {
  const std::string file = dir.File("plain.txt");
  test::WriteFileText(file, "x");
  test::CliResult r = Run({"render-all", rom, file});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: " + file + " is not a directory\n");
  r = Run({"render-all", rom, file + "/below"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: cannot create the directory " + file + "/below: Not a directory\n");

  // A ROM that cannot be opened leaves no directory behind.
  r = Run({"render-all", dir.File("none.gbc"), dir.File("new")});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: Datei nicht gefunden: " + dir.File("none.gbc") + "\n");
  EXPECT_FALSE(fs::exists(dir.File("new")));

  for (const std::vector<std::string>& bad :
       {std::vector<std::string>{"render-all", rom}, {"render-all", rom, "a", "b"},
        {"render-all", rom, "a", "--jobs", "0"}, {"render-all", rom, "a", "--jobs", "257"},
        {"render-all", rom, "a", "--zoom", "3"}, {"render-all", rom, "a", "--time", "9"},
        {"render-all", rom, "a", "--jobs"}, {"render-all", rom, "a", "--frames", "2"}}) {
    r = Run(bad);
    EXPECT_EQ(r.status, 2) << bad.back();
    EXPECT_NE(r.err.find("Usage: kartova-cli [--ini FILE] render-all ROM OUTDIR"), std::string::npos);
  }
  EXPECT_FALSE(fs::exists("a"));
}

#if defined(__linux__)
// On a pseudo terminal (made by script(1)) progress lines appear; on a pipe there are none, as
// the first test shows.
TEST_F(RenderAllCommandTest, ShowsProgressOnATerminal) {
  const std::string command = "'" KARTOVA_CLI_PATH "' --ini '" + ini + "' render-all '" + rom + "' '" +
                              dir.File("out") + "' --jobs 2";
  const test::CliResult r = test::RunCli({"-qec", command, "/dev/null"}, {}, "script");
  ASSERT_EQ(r.status, 0) << r.out;
  EXPECT_NE(r.out.find("\r  1/13 maps"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\r  13/13 maps"), std::string::npos) << r.out;
  EXPECT_EQ(r.out.find("14/"), std::string::npos) << r.out;
}
#endif

}  // namespace
}  // namespace kartova
