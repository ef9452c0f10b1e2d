#include "demo/GameTextEncoder.h"

#include <string>

#include "demo/RomBuilder.h"

namespace kartova {
namespace {

constexpr std::uint8_t kNameBlank = 0x7F;

// Reads one UTF-8 code point at pos and advances; malformed sequences give 0xFFFD.
char32_t NextCodePoint(std::string_view s, std::size_t& pos) {
  const auto lead = static_cast<unsigned char>(s[pos++]);
  if (lead < 0x80) return lead;
  int extra = 0;
  char32_t cp = 0;
  if ((lead & 0xE0) == 0xC0) {
    extra = 1;
    cp = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    extra = 2;
    cp = lead & 0x0F;
  } else if ((lead & 0xF8) == 0xF0) {
    extra = 3;
    cp = lead & 0x07;
  } else {
    return 0xFFFD;
  }
  for (int i = 0; i < extra; ++i) {
    if (pos >= s.size()) return 0xFFFD;
    const auto c = static_cast<unsigned char>(s[pos]);
    if ((c & 0xC0) != 0x80) return 0xFFFD;
    cp = (cp << 6) | (c & 0x3F);
    ++pos;
  }
  return cp;
}

int EncodeCodePoint(char32_t c) {
  if (c >= U'A' && c <= U'Z') return 0x80 + static_cast<int>(c - U'A');
  if (c >= U'a' && c <= U'z') return 0xA0 + static_cast<int>(c - U'a');
  if (c >= U'0' && c <= U'9') return 0xF6 + static_cast<int>(c - U'0');
  switch (c) {
    case U' ': return kNameBlank;
    case U'(': return 0x9A;
    case U')': return 0x9B;
    case U':': return 0x9C;
    case U';': return 0x9D;
    case U'[': return 0x9E;
    case U']': return 0x9F;
    case U'{': return 0xBA;
    case U'ß': return 0xBE;
    case U'Ä': return 0xC0;
    case U'Ö': return 0xC1;
    case U'Ü': return 0xC2;
    case U'ä': return 0xC3;
    case U'ö': return 0xC4;
    case U'ü': return 0xC5;
    case U'\'': return 0xE0;
    case U'-': return 0xE3;
    case U'?': return 0xE6;
    case U'!': return 0xE7;
    case U'.': return 0xE8;
    case U'&': return 0xE9;
    case U'$': return 0xF0;
    case U'*': return 0xF1;
    case U'/': return 0xF3;
    case U',': return 0xF4;
    default: return -1;
  }
}

}  // namespace

std::vector<std::uint8_t> EncodeGameText(std::string_view utf8) {
  std::vector<std::uint8_t> out;
  out.reserve(utf8.size());
  std::size_t pos = 0;
  while (pos < utf8.size()) {
    const std::size_t start = pos;
    const int b = EncodeCodePoint(NextCodePoint(utf8, pos));
    if (b < 0) {
      throw RomBuildError("RomBuilder: the game's character set has no \"" +
                          std::string(utf8.substr(start, pos - start)) + "\" (in \"" +
                          std::string(utf8) + "\")");
    }
    out.push_back(static_cast<std::uint8_t>(b));
  }
  return out;
}

}  // namespace kartova
