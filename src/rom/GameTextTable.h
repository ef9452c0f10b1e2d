#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace kartova {

class RomFile;

// The game's one-byte character set as display text (UTF-8): letters, umlauts and ß, digits,
// punctuation, contractions and the word glyphs. Bytes without an entry, control codes and the
// string terminator 0x50 give the empty string.
class GameTextTable {
 public:
  static constexpr std::uint8_t kTerminator = 0x50;

  GameTextTable();  // builds the whole table

  const std::string& GameText(std::uint8_t b) const { return text_[b]; }

  // Decodes bytes up to and including the first terminator (or all of them if there is none).
  std::string Decode(const std::uint8_t* bytes, std::size_t n) const;

  // Reads a string from the file position up to and including the terminator; a string that
  // never meets the terminator ends at the end of the file.
  std::string ReadString(RomFile& file) const;

 private:
  std::array<std::string, 256> text_;
};

}  // namespace kartova
