#include <gtest/gtest.h>

#include <filesystem>

#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using test::ReadFileBytes;
using test::TempDir;
using test::WriteFileBytes;

TEST(RomFileTest, OpeningAMissingPathCreatesAnEmptyFileThatReadsZeros) {
  TempDir dir;
  std::string path = dir.File("new.gbc");
  RomFile f = RomFile::OpenForRead(path);
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_EQ(f.Size(), 0);
  f.Seek(0x134);
  EXPECT_EQ(f.ReadByte(), 0);
  EXPECT_EQ(f.ReadWord(), 0);
}

TEST(RomFileTest, ReadsLittleEndianAndLeavesBytesPastTheEndAlone) {
  TempDir dir;
  std::string path = dir.File("rom.gbc");
  std::vector<std::uint8_t> bytes(5000);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
  WriteFileBytes(path, bytes);
  RomFile f = RomFile::OpenForRead(path);
  f.Seek(4095);  // a word across a page boundary
  EXPECT_EQ(f.ReadWord(), bytes[4095] | (bytes[4096] << 8));
  std::uint8_t buf[4] = {0xAA, 0xAA, 0xAA, 0xAA};
  f.Seek(4998);
  EXPECT_EQ(f.ReadBytes(buf, 4), 2u);
  EXPECT_EQ(buf[0], bytes[4998]);
  EXPECT_EQ(buf[2], 0xAA);
  EXPECT_EQ(f.Position(), 5002);
  f.Seek(-5);
  EXPECT_EQ(f.ReadByte(), 0);
}

TEST(RomFileTest, ReadsOfOneOperationShareFetchedPages) {
  TempDir dir;
  std::string path = dir.File("rom.gbc");
  WriteFileBytes(path, std::vector<std::uint8_t>(10000, 1));
  RomFile f = RomFile::OpenForRead(path);
  for (int i = 0; i < 100; ++i) f.ReadByte();
  EXPECT_EQ(f.SystemReads(), 1);
}

TEST(RomFileTest, WritesInPlaceWithoutTruncating) {
  TempDir dir;
  std::string path = dir.File("rom.gbc");
  WriteFileBytes(path, std::vector<std::uint8_t>(16, 0));
  RomFile f = RomFile::OpenForWrite(path);
  f.Seek(4);
  const std::uint8_t data[] = {1, 2, 3};
  EXPECT_TRUE(f.WriteBytes(data, 3));
  EXPECT_TRUE(f.Close());
  auto back = ReadFileBytes(path);
  ASSERT_EQ(back.size(), 16u);
  EXPECT_EQ(back[4], 1);
  EXPECT_EQ(back[6], 3);
  EXPECT_EQ(back[7], 0);
}

TEST(RomFileTest, ADirectoryOrUnwritableFileGivesADeadHandle) {
  TempDir dir;
  RomFile d = RomFile::OpenForRead(dir.path().string());
  EXPECT_FALSE(d.IsOpen());
  EXPECT_EQ(d.ReadByte(), 0);
  RomFile w = RomFile::OpenForWrite(dir.path().string());
  const std::uint8_t b = 1;
  EXPECT_FALSE(w.WriteBytes(&b, 1));
  EXPECT_TRUE(w.WriteFailed());
  EXPECT_FALSE(w.Close());
}

}  // namespace
}  // namespace kartova
