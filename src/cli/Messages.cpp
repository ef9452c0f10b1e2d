#include "cli/Messages.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <ostream>
#include <system_error>

#include "rom/RuntimeError.h"
#include "rom/SafeFileWriter.h"

namespace kartova::cli {

void PrintError(std::ostream& err, const std::string& message) {
  err << kProgramName << ": " << message << "\n";
}

void PrintWarning(std::ostream& err, const std::string& message) {
  err << kProgramName << ": warning: " << message << "\n";
}

std::string RuntimeErrorText(const RuntimeError& error) {
  std::string text = error.GermanMessage();
  if (error.context()) text += " (" + DescribeContextEnglish(*error.context()) + ")";
  return text;
}

std::string FileErrorText(const std::string& verb, const FileWriteError& error) {
  return "could not " + verb + " " + error.path() + ": " + error.reason();
}

std::string ReadFailureReason(const std::string& path) {
  namespace fs = std::filesystem;
  const fs::path file(std::u8string(path.begin(), path.end()));
  std::error_code ec;
  const fs::file_status status = fs::status(file, ec);
  if (ec) return ec.message();
  if (fs::is_directory(status)) return std::generic_category().message(EISDIR);
  if (!fs::is_regular_file(status)) return "not a regular file";
  errno = 0;
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (f == nullptr) return std::generic_category().message(errno != 0 ? errno : EIO);
  std::fclose(f);
  return {};
}

std::string ReadPastEndWarning(const std::string& rom, int bank, int map) {
  return "map " + std::to_string(bank) + "." + std::to_string(map) + ": " + rom +
         " is shorter than the data the map points to; what lies past its end was not read";
}

}  // namespace kartova::cli
