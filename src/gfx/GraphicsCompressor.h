#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kartova {

// Packs data (at most 4096 bytes) into the game's graphics compression format, ending with the
// 0xFF end mark, so that DecompressGraphics gives data back byte for byte. The stream is the
// shortest the format allows: every command kind, short and long form, near and far sources
// are weighed at every position. Bytes past the 4096th cannot come back out of the decoder;
// they are stored as literals all the same, so that the decompressed length is data.size().
std::vector<std::uint8_t> CompressGraphics(std::span<const std::uint8_t> data);

}  // namespace kartova
