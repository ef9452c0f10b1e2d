#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "maps/MapBankTable.h"

namespace kartova {

class GameTextTable;
class RomFile;

// Turns a name in the game's upper-case writing into the display form: every word starts upper
// case, the rest is lower case, a word starts after a blank or a hyphen (not after a full stop),
// trailing blanks go and "- " closes up to "-". NORD HAFEN-STADT becomes Nord Hafen-Stadt.
// Case follows the editor's 8-bit character set (umlauts change case, ß stays as it is). A
// text of more than kLongestMapName characters overflows the byte that counts the positions.
inline constexpr std::size_t kLongestMapName = 254;
std::string FormatMapName(std::string_view text);

// Reads the 95 location names through the pointer table at map_name_table (4-byte entries,
// the first two bytes a pointer into the table's own bank). A string runs to its 0x50
// terminator or to the end of the file; one that grows past kLongestMapName characters raises
// the overflow error there, without being read on. Offsets that leave 32 bits raise the
// overflow error. The file is searched in blocks, and a stretch without text is searched once
// for all names, so that a file of any size without terminators is read at most once.
LocationNames ReadLocationNames(RomFile& rom, std::int32_t map_name_table, const GameTextTable& text);

// The items of the location list: two hex digits, " - ", the name, so that the list index is
// the location byte.
std::vector<std::string> LocationItems(const LocationNames& names);

}  // namespace kartova
