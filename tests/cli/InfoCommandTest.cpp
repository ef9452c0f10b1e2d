#include <gtest/gtest.h>

#include <filesystem>

#include "cli/CliProcess.h"
#include "demo/RomBuilder.h"

namespace kartova {
namespace {

using test::WriteFileText;

const std::string kKartovaSection = "4B4152544F5641" + std::string(18, '0');  // "KARTOVA"

class InfoCommandTest : public test::CliTest {
 protected:
  InfoCommandTest() { Write(RomBuilder().Title("KARTOVA").Build()); }
};

TEST_F(InfoCommandTest, PrintsTheDefinitionAsJson) {
  WriteFileText(ini, "[Settings]\r\nTimeNames=Times\r\n[" + kKartovaSection + "]\r\n"
                     "HeaderLengthA=12\r\nMapNameTable=92400\r\nTilesetBase=2E00\r\n"
                     "ResName0=Flags\r\nResName1=Say \"hi\"\tback\\slash\r\n"
                     "TilesetNames=Tilesets\r\nMusicNames=Music\r\n"
                     "[Tilesets]\r\ncount=2\r\n00=Cave\r\n01=Stra\xDF" "e\r\n"
                     "[Music]\r\ncount=1\r\n00=ctl\x01\r\n[Times]\r\ncount=0\r\n");
  const test::CliResult r = Run({"info", rom});
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(r.err, "");
  // The definition comes first; keys about the map tables follow it.
  const std::string definition =
      "{\n  \"title\": \"" + kKartovaSection + "\",\n  \"headerLength\": 12,\n"
      "  \"mapNameTable\": 599040,\n  \"tilesetBase\": 11776,\n"
      "  \"extraHeaderByteNames\": [\n    \"Flags:\",\n"
      "    \"Say \\\"hi\\\"\\tback\\\\slash:\",\n    \"Res:\"\n  ],\n"
      "  \"lists\": {\n    \"TilesetNames\": [\n      \"00 - Cave\",\n"
      "      \"01 - Stra\xC3\x9F" "e\"\n    ],\n    \"AbilityNames\": [],\n"
      "    \"MusicNames\": [\n      \"00 - ctl\\u0001\"\n    ],\n    \"TimeNames\": []\n  }";
  EXPECT_EQ(r.out.substr(0, definition.size()), definition);
  EXPECT_TRUE(test::JsonOf(r).contains("mapCounts")) << "the whole output is valid JSON";
}

// The open checks themselves are the document's; info reads the title first, and neither it
// nor a map command may create the missing file.
TEST_F(InfoCommandTest, FilesThatAreNoRomAreRefusedAndNothingIsCreated) {
  const std::string missing = dir.File("new.gbc"), tiny = dir.File("tiny.gbc");
  test::WriteFileBytes(tiny, std::vector<std::uint8_t>(0x134, 0));
  for (const auto& [path, message] : {std::pair{missing, "Datei nicht gefunden: " + missing},
                                      {tiny, "Die Datei ist zu klein f\xC3\xBCr ein Rom dieses Spiels: " + tiny}}) {
    const test::CliResult r = Run({"info", path});
    EXPECT_EQ(r.status, 1) << path;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "kartova-cli: " + message + "\n");
  }
  EXPECT_EQ(Run({"map", missing, "1", "1"}).err, "kartova-cli: Datei nicht gefunden: " + missing + "\n");
  EXPECT_FALSE(std::filesystem::exists(missing));
}

TEST_F(InfoCommandTest, BadDefinitionsAndArguments) {
  WriteFileText(ini, "[" + kKartovaSection + "]\nHeaderLengthA=31\n");
  test::CliResult r = Run({"info", rom});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "kartova-cli: Laufzeitfehler '9': Index au\xC3\x9F" "erhalb des g\xC3\xBCltigen Bereichs "
                   "(while opening the ROM rom.gbc)\n");

  EXPECT_EQ(Run({"info", rom, rom}).status, 2);
  r = test::RunCli({"--ini", dir.File("absent.ini"), "info", rom});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "kartova-cli: cannot read the INI file " + dir.File("absent.ini") + ": No such file or directory\n");
}

}  // namespace
}  // namespace kartova
