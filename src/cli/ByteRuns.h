#pragma once

#include <cstdint>
#include <vector>

#include "rom/FileRegion.h"

namespace kartova::cli {

// A stretch of a file whose bytes changed: the bytes before and after, from `offset` on.
// `old_bytes` is shorter than `new_bytes` where the file grew (the offsets past its old end
// had no bytes before).
struct ByteRun {
  std::int64_t offset = 0;
  std::vector<std::uint8_t> old_bytes;
  std::vector<std::uint8_t> new_bytes;
  bool operator==(const ByteRun&) const = default;
};

// The bytes that differ between two images of a file, in file order; changed bytes that touch
// form one run. Every byte of `after` past the end of `before` counts as changed.
std::vector<ByteRun> ChangedRuns(const std::vector<std::uint8_t>& before,
                                 const std::vector<std::uint8_t>& after);

// The regions that turn `before` into `after` when written over it.
std::vector<FileRegion> RunRegions(const std::vector<ByteRun>& runs);

}  // namespace kartova::cli
