#include "gfx/ViewBuffer.h"

#include <algorithm>
#include <cstring>

#include "gfx/BlockSet.h"
#include "gfx/ExtendedMap.h"

namespace kartova {

namespace {
int ValidZoom(int zoom) { return zoom == 2 ? 2 : 1; }

// Number of blocks the buffer spans along one axis: the visible extent plus the slack,
// clipped at the end of the grid.
int SpanBlocks(int first, int visible, int block_size, int grid_cells) {
  int n = (visible - 2) / block_size + 2;
  if (first + n > grid_cells - 1) n = grid_cells - first;
  return std::max(n, 0);
}

// Copies the part of a square picture that falls inside the image.
void CopyClipped(const IndexedImage& square, int px, int py, IndexedImage& image) {
  const int x0 = std::max(px, 0);
  const int x1 = std::min(px + square.width, image.width);
  if (x0 >= x1) return;
  for (int y = 0; y < square.height; ++y) {
    const int line = py + y;
    if (line < 0 || line >= image.height) continue;
    std::memcpy(image.Row(line) + x0, square.Row(y) + (x0 - px), static_cast<std::size_t>(x1 - x0));
  }
}
}  // namespace

bool ViewBuffer::Render(const ExtendedMap& grid, const BlockSet& blocks, const View& view) {
  const int zoom = ValidZoom(view.zoom);
  const int s = kBlockPixels * zoom;
  const int h = view.scroll_x;
  const int v = view.scroll_y;
  visible_width_ = std::clamp(view.picture_width, 0, grid.Width() * s);
  visible_height_ = std::clamp(view.picture_height, 0, grid.Height() * s);

  const bool reuse =
      zoom == zoom_ && h >= left_ && h <= right_limit_ && v >= top_ && v <= bottom_limit_;
  if (!reuse) Rebuild(grid, blocks, view);
  source_column_ = h - left_;
  source_line_ = v - top_;
  return !reuse;
}

void ViewBuffer::Rebuild(const ExtendedMap& grid, const BlockSet& blocks, const View& view) {
  zoom_ = ValidZoom(view.zoom);
  block_size_ = kBlockPixels * zoom_;
  const int s = block_size_;
  const int h = view.scroll_x;
  const int v = view.scroll_y;
  const int c0 = h / s;
  const int r0 = v / s;
  const int nc = SpanBlocks(c0, visible_width_, s, grid.Width());
  const int nr = SpanBlocks(r0, visible_height_, s, grid.Height());
  image_.Resize(nc * s, nr * s);

  for (int i = 0; i < nc; ++i) {
    for (int j = 0; j < nr; ++j) {
      std::uint8_t* dst = image_.Row(j * s) + i * s;
      if (grid.Contains(c0 + i, r0 + j)) {
        blocks.DrawBlock(grid.Row(r0 + j)[c0 + i], zoom_, dst, image_.width);
      } else {
        for (int y = 0; y < s; ++y)
          std::memset(dst + y * image_.width, 0, static_cast<std::size_t>(s));
      }
    }
  }
  top_ = v - v % s;
  left_ = h - h % s;
  bottom_limit_ = top_ + image_.height - visible_height_ - s;
  right_limit_ = left_ + image_.width - visible_width_ - s;
}

void ViewBuffer::PatchBlock(const ExtendedMap& grid, const BlockSet& blocks, int cx, int cy) {
  if (image_.pixels.empty() || !grid.Contains(cx, cy)) return;
  const int s = block_size_;
  const int px = cx * s - left_;
  const int py = cy * s - top_;
  const std::uint8_t block = grid.Row(cy)[cx];
  if (px >= 0 && py >= 0 && px + s <= image_.width && py + s <= image_.height) {
    blocks.DrawBlock(block, zoom_, image_.Row(py) + px, image_.width);
    return;
  }
  IndexedImage square;
  square.Resize(s, s);
  blocks.DrawBlock(block, zoom_, square.Row(0), s);
  CopyClipped(square, px, py, image_);
}

void ViewBuffer::CopyVisible(IndexedImage& out) const {
  out.Resize(visible_width_, visible_height_);
  const int x0 = std::clamp(source_column_, 0, image_.width);
  const int x1 = std::clamp(source_column_ + visible_width_, x0, image_.width);
  const auto w = static_cast<std::size_t>(out.width);
  for (int y = 0; y < visible_height_; ++y) {
    std::uint8_t* dst = out.Row(y);
    const int line = source_line_ + y;
    if (line < 0 || line >= image_.height || x0 == x1) {
      std::memset(dst, 0, w);
      continue;
    }
    // Only a view scrolled past the grid leaves parts of a line uncovered.
    const auto before = static_cast<std::size_t>(x0 - source_column_);
    const auto covered = static_cast<std::size_t>(x1 - x0);
    std::memset(dst, 0, before);
    std::memcpy(dst + before, image_.Row(line) + x0, covered);
    std::memset(dst + before + covered, 0, w - before - covered);
  }
}

}  // namespace kartova
