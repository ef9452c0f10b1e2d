#include "rom/Utf8.h"

#include <cstdint>

namespace kartova {

std::size_t Utf8SequenceLength(std::string_view s, std::size_t i) {
  auto byte = [&](std::size_t k) { return static_cast<std::uint8_t>(s[k]); };
  const std::uint8_t b = byte(i);
  if (b < 0x80) return 1;
  std::size_t n = 0;
  std::uint8_t lo = 0x80, hi = 0xBF;
  if (b >= 0xC2 && b <= 0xDF) {
    n = 2;
  } else if (b >= 0xE0 && b <= 0xEF) {
    n = 3;
    if (b == 0xE0) lo = 0xA0;
    if (b == 0xED) hi = 0x9F;  // no surrogates
  } else if (b >= 0xF0 && b <= 0xF4) {
    n = 4;
    if (b == 0xF0) lo = 0x90;
    if (b == 0xF4) hi = 0x8F;
  } else {
    return 0;
  }
  if (i + n > s.size()) return 0;
  if (byte(i + 1) < lo || byte(i + 1) > hi) return 0;
  for (std::size_t k = 2; k < n; ++k)
    if ((byte(i + k) & 0xC0) != 0x80) return 0;
  return n;
}

}  // namespace kartova
