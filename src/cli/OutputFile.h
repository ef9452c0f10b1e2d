#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kartova::cli {

// A file written from its start: created, or truncated when it exists. A file that cannot be
// written completely is removed, so that no half picture or half index is taken for a whole
// one, and FileWriteError tells the path and the system's reason.
class OutputFile {
 public:
  // FileWriteError when the file cannot be created.
  explicit OutputFile(std::string path);
  // A file that was not finished is closed and removed.
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Appends bytes; false once any write has failed. Never throws, so that C libraries may
  // call it from their callbacks.
  bool Write(const void* data, std::size_t size) noexcept;
  // Closes the file; FileWriteError, the file removed, when a write or the close failed.
  void Finish();
  // Gives up on the file: removes it and raises FileWriteError with the system's reason of a
  // failed write, if there was one, else with `reason`.
  [[noreturn]] void Fail(const std::string& reason);

 private:
  void CloseAndRemove() noexcept;

  std::string path_;
  int fd_ = -1;
  // Only a regular file is removed after a failure: the path may name a device or a pipe that
  // was written to, which is no copy of ours to take back.
  bool regular_ = false;
  int error_ = 0;  // errno of the first failed write
};

// Writes bytes as the whole new contents of path, as OutputFile does.
void WriteNewFile(const std::string& path, std::string_view bytes);

}  // namespace kartova::cli
