#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>

#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

class RomFileTest : public ::testing::Test {
 protected:
  test::TempDir dir;
};

TEST_F(RomFileTest, AMissingPathIsCreatedEmptyAndReadsZeros) {
  RomFile f = RomFile::OpenForRead(dir.File("new.gbc"));
  EXPECT_TRUE(std::filesystem::exists(dir.File("new.gbc")));
  EXPECT_EQ(f.Size(), 0);
  f.Seek(0x134);
  EXPECT_EQ(f.ReadByte() + f.ReadWord(), 0);
}

TEST_F(RomFileTest, ReadsLittleEndianFromSharedPagesAndLeavesBytesPastTheEndAlone) {
  std::vector<std::uint8_t> bytes(5000);
  for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
  test::WriteFileBytes(dir.File("rom.gbc"), bytes);
  RomFile f = RomFile::OpenForRead(dir.File("rom.gbc"));
  for (int i = 0; i < 100; ++i) f.ReadByte();
  EXPECT_EQ(f.SystemReads(), 1);
  f.Seek(4095);  // a word across a page boundary
  EXPECT_EQ(f.ReadWord(), bytes[4095] | (bytes[4096] << 8));
  std::uint8_t buf[4] = {0xAA, 0xAA, 0xAA, 0xAA};
  f.Seek(4996);
  EXPECT_EQ(f.ReadBytes(buf, 4), 4u);  // up to the last byte: nothing past the end
  EXPECT_EQ(f.ReadAhead(buf, 4), 0u);  // a read ahead may come back short
  EXPECT_FALSE(f.ReadPastEnd());
  f.Seek(4998);
  EXPECT_EQ(f.ReadBytes(buf, 4), 2u);
  EXPECT_TRUE(f.ReadPastEnd());
  EXPECT_EQ(buf[0], bytes[4998]);
  EXPECT_EQ(buf[2], 0xAA);
  EXPECT_EQ(f.Position(), 5002);
  f.Seek(-5);
  EXPECT_EQ(f.ReadByte(), 0);
}

TEST_F(RomFileTest, WritesInPlaceOrFailOnADeadHandle) {
  test::WriteFileBytes(dir.File("rom.gbc"), std::vector<std::uint8_t>(16, 0));
  RomFile f = RomFile::OpenForWrite(dir.File("rom.gbc"));
  f.Seek(4);
  const std::uint8_t data[] = {1, 2, 3};
  EXPECT_TRUE(f.WriteBytes(data, 3));
  EXPECT_TRUE(f.Close());
  std::vector<std::uint8_t> expected(16, 0);
  std::copy(data, data + 3, expected.begin() + 4);
  EXPECT_EQ(test::ReadFileBytes(dir.File("rom.gbc")), expected);

  RomFile d = RomFile::OpenForRead(dir.path().string());
  EXPECT_FALSE(d.IsOpen());
  EXPECT_EQ(d.ReadByte(), 0);
  RomFile w = RomFile::OpenForWrite(dir.path().string());
  EXPECT_FALSE(w.WriteBytes(data, 1));
  EXPECT_TRUE(w.WriteFailed());
  EXPECT_FALSE(w.Close());
}

TEST_F(RomFileTest, OpenExistingNeverCreatesAFile) {
  RomFile f = RomFile::OpenExisting(dir.File("fehlt.gbc"));
  EXPECT_FALSE(f.IsOpen());
  EXPECT_FALSE(std::filesystem::exists(dir.File("fehlt.gbc")));
  RomFile::ByteSet all;
  all.fill(true);
  EXPECT_EQ(f.Find(0, 100, all), 0);
}

TEST_F(RomFileTest, FindStopsAtTheFirstByteOfTheSetBeforeLimitAndEndOfFile) {
  std::vector<std::uint8_t> bytes(300000, 0x7F);
  bytes[5] = bytes[4096] = bytes[200000] = 0x50;
  bytes[299999] = 0x51;
  test::WriteFileBytes(dir.File("rom.gbc"), bytes);
  RomFile f = RomFile::OpenExisting(dir.File("rom.gbc"));
  RomFile::ByteSet stops{};
  stops[0x50] = stops[0x51] = true;
  f.Seek(77);
  constexpr std::int64_t kNoLimit = INT64_MAX;
  EXPECT_EQ(f.Find(0, kNoLimit, stops), 5);
  EXPECT_EQ(f.Find(-3, kNoLimit, stops), 5);
  EXPECT_EQ(f.Find(6, kNoLimit, stops), 4096);  // on the next page
  EXPECT_EQ(f.Find(4097, kNoLimit, stops), 200000);
  EXPECT_EQ(f.Find(4097, 200000, stops), 200000);  // the limit, not the stop byte on it
  EXPECT_EQ(f.Find(4097, 1000, stops), 1000);
  EXPECT_EQ(f.Find(200001, kNoLimit, stops), 299999);
  stops[0x51] = false;
  EXPECT_EQ(f.Find(200001, kNoLimit, stops), 300000);
  EXPECT_EQ(f.Find(400000, kNoLimit, stops), 300000);
  EXPECT_EQ(f.Position(), 77);
  // The long searches read blocks, not page after page.
  EXPECT_LT(f.SystemReads(), 20);

  RomFile w = RomFile::OpenForWrite(dir.File("rom.gbc"));
  EXPECT_EQ(w.Find(0, kNoLimit, stops), 300000);  // a handle for writing reads nothing
}

}  // namespace
}  // namespace kartova
