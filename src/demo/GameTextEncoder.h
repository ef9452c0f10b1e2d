#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kartova {

// The game's one-byte character set from text: the inverse of the game text table for the
// characters a location name or sign uses. Input is UTF-8; upper and lower case letters,
// Ä Ö Ü ä ö ü ß, digits, the blank (stored as 0x7F, the game's name blank), and
// ( ) : ; [ ] ' - ? ! . & $ * / , are known. Anything else throws RomBuildError.
// The terminator 0x50 is not added.
std::vector<std::uint8_t> EncodeGameText(std::string_view utf8);

}  // namespace kartova
