#include "cli/WorkingCopy.h"

#include <filesystem>
#include <random>
#include <system_error>

#include "rom/SafeFileWriter.h"

namespace kartova::cli {

namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// A new directory only this process uses: a name nobody has taken, readable by the owner alone.
fs::path MakePrivateDirectory() {
  std::error_code ec;
  const fs::path base = fs::temp_directory_path(ec);
  if (ec) throw FileWriteError("the temporary directory", ec.message());
  std::random_device seed;
  std::mt19937_64 rng(seed());
  for (int attempt = 0; attempt < 100; ++attempt) {
    const fs::path dir = base / ("kartova-apply-" + std::to_string(rng() % 1000000000000ULL));
    if (fs::create_directory(dir, ec)) {
      fs::permissions(dir, fs::perms::owner_all, ec);
      return dir;
    }
    if (ec) throw FileWriteError(Utf8(dir), ec.message());
  }
  throw FileWriteError(Utf8(base), "no unused directory name found");
}

}  // namespace

WorkingCopy::WorkingCopy(const std::string& rom_path, const std::vector<std::uint8_t>& bytes) {
  const fs::path dir = MakePrivateDirectory();
  directory_ = Utf8(dir);
  path_ = Utf8(dir / fs::path(std::u8string(rom_path.begin(), rom_path.end())).filename());
  SafeWriteOptions options;
  options.create_if_missing = true;
  try {
    WriteRegionsSafely(path_, {FileRegion{0, bytes}}, options);
  } catch (...) {
    std::error_code ec;
    fs::remove_all(dir, ec);
    throw;
  }
}

WorkingCopy::~WorkingCopy() {
  std::error_code ec;
  fs::remove_all(fs::path(std::u8string(directory_.begin(), directory_.end())), ec);
}

}  // namespace kartova::cli
