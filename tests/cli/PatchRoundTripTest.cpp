// apply and diff together: a patch applied and then compared with the original lists exactly
// the patched parts, and the patch diff writes for the two files turns a fresh copy of the
// original into the same bytes.

#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <filesystem>

#include "cli/CliProcess.h"
#include "demo/DemoRom.h"
#include "demo/RomBuilder.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

QJsonDocument Parsed(const std::string& json) { return QJsonDocument::fromJson(QByteArray::fromStdString(json)); }
std::string Keys(const QJsonObject& object) { return object.keys().join(',').toStdString(); }

class PatchRoundTripTest : public test::CliTest {
 protected:
  // A copy of the original ROM under name.
  std::string Copy(const std::string& name) const {
    const std::string path = dir.File(name);
    std::filesystem::copy_file(rom, path, std::filesystem::copy_options::overwrite_existing);
    return path;
  }
  test::CliResult ApplyTo(const std::string& target, const std::string& patch_text, bool dry_run = false) {
    const std::string patch = dir.File("patch.json");
    test::WriteFileText(patch, patch_text);
    std::vector<std::string> args = {"apply", target, patch};
    if (dry_run) args.push_back("--dry-run");
    return Run(args);
  }

  // Applies patch to a copy, checks that a dry run on another copy reports the same runs and
  // writes nothing, and that diff's own patch for the two files gives the same bytes again.
  // Returns diff's JSON of original against patched.
  QJsonObject RoundTrip(const std::string& patch) {
    const std::string patched = Copy("patched.gbc"), dry = Copy("dry.gbc"), again = Copy("again.gbc");
    const test::CliResult applied = ApplyTo(patched, patch);
    EXPECT_EQ(applied.status, 0) << applied.err;
    EXPECT_NE(applied.out, "[]\n");
    const test::CliResult tried = ApplyTo(dry, patch, true);
    EXPECT_EQ(tried.status, 0) << tried.err;
    EXPECT_EQ(tried.out, applied.out);
    EXPECT_EQ(test::ReadFileBytes(dry), test::ReadFileBytes(rom));

    const test::CliResult diff_patch = Run({"diff", rom, patched, "--patch"});
    EXPECT_EQ(diff_patch.status, 1) << diff_patch.err;
    EXPECT_EQ(diff_patch.err, "");  // nothing the patch could not express
    const test::CliResult reapplied = ApplyTo(again, diff_patch.out);
    EXPECT_EQ(reapplied.status, 0) << reapplied.err;
    EXPECT_EQ(reapplied.out, applied.out);
    EXPECT_EQ(test::ReadFileBytes(again), test::ReadFileBytes(patched));

    const test::CliResult diff = Run({"diff", rom, patched});
    EXPECT_EQ(diff.status, 1) << diff.err;
    return Parsed(diff.out).object();
  }
};

TEST_F(PatchRoundTripTest, OnTheDemoRom) {
  Write(BuildDemoRom(), DemoDefinitionIni());
  const QJsonObject before = Parsed(Run({"map", rom, "2", "1"}).out).object();
  const QString warp = before["events"].toObject()["warp"].toArray()[1].toString();
  ASSERT_EQ(warp.size(), 10);
  const QString new_warp = warp.left(8) + (warp.right(2) == QStringLiteral("07") ? "08" : "07");

  const QJsonObject diff = RoundTrip(R"([{"bank": 2, "map": 1, "blocks": [[0, 0, 200], [29, 19, 201]],
      "primary": {"6": "0A"}, "events": {"warp": {"1": ")" + new_warp.toStdString() + R"("}}}])");

  EXPECT_EQ(diff["other"].toArray().size(), 0);
  const QJsonArray maps = diff["maps"].toArray();
  ASSERT_EQ(maps.size(), 1);
  const QJsonObject map = maps[0].toObject();
  EXPECT_EQ(Keys(map), "bank,blocks,events,map,name,primary");
  EXPECT_EQ(map["bank"].toInt() * 10 + map["map"].toInt(), 21);
  EXPECT_EQ(Keys(map["primary"].toObject()), "6");
  EXPECT_EQ(map["primary"].toObject()["6"].toArray()[1].toString().toStdString(), "0A");
  const QJsonArray blocks = map["blocks"].toArray();
  ASSERT_EQ(blocks.size(), 2);
  EXPECT_EQ(blocks[0].toArray()[3].toInt(), 200);
  EXPECT_EQ(blocks[1].toArray()[0].toInt() * 100 + blocks[1].toArray()[1].toInt(), 2919);
  const QJsonObject warps = map["events"].toObject()["warp"].toObject();
  EXPECT_EQ(Keys(warps), "1");
  EXPECT_EQ(warps["1"].toArray()[1].toString(), new_warp);
}

TEST_F(PatchRoundTripTest, OnABuilderRomWithSeveralMapsAndAnImport) {
  MapDecl first{.width = 4, .height = 3, .blocks = Bytes(12, 1), .people = {{.picture = 5}}};
  MapDecl second{.width = 3, .height = 2, .blocks = Bytes(6, 2)};
  Write(RomBuilder().Map(1, first).Map(1, second).Map(2, second).Build());
  test::WriteFileBytes(dir.File("rows.map"), Bytes{0xFF, 9, 8, 7, 6, 5, 4});

  const QJsonObject diff = RoundTrip(R"([
      {"bank": 2, "map": 1, "secondary": {"0": "33"}},
      {"bank": 1, "map": 1, "blocks": [[3, 2, 17]]},
      {"bank": 1, "map": 2, "import": "rows.map"}])");

  const QJsonArray maps = diff["maps"].toArray();
  ASSERT_EQ(maps.size(), 3);
  // In map order, with only what differs.
  EXPECT_EQ(Keys(maps[0].toObject()), "bank,blocks,map,name");
  EXPECT_EQ(maps[0].toObject()["blocks"].toArray().size(), 1);
  EXPECT_EQ(Keys(maps[1].toObject()), "bank,blocks,map,name");
  EXPECT_EQ(maps[1].toObject()["blocks"].toArray().size(), 6);
  EXPECT_EQ(Keys(maps[2].toObject()), "bank,map,name,secondary");
  EXPECT_EQ(Keys(maps[2].toObject()["secondary"].toObject()), "0");
}

}  // namespace
}  // namespace kartova
