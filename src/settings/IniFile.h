#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "rom/SettingsReader.h"

namespace kartova {

// A private profile file, read and written the way the classic profile functions do it, so that
// a Kartova.ini written by hand on any system works:
// - section and key names are compared without regard to case;
// - a value loses its surrounding blanks and one pair of surrounding quotes, and at most 254
//   characters of it are returned (the rest never fitted the profile buffer);
// - the first matching section and the first matching key in it win;
// - a write creates the file, the section and the key as needed and leaves every other line of
//   the file exactly as it was (comments, unknown lines, order, line ends).
// Files may hold UTF-8 or 8-bit Windows text (CRLF or LF); bytes that are no UTF-8 are read as
// Windows-1252 characters. Names and values in and out are UTF-8. Nothing is cached: every call
// reads the file as it is now, because the user may edit it while the program runs.
class IniFile : public SettingsReader {
 public:
  static constexpr std::size_t kMaxValueLength = 254;

  explicit IniFile(std::string path) : path_(std::move(path)) {}

  const std::string& path() const { return path_; }

  // The value of key in section, or def (cut to the same length) when the file, the section or
  // the key is missing or the file cannot be read (a file above 16 MiB is not read).
  std::string Read(std::string_view section, std::string_view key, std::string_view def) const;

  // Stores key=value in section. False when the file could not be read or written (a read-only
  // file, a directory, a missing folder, a file above 16 MiB); the file is unchanged then.
  // Line breaks inside names and values become blanks, since they cannot be stored in one line.
  bool Write(std::string_view section, std::string_view key, std::string_view value) const;

  std::string ReadSetting(const std::string& section, const std::string& key,
                          const std::string& def) const override {
    return Read(section, key, def);
  }

 private:
  std::string path_;
};

// Text of an 8-bit file as UTF-8: well-formed UTF-8 sequences are kept, every other byte is read
// as a Windows-1252 character.
std::string DecodeEightBitText(std::string_view bytes);

}  // namespace kartova
