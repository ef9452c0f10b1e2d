#include "support/TempDir.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <random>

namespace kartova::test {

TempDir::TempDir() {
  static std::atomic<int> counter{0};
  std::random_device rd;
  for (;;) {
    auto candidate = std::filesystem::temp_directory_path() /
                     ("kartova-test-" + std::to_string(rd()) + "-" + std::to_string(counter++));
    if (std::filesystem::create_directory(candidate)) {
      path_ = candidate;
      break;
    }
  }
}

TempDir::~TempDir() {
  std::error_code ec;
  // Make read-only leftovers removable again.
  for (auto& entry : std::filesystem::recursive_directory_iterator(path_, ec))
    std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
  std::filesystem::remove_all(path_, ec);
}

void WriteFileText(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << text;
}

std::string ReadFileText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

}  // namespace kartova::test
