#include "rom/HexText.h"

#include <cmath>
#include <cstdio>

#include "rom/RuntimeError.h"

namespace kartova {

namespace {
int HexDigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Value of an all-hex string; false when more than 32 significant bits.
bool HexValue(std::string_view digits, std::uint64_t& value) {
  value = 0;
  for (char c : digits) {
    value = value * 16 + static_cast<std::uint64_t>(HexDigitValue(c));
    if (value > 0xFFFFFFFFull) return false;
  }
  return true;
}

bool AllHex(std::string_view text) {
  for (char c : text)
    if (HexDigitValue(c) < 0) return false;
  return true;
}
}  // namespace

std::string Hex(std::int64_t n) {
  char buf[24];
  std::snprintf(buf, sizeof buf, "%llX",
                static_cast<unsigned long long>(n < 0 ? static_cast<std::uint32_t>(n) : n));
  return buf;
}

std::string HexPad(std::int64_t n, int digits) {
  std::string s = std::string(static_cast<size_t>(digits), '0') + Hex(n);
  return s.substr(s.size() - static_cast<size_t>(digits));
}

std::int32_t ParseHex(std::string_view s) {
  size_t n = 0;
  while (n < s.size() && HexDigitValue(s[n]) >= 0) ++n;
  std::string_view digits = s.substr(0, n);
  std::uint64_t value = 0;
  if (!HexValue(digits, value)) throw RuntimeError::Overflow();
  if (n <= 4) return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

double ParseDecimal(std::string_view s) {
  size_t i = 0;
  while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
  bool negative = false;
  if (i < s.size() && (s[i] == '-' || s[i] == '+')) negative = s[i++] == '-';
  double value = 0;
  while (i < s.size() && s[i] >= '0' && s[i] <= '9') value = value * 10 + (s[i++] - '0');
  if (i < s.size() && s[i] == '.') {
    ++i;
    double scale = 0.1;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
      value += (s[i++] - '0') * scale;
      scale /= 10;
    }
  }
  return negative ? -value : value;
}

std::int32_t ParseDecimalInt(std::string_view s) {
  double v = std::nearbyint(ParseDecimal(s));  // default rounding mode: half to even
  if (!(v >= INT32_MIN && v <= INT32_MAX)) throw RuntimeError::Overflow();
  return static_cast<std::int32_t>(v);
}

bool IsHexNumberAfterZero(std::string_view text) {
  std::uint64_t value = 0;
  return AllHex(text) && HexValue(text, value);
}

bool IsHexNumber(std::string_view text) { return !text.empty() && IsHexNumberAfterZero(text); }

std::string Dec(std::int64_t n) { return std::to_string(n); }

}  // namespace kartova
