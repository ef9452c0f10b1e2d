#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>
#include <tuple>

#include "rom/SafeFileWriter.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;
using Folder = std::map<std::string, Bytes>;

Bytes Pattern(std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 + (i >> 8));
  return bytes;
}

mode_t ModeOf(const std::string& path) {
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0 ? st.st_mode & 07777 : 0;
}

// Every name in the folder with its bytes: a save leaves nothing else behind, a failed one
// changes nothing.
Folder Snapshot(const fs::path& dir) {
  Folder files;
  for (const auto& entry : fs::directory_iterator(dir))
    files[entry.path().filename().string()] =
        fs::is_regular_file(entry.symlink_status()) ? test::ReadFileBytes(entry.path().string()) : Bytes{};
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

SafeWriteOptions Options(bool create_if_missing, std::string source = "", WriteFaultHook hook = {}) {
  return {std::move(source), create_if_missing, std::move(hook)};
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

TEST_F(SafeFileWriterTest, PutsTheRegionsInThroughLinksAndKeepsEveryOtherByte) {
  const std::string rom = Rom(Pattern(0x8000));
  fs::create_directory(dir_.path() / "links");
  fs::create_symlink("../rom.gbc", dir_.path() / "links" / "mid");  // relative to its own folder
  fs::create_symlink(dir_.path() / "links" / "mid", dir_.path() / "top");
  WriteRegionsSafely(dir_.File("top"), {{0x134, {0x41, 0x42}}, {0x4000, Bytes(0x100, 0x5A)}, {0x7FFF, {0xEE}}});
  Bytes expected = Pattern(0x8000);
  expected[0x134] = 0x41;
  expected[0x135] = 0x42;
  std::fill_n(expected.begin() + 0x4000, 0x100, 0x5A);
  expected[0x7FFF] = 0xEE;
  EXPECT_EQ(Snapshot(dir_.path()), (Folder{{"links", {}}, {"rom.gbc", expected}, {"top", {}}}));
  EXPECT_TRUE(fs::is_symlink(dir_.path() / "top") && fs::is_symlink(dir_.path() / "links" / "mid"));

  WriteRegionsSafely(rom, {{0x8004, {7, 8}}});  // past the end: zeros up to it
  expected.insert(expected.end(), {0, 0, 0, 0, 7, 8});
  EXPECT_EQ(test::ReadFileBytes(rom), expected);
}

TEST_F(SafeFileWriterTest, PermissionsAreTheReplacedFilesOrTheSourcesOrTheUmasks) {
  for (mode_t mode : {0640, 0600, 0755, 0664}) {
    const std::string rom = Rom(Pattern(32), mode);
    WriteRegionsSafely(rom, {{0, {1}}});
    EXPECT_EQ(ModeOf(rom), mode);
  }
  // Save as: the copy is built from the source, with its permissions made owner-writable.
  const std::string rom = Rom(Pattern(64), 0440), copy = dir_.File("copy.gbc");
  WriteRegionsSafely(copy, {{2, {0xAA}}}, Options(true, rom));
  Bytes expected = Pattern(64);
  expected[2] = 0xAA;
  EXPECT_EQ(test::ReadFileBytes(copy), expected);
  EXPECT_EQ(ModeOf(copy), 0640u);
  EXPECT_EQ(test::ReadFileBytes(rom), Pattern(64));
  // An existing target takes the source's bytes but keeps its own permissions.
  ::chmod(copy.c_str(), 0600);
  WriteRegionsSafely(copy, {}, Options(false, rom));
  EXPECT_EQ(test::ReadFileBytes(copy), Pattern(64));
  EXPECT_EQ(ModeOf(copy), 0600u);
  // A file created from nothing.
  const mode_t saved = ::umask(027);
  WriteRegionsSafely(dir_.File("new.gbc"), {{3, {9}}}, Options(true));
  ::umask(saved);
  EXPECT_EQ(test::ReadFileBytes(dir_.File("new.gbc")), (Bytes{0, 0, 0, 9}));
  EXPECT_EQ(ModeOf(dir_.File("new.gbc")), 0640u);
}

TEST_F(SafeFileWriterTest, RefusesWhatItMustNotWriteAndChangesNothing) {
  Rom(Pattern(16));
  Rom(Pattern(16), 0444, "read-only.gbc");
  fs::create_directory(dir_.path() / "folder");
  ::mkfifo(dir_.File("pipe").c_str(), 0644);
  fs::create_symlink("loop", dir_.path() / "loop");
  fs::create_directory(dir_.path() / "sub");  // the folder the ROM was opened from, gone since
  Rom(Pattern(8), 0644, "sub/rom.gbc");
  fs::remove_all(dir_.path() / "sub");
  const std::tuple<std::string, SafeWriteOptions, std::string, std::int64_t> cases[] = {
      {"gone.gbc", Options(false), std::strerror(ENOENT), 4},
      {"new.gbc", Options(true, dir_.File("gone.gbc")), std::strerror(ENOENT), 4},
      {"folder", Options(true), std::strerror(EISDIR), 4},
      {"read-only.gbc", Options(true), "schreibgeschützt", 4},
      {"pipe", Options(false), "keine gewöhnliche Datei", 4},
      {"loop", Options(true), std::strerror(ELOOP), 4},
      {"sub/rom.gbc", Options(false), std::strerror(ENOENT), 4},
      {"sub/rom.gbc", Options(true), std::strerror(ENOENT), 4},
      {"rom.gbc", Options(false), std::strerror(EFBIG), INT64_MAX - 1},
  };
  const Folder before = Snapshot(dir_.path());
  for (const auto& [name, options, reason, offset] : cases) {
    SCOPED_TRACE(name);
    const std::string target = dir_.File(name);
    const FileWriteError e = ErrorOf([&] { WriteRegionsSafely(target, {{offset, {1, 2}}}, options); });
    EXPECT_NE(e.reason().find(reason), std::string::npos) << e.reason();
    EXPECT_EQ(e.path(), options.source.empty() ? target : options.source);
    EXPECT_EQ(Snapshot(dir_.path()), before);
  }
}

TEST_F(SafeFileWriterTest, AFaultAtAnyStepLeavesTheRomAsItWas) {
  const std::string rom = Rom(Pattern((std::size_t{5} << 20) / 2), 0640);  // three pieces to write
  const Folder before = Snapshot(dir_.path());
  std::vector<WriteStep> steps;
  WriteRegionsSafely(rom, {{0, {0}}}, Options(false, "", [&](WriteStep s) { return steps.push_back(s), 0; }));
  using enum WriteStep;
  EXPECT_EQ(steps, (std::vector{kReadSource, kCreateTemp, kWrite, kWrite, kWrite, kSync, kRename}));
  const std::pair<WriteStep, int> faults[] = {{kReadSource, 1}, {kCreateTemp, 1}, {kWrite, 1},
                                              {kWrite, 3},      {kSync, 1},       {kRename, 1}};
  for (const auto& [step, occurrence] : faults) {
    for (int err : {ENOSPC, EIO}) {
      SCOPED_TRACE(testing::Message() << static_cast<int>(step) << "#" << occurrence << " " << std::strerror(err));
      int seen = 0;
      const SafeWriteOptions options =
          Options(false, "", [&](WriteStep s) { return s == step && ++seen == occurrence ? err : 0; });
      const FileWriteError e = ErrorOf([&] { WriteRegionsSafely(rom, {{0, {0xAB}}}, options); });
      EXPECT_EQ(e.reason(), std::strerror(err));
      EXPECT_EQ(e.path(), rom);
      EXPECT_EQ(Snapshot(dir_.path()), before);
      EXPECT_EQ(ModeOf(rom), 0640u);
    }
  }
}

TEST_F(SafeFileWriterTest, ReadWholeFileReadsEverythingOrSaysWhy) {
  const Bytes bytes = Pattern((std::size_t{1} << 20) + 5);
  EXPECT_EQ(ReadWholeFile(Rom(bytes)), bytes);
  EXPECT_EQ(ReadWholeFile(Rom({}, 0644, "empty.gbc")), Bytes{});
  ::mkfifo(dir_.File("pipe").c_str(), 0644);
  const std::pair<std::string, std::string> failures[] = {{dir_.File("gone.gbc"), std::strerror(ENOENT)},
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
