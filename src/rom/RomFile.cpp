#include "rom/RomFile.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

namespace kartova {

namespace {
std::FILE* OpenRegularFile(const std::string& path, const char* mode, bool create) {
  // Only regular files are opened: a folder reads nothing, and a pipe or a device would block
  // or never end.
  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (!ec && std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) return nullptr;
  std::FILE* f = std::fopen(path.c_str(), mode);
  if (f || !create) return f;
  // Create the file if it is missing, without truncating one that exists but refused us.
  if (std::FILE* created = std::fopen(path.c_str(), "ab")) {
    std::fclose(created);
    f = std::fopen(path.c_str(), mode);
  }
  return f;
}

std::int64_t FileSize(std::FILE* f) {
  if (!f || std::fseek(f, 0, SEEK_END) != 0) return 0;
  long size = std::ftell(f);
  return size < 0 ? 0 : size;
}
}  // namespace

RomFile::RomFile(std::FILE* file, bool writable) : file_(file), writable_(writable) {
  size_ = FileSize(file_);
  if (writable_ && !file_) write_failed_ = true;
}

RomFile RomFile::OpenForRead(const std::string& path) {
  return RomFile(OpenRegularFile(path, "rb", true), false);
}

RomFile RomFile::OpenForWrite(const std::string& path) {
  return RomFile(OpenRegularFile(path, "r+b", true), true);
}

RomFile RomFile::OpenExisting(const std::string& path) {
  return RomFile(OpenRegularFile(path, "rb", false), false);
}

RomFile::RomFile(RomFile&& o) noexcept { *this = std::move(o); }

RomFile& RomFile::operator=(RomFile&& o) noexcept {
  if (this != &o) {
    Close();
    file_ = std::exchange(o.file_, nullptr);
    writable_ = o.writable_;
    write_failed_ = o.write_failed_;
    read_past_end_ = o.read_past_end_;
    size_ = o.size_;
    position_ = o.position_;
    system_reads_ = o.system_reads_;
    pages_ = std::move(o.pages_);
  }
  return *this;
}

RomFile::~RomFile() { Close(); }

bool RomFile::Close() {
  if (file_) {
    if (std::fclose(file_) != 0 && writable_) write_failed_ = true;
    file_ = nullptr;
  }
  pages_.clear();
  return !write_failed_;
}

const std::vector<std::uint8_t>* RomFile::Page(std::int64_t index) {
  auto it = pages_.find(index);
  if (it != pages_.end()) return &it->second;
  std::vector<std::uint8_t> page;
  std::int64_t start = index * kPageSize;
  if (file_ && !writable_ && start < size_) {
    page.resize(static_cast<size_t>(std::min(kPageSize, size_ - start)));
    ++system_reads_;
    size_t got = 0;
    if (std::fseek(file_, start, SEEK_SET) == 0) got = std::fread(page.data(), 1, page.size(), file_);
    page.resize(got);
  }
  return &pages_.emplace(index, std::move(page)).first->second;
}

std::size_t RomFile::ReadBytes(std::uint8_t* dst, std::size_t n) {
  const bool from_file = position_ >= 0 && !writable_;
  const std::size_t done = Copy(dst, n);
  if (done < n && from_file) read_past_end_ = true;
  return done;
}

std::size_t RomFile::ReadAhead(std::uint8_t* dst, std::size_t n) { return Copy(dst, n); }

std::size_t RomFile::Copy(std::uint8_t* dst, std::size_t n) {
  std::size_t done = 0;
  std::int64_t pos = position_;
  position_ += static_cast<std::int64_t>(n);
  if (pos < 0 || !file_ || writable_) return 0;
  while (done < n && pos < size_) {
    const auto* page = Page(pos / kPageSize);
    std::int64_t in_page = pos % kPageSize;
    if (in_page >= static_cast<std::int64_t>(page->size())) break;  // file shrank under us
    std::size_t take = std::min<std::size_t>(n - done, page->size() - static_cast<size_t>(in_page));
    std::memcpy(dst + done, page->data() + in_page, take);
    done += take;
    pos += static_cast<std::int64_t>(take);
  }
  return done;
}

std::int64_t RomFile::Find(std::int64_t from, std::int64_t limit, const ByteSet& stops) {
  const std::int64_t end = std::min(limit, size_);
  std::int64_t pos = std::max<std::int64_t>(from, 0);
  if (!file_ || writable_ || pos >= end) return end;
  const auto scan = [&](const std::uint8_t* bytes, std::int64_t n) -> bool {
    for (std::int64_t i = 0; i < n; ++i)
      if (stops[bytes[i]]) {
        pos += i;
        return true;
      }
    pos += n;
    return false;
  };
  const auto* page = Page(pos / kPageSize);
  const std::int64_t in_page = pos % kPageSize;
  const std::int64_t in_first = std::min(static_cast<std::int64_t>(page->size()) - in_page, end - pos);
  if (in_first <= 0) return end;  // the file shrank under us
  if (scan(page->data() + in_page, in_first)) return pos;
  std::vector<std::uint8_t> block;
  while (pos < end) {
    block.resize(static_cast<std::size_t>(std::min(kSearchBlockSize, end - pos)));
    ++system_reads_;
    if (std::fseek(file_, pos, SEEK_SET) != 0) return end;
    const auto got = static_cast<std::int64_t>(std::fread(block.data(), 1, block.size(), file_));
    if (got <= 0) return end;
    if (scan(block.data(), got)) return pos;
  }
  return end;
}

std::uint8_t RomFile::ReadByte() {
  std::uint8_t b = 0;
  ReadBytes(&b, 1);
  return b;
}

std::uint16_t RomFile::ReadWord() {
  std::uint8_t b[2] = {0, 0};
  ReadBytes(b, 2);
  return static_cast<std::uint16_t>(b[0] | (b[1] << 8));
}

bool RomFile::WriteBytes(const std::uint8_t* src, std::size_t n) {
  std::int64_t pos = position_;
  position_ += static_cast<std::int64_t>(n);
  if (n == 0) return !write_failed_;
  if (!file_ || !writable_ || pos < 0 || std::fseek(file_, pos, SEEK_SET) != 0 ||
      std::fwrite(src, 1, n, file_) != n) {
    write_failed_ = true;
    return false;
  }
  size_ = std::max(size_, pos + static_cast<std::int64_t>(n));
  return true;
}

}  // namespace kartova
