#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "rom/Address.h"
#include "support/TempDir.h"

namespace kartova::test {

// A zeroed image with header lists placed by hand, for data no well-formed ROM holds. Lists
// start at 0x4200: pointers 0x40ED-0x4120 would land on the group table itself.
struct HandImage {
  explicit HandImage(std::size_t size = 0x98000) : bytes(size, 0) {}
  void Word(std::int64_t at, std::uint16_t v) {
    bytes.at(static_cast<std::size_t>(at)) = static_cast<std::uint8_t>(v);
    bytes.at(static_cast<std::size_t>(at + 1)) = static_cast<std::uint8_t>(v >> 8);
  }
  void Group(int bank, std::uint16_t pointer) { Word(kMapGroupTableOffset + (bank - 1) * 2, pointer); }
  void AllGroups(std::uint16_t pointer) {
    for (int b = 1; b <= kMapBankCount; ++b) Group(b, pointer);
  }
  // `count` records that pass every check of the counting walk (all zero but the pointer).
  void List(std::uint16_t pointer, int count, int stride = 9) {
    for (int i = 0; i < count; ++i) Word(MapGroupOffset(pointer) + i * stride + 3, 0x4000);
  }
  std::string Write(const TempDir& dir, const std::string& name = "rom.gbc") const {
    WriteFileBytes(dir.File(name), bytes);
    return dir.File(name);
  }
  std::vector<std::uint8_t> bytes;
};

}  // namespace kartova::test
