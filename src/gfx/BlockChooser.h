#pragma once

#include "gfx/IndexedImage.h"

namespace kartova {

class BlockSet;

// The arithmetic of the block chooser: all 256 blocks in a column n blocks wide (2 at normal
// size, 1 when zoomed), scrolled by pixels, and the picture of its visible rows.
class BlockChooser {
 public:
  // Top given to a marker that is moved out of sight.
  static constexpr int kHiddenMarkerTop = -64;

  struct Rows {
    int first = 0;  // f: first visible row
    int count = 0;  // k: rows built, the partial last one included
    int last = 0;   // l = f + k - 1
  };
  struct MarkerPosition {
    int left = 0;
    int top = 0;
  };

  explicit BlockChooser(int zoom = 1) { SetZoom(zoom); }
  // 2 draws the blocks at double size; any other value at normal size.
  void SetZoom(int zoom) { zoom_ = zoom == 2 ? 2 : 1; }
  int Zoom() const { return zoom_; }
  int BlockSize() const { return 32 * zoom_; }    // S
  int BlocksPerRow() const { return 2 / zoom_; }  // n
  int PictureWidth() const { return BlocksPerRow() * BlockSize(); }
  int RowCount() const { return 255 / BlocksPerRow() + 1; }

  Rows VisibleRows(int scroll, int visible_height) const;
  // The scroll bar's maximum: the whole list less the visible height, never below 0.
  int ScrollMaximum(int visible_height) const;

  // Top of the selection marker, or kHiddenMarkerTop. The marker is hidden only when the sum
  // of first and last visible row lies below the selected row less one, or the first row
  // lies past the selected row plus one; this is how the chooser has always decided it, so a
  // selection far below the view keeps a marker placed below the visible area.
  int SelectionMarkerTop(int selected, int scroll, int visible_height) const;
  // Where the frame of a block goes in the picture at this scroll value.
  MarkerPosition BlockMarker(int block, int scroll) const;
  // The block under a mouse position (clamped into the picture first), counting rows from the
  // top of the whole list; never past 255.
  int HoveredBlock(int x, int y, int scroll, int picture_height) const;
  // The scroll value that centres the row of `selected`, limited to 0..ScrollMaximum.
  int CentredScroll(int selected, int picture_height) const;

  // Builds the picture of the visible rows: PictureWidth × (S × k), top line first, row f at
  // the top; rows past the list are left at 0.
  void Draw(const BlockSet& blocks, int scroll, int visible_height);
  const IndexedImage& Image() const { return image_; }
  // The first line of the image that shows at the top of the picture: scroll mod S.
  int SourceLine() const { return source_line_; }
  // Copies the visible window (PictureWidth × visible height) of the last Draw.
  void CopyVisible(int visible_height, IndexedImage& out) const;

 private:
  int zoom_ = 1;
  int source_line_ = 0;
  IndexedImage image_;
};

}  // namespace kartova
