#include "cli/ByteRuns.h"

#include <algorithm>

namespace kartova::cli {

namespace {

bool Changed(const std::vector<std::uint8_t>& before, const std::vector<std::uint8_t>& after, std::size_t i) {
  return i >= before.size() || before[i] != after[i];
}

}  // namespace

std::vector<ByteRun> ChangedRuns(const std::vector<std::uint8_t>& before,
                                 const std::vector<std::uint8_t>& after) {
  std::vector<ByteRun> runs;
  const std::size_t end = after.size();
  std::size_t i = 0;
  while (i < end) {
    // Most of a ROM is unchanged: the equal stretch is skipped with one comparison.
    const std::size_t common = std::min(before.size(), end);
    if (i < common)
      i = static_cast<std::size_t>(
          std::mismatch(before.begin() + static_cast<std::ptrdiff_t>(i), before.begin() + static_cast<std::ptrdiff_t>(common),
                        after.begin() + static_cast<std::ptrdiff_t>(i))
              .first -
          before.begin());
    if (i >= end) break;
    std::size_t stop = i;
    while (stop < end && Changed(before, after, stop)) ++stop;
    ByteRun run{static_cast<std::int64_t>(i), {}, {}};
    run.old_bytes.assign(before.begin() + static_cast<std::ptrdiff_t>(std::min(i, before.size())),
                         before.begin() + static_cast<std::ptrdiff_t>(std::min(stop, before.size())));
    run.new_bytes.assign(after.begin() + static_cast<std::ptrdiff_t>(i), after.begin() + static_cast<std::ptrdiff_t>(stop));
    runs.push_back(std::move(run));
    i = stop;
  }
  return runs;
}

std::vector<FileRegion> RunRegions(const std::vector<ByteRun>& runs) {
  std::vector<FileRegion> regions;
  regions.reserve(runs.size());
  for (const ByteRun& run : runs) regions.push_back({run.offset, run.new_bytes});
  return regions;
}

}  // namespace kartova::cli
