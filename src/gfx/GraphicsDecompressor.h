#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace kartova {

class RomFile;

inline constexpr int kGraphicsBufferSize = 4096;
using GraphicsBuffer = std::array<std::uint8_t, kGraphicsBufferSize>;

// Unpacks the game's compressed tile graphics into buffer (zero-filled first). Returns the
// decompressed length: the final output position, which may lie beyond the buffer when the
// stream writes past it (such writes are skipped, decoding goes on). A stream without its
// 0xFF end mark ends at the end of the data.
std::int64_t DecompressGraphics(RomFile& file, std::int64_t offset, GraphicsBuffer& buffer);
std::int64_t DecompressGraphics(std::span<const std::uint8_t> stream, GraphicsBuffer& buffer);

}  // namespace kartova
