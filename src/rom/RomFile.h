#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kartova {

// One handle on the ROM image for the duration of one operation. The ROM is never kept in
// memory between operations, so every operation sees the file as it is on disk now.
//
// OpenForRead and OpenForWrite are open-or-create: a missing file is created empty. OpenExisting
// never creates anything. Nothing else is checked: a handle that could not be opened reads
// nothing and writes nothing. A read past the end of the file leaves
// the caller's bytes as they were; ReadByte and ReadWord start from zero, so they yield zero
// bits for what could not be read. Such a short read is remembered (ReadPastEnd), so that a
// load can tell that the file is shorter than the data it points to. Reads are served from
// 4 KiB pages fetched once per operation, so reading a record field by field costs no system
// call per field.
class RomFile {
 public:
  static RomFile OpenForRead(const std::string& path);
  static RomFile OpenForWrite(const std::string& path);
  // For reading only; a missing file stays missing (the handle reads nothing then).
  static RomFile OpenExisting(const std::string& path);

  RomFile(RomFile&&) noexcept;
  RomFile& operator=(RomFile&&) noexcept;
  RomFile(const RomFile&) = delete;
  RomFile& operator=(const RomFile&) = delete;
  ~RomFile();

  bool IsOpen() const { return file_ != nullptr; }
  // Size of the file in bytes (0 for a handle that is not open).
  std::int64_t Size() const { return size_; }
  // Absolute position; a negative position reads and writes nothing.
  void Seek(std::int64_t offset) { position_ = offset; }
  void Skip(std::int64_t count) { position_ += count; }
  std::int64_t Position() const { return position_; }
  // True when the position is at or past the end of the file (or the handle is not open).
  bool AtEnd() const { return position_ < 0 || position_ >= size_; }

  std::uint8_t ReadByte();
  // Little-endian, unsigned.
  std::uint16_t ReadWord();
  // Reads up to n bytes into dst and advances by n; returns how many bytes were there.
  // Bytes beyond the end of the file are left untouched in dst.
  std::size_t ReadBytes(std::uint8_t* dst, std::size_t n);
  // As ReadBytes, for a reader that fetches more than it may need (a chunk of a stream whose
  // end it does not know yet): a short read is not taken for a read past the end. The reader
  // calls NoteReadPastEnd itself when it did need what was not there.
  std::size_t ReadAhead(std::uint8_t* dst, std::size_t n);
  void NoteReadPastEnd() { read_past_end_ = true; }
  // True when a read of this handle wanted bytes past the end of the file (or any bytes from
  // a file that could not be opened).
  bool ReadPastEnd() const { return read_past_end_; }

  // Which byte values a search stops at.
  using ByteSet = std::array<bool, 256>;
  // The position of the first byte in [from, end) whose value is in stops, where end is the
  // smaller of limit and Size(); end when there is none. The position is not moved. The first
  // page is read through the pages like any read; a search that runs on reads blocks of its
  // own that are not kept, so that a long search neither holds the file in memory nor costs a
  // system call per page.
  std::int64_t Find(std::int64_t from, std::int64_t limit, const ByteSet& stops);

  // Writes n bytes at the position and advances. Returns false (and remembers the failure)
  // when the bytes could not be written.
  bool WriteBytes(const std::uint8_t* src, std::size_t n);
  bool WriteByte(std::uint8_t b) { return WriteBytes(&b, 1); }
  // True when any write of this handle failed, or the handle for writing could not be opened.
  bool WriteFailed() const { return write_failed_; }

  // Number of reads that went to the operating system (for the benchmarks' figures).
  int SystemReads() const { return system_reads_; }

  // Closes the handle; returns false when a write failed at any point.
  bool Close();

 private:
  RomFile(std::FILE* file, bool writable);
  const std::vector<std::uint8_t>* Page(std::int64_t index);
  // Copies what the file holds of [position, position + n) and advances by n.
  std::size_t Copy(std::uint8_t* dst, std::size_t n);

  static constexpr std::int64_t kPageSize = 4096;
  static constexpr std::int64_t kSearchBlockSize = 64 * 1024;
  std::FILE* file_ = nullptr;
  bool writable_ = false;
  bool write_failed_ = false;
  bool read_past_end_ = false;
  std::int64_t size_ = 0;
  std::int64_t position_ = 0;
  int system_reads_ = 0;
  std::unordered_map<std::int64_t, std::vector<std::uint8_t>> pages_;
};

}  // namespace kartova
