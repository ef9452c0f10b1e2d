#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// How the editor shows and reads numbers. Display is upper-case hexadecimal, zero-padded;
// parsing follows the classic "&H" rules of the editor's numeric parser.
namespace kartova {

// Upper-case hex of n without prefix; negative values show their 32-bit two's complement.
std::string Hex(std::int64_t n);
// The last `digits` characters of zeros followed by Hex(n): HexPad(5, 2) == "05",
// HexPad(0x1234, 2) == "34".
std::string HexPad(std::int64_t n, int digits);
inline std::string Hex2(std::int64_t n) { return HexPad(n, 2); }
inline std::string Hex4(std::int64_t n) { return HexPad(n, 4); }
inline std::string Hex6(std::int64_t n) { return HexPad(n, 6); }

// The value of "&H" followed by s: the leading hex digits are taken, parsing stops at the
// first character that is no hex digit, no digits give 0. Up to four digits are a signed
// 16-bit quantity (FFFF is -1), five to eight a signed 32-bit one. More than eight significant
// digits overflow (RuntimeError 6).
std::int32_t ParseHex(std::string_view s);

// The value of s read by the plain numeric parser: leading blanks, an optional sign, digits
// and an optional fraction; anything else ends the number, nothing gives 0.
double ParseDecimal(std::string_view s);
// ParseDecimal rounded to a 32-bit integer (half to even, as the runtime assigns to a Long);
// out of range raises the overflow error.
std::int32_t ParseDecimalInt(std::string_view s);

// True when "&H0" followed by text is a number as a whole: only hex digits, and the value
// fits 32 bits. The empty text counts as a number (it reads "&H0").
bool IsHexNumberAfterZero(std::string_view text);
// True when "&H" followed by text is a number as a whole: at least one hex digit, only hex
// digits, and the value fits 32 bits.
bool IsHexNumber(std::string_view text);

// Decimal text of n, without blanks.
std::string Dec(std::int64_t n);

}  // namespace kartova
