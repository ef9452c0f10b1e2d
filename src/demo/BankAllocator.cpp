#include "demo/BankAllocator.h"

#include <algorithm>

#include "demo/RomBuilder.h"
#include "rom/Address.h"
#include "rom/HexText.h"

namespace kartova {
namespace {

std::string Range(std::int64_t offset, std::int64_t length) {
  return "0x" + Hex(offset) + "..0x" + Hex(offset + std::max<std::int64_t>(length, 1) - 1);
}

}  // namespace

BankAllocator::BankAllocator(std::int64_t image_size) : image_size_(image_size) {}

void BankAllocator::Reserve(std::int64_t offset, std::int64_t length, const std::string& what) {
  length = std::max<std::int64_t>(length, 1);
  if (offset < 0 || offset + length > image_size_) {
    throw RomBuildError("RomBuilder: " + what + " at " + Range(offset, length) +
                        " lies outside the image of 0x" + Hex(image_size_) + " bytes");
  }
  auto next = used_.lower_bound(offset);
  if (next != used_.end() && next->first < offset + length) {
    throw RomBuildError("RomBuilder: " + what + " at " + Range(offset, length) + " overlaps " +
                        next->second.what + " at " +
                        Range(next->first, next->second.end - next->first));
  }
  if (next != used_.begin()) {
    auto prev = std::prev(next);
    if (prev->second.end > offset) {
      throw RomBuildError("RomBuilder: " + what + " at " + Range(offset, length) +
                          " overlaps " + prev->second.what + " at " +
                          Range(prev->first, prev->second.end - prev->first));
    }
  }
  used_.emplace(offset, Piece{offset + length, what});
}

std::int64_t BankAllocator::FindGap(std::int64_t from, std::int64_t to,
                                    std::int64_t length) const {
  std::int64_t pos = from;
  auto it = used_.lower_bound(from);
  if (it != used_.begin()) {
    auto prev = std::prev(it);
    pos = std::max(pos, prev->second.end);
  }
  for (; pos + length <= to; ++it) {
    if (it == used_.end() || it->first >= pos + length) return pos;
    pos = std::max(pos, it->second.end);
  }
  return -1;
}

std::int64_t BankAllocator::Allocate(std::int64_t length, const std::vector<int>& banks,
                                     const std::string& what) {
  length = std::max<std::int64_t>(length, 1);
  for (int bank : banks) {
    const std::int64_t from = bank * kBankSize;
    const std::int64_t to = std::min(from + kBankSize, image_size_);
    if (bank < 0 || from >= to) continue;
    const std::int64_t at = FindGap(from, to, length);
    if (at >= 0) {
      used_.emplace(at, Piece{at + length, what});
      return at;
    }
  }
  std::string list;
  for (int bank : banks) list += (list.empty() ? "0x" : ", 0x") + Hex2(bank);
  throw RomBuildError("RomBuilder: no room for " + what + " (" + std::to_string(length) +
                      " bytes) in ROM bank " + list);
}

std::vector<int> BankAllocator::BankRange(int first, int last) {
  std::vector<int> banks;
  for (int b = first; b <= last; ++b) banks.push_back(b);
  return banks;
}

}  // namespace kartova
