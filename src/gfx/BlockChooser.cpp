#include "gfx/BlockChooser.h"

#include <algorithm>
#include <cstring>

#include "gfx/BlockSet.h"

namespace kartova {

BlockChooser::Rows BlockChooser::VisibleRows(int scroll, int visible_height) const {
  const int s = BlockSize();
  Rows rows;
  rows.first = scroll / s;
  rows.count = std::max((visible_height + scroll % s - 1) / s + 1, 0);
  rows.last = rows.first + rows.count - 1;
  return rows;
}

int BlockChooser::ScrollMaximum(int visible_height) const {
  return std::max(RowCount() * BlockSize() - visible_height, 0);
}

int BlockChooser::SelectionMarkerTop(int selected, int scroll, int visible_height) const {
  const Rows rows = VisibleRows(scroll, visible_height);
  const int r = selected / BlocksPerRow();
  if (rows.first + rows.last < r - 1 || rows.first > r + 1) return kHiddenMarkerTop;
  return r * BlockSize() - scroll;
}

BlockChooser::MarkerPosition BlockChooser::BlockMarker(int block, int scroll) const {
  const int n = BlocksPerRow();
  return {(block % n) * BlockSize(), (block / n) * BlockSize() - scroll};
}

int BlockChooser::HoveredBlock(int x, int y, int scroll, int picture_height) const {
  const int s = BlockSize();
  x = std::clamp(x, 0, PictureWidth() - 1);
  y = std::clamp(y, 0, std::max(picture_height - 1, 0));
  const int block = (y + scroll) / s * BlocksPerRow() + x / s;
  return std::clamp(block, 0, kBlockCount - 1);
}

int BlockChooser::CentredScroll(int selected, int picture_height) const {
  const int s = BlockSize();
  const int value = selected / BlocksPerRow() * s - (picture_height - s) / 2;
  return std::clamp(value, 0, ScrollMaximum(picture_height));
}

void BlockChooser::Draw(const BlockSet& blocks, int scroll, int visible_height) {
  const int s = BlockSize();
  const Rows rows = VisibleRows(scroll, visible_height);
  image_.Resize(PictureWidth(), s * rows.count);
  source_line_ = scroll % s;
  for (int j = 0; j < rows.count; ++j) {
    const int i = rows.first + j;
    for (int y = 0; y < kBlockPixels; ++y) {
      // One chooser row is 64 bytes of a strip line: blocks 2i and 2i + 1, or block i doubled.
      const bool in_list = i >= 0 && i < RowCount();
      const std::uint8_t* src =
          !in_list ? nullptr : (zoom_ == 2 ? blocks.WideStripRow(y) : blocks.StripRow(y)) + i * 64;
      for (int copy = 0; copy < zoom_; ++copy) {
        std::uint8_t* dst = image_.Row(j * s + y * zoom_ + copy);
        if (src) {
          std::memcpy(dst, src, 64);
        } else {
          std::memset(dst, 0, 64);
        }
      }
    }
  }
}

void BlockChooser::CopyVisible(int visible_height, IndexedImage& out) const {
  out.Resize(image_.width, visible_height);
  for (int y = 0; y < out.height; ++y) {
    const int line = source_line_ + y;
    if (line >= 0 && line < image_.height) {
      std::memcpy(out.Row(y), image_.Row(line), static_cast<std::size_t>(out.width));
    } else {
      std::memset(out.Row(y), 0, static_cast<std::size_t>(out.width));
    }
  }
}

}  // namespace kartova
