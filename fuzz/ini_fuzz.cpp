// The INI reader on arbitrary text: reads the sections and keys the text names, writes one key
// and reads again. Checks what the store promises:
// - every value read is UTF-8 of at most 254 characters without NUL;
// - a value written is read back (trimmed), and no other key's value changes;
// - a write changes one line or inserts a few (the entry, a section header, a blank line) and
//   leaves every other line exactly as it was, line ends included.
//
// Input: byte 0 picks the section to write (one the text names, or a new one), byte 1 the key,
// byte 2 the value's length (low 6 bits), then the value, then the text.

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzSupport.h"
#include "settings/IniFile.h"
#include "rom/Utf8.h"

using namespace kartova;
using namespace kartova::fuzz;

namespace {

constexpr std::size_t kMaxNames = 6;

std::string_view TrimBlanks(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

// The lines of a text, each with its line end.
std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t nl = text.find('\n', begin);
    const std::size_t end = nl == std::string_view::npos ? text.size() : nl + 1;
    lines.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return lines;
}

std::string_view Content(std::string_view line) {
  if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

struct Names {
  std::vector<std::string> sections;
  std::vector<std::string> keys;
};

// Section and key names as a reader of the format sees them, a few of each.
Names NamesIn(std::string_view text) {
  Names names;
  auto add = [](std::vector<std::string>& list, std::string_view name) {
    if (name.empty() || list.size() >= kMaxNames) return;
    if (std::find(list.begin(), list.end(), name) == list.end()) list.emplace_back(name);
  };
  for (std::string_view line : Lines(text)) {
    const std::string_view content = TrimBlanks(Content(line));
    if (!content.empty() && content.front() == '[') {
      add(names.sections,
          TrimBlanks(content.substr(1, content.find(']') == std::string_view::npos ? std::string_view::npos
                                                                                   : content.find(']') - 1)));
    } else if (const std::size_t eq = content.find('='); eq != std::string_view::npos) {
      add(names.keys, TrimBlanks(content.substr(0, eq)));
    }
  }
  return names;
}

bool ValidValue(const std::string& value) {
  std::size_t chars = 0;
  for (std::size_t i = 0; i < value.size();) {
    const std::size_t n = Utf8SequenceLength(value, i);
    if (n == 0 || value[i] == '\0') return false;
    i += n;
    ++chars;
  }
  return chars <= IniFile::kMaxValueLength;
}

bool Ascii(std::string_view s) {
  return std::all_of(s.begin(), s.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether two names may be the same name to the store. Only ASCII names are compared here;
// two names with other characters are taken to be possibly the same.
bool MaybeSameName(std::string_view a, std::string_view b) {
  if (Ascii(a) != Ascii(b)) return false;
  if (!Ascii(a)) return true;
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return std::tolower(x) == std::tolower(y); });
}

// A name a line can hold: not empty, no line break, no blank at either end.
bool Writable(std::string_view name) {
  return !name.empty() && name.find_first_of("\r\n") == std::string_view::npos && TrimBlanks(name) == name;
}

// Lines equal, or the old last line without a line end that got one.
bool SameLine(std::string_view before, std::string_view after, bool last_without_end) {
  if (before == after) return true;
  return last_without_end && after.substr(0, before.size()) == before &&
         (after.substr(before.size()) == "\n" || after.substr(before.size()) == "\r\n");
}

void CheckLinesKept(std::string_view before_text, std::string_view after_text, const std::string& entry) {
  const std::vector<std::string_view> before = Lines(before_text), after = Lines(after_text);
  const bool open_end = !before_text.empty() && before_text.back() != '\n';
  auto same = [&](std::size_t i, std::size_t j) {
    return SameLine(before[i], after[j], open_end && i + 1 == before.size());
  };
  std::size_t head = 0;
  while (head < before.size() && head < after.size() && same(head, head)) ++head;
  std::size_t tail = 0;
  while (tail < before.size() - head && tail < after.size() - head &&
         same(before.size() - 1 - tail, after.size() - 1 - tail))
    ++tail;
  const std::size_t removed = before.size() - head - tail, added = after.size() - head - tail;
  Check(removed <= 1 && added <= 3 && (removed == 0 || added == 1), "a write changed other lines");
  bool entry_found = false;
  for (std::size_t j = head; j < head + added; ++j) entry_found |= Content(after[j]) == entry;
  Check(entry_found || added == 0, "the written entry is not in the new lines");
}

std::string SafeValue(std::span<const std::uint8_t> bytes) {
  static constexpr std::string_view kAlphabet = "abcXYZ019 _.-";
  std::string value;
  for (std::uint8_t b : bytes) value += kAlphabet[b % kAlphabet.size()];
  return std::string(TrimBlanks(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const IniFile ini(WorkFile("fuzz.ini"));
  InputReader in(std::span(data, size));
  const std::uint8_t section_choice = in.Byte(), key_choice = in.Byte();
  const std::string value = SafeValue(in.Take(in.Byte() & 0x3F));
  const auto text_bytes = in.Rest();
  const std::string text(text_bytes.begin(), text_bytes.end());

  const std::string decoded = DecodeEightBitText(text);
  for (std::size_t i = 0; i < decoded.size();) {
    const std::size_t n = Utf8SequenceLength(decoded, i);
    Check(n > 0, "decoded 8-bit text is no UTF-8");
    i += n;
  }

  WriteFile(ini.path(), text);
  Names names = NamesIn(text);
  names.sections.push_back("Settings");
  names.keys.push_back("count");
  std::vector<std::string> values;
  for (const std::string& s : names.sections) {
    for (const std::string& k : names.keys) {
      values.push_back(ini.Read(s, k, ""));
      Check(ValidValue(values.back()), "a value read is no UTF-8, too long or holds NUL");
    }
  }

  const std::string section = section_choice < names.sections.size()
                                  ? names.sections[section_choice]
                                  : "Neu " + std::to_string(section_choice % 3);
  const std::string key =
      key_choice < names.keys.size() ? names.keys[key_choice] : "Key" + std::to_string(key_choice % 3);
  if (!Writable(section) || !Writable(key) || section.find(']') != std::string::npos ||
      key.find('=') != std::string::npos || key.front() == '[')
    return 0;
  Check(ini.Write(section, key, value), "a write into the work directory failed");
  Check(ini.Read(section, key, "?") == value, "a value written is not read back");
  const Bytes written = ReadFile(ini.path());
  CheckLinesKept(text, std::string_view(reinterpret_cast<const char*>(written.data()), written.size()),
                 key + "=" + value);

  std::size_t v = 0;
  for (const std::string& s : names.sections) {
    for (const std::string& k : names.keys) {
      const bool same = MaybeSameName(s, section) && MaybeSameName(k, key);
      Check(same || ini.Read(s, k, "") == values[v], "a write changed another key's value");
      ++v;
    }
  }
  return 0;
}
