#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kartova::cli {

// A copy of a ROM in a directory of its own under the system's temporary directory, under the
// ROM's own file name (so that a runtime error names the file the user gave), removed with
// the object. A patch is tried out on it before the ROM itself is touched.
class WorkingCopy {
 public:
  // FileWriteError when the directory or the file cannot be made.
  WorkingCopy(const std::string& rom_path, const std::vector<std::uint8_t>& bytes);
  ~WorkingCopy();
  WorkingCopy(const WorkingCopy&) = delete;
  WorkingCopy& operator=(const WorkingCopy&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string directory_;
  std::string path_;
};

}  // namespace kartova::cli
