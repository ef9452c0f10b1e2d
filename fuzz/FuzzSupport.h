#pragma once

// What the ROM fuzz targets share: a private working directory, the demo image built once per
// process, the decoding of an input into an INI text and a ROM file, and a settings reader
// over the INI text.
//
// Input layout of the ROM targets (open, load, edit and save):
//   byte 0         flags: bit 0 = the ROM part makes the whole file, not patches over the demo:
//                  repeated up to the end of bank 0x25 (where the map bank table lies), so that
//                  every place the editor reads holds input bytes; with bit 1 as it is
//   bytes 1-2      n, little-endian; cut to what is there
//   n bytes        INI text (the ROM definition store)
//   bytes          m, little-endian; cut to what is there
//   m bytes        ROM part
//   the rest       the target's own bytes (which maps, which edits)
// The ROM part in patch form is a list of records
//   anchor (1) | delta (1, signed) | length (1, low 6 bits) | bytes
// each writing its bytes at anchor + delta, the anchors being the places the editor reads
// (title, map group table, headers, blocks, events, tilesets, names, palettes); bytes past the
// end of the image are dropped. Anchor 0xFF instead cuts the file: the next three bytes
// (little-endian) give the new length.

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "settings/IniFile.h"
#include "demo/RomBuilder.h"
#include "rom/SettingsReader.h"

namespace kartova::fuzz {

using Bytes = std::vector<std::uint8_t>;

// A directory of this process (under /dev/shm when there is one), removed at exit. Directories
// left behind by runs that crashed are removed when the next run starts.
const std::string& WorkDir();
std::string WorkFile(const std::string& name);

void WriteFile(const std::string& path, std::span<const std::uint8_t> bytes);
void WriteFile(const std::string& path, const std::string& text);
// Empty when the file cannot be read. The second form reuses the vector's storage: a ROM is
// megabytes, and a fresh buffer for each read would cost more than the read.
Bytes ReadFile(const std::string& path);
void ReadFile(const std::string& path, Bytes& into);

// The demo ROM and where its builder put things, built on first use.
const BuiltRom& Demo();
// The file offsets patch records are placed relative to, sorted and without duplicates.
const std::vector<std::int64_t>& PatchAnchors();

// Reads an input front to back; past the end everything reads as zero.
class InputReader {
 public:
  explicit InputReader(std::span<const std::uint8_t> data) : data_(data) {}
  bool Empty() const { return pos_ >= data_.size(); }
  std::size_t Left() const { return data_.size() - pos_; }
  std::uint8_t Byte();
  std::uint16_t Word();
  std::span<const std::uint8_t> Take(std::size_t n);  // at most Left() bytes
  std::span<const std::uint8_t> Rest() { return Take(Left()); }

 private:
  std::span<const std::uint8_t> data_;
  std::size_t pos_ = 0;
};

inline constexpr std::uint8_t kRawFileFlag = 0x01;
inline constexpr std::uint8_t kExactFileFlag = 0x02;
// A raw file is repeated up to here: the end of bank 0x25.
inline constexpr std::size_t kRawFileLength = 0x98000;
inline constexpr std::uint8_t kCutAnchor = 0xFF;

struct Patch {
  std::int64_t offset = 0;
  Bytes bytes;
};

struct RomCase {
  bool raw = false;
  std::string ini;
  Bytes raw_file;              // raw: the whole file, repeated already
  std::vector<Patch> patches;  // otherwise: over the demo image
  std::int64_t cut_to = -1;    // the file's new length, when a record cut it
  std::span<const std::uint8_t> tail;
};
RomCase DecodeRomCase(std::span<const std::uint8_t> input);

// The inverse, for the seed generator.
struct PatchRecord {
  std::uint8_t anchor = 0;
  std::int8_t delta = 0;
  Bytes bytes;  // at most 63
};
Bytes EncodeRomCase(std::uint8_t flags, const std::string& ini, std::span<const std::uint8_t> rom_part,
                    std::span<const std::uint8_t> tail);
Bytes EncodePatches(const std::vector<PatchRecord>& records);
// The record index that comes closest to offset, for seeds aimed at one place.
PatchRecord PatchAt(std::int64_t offset, Bytes bytes);

// The fuzzed INI file read through the editor's INI reader, every answer kept: the definition
// asks for the same keys again and again, and the reader goes to the file each time. The
// answers stay valid while the text is unchanged, so inputs with equal INI text share them.
class CachedIniSettings : public SettingsReader {
 public:
  explicit CachedIniSettings(std::string path) : ini_(std::move(path)) {}
  // Writes the text to the file and forgets the answers, unless it is the text already there.
  void Use(const std::string& text);
  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override;

 private:
  IniFile ini_;
  std::string text_;
  bool written_ = false;
  mutable std::map<std::tuple<std::string, std::string, std::string>, std::string> answers_;
};

// The ROM and INI files of one input. In place (open and load), the patched file is kept from
// input to input: only the patched bytes are written, and the next Prepare puts them back.
// Fresh (edit and save, whose saves replace the file) writes the whole image every time.
class RomCaseFiles {
 public:
  enum class Mode { kInPlace, kFresh };
  explicit RomCaseFiles(Mode mode) : mode_(mode) {}
  ~RomCaseFiles();
  RomCaseFiles(const RomCaseFiles&) = delete;
  RomCaseFiles& operator=(const RomCaseFiles&) = delete;

  // Writes the case's files; returns the ROM path.
  std::string Prepare(const RomCase& c);
  const SettingsReader& Settings() const { return settings_; }
  // The bytes of the ROM as Prepare wrote it (fresh only).
  const Bytes& Image() const { return image_; }

 private:
  void RestoreInPlace();

  Mode mode_;
  CachedIniSettings settings_{WorkFile("fuzz.ini")};
  int fd_ = -1;                                              // the patched file, in place
  std::vector<std::pair<std::int64_t, std::size_t>> dirty_;  // offset, length
  bool cut_ = false;
  Bytes image_;
};

// Aborts with a message: a broken invariant is a finding.
[[noreturn]] void Fail(const char* what);
inline void Check(bool ok, const char* what) {
  if (!ok) Fail(what);
}

}  // namespace kartova::fuzz
