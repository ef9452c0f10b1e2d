#include "settings/IniFile.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

#include "rom/Utf8.h"

namespace kartova {

namespace {

// Windows-1252 characters of the bytes 0x80-0x9F; the five unassigned bytes keep their C1 code.
constexpr char32_t kWindows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view Trim(std::string_view s) {
  while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
  return s;
}

std::string_view Unquote(std::string_view s) {
  if (s.size() >= 2 && (s.front() == '"' || s.front() == '\'') && s.back() == s.front())
    return s.substr(1, s.size() - 2);
  return s;
}

// The character at s[i] (a UTF-8 sequence or one Windows-1252 byte); advances i past it.
char32_t NextCharacter(std::string_view s, std::size_t& i) {
  const std::size_t n = Utf8SequenceLength(s, i);
  const auto b = static_cast<std::uint8_t>(s[i]);
  if (n == 0) {
    ++i;
    return b < 0xA0 ? kWindows1252High[b - 0x80] : char32_t{b};
  }
  char32_t c = n == 1 ? b : b & (0xFF >> (n + 1));
  for (std::size_t k = 1; k < n; ++k) c = (c << 6) | (static_cast<std::uint8_t>(s[i + k]) & 0x3F);
  i += n;
  return c;
}

// ASCII and Latin-1 capitals made small, as the profile functions compare names without
// regard to case.
char32_t Folded(char32_t c) {
  if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
  return c;
}

// Compares names character by character; runs for every line of the file on every read, so it
// allocates nothing.
bool NamesEqual(std::string_view a, std::string_view b) {
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size())
    if (Folded(NextCharacter(a, i)) != Folded(NextCharacter(b, j))) return false;
  return i == a.size() && j == b.size();
}

// At most kMaxValueLength characters of UTF-8 text, ending at an embedded NUL as a C string does.
std::string CutValue(std::string text) {
  if (auto nul = text.find('\0'); nul != std::string::npos) text.resize(nul);
  std::size_t chars = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((static_cast<std::uint8_t>(text[i]) & 0xC0) == 0x80) continue;
    if (++chars > IniFile::kMaxValueLength) {
      text.resize(i);
      break;
    }
  }
  return text;
}

std::filesystem::path Utf8Path(const std::string& path) {
  return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

// Far more than any settings file holds; a bigger file is not read, so that a stray huge file
// cannot stall every settings read.
constexpr std::streamoff kMaxFileSize = 16 << 20;

// The bytes of the file, or nothing when it does not exist or cannot be read.
std::optional<std::string> ReadAll(const std::string& path) {
  std::error_code ec;
  auto p = Utf8Path(path);
  if (!std::filesystem::is_regular_file(p, ec)) return std::nullopt;
  std::ifstream in(p, std::ios::binary | std::ios::ate);
  if (!in) return std::nullopt;
  const std::streamoff size = in.tellg();
  if (size < 0 || size > kMaxFileSize) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size), '\0');
  in.seekg(0);
  in.read(bytes.data(), size);
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

enum class LineKind { kOther, kSection, kEntry };

struct Line {
  std::size_t begin = 0;        // first byte
  std::size_t content_end = 0;  // end of the text, before CR LF or LF
  std::size_t end = 0;          // after the line end
  LineKind kind = LineKind::kOther;
  std::string_view name;   // section or key name, trimmed
  std::string_view value;  // entry value, trimmed and unquoted
};

Line ParseLine(std::string_view text, std::size_t begin, std::size_t content_end, std::size_t end) {
  Line line;
  line.begin = begin;
  line.content_end = content_end;
  line.end = end;
  std::string_view content = Trim(text.substr(begin, content_end - begin));
  if (!content.empty() && content.front() == '[') {
    content.remove_prefix(1);
    line.kind = LineKind::kSection;
    line.name = Trim(content.substr(0, content.find(']')));
  } else if (auto eq = content.find('='); eq != std::string_view::npos) {
    line.kind = LineKind::kEntry;
    line.name = Trim(content.substr(0, eq));
    line.value = Unquote(Trim(content.substr(eq + 1)));
  }
  return line;
}

// The line that starts at begin.
Line NextLine(std::string_view text, std::size_t begin) {
  const std::size_t nl = text.find('\n', begin);
  const std::size_t end = nl == std::string_view::npos ? text.size() : nl + 1;
  std::size_t content_end = nl == std::string_view::npos ? text.size() : nl;
  if (content_end > begin && text[content_end - 1] == '\r') --content_end;
  return ParseLine(text, begin, content_end, end);
}

std::vector<Line> SplitLines(std::string_view text) {
  std::vector<Line> lines;
  for (std::size_t begin = 0; begin < text.size(); begin = lines.back().end)
    lines.push_back(NextLine(text, begin));
  return lines;
}

// Where a section's lines are: the header's index and the index after its last line.
struct SectionSpan {
  std::size_t header = 0;
  std::size_t end = 0;
};

std::optional<SectionSpan> FindSection(const std::vector<Line>& lines, std::string_view section) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].kind != LineKind::kSection || !NamesEqual(lines[i].name, section)) continue;
    std::size_t end = i + 1;
    while (end < lines.size() && lines[end].kind != LineKind::kSection) ++end;
    return SectionSpan{i, end};
  }
  return std::nullopt;
}

std::optional<std::size_t> FindEntry(const std::vector<Line>& lines, SectionSpan span,
                                     std::string_view key) {
  for (std::size_t i = span.header + 1; i < span.end; ++i)
    if (lines[i].kind == LineKind::kEntry && NamesEqual(lines[i].name, key)) return i;
  return std::nullopt;
}

std::string OneLine(std::string_view s) {
  std::string out(s);
  for (char& c : out)
    if (c == '\r' || c == '\n') c = ' ';
  return out;
}

// The line end the file already uses; a new file gets the system's own.
std::string LineEnd(std::string_view text) {
  std::size_t nl = text.find('\n');
  if (nl == std::string_view::npos) {
#ifdef _WIN32
    return "\r\n";
#else
    return "\n";
#endif
  }
  return nl > 0 && text[nl - 1] == '\r' ? "\r\n" : "\n";
}

std::string WithEntry(const std::string& original, std::string_view section, std::string_view key,
                      std::string_view value) {
  // A last line ended by a lone CR already ends for the reader; completing its line end keeps
  // what follows from being glued onto it.
  std::string text = original;
  if (!text.empty() && text.back() == '\r') text += '\n';
  const std::vector<Line> lines = SplitLines(text);
  const std::string nl = LineEnd(text);
  const std::string entry = OneLine(key) + "=" + OneLine(value);

  auto span = FindSection(lines, section);
  if (!span) {
    std::string out = text;
    if (!out.empty() && out.back() != '\n') out += nl;
    if (!lines.empty() && lines.back().content_end > lines.back().begin) out += nl;
    return out + "[" + OneLine(section) + "]" + nl + entry + nl;
  }
  if (auto at = FindEntry(lines, *span, key)) {
    const Line& line = lines[*at];
    return text.substr(0, line.begin) + entry + text.substr(line.content_end);
  }
  // After the section's last line that is not blank, so that blank lines before the next
  // section stay where they are.
  std::size_t anchor = span->header;
  for (std::size_t i = span->header + 1; i < span->end; ++i)
    if (!Trim(std::string_view(text).substr(lines[i].begin, lines[i].content_end - lines[i].begin)).empty())
      anchor = i;
  const Line& line = lines[anchor];
  std::string head = text.substr(0, line.end);
  if (line.end == line.content_end) head += nl;  // the last line of the file had no line end
  return head + entry + nl + text.substr(line.end);
}

}  // namespace

std::string DecodeEightBitText(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    if (std::size_t n = Utf8SequenceLength(bytes, i)) {
      out.append(bytes.substr(i, n));
      i += n;
      continue;
    }
    auto b = static_cast<std::uint8_t>(bytes[i++]);
    AppendUtf8(out, b < 0xA0 ? kWindows1252High[b - 0x80] : char32_t{b});
  }
  return out;
}

std::string IniFile::Read(std::string_view section, std::string_view key,
                          std::string_view def) const {
  auto text = ReadAll(path_);
  if (!text || section.empty() || key.empty()) return CutValue(std::string(def));
  // Only the first section of that name is searched.
  bool in_section = false;
  for (std::size_t begin = 0; begin < text->size();) {
    const Line line = NextLine(*text, begin);
    begin = line.end;
    if (line.kind == LineKind::kSection) {
      if (in_section) break;
      in_section = NamesEqual(line.name, section);
    } else if (in_section && line.kind == LineKind::kEntry && NamesEqual(line.name, key)) {
      return CutValue(DecodeEightBitText(line.value));
    }
  }
  return CutValue(std::string(def));
}

bool IniFile::Write(std::string_view section, std::string_view key, std::string_view value) const {
  if (section.empty() || key.empty()) return false;
  std::error_code ec;
  const auto p = Utf8Path(path_);
  std::string text;
  if (std::filesystem::exists(p, ec)) {
    auto existing = ReadAll(path_);
    if (!existing) return false;
    text = std::move(*existing);
  }
  const std::string out = WithEntry(text, section, key, value);
  std::ofstream file(p, std::ios::binary | std::ios::trunc);
  if (!file) return false;
  file.write(out.data(), static_cast<std::streamsize>(out.size()));
  file.close();
  return !file.fail();
}

}  // namespace kartova
