#include "maps/MapNames.h"

#include <array>
#include <iterator>
#include <map>

#include "rom/Address.h"
#include "rom/GameTextTable.h"
#include "rom/HexText.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

// The characters of a text; a byte that does not start valid UTF-8 stands for itself.
std::u32string DecodeUtf8(std::string_view s) {
  std::u32string out;
  for (size_t i = 0; i < s.size();) {
    const auto b = static_cast<unsigned char>(s[i]);
    size_t extra = b >= 0xF0 && b < 0xF8 ? 3 : b >= 0xE0 && b < 0xF0 ? 2 : b >= 0xC0 && b < 0xE0 ? 1 : 0;
    char32_t c = extra ? b & (0x3F >> extra) : b;
    bool valid = i + extra < s.size();
    for (size_t k = 1; valid && k <= extra; ++k) {
      const auto cont = static_cast<unsigned char>(s[i + k]);
      valid = (cont & 0xC0) == 0x80;
      c = c << 6 | (cont & 0x3F);
    }
    if (!valid) {
      c = b;
      extra = 0;
    }
    out.push_back(c);
    i += extra + 1;
  }
  return out;
}

std::string EncodeUtf8(const std::u32string& s) {
  std::string out;
  for (char32_t c : s) {
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      out.push_back(static_cast<char>(0xC0 | c >> 6));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | c >> 12));
      out.push_back(static_cast<char>(0x80 | (c >> 6 & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | c >> 18));
      out.push_back(static_cast<char>(0x80 | (c >> 12 & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c >> 6 & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
  }
  return out;
}

// Case pairs of the 8-bit Western character set beyond ASCII and Latin-1.
constexpr char32_t kExtraPairs[][2] = {{0x160, 0x161}, {0x152, 0x153}, {0x17D, 0x17E}, {0x178, 0xFF}};

bool IsLatin1Upper(char32_t c) { return (c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 'A' && c <= 'Z'); }
bool IsLatin1Lower(char32_t c) { return (c >= 0xE0 && c <= 0xFE && c != 0xF7) || (c >= 'a' && c <= 'z'); }

char32_t ToLower(char32_t c) {
  if (IsLatin1Upper(c)) return c + 0x20;
  for (const auto& p : kExtraPairs)
    if (c == p[0]) return p[1];
  return c;
}

char32_t ToUpper(char32_t c) {
  if (IsLatin1Lower(c)) return c - 0x20;
  for (const auto& p : kExtraPairs)
    if (c == p[1]) return p[0];
  return c;
}

// Finds the bytes of a name that count: those with a glyph, and the terminator. All 95 names
// start in the bank of the name table; in a file without terminators (a file of zeros) each
// would run through the rest of the file. The stretches without such a byte are remembered
// instead, so a name that starts in one, or runs into one, jumps over it.
class NameByteFinder {
 public:
  NameByteFinder(RomFile& rom, const GameTextTable& text) : rom_(rom) {
    for (int b = 0; b < 256; ++b) {
      const std::string& glyph = text.GameText(static_cast<std::uint8_t>(b));
      stops_[static_cast<size_t>(b)] = b == GameTextTable::kTerminator || !glyph.empty();
      for (char c : glyph) chars_[static_cast<size_t>(b)] += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }
  }

  // The position of the next byte that counts at or after from (0 <= from), or the end of the
  // file.
  std::int64_t Next(std::int64_t from) {
    auto after = empty_.upper_bound(from);
    if (after != empty_.begin()) {
      const auto stretch = std::prev(after);
      if (from < stretch->second) return stretch->second;
    }
    const bool runs_into_known = after != empty_.end();
    const std::int64_t limit = runs_into_known ? after->first : rom_.Size();
    std::int64_t found = rom_.Find(from, limit, stops_);
    if (runs_into_known && found >= limit) {
      found = after->second;
      empty_.erase(after);
    }
    if (found > from) empty_.emplace(from, found);
    return found;
  }

  // Characters the byte's glyph adds to a name.
  std::size_t Characters(std::uint8_t b) const { return chars_[b]; }

 private:
  RomFile& rom_;
  RomFile::ByteSet stops_{};
  std::array<std::size_t, 256> chars_{};
  std::map<std::int64_t, std::int64_t> empty_;  // [start, end): nothing that counts in it
};

// The text of the name at start, up to and including its terminator or to the end of the file.
std::string ReadName(RomFile& rom, NameByteFinder& finder, std::int64_t start, const GameTextTable& text) {
  std::string name;
  std::size_t characters = 0;
  for (std::int64_t at = start; at >= 0 && (at = finder.Next(at)) < rom.Size(); ++at) {
    std::uint8_t b = 0;
    rom.Seek(at);
    if (rom.ReadBytes(&b, 1) == 0) break;  // the file shrank under us
    name += text.GameText(b);
    if (b == GameTextTable::kTerminator) break;
    characters += finder.Characters(b);
    if (characters > kLongestMapName) throw RuntimeError::Overflow();
  }
  return name;
}

}  // namespace

std::string FormatMapName(std::string_view text) {
  std::u32string t = U" ";
  for (char32_t c : DecodeUtf8(text)) t.push_back(ToLower(c));
  // The positions are counted in a byte.
  if (t.size() > kLongestMapName + 1) throw RuntimeError::Overflow();
  for (size_t p = 1; p < t.size(); ++p)
    if (t[p - 1] == U' ' || t[p - 1] == U'-') t[p] = ToUpper(t[p]);
  t.erase(0, 1);
  while (!t.empty() && t.back() == U' ') t.pop_back();
  std::u32string closed;
  for (size_t i = 0; i < t.size(); ++i) {
    closed.push_back(t[i]);
    if (t[i] == U'-' && i + 1 < t.size() && t[i + 1] == U' ') ++i;
  }
  return EncodeUtf8(closed);
}

LocationNames ReadLocationNames(RomFile& rom, std::int32_t map_name_table, const GameTextTable& text) {
  CheckedInt32(static_cast<std::int64_t>(map_name_table) + 4 * (kLocationCount - 1));
  NameByteFinder finder(rom, text);
  LocationNames names;
  for (int i = 0; i < kLocationCount; ++i) {
    rom.Seek(static_cast<std::int64_t>(map_name_table) + 4 * i);
    const std::uint16_t pointer = rom.ReadWord();
    const std::string name = ReadName(rom, finder, SameBankOffset(map_name_table, pointer), text);
    names[static_cast<size_t>(i)] = FormatMapName(name);
  }
  return names;
}

std::vector<std::string> LocationItems(const LocationNames& names) {
  std::vector<std::string> items;
  items.reserve(names.size());
  for (size_t i = 0; i < names.size(); ++i) items.push_back(Hex2(static_cast<std::int64_t>(i)) + " - " + names[i]);
  return items;
}

}  // namespace kartova
