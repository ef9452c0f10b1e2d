#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace kartova::test {

// A ROM image laid out byte by byte, for tests that need one structure at an exact place.
class ByteImage {
 public:
  explicit ByteImage(std::size_t size) : bytes_(size, 0) {}
  ByteImage& Put(std::int64_t offset, const std::vector<std::uint8_t>& bytes) {
    if (bytes_.size() < offset + bytes.size()) bytes_.resize(offset + bytes.size(), 0);
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes_[offset + i] = bytes[i];
    return *this;
  }
  ByteImage& Word(std::int64_t offset, std::uint16_t w) {
    return Put(offset, {static_cast<std::uint8_t>(w), static_cast<std::uint8_t>(w >> 8)});
  }
  std::string Save(const TempDir& dir) const {
    std::string path = dir.File("rom.gbc");
    WriteFileBytes(path, bytes_);
    return path;
  }

 private:
  std::vector<std::uint8_t> bytes_;
};

}  // namespace kartova::test
