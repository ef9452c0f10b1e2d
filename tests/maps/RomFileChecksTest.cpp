#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "demo/RomBuilder.h"
#include "maps/RomDocument.h"
#include "rom/RuntimeError.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A proper ROM is open with a map loaded; every path refused must leave all of it current.
class RomFileChecksTest : public ::testing::Test {
 protected:
  RomFileChecksTest() {
    MapDecl map;
    map.location = 1;
    map.width = 4;
    test::WriteFileBytes(rom, RomBuilder().Map(1, map).Map(1, map).LocationName(1, "SEEDORF").Build());
    doc.OpenRom(rom, settings);
    doc.LoadSelectedMap(0, 1);
  }

  void ExpectPreviousRomKept() const {
    EXPECT_EQ(doc.RomPath(), rom);
    EXPECT_EQ(doc.MapCountPerBank()[0], 2);
    EXPECT_EQ(doc.MapNames()[1], "Seedorf");
    EXPECT_EQ(doc.SelectedMap(), 1);
    EXPECT_EQ(doc.MapWidth(), 4);
  }

  test::TempDir dir;
  std::string rom = dir.File("welt.gbc");
  test::MemorySettings settings;
  RomDocument doc;
};

TEST_F(RomFileChecksTest, PathsThatHoldNoRomAreRefusedBeforeAnythingIsRead) {
  const struct {
    const char* name;
    std::function<void(const std::string&)> make;
    std::string message;
  } cases[] = {
      {"fehlt.gbc", [](const std::string&) {}, "Datei nicht gefunden: "},
      {"ordner.gbc", [](const std::string& p) { std::filesystem::create_directory(p); }, "Ist ein Verzeichnis: "},
      {"leer.gbc", [](const std::string& p) { test::WriteFileBytes(p, {}); },
       "Die Datei ist zu klein für ein Rom dieses Spiels: "},
      // One byte short: the high byte of the last group pointer is missing.
      {"knapp.gbc", [](const std::string& p) { test::WriteFileBytes(p, Bytes(kSmallestRomSize - 1, 0)); },
       "Die Datei ist zu klein für ein Rom dieses Spiels: "},
      {"rohr.gbc", [](const std::string& p) { ASSERT_EQ(mkfifo(p.c_str(), 0600), 0); }, "Keine gewöhnliche Datei: "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string path = dir.File(c.name);
    c.make(path);
    const auto type_before = std::filesystem::symlink_status(path).type();
    try {
      doc.OpenRom(path, settings);
      ADD_FAILURE() << "opened";
    } catch (const RomOpenError& error) {
      EXPECT_EQ(error.GermanMessage(), c.message + path);
      EXPECT_EQ(error.path(), path);
    }
    EXPECT_EQ(std::filesystem::symlink_status(path).type(), type_before);  // nothing created or changed
    ExpectPreviousRomKept();
  }
  EXPECT_FALSE(std::filesystem::exists(dir.File("fehlt.gbc")));
}

TEST_F(RomFileChecksTest, AnUnreadableFileIsRefusedWithTheSystemsReason) {
  if (geteuid() == 0) GTEST_SKIP() << "root reads every file";
  const std::string path = dir.File("gesperrt.gbc");
  test::WriteFileBytes(path, Bytes(kSmallestRomSize, 0));
  std::filesystem::permissions(path, std::filesystem::perms::none);
  try {
    doc.OpenRom(path, settings);
    ADD_FAILURE() << "opened";
  } catch (const RomOpenError& error) {
    EXPECT_EQ(error.GermanMessage(), "Die Datei kann nicht gelesen werden: " + path + " (Permission denied)");
  }
  ExpectPreviousRomKept();
}

TEST_F(RomFileChecksTest, AFileJustLargeEnoughForTheTableOpens) {
  Bytes bytes(kSmallestRomSize, 0);
  bytes.back() = 0x12;  // the high byte of the last group pointer
  const std::string path = dir.File("genau.gbc");
  test::WriteFileBytes(path, bytes);
  doc.OpenRom(path, settings);
  EXPECT_EQ(doc.RomPath(), path);
  EXPECT_EQ(doc.GroupPointers()[25], 0x1200);
  EXPECT_EQ(doc.MapCountPerBank(), MapCounts{});
  EXPECT_EQ(doc.MapNames()[94], "");
  EXPECT_FALSE(doc.MapLoaded());
  doc.LoadSelectedMap(0, 0);  // a bank without maps: zeros to read
  EXPECT_EQ(doc.Primary().bytes, PrimaryHeaderBuffer{}.bytes);
}

// Refused only later, by its definition or by the count of a bank's maps.
TEST_F(RomFileChecksTest, ARomWhoseDefinitionOrCountFailsIsRefused) {
  const PrimaryHeaderBuffer primary = doc.Primary();
  const std::string other = dir.File("other.gbc");
  test::WriteFileBytes(other, RomBuilder().Map(5, {}).Build());
  settings.Set("Settings", "HeaderLengthA", "31");
  EXPECT_THROW(doc.OpenRom(other, settings), RuntimeError);
  settings.Set("Settings", "HeaderLengthA", "9");
  Bytes crowded(0x98000, 0);  // every bank's list holds 300 maps: the count overflows
  for (int b = 0; b < kMapBankCount; ++b) crowded[0x940EE + 2 * b] = 0x60;
  for (int i = 0; i < 300; ++i) crowded[0x96000 + 9 * i + 4] = 0x40;
  test::WriteFileBytes(other, crowded);
  EXPECT_THROW(doc.OpenRom(other, settings), RuntimeError);
  ExpectPreviousRomKept();
  EXPECT_EQ(doc.HeaderLength(), 9);
  EXPECT_EQ(doc.Primary().bytes, primary.bytes);
}

TEST_F(RomFileChecksTest, NamesWithoutTerminatorsAreReadOnceOrOverflowAtOnce) {
  // 2 MiB of zeros: every name runs from the table's bank to the end of the file. The stretch
  // is searched once for all 95 names, in blocks; name by name it would be read 95 times.
  const std::string zeros = dir.File("nullen.gbc");
  test::WriteFileBytes(zeros, Bytes(0x200000, 0));
  doc.OpenRom(zeros, settings);
  EXPECT_EQ(doc.MapNames(), LocationNames{});
  EXPECT_LT(doc.LastSystemReads(), 64);

  // Every byte a glyph and no terminator: the first name overflows.
  const std::string nines = dir.File("neunen.gbc");
  test::WriteFileBytes(nines, Bytes(0x200000, 0xFF));
  doc.OpenRom(rom, settings);
  doc.LoadSelectedMap(0, 1);
  try {
    doc.OpenRom(nines, settings);
    ADD_FAILURE() << "opened";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), RuntimeError::kOverflow);
  }
  ExpectPreviousRomKept();
}

TEST_F(RomFileChecksTest, AVanishedRomIsNotCreatedByLaterReads) {
  std::filesystem::remove(rom);
  doc.FillMapList(0);
  doc.LoadSelectedMap(0, 0);
  doc.SetTimeOfDay(2, 0);
  EXPECT_FALSE(std::filesystem::exists(rom));
}

}  // namespace
}  // namespace kartova
