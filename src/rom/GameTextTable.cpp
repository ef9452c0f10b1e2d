#include "rom/GameTextTable.h"

#include <utility>

#include "rom/RomFile.h"

namespace kartova {

namespace {

// Glyphs that are not plain letters or digits. Assigned after the letter and digit ranges, so
// 0x9A, which the capital range would make "[", is the opening parenthesis.
constexpr std::pair<std::uint8_t, const char*> kSingleGlyphs[] = {
    {0x1F, " "},   {0x50, ""},    {0x54, "FUX\u00e9"}, {0x7F, " "},       {0x9A, "("},
    {0x9B, ")"},   {0x9C, ":"},   {0x9D, ";"},         {0x9E, "["},       {0x9F, "]"},
    {0xBE, "\u00df"}, {0xC0, "\u00c4"}, {0xC1, "\u00d6"}, {0xC2, "\u00dc"}, {0xC3, "\u00e4"},
    {0xC4, "\u00f6"}, {0xC5, "\u00fc"}, {0xD0, "'d"}, {0xD1, "'l"},       {0xD2, "'m"},
    {0xD3, "'r"},  {0xD4, "'s"},  {0xD5, "'t"},        {0xD6, "'v"},      {0xE0, "'"},
    {0xE1, "QX"},  {0xE2, "ZR"},  {0xE3, "-"},         {0xE6, "?"},       {0xE7, "!"},
    {0xE8, "."},   {0xE9, "&"},   {0xEF, "(m)"},       {0xF0, "$"},       {0xF1, "*"},
    {0xF2, "."},   {0xF3, "/"},   {0xF4, ","},         {0xF5, "(f)"},
};

}  // namespace

GameTextTable::GameTextTable() {
  // Capitals from 0x80 and small letters from 0xA0 are ASCII shifted by 63; each range runs one
  // byte past Z/z.
  for (int b = 0x80; b <= 0x9A; ++b) text_[b] = std::string(1, static_cast<char>(b - 63));
  for (int b = 0xA0; b <= 0xBA; ++b) text_[b] = std::string(1, static_cast<char>(b - 63));
  for (int b = 0xF6; b <= 0xFF; ++b) text_[b] = std::string(1, static_cast<char>(b - 198));
  for (const auto& [byte, text] : kSingleGlyphs) text_[byte] = text;
}

std::string GameTextTable::Decode(const std::uint8_t* bytes, std::size_t n) const {
  std::string out;
  for (std::size_t i = 0; i < n; ++i) {
    out += text_[bytes[i]];
    if (bytes[i] == kTerminator) break;
  }
  return out;
}

std::string GameTextTable::ReadString(RomFile& file) const {
  std::string out;
  while (!file.AtEnd()) {
    const std::uint8_t b = file.ReadByte();
    out += text_[b];
    if (b == kTerminator) break;
  }
  return out;
}

}  // namespace kartova
