#include "gfx/ColourTable.h"

namespace kartova {

ColourEntry ColourTable::Entry(int k) const {
  if (k < 0 || k >= kEntryCount) return {};
  return entries_[static_cast<std::size_t>(k)];
}

void ColourTable::SetEntry(int k, ColourEntry entry) {
  if (k < 0 || k >= kEntryCount) return;
  entries_[static_cast<std::size_t>(k)] = entry;
}

std::uint32_t ColourTable::Argb(int k) const {
  const ColourEntry e = Entry(k);
  return 0xFF000000u | (std::uint32_t{e.red} << 16) | (std::uint32_t{e.green} << 8) | e.blue;
}

}  // namespace kartova
