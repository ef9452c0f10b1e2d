#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "rom/SettingsReader.h"

namespace kartova {

// What differs between editions of the game, looked up in the settings store in the section
// named by the ROM's 16 title bytes as 32 upper-case hex digits, with "Settings" and built-in
// defaults as fallbacks.
struct RomDefinition {
  // Index of each name list; 2 is the location-name list, which comes from the ROM itself.
  enum List : int { kTilesetNames = 0, kAbilityNames = 1, kLocationNames = 2, kMusicNames = 3, kTimeNames = 4 };

  std::array<std::uint8_t, 16> title{};
  std::string section;               // 32 hex digits
  std::int32_t header_length = 9;    // never below 9 after reading
  std::int32_t extra_byte_max = 0;   // upper limit of the extra-byte selector: HeaderLengthA - 9, before the clamp
  bool extra_bytes_visible = false;  // HeaderLengthA above 9
  std::int32_t map_name_table = 0x92384;
  std::int32_t tileset_base = 0x2DFA;
  // Labels of header bytes 9..29 ("Res:" unless defined); entry i labels byte 9 + i.
  std::array<std::string, 21> extra_header_byte_names;
  // Items such as "0A - Cave" for the lists 0, 1, 3 and 4; list 2 stays empty here.
  std::array<std::vector<std::string>, 5> name_lists;
};

// The value of key in section; if absent there, its value in "Settings"; else def.
std::string GetDefinitionValue(const SettingsReader& settings, const std::string& section,
                               const std::string& key, const std::string& def);

// The items of the list that list_key names for the definition section: "00 - text", ...
// Entries past 0xFF repeat keys and texts from 00 on.
std::vector<std::string> ReadNameList(const SettingsReader& settings, const std::string& section,
                                      const std::string& list_key);

// Reads the title bytes of the ROM at rom_path (missing bytes read as 0; a missing file is
// created empty) and the definition for them. A HeaderLengthA above 30 raises the subscript
// error (RuntimeError 9); nothing is returned then.
RomDefinition ReadRomDefinition(const std::string& rom_path, const SettingsReader& settings);

}  // namespace kartova
