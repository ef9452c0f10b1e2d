#pragma once

#include <cstddef>
#include <string_view>

namespace kartova {

// Length of the well-formed UTF-8 sequence at s[i] (1 for an ASCII byte), or 0 when the bytes
// there are no UTF-8: a stray continuation byte, an overlong form, a surrogate, a code point
// past U+10FFFF, or a sequence cut off by the end of s. i must lie inside s.
std::size_t Utf8SequenceLength(std::string_view s, std::size_t i);

}  // namespace kartova
