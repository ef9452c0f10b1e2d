#include "FuzzSupport.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "demo/DemoRom.h"
#include "rom/Address.h"

namespace kartova::fuzz {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDirPrefix = "kartova-fuzz-";

fs::path TempBase() {
  std::error_code ec;
  if (fs::is_directory("/dev/shm", ec) && ::access("/dev/shm", W_OK) == 0) return "/dev/shm";
  if (const char* tmp = std::getenv("TMPDIR"); tmp && *tmp) return tmp;
  return "/tmp";
}

// kartova-fuzz-<pid>-XXXXXX of a process that is gone: a run that crashed does not get to
// remove its directory.
void RemoveStaleDirs(const fs::path& base) {
  std::error_code ec;
  for (const fs::directory_entry& entry : fs::directory_iterator(base, ec)) {
    const std::string name = entry.path().filename().string();
    if (name.rfind(kDirPrefix, 0) != 0) continue;
    const long pid = std::strtol(name.c_str() + std::char_traits<char>::length(kDirPrefix), nullptr, 10);
    if (pid <= 0 || pid == ::getpid()) continue;
    if (::kill(static_cast<pid_t>(pid), 0) == -1 && errno == ESRCH) fs::remove_all(entry.path(), ec);
  }
}

struct PrivateDir {
  PrivateDir() {
    const fs::path base = TempBase();
    RemoveStaleDirs(base);
    std::string pattern = (base / (kDirPrefix + std::to_string(::getpid()) + "-XXXXXX")).string();
    if (!::mkdtemp(pattern.data())) {
      std::perror("mkdtemp");
      std::abort();
    }
    path = pattern;
  }
  ~PrivateDir() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
  std::string path;
};

bool WriteAllAt(int fd, const std::uint8_t* data, std::size_t n, std::int64_t offset) {
  while (n > 0) {
    const ssize_t done = ::pwrite(fd, data, n, static_cast<off_t>(offset));
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return false;
    data += done;
    n -= static_cast<std::size_t>(done);
    offset += done;
  }
  return true;
}

std::vector<std::int64_t> CollectAnchors() {
  const RomLayout& layout = Demo().layout;
  // The demo's definition keeps the default name table and tileset base. The header lists
  // lie in bank 0x25, from 0x94000.
  std::vector<std::int64_t> anchors = {kTitleOffset,
                                       kMapGroupTableOffset,
                                       0x94000,
                                       0x92384,
                                       0x2DFA,
                                       kPaletteMapBankOffset,
                                       kLightingPointerTable,
                                       kPaletteBase,
                                       kMapBankColourBase,
                                       kSpecialPaletteBase};
  for (const auto& [ref, map] : layout.maps) {
    anchors.insert(anchors.end(), {map.primary_header, map.secondary_header, map.blocks, map.script_header,
                                   map.event_header});
  }
  for (const auto& [number, tileset] : layout.tilesets) {
    anchors.insert(anchors.end(), {tileset.record, tileset.graphics, tileset.blocks, tileset.palette_map});
  }
  for (std::int64_t name : layout.names) anchors.push_back(name);
  std::sort(anchors.begin(), anchors.end());
  anchors.erase(std::unique(anchors.begin(), anchors.end()), anchors.end());
  if (anchors.size() > kCutAnchor) anchors.resize(kCutAnchor);
  return anchors;
}

}  // namespace

const std::string& WorkDir() {
  static const PrivateDir dir;
  return dir.path;
}

std::string WorkFile(const std::string& name) { return WorkDir() + "/" + name; }

void WriteFile(const std::string& path, std::span<const std::uint8_t> bytes) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0 || !WriteAllAt(fd, bytes.data(), bytes.size(), 0))
    Fail("cannot write a file in the work directory");
  ::close(fd);
}

void WriteFile(const std::string& path, const std::string& text) {
  WriteFile(path, std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

void ReadFile(const std::string& path, Bytes& into) {
  into.clear();
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return;
  struct stat st {};
  if (::fstat(fd, &st) == 0 && st.st_size > 0) {
    into.resize(static_cast<std::size_t>(st.st_size));
    std::size_t got = 0;
    while (got < into.size()) {
      const ssize_t n = ::read(fd, into.data() + got, into.size() - got);
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) break;
      got += static_cast<std::size_t>(n);
    }
    into.resize(got);
  }
  ::close(fd);
}

Bytes ReadFile(const std::string& path) {
  Bytes bytes;
  ReadFile(path, bytes);
  return bytes;
}

const BuiltRom& Demo() {
  static const BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  return demo;
}

const std::vector<std::int64_t>& PatchAnchors() {
  static const std::vector<std::int64_t> anchors = CollectAnchors();
  return anchors;
}

std::uint8_t InputReader::Byte() { return pos_ < data_.size() ? data_[pos_++] : 0; }

std::uint16_t InputReader::Word() {
  const std::uint8_t lo = Byte();
  return static_cast<std::uint16_t>(lo | Byte() << 8);
}

std::span<const std::uint8_t> InputReader::Take(std::size_t n) {
  n = std::min(n, Left());
  const auto part = data_.subspan(pos_, n);
  pos_ += n;
  return part;
}

RomCase DecodeRomCase(std::span<const std::uint8_t> input) {
  InputReader in(input);
  RomCase c;
  const std::uint8_t flags = in.Byte();
  c.raw = (flags & kRawFileFlag) != 0;
  const auto ini = in.Take(in.Word());
  c.ini.assign(ini.begin(), ini.end());
  const auto rom = in.Take(in.Word());
  c.tail = in.Rest();
  if (c.raw) {
    c.raw_file.assign(rom.begin(), rom.end());
    if (!(flags & kExactFileFlag) && !rom.empty()) {
      c.raw_file.reserve(kRawFileLength);
      while (c.raw_file.size() < kRawFileLength)
        c.raw_file.insert(c.raw_file.end(), rom.begin(),
                          rom.begin() + static_cast<std::ptrdiff_t>(
                                            std::min(rom.size(), kRawFileLength - c.raw_file.size())));
    }
    return c;
  }
  const std::vector<std::int64_t>& anchors = PatchAnchors();
  InputReader records(rom);
  while (!records.Empty()) {
    const std::uint8_t anchor = records.Byte();
    if (anchor == kCutAnchor) {
      std::int64_t length = records.Byte();
      length |= std::int64_t{records.Byte()} << 8;
      length |= std::int64_t{records.Byte()} << 16;
      c.cut_to = c.cut_to < 0 ? length : std::min(c.cut_to, length);
      continue;
    }
    const auto delta = static_cast<std::int8_t>(records.Byte());
    const auto bytes = records.Take(records.Byte() & 0x3F);
    c.patches.push_back({anchors[anchor % anchors.size()] + delta, Bytes(bytes.begin(), bytes.end())});
  }
  return c;
}

Bytes EncodeRomCase(std::uint8_t flags, const std::string& ini, std::span<const std::uint8_t> rom_part,
                    std::span<const std::uint8_t> tail) {
  Bytes out{flags};
  auto put_part = [&out](std::span<const std::uint8_t> part) {
    part = part.first(std::min<std::size_t>(part.size(), 0xFFFF));
    out.push_back(static_cast<std::uint8_t>(part.size()));
    out.push_back(static_cast<std::uint8_t>(part.size() >> 8));
    out.insert(out.end(), part.begin(), part.end());
  };
  put_part(std::span(reinterpret_cast<const std::uint8_t*>(ini.data()), ini.size()));
  put_part(rom_part);
  out.insert(out.end(), tail.begin(), tail.end());
  return out;
}

Bytes EncodePatches(const std::vector<PatchRecord>& records) {
  Bytes out;
  for (const PatchRecord& r : records) {
    const std::size_t n = std::min<std::size_t>(r.bytes.size(), 0x3F);
    out.insert(out.end(), {r.anchor, static_cast<std::uint8_t>(r.delta), static_cast<std::uint8_t>(n)});
    out.insert(out.end(), r.bytes.begin(), r.bytes.begin() + static_cast<std::ptrdiff_t>(n));
  }
  return out;
}

PatchRecord PatchAt(std::int64_t offset, Bytes bytes) {
  const std::vector<std::int64_t>& anchors = PatchAnchors();
  for (std::size_t i = 0; i < anchors.size(); ++i) {
    const std::int64_t delta = offset - anchors[i];
    if (delta >= -128 && delta <= 127)
      return {static_cast<std::uint8_t>(i), static_cast<std::int8_t>(delta), std::move(bytes)};
  }
  Fail("no patch anchor near the offset");
}

void CachedIniSettings::Use(const std::string& text) {
  if (written_ && text == text_) return;
  WriteFile(ini_.path(), text);
  text_ = text;
  written_ = true;
  answers_.clear();
}

std::string CachedIniSettings::ReadSetting(const std::string& section, const std::string& key,
                                           const std::string& def) const {
  auto [it, added] = answers_.try_emplace({section, key, def});
  if (added) it->second = ini_.Read(section, key, def);
  return it->second;
}

RomCaseFiles::~RomCaseFiles() {
  if (fd_ >= 0) ::close(fd_);
}

void RomCaseFiles::RestoreInPlace() {
  const Bytes& demo = Demo().bytes;
  for (const auto& [offset, length] : dirty_) {
    if (!WriteAllAt(fd_, demo.data() + offset, length, offset)) Fail("cannot restore the patched file");
  }
  dirty_.clear();
  if (cut_ && !WriteAllAt(fd_, demo.data(), demo.size(), 0)) Fail("cannot restore the cut file");
  cut_ = false;
}

std::string RomCaseFiles::Prepare(const RomCase& c) {
  settings_.Use(c.ini);
  const Bytes& demo = Demo().bytes;
  const auto size = static_cast<std::int64_t>(demo.size());
  const bool cuts = c.cut_to >= 0 && c.cut_to < size;
  if (mode_ == Mode::kFresh) {
    const std::string path = WorkFile("fresh.gbc");
    if (c.raw) {
      image_ = c.raw_file;
    } else {
      image_ = demo;
      for (const Patch& p : c.patches) {
        for (std::size_t i = 0; i < p.bytes.size(); ++i) {
          const std::int64_t at = p.offset + static_cast<std::int64_t>(i);
          if (at >= 0 && at < size) image_[static_cast<std::size_t>(at)] = p.bytes[i];
        }
      }
      if (cuts) image_.resize(static_cast<std::size_t>(c.cut_to));
    }
    WriteFile(path, image_);
    return path;
  }

  if (c.raw) {
    const std::string path = WorkFile("raw.gbc");
    WriteFile(path, c.raw_file);
    return path;
  }
  const std::string path = WorkFile("patched.gbc");
  if (fd_ < 0) {
    WriteFile(path, demo);
    fd_ = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    if (fd_ < 0) Fail("cannot open the patched file");
  }
  RestoreInPlace();
  for (const Patch& p : c.patches) {
    const std::int64_t begin = std::max<std::int64_t>(p.offset, 0);
    const std::int64_t end =
        std::min<std::int64_t>(p.offset + static_cast<std::int64_t>(p.bytes.size()), size);
    if (begin >= end) continue;
    const auto length = static_cast<std::size_t>(end - begin);
    if (!WriteAllAt(fd_, p.bytes.data() + (begin - p.offset), length, begin)) Fail("cannot patch the file");
    dirty_.emplace_back(begin, length);
  }
  if (cuts) {
    if (::ftruncate(fd_, static_cast<off_t>(c.cut_to)) != 0) Fail("cannot cut the patched file");
    cut_ = true;
  }
  return path;
}

void Fail(const char* what) {
  std::fprintf(stderr, "\n*** fuzz invariant broken: %s\n", what);
  std::fflush(stderr);
  std::abort();
}

}  // namespace kartova::fuzz
