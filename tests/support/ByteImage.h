#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace kartova::test {

// A zeroed ROM image laid out byte by byte, for data no well-formed ROM holds or a structure
// that must sit at an exact place. Writes past the end grow it.
struct ByteImage {
  explicit ByteImage(std::size_t size = 0x98000) : bytes(size, 0) {}
  ByteImage& Put(std::int64_t offset, const std::vector<std::uint8_t>& data) {
    const auto at = static_cast<std::size_t>(offset);
    if (bytes.size() < at + data.size()) bytes.resize(at + data.size(), 0);
    std::copy(data.begin(), data.end(), bytes.begin() + offset);
    return *this;
  }
  ByteImage& Word(std::int64_t offset, std::uint16_t w) {
    return Put(offset, {static_cast<std::uint8_t>(w), static_cast<std::uint8_t>(w >> 8)});
  }
  std::string Save(const TempDir& dir, const std::string& name = "rom.gbc") const {
    WriteFileBytes(dir.File(name), bytes);
    return dir.File(name);
  }
  std::vector<std::uint8_t> bytes;
};

}  // namespace kartova::test
