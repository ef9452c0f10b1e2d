#pragma once

#include <cstdint>
#include <vector>

#include "gfx/IndexedImage.h"

namespace kartova {

class BlockSet;
class ExtendedMap;

// The cached picture behind the map view and the event view (they share it): the visible part
// of the block grid rounded out to whole blocks plus one more block, so that scrolling inside
// that slack only repeats the transfer. Lines are kept top line first.
class ViewBuffer {
 public:
  // Where a view stands: scroll values in pixels, the picture's size and its zoom (1 or 2).
  struct View {
    int scroll_x = 0;
    int scroll_y = 0;
    int picture_width = 0;
    int picture_height = 0;
    int zoom = 1;
  };

  // Brings the buffer up to date for the view and fixes the transfer window. Returns true
  // when the buffer had to be rebuilt, false when the reuse limits allowed keeping it (a
  // buffer built at another zoom is never kept).
  bool Render(const ExtendedMap& grid, const BlockSet& blocks, const View& view);
  // Forces the next Render to rebuild (after a map load, zoom, resize, tab change, import).
  void Invalidate() { right_limit_ = -1; }
  // Redraws the cell (cx, cy) into the buffer after a block was placed there; the parts of
  // it outside the covered area are left out.
  void PatchBlock(const ExtendedMap& grid, const BlockSet& blocks, int cx, int cy);

  // The transfer window of the last Render: W × H pixels from (SourceColumn, SourceLine).
  int VisibleWidth() const { return visible_width_; }
  int VisibleHeight() const { return visible_height_; }
  int SourceColumn() const { return source_column_; }
  int SourceLine() const { return source_line_; }
  // The same line counted from the bottom of the buffer, as a bottom-up bitmap numbers it.
  int SourceLineFromBottom() const { return image_.height - source_line_ - visible_height_; }
  // Copies the transfer window, top line first; what the buffer does not cover reads 0.
  void CopyVisible(IndexedImage& out) const;

  const IndexedImage& Image() const { return image_; }
  int BlockSize() const { return block_size_; }
  int Top() const { return top_; }
  int Left() const { return left_; }
  int BottomLimit() const { return bottom_limit_; }
  int RightLimit() const { return right_limit_; }

 private:
  void Rebuild(const ExtendedMap& grid, const BlockSet& blocks, const View& view);

  IndexedImage image_;
  int block_size_ = 32;
  int zoom_ = 1;
  int top_ = 0;
  int left_ = 0;
  int bottom_limit_ = 0;
  int right_limit_ = -1;
  int visible_width_ = 0;
  int visible_height_ = 0;
  int source_column_ = 0;
  int source_line_ = 0;
};

}  // namespace kartova
