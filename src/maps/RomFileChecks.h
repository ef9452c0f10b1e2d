#pragma once

#include <stdexcept>
#include <string>

namespace kartova {

// A path that cannot be opened as a ROM at all. what() is the German message for the user,
// naming the path.
class RomOpenError : public std::runtime_error {
 public:
  RomOpenError(std::string path, const std::string& message);
  const std::string& path() const { return path_; }
  std::string GermanMessage() const { return what(); }

 private:
  std::string path_;
};

// Throws RomOpenError unless path names a regular file that can be read and is large enough
// to hold the map bank table (kSmallestRomSize bytes). Reads nothing of the file and never
// creates one.
void CheckRomFile(const std::string& path);

}  // namespace kartova
