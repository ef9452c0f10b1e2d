#pragma once

#include <cstdint>
#include <vector>

namespace kartova {

// A run of bytes that a save puts at a file offset. Regions are applied in order; a later one
// wins where two overlap. A region that starts past the end of the file lengthens it, the gap
// reading zero, as a positioned write past the end always has.
struct FileRegion {
  std::int64_t offset = 0;
  std::vector<std::uint8_t> bytes;

  std::int64_t End() const { return offset + static_cast<std::int64_t>(bytes.size()); }
  bool operator==(const FileRegion&) const = default;
};

// The file's bytes with the regions put in (a negative offset is left out).
void ApplyRegions(std::vector<std::uint8_t>& image, const std::vector<FileRegion>& regions);

}  // namespace kartova
