#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>

#include "demo/DemoRom.h"
#include "maps/RomDocument.h"
#include "support/MemorySettings.h"
#include "support/TempDir.h"

// A save cut off at any point leaves the ROM on disk either as it was or as the save makes it,
// byte for byte, and never a mixture; nothing else is left in the folder.
namespace kartova {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

class SaveInterruptionTest : public ::testing::Test {
 protected:
  SaveInterruptionTest() {
    test::WriteFileBytes(path_, demo_.bytes);
    doc_.OpenRom(path_, test::MemorySettings());
    doc_.LoadSelectedMap(1, 0);  // the harbour, 30 x 20
  }
  // A header byte, a stroke over a whole row and an event record: every region of a full
  // save differs from the file.
  void EditEverything() {
    SecondaryHeaderBuffer secondary = doc_.Secondary();
    secondary.bytes[0] ^= 0x01;
    doc_.EditHeaders(doc_.Primary(), secondary, "Rand");
    for (int x = 0; x < doc_.Grid().MapWidth(); ++x) doc_.PaintCell(ExtendedMap::kMargin + x, ExtendedMap::kMargin, 0x21);
    doc_.EndStroke();
    std::vector<std::uint8_t> person(doc_.Events().Record(kEventPeople, 0).begin(),
                                     doc_.Events().Record(kEventPeople, 0).end());
    person[0] ^= 0x40;
    doc_.EditEventRecord(kEventPeople, 0, person, "Bild");
  }
  std::size_t FilesInFolder() const { return static_cast<std::size_t>(std::distance(fs::directory_iterator(dir_.path()), {})); }

  test::TempDir dir_;
  std::string path_ = dir_.File("demo.gbc");
  const BuiltRom demo_ = DemoRomBuilder().BuildWithLayout();
  RomDocument doc_;
};

TEST_F(SaveInterruptionTest, ASaveCutOffAtAnyStepLeavesTheOldFileAndTheNextOneTheNew) {
  EditEverything();
  Bytes expected = demo_.bytes;
  ApplyRegions(expected, doc_.SaveRegions(kReloadFull).regions);
  ASSERT_NE(expected, demo_.bytes);

  // Fail the first step, then the second, ... until a save gets through: before that the file
  // is the old one each time, afterwards the new one.
  for (int fail_at = 1;; ++fail_at) {
    SCOPED_TRACE(fail_at);
    for (int err : {ENOSPC, EIO}) {
      int step = 0;
      doc_.SetWriteFaultHook([&](WriteStep) { return ++step == fail_at ? err : 0; });
      bool saved = true;
      try {
        doc_.SaveRom(kReloadFull);
      } catch (const FileWriteError& error) {
        saved = false;
        EXPECT_FALSE(error.reason().empty());
      }
      const Bytes on_disk = test::ReadFileBytes(path_);
      EXPECT_EQ(FilesInFolder(), 1u) << "a temporary file was left behind";
      if (saved) {
        EXPECT_EQ(on_disk, expected);
        EXPECT_FALSE(doc_.IsModified());
        return;
      }
      ASSERT_EQ(on_disk, demo_.bytes);
      EXPECT_TRUE(doc_.IsModified());
    }
    ASSERT_LT(fail_at, 64) << "the save never got through";
  }
}

TEST_F(SaveInterruptionTest, PlacesThatCannotBeWrittenAreReportedAndChangeNothing) {
  EditEverything();
  struct Case {
    const char* what;
    std::function<void()> arrange;
  };
  const Case cases[] = {
      // As root the system would let a read-only folder through; its refusal comes as EACCES.
      {"read-only folder", [&] { doc_.SetWriteFaultHook([](WriteStep s) { return s == WriteStep::kCreateTemp ? EACCES : 0; }); }},
      {"read-only ROM", [&] { fs::permissions(path_, fs::perms::owner_read | fs::perms::group_read); }},
      {"ROM replaced by a folder", [&] { fs::remove(path_); fs::create_directory(path_); }},
      {"folder vanished", [&] { fs::remove_all(dir_.path()); }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    test::WriteFileBytes(path_, demo_.bytes);
    doc_.SetWriteFaultHook({});
    c.arrange();
    EXPECT_THROW(doc_.SaveRom(kReloadFull), FileWriteError);
    EXPECT_TRUE(doc_.IsModified());
    std::error_code ec;
    if (fs::is_regular_file(path_, ec)) EXPECT_EQ(test::ReadFileBytes(path_), demo_.bytes);
    // Put the place back for the next case.
    if (fs::is_directory(path_, ec)) fs::remove(path_);
    fs::create_directories(dir_.path());
    if (fs::exists(path_)) fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write);
  }
}

TEST_F(SaveInterruptionTest, ChangesMadeOnDiskByAnotherProgramOutsideTheMapStay) {
  EditEverything();
  // Another program writes into a place far from this map while the editor has it open.
  EXPECT_FALSE(doc_.ChangedOnDisk());
  Bytes theirs = demo_.bytes;
  theirs[0x1F0000] = 0xAB;
  test::WriteFileBytes(path_, theirs);
  fs::last_write_time(path_, fs::last_write_time(path_) + std::chrono::seconds(2));
  EXPECT_TRUE(doc_.ChangedOnDisk()) << "the editor asks before it saves over such a file";
  doc_.SaveRom(kReloadFull);
  EXPECT_FALSE(doc_.ChangedOnDisk());
  Bytes expected = theirs;
  ApplyRegions(expected, doc_.SaveRegions(kReloadFull).regions);
  EXPECT_EQ(test::ReadFileBytes(path_), expected);
}

}  // namespace
}  // namespace kartova

namespace kartova {
namespace {

// Found by fuzzing the saves: a map 0 blocks wide whose rows point past the end of the file
// has nothing to write there, and the file keeps its length.
TEST(SaveRegionsTest, AMapWithoutRowsWritesNothingPastTheEnd) {
  test::TempDir dir;
  const BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  Bytes bytes = demo.bytes;
  const auto secondary = static_cast<std::size_t>(demo.layout.Map(1, 1).secondary_header);
  bytes[secondary + 2] = 0;     // width
  bytes[secondary + 3] = 0xFF;  // rows in bank 0xFF, far past the end
  const std::string path = dir.File("rom.gbc");
  test::WriteFileBytes(path, bytes);
  RomDocument doc;
  doc.OpenRom(path, test::MemorySettings());
  try {
    doc.LoadSelectedMap(0, 0);
  } catch (const RuntimeError&) {
    // the neighbours' strips no longer fit a map of no width; the map itself is loaded
  }
  ASSERT_TRUE(doc.MapLoaded());
  doc.SaveRom(kReloadMapOnly);
  EXPECT_EQ(test::ReadFileBytes(path), bytes);
}

}  // namespace
}  // namespace kartova
