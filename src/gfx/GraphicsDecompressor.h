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
// stream writes past it (such writes are skipped, decoding goes on). Sources outside the
// buffer are skipped the same way: the byte they would have given is not written. A stream
// without its 0xFF end mark ends at the end of the data; when that end falls inside a command,
// the bytes that command got before it are written and counted, and decoding stops.
//
// The file overload reads from offset on and leaves the file positioned just after the last
// stream byte it took. Decoding is linear in the length of the stream whatever its counts say.
std::int64_t DecompressGraphics(RomFile& file, std::int64_t offset, GraphicsBuffer& buffer);
std::int64_t DecompressGraphics(std::span<const std::uint8_t> stream, GraphicsBuffer& buffer);

// Bit 7 becomes bit 0, bit 6 bit 1, and so on: a row of 8 pixels seen in a mirror, as the
// bit-reversed copy command produces it.
constexpr std::uint8_t ReverseBits(std::uint8_t b) {
  b = static_cast<std::uint8_t>((b & 0xF0) >> 4 | (b & 0x0F) << 4);
  b = static_cast<std::uint8_t>((b & 0xCC) >> 2 | (b & 0x33) << 2);
  return static_cast<std::uint8_t>((b & 0xAA) >> 1 | (b & 0x55) << 1);
}

}  // namespace kartova
