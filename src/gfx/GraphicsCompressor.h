#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kartova {

// Packs data (at most 4096 bytes) into the game's graphics compression format, ending with the
// 0xFF end mark, so that DecompressGraphics gives data back byte for byte.
std::vector<std::uint8_t> CompressGraphics(std::span<const std::uint8_t> data);

}  // namespace kartova
