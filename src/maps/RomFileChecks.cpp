#include "maps/RomFileChecks.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "maps/MapBankTable.h"

namespace kartova {

namespace {

namespace fs = std::filesystem;

// Paths come as UTF-8 from every caller.
fs::path FromUtf8(const std::string& path) { return fs::path(std::u8string(path.begin(), path.end())); }

[[noreturn]] void Refuse(const std::string& path, const std::string& message) {
  throw RomOpenError(path, message + ": " + path);
}

[[noreturn]] void RefuseUnreadable(const std::string& path, const std::error_code& reason) {
  throw RomOpenError(path, "Die Datei kann nicht gelesen werden: " + path + " (" + reason.message() + ")");
}

}  // namespace

RomOpenError::RomOpenError(std::string path, const std::string& message)
    : std::runtime_error(message), path_(std::move(path)) {}

void CheckRomFile(const std::string& path) {
  if (path.empty()) Refuse(path, "Datei nicht gefunden");
  std::error_code ec;
  const fs::file_status status = fs::status(FromUtf8(path), ec);
  if (status.type() == fs::file_type::not_found) Refuse(path, "Datei nicht gefunden");
  if (ec) RefuseUnreadable(path, ec);
  if (fs::is_directory(status)) Refuse(path, "Ist ein Verzeichnis");
  // A pipe or a device would block a read or never end.
  if (!fs::is_regular_file(status)) Refuse(path, "Keine gewöhnliche Datei");
  errno = 0;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  if (file == nullptr)
    RefuseUnreadable(path, std::error_code(errno != 0 ? errno : EIO, std::generic_category()));
  std::fclose(file);
  const std::uintmax_t size = fs::file_size(FromUtf8(path), ec);
  if (ec) RefuseUnreadable(path, ec);
  if (size < static_cast<std::uintmax_t>(kSmallestRomSize))
    Refuse(path, "Die Datei ist zu klein für ein Rom dieses Spiels");
}

}  // namespace kartova
