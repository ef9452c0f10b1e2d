#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace kartova::test {

// A fresh directory under the system's temporary directory, removed with its contents when
// the object goes out of scope.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

void WriteFileText(const std::string& path, const std::string& text);
std::string ReadFileText(const std::string& path);
inline void WriteFileBytes(const std::string& path, const std::vector<std::uint8_t>& bytes) {
  WriteFileText(path, std::string(bytes.begin(), bytes.end()));
}
inline std::vector<std::uint8_t> ReadFileBytes(const std::string& path) {
  const std::string text = ReadFileText(path);
  return {text.begin(), text.end()};
}

}  // namespace kartova::test
