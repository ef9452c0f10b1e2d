#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>

#include "rom/SafeFileWriter.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

Bytes Pattern(std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 + (i >> 8));
  return bytes;
}

mode_t ModeOf(const std::string& path) {
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0 ? st.st_mode & 07777 : 0;
}

using Folder = std::map<std::string, Bytes>;

// Every name in the folder with its bytes: a save leaves nothing else behind, a failed one
// changes nothing.
Folder Snapshot(const fs::path& dir) {
  Folder files;
  for (const auto& entry : fs::directory_iterator(dir))
    files[entry.path().filename().string()] = fs::is_regular_file(entry.symlink_status())
                                                  ? test::ReadFileBytes(entry.path().string())
                                                  : Bytes{};
  return files;
}

FileWriteError ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const FileWriteError& e) {
    return e;
  }
  ADD_FAILURE() << "no FileWriteError";
  return FileWriteError("", "");
}

SafeWriteOptions Options(bool create_if_missing, const std::string& source = "") {
  SafeWriteOptions options;
  options.source = source;
  options.create_if_missing = create_if_missing;
  return options;
}

class SafeFileWriterTest : public ::testing::Test {
 protected:
  std::string Rom(const Bytes& bytes, mode_t mode = 0644, const std::string& name = "rom.gbc") {
    test::WriteFileBytes(dir_.File(name), bytes);
    ::chmod(dir_.File(name).c_str(), mode);
    return dir_.File(name);
  }
  test::TempDir dir_;
};

TEST_F(SafeFileWriterTest, PutsTheRegionsInAndKeepsEveryOtherByte) {
  const std::string rom = Rom(Pattern(0x8000));
  WriteRegionsSafely(rom, {{0x134, {0x41, 0x42}}, {0x4000, Bytes(0x100, 0x5A)}, {0x7FFF, {0xEE}}});
  Bytes expected = Pattern(0x8000);
  expected[0x134] = 0x41;
  expected[0x135] = 0x42;
  std::fill_n(expected.begin() + 0x4000, 0x100, 0x5A);
  expected[0x7FFF] = 0xEE;
  EXPECT_EQ(Snapshot(dir_.path()), (Folder{{"rom.gbc", expected}}));

  WriteRegionsSafely(rom, {{0x8004, {7, 8}}});
  expected.insert(expected.end(), {0, 0, 0, 0, 7, 8});
  EXPECT_EQ(test::ReadFileBytes(rom), expected);
}

TEST_F(SafeFileWriterTest, SaveAsBuildsTheCopyFromTheSourceAndLeavesTheSourceAlone) {
  const std::string rom = Rom(Pattern(64), 0440);
  const std::string copy = dir_.File("copy.gbc");
  WriteRegionsSafely(copy, {{2, {0xAA}}}, Options(true, rom));
  Bytes expected = Pattern(64);
  expected[2] = 0xAA;
  EXPECT_EQ(test::ReadFileBytes(copy), expected);
  EXPECT_EQ(ModeOf(copy), 0640u);  // the source's permissions, writable for the owner
  EXPECT_EQ(test::ReadFileBytes(rom), Pattern(64));

  // An existing target takes the source's bytes but keeps its own permissions.
  ::chmod(copy.c_str(), 0600);
  WriteRegionsSafely(copy, {}, Options(false, rom));
  EXPECT_EQ(test::ReadFileBytes(copy), Pattern(64));
  EXPECT_EQ(ModeOf(copy), 0600u);
}

TEST_F(SafeFileWriterTest, CreatesAMissingFileFromNothingUnderTheUmask) {
  const mode_t saved = ::umask(027);
  WriteRegionsSafely(dir_.File("new.gbc"), {{3, {9}}}, Options(true));
  ::umask(saved);
  EXPECT_EQ(test::ReadFileBytes(dir_.File("new.gbc")), (Bytes{0, 0, 0, 9}));
  EXPECT_EQ(ModeOf(dir_.File("new.gbc")), 0640u);
}

TEST_F(SafeFileWriterTest, KeepsThePermissionsOfTheReplacedFile) {
  for (mode_t mode : {0640, 0600, 0755, 0664}) {
    const std::string rom = Rom(Pattern(32), mode);
    WriteRegionsSafely(rom, {{0, {1}}});
    EXPECT_EQ(ModeOf(rom), mode);
  }
}

TEST_F(SafeFileWriterTest, ReplacesTheFileALinkNamesAndKeepsTheLinks) {
  const std::string rom = Rom(Pattern(8));
  fs::create_directory(dir_.path() / "links");
  fs::create_symlink("../rom.gbc", dir_.path() / "links" / "mid");  // relative to its own folder
  fs::create_symlink(dir_.path() / "links" / "mid", dir_.path() / "top");
  WriteRegionsSafely(dir_.File("top"), {{0, {0xFF}}});
  EXPECT_TRUE(fs::is_symlink(dir_.path() / "top"));
  EXPECT_TRUE(fs::is_symlink(dir_.path() / "links" / "mid"));
  EXPECT_EQ(test::ReadFileBytes(rom)[0], 0xFF);
  EXPECT_EQ(Snapshot(dir_.path()).size(), 3u);
}

TEST_F(SafeFileWriterTest, RefusesWhatItMustNotWriteAndChangesNothing) {
  Rom(Pattern(16));
  Rom(Pattern(16), 0444, "read-only.gbc");
  fs::create_directory(dir_.path() / "folder");
  ::mkfifo(dir_.File("pipe").c_str(), 0644);
  fs::create_symlink("loop", dir_.path() / "loop");
  // The folder the ROM was opened from is gone by the time it is saved.
  fs::create_directory(dir_.path() / "sub");
  Rom(Pattern(8), 0644, "sub/rom.gbc");
  fs::remove_all(dir_.path() / "sub");
  const struct {
    std::string target;
    SafeWriteOptions options;
    std::string reason;
    std::int64_t offset = 4;
  } cases[] = {
      {"gone.gbc", Options(false), std::strerror(ENOENT)},
      {"new.gbc", Options(true, dir_.File("gone.gbc")), std::strerror(ENOENT)},
      {"folder", Options(true), std::strerror(EISDIR)},
      {"read-only.gbc", Options(true), "schreibgeschützt"},
      {"pipe", Options(false), "keine gewöhnliche Datei"},
      {"loop", Options(true), std::strerror(ELOOP)},
      {"sub/rom.gbc", Options(false), std::strerror(ENOENT)},
      {"sub/rom.gbc", Options(true), std::strerror(ENOENT)},
      {"rom.gbc", Options(false), std::strerror(EFBIG), INT64_MAX - 1},
  };
  const Folder before = Snapshot(dir_.path());
  for (const auto& c : cases) {
    SCOPED_TRACE(c.target);
    const std::string target = dir_.File(c.target);
    const FileWriteError e = ErrorOf([&] {
      WriteRegionsSafely(target, {{c.offset, {1, 2}}}, c.options);
    });
    EXPECT_NE(e.reason().find(c.reason), std::string::npos) << e.reason();
    EXPECT_EQ(e.path(), c.options.source.empty() ? target : c.options.source);
    EXPECT_EQ(Snapshot(dir_.path()), before);
  }
}

TEST_F(SafeFileWriterTest, AFaultAtAnyStepLeavesTheRomAsItWas) {
  const Bytes original = Pattern((std::size_t{5} << 20) / 2);  // three pieces to write
  const std::string rom = Rom(original, 0640);
  const Folder before = Snapshot(dir_.path());
  const struct {
    WriteStep step;
    int occurrence;
  } faults[] = {{WriteStep::kReadSource, 1}, {WriteStep::kCreateTemp, 1}, {WriteStep::kWrite, 1},
                {WriteStep::kWrite, 3},      {WriteStep::kSync, 1},       {WriteStep::kRename, 1}};
  for (const auto& fault : faults) {
    for (int err : {ENOSPC, EIO}) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(fault.step) << "#" << fault.occurrence
                                      << " " << std::strerror(err));
      int seen = 0;
      SafeWriteOptions options;
      options.fault_hook = [&](WriteStep s) {
        return s == fault.step && ++seen == fault.occurrence ? err : 0;
      };
      const FileWriteError e = ErrorOf([&] { WriteRegionsSafely(rom, {{0, {0}}}, options); });
      EXPECT_EQ(e.reason(), std::strerror(err));
      EXPECT_EQ(e.path(), rom);
      EXPECT_EQ(Snapshot(dir_.path()), before);
      EXPECT_EQ(ModeOf(rom), 0640u);
    }
  }
  std::vector<WriteStep> steps;
  SafeWriteOptions options;
  options.fault_hook = [&](WriteStep s) { return steps.push_back(s), 0; };
  WriteRegionsSafely(rom, {{0, {0}}}, options);
  EXPECT_EQ(steps, (std::vector<WriteStep>{WriteStep::kReadSource, WriteStep::kCreateTemp,
                                           WriteStep::kWrite, WriteStep::kWrite, WriteStep::kWrite,
                                           WriteStep::kSync, WriteStep::kRename}));
}

TEST_F(SafeFileWriterTest, ReadWholeFileReadsEverythingOrSaysWhy) {
  const Bytes bytes = Pattern((std::size_t{1} << 20) + 5);
  EXPECT_EQ(ReadWholeFile(Rom(bytes)), bytes);
  EXPECT_EQ(ReadWholeFile(Rom({}, 0644, "empty.gbc")), Bytes{});
  ::mkfifo(dir_.File("pipe").c_str(), 0644);
  const std::pair<std::string, std::string> failures[] = {
      {dir_.File("gone.gbc"), std::strerror(ENOENT)},
      {dir_.path().string(), std::strerror(EISDIR)},
      {dir_.File("pipe"), "keine gewöhnliche Datei"}};
  for (const auto& [path, reason] : failures) {
    const FileWriteError e = ErrorOf([&] { ReadWholeFile(path); });
    EXPECT_EQ(e.path(), path);
    EXPECT_NE(e.reason().find(reason), std::string::npos) << e.reason();
  }
}

}  // namespace
}  // namespace kartova
