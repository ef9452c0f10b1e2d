#include "rom/FileRegion.h"

#include <algorithm>

namespace kartova {

void ApplyRegions(std::vector<std::uint8_t>& image, const std::vector<FileRegion>& regions) {
  for (const FileRegion& region : regions) {
    if (region.offset < 0 || region.bytes.empty()) continue;
    const auto end = static_cast<std::size_t>(region.End());
    if (image.size() < end) image.resize(end, 0);
    std::copy(region.bytes.begin(), region.bytes.end(),
              image.begin() + static_cast<std::ptrdiff_t>(region.offset));
  }
}

}  // namespace kartova
