#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace kartova {

// Keeps track of which bytes of a ROM image are taken, so that the builder never places two
// structures at one place. Fixed structures are reserved at their offsets; everything else is
// allocated first-fit inside one ROM bank, because the game reaches it through a 16-bit
// pointer into the switchable bank area. Failures throw RomBuildError naming the structure.
class BankAllocator {
 public:
  explicit BankAllocator(std::int64_t image_size);

  void Reserve(std::int64_t offset, std::int64_t length, const std::string& what);
  // The first free run of length bytes inside one of the banks, tried in the given order.
  std::int64_t Allocate(std::int64_t length, const std::vector<int>& banks,
                        const std::string& what);
  std::int64_t AllocateIn(int bank, std::int64_t length, const std::string& what) {
    return Allocate(length, {bank}, what);
  }

  static std::vector<int> BankRange(int first, int last);  // first..last inclusive

 private:
  struct Piece {
    std::int64_t end;
    std::string what;
  };
  std::int64_t FindGap(std::int64_t from, std::int64_t to, std::int64_t length) const;

  std::int64_t image_size_;
  std::map<std::int64_t, Piece> used_;  // start -> piece
};

}  // namespace kartova
