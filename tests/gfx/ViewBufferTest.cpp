#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "gfx/BlockSet.h"
#include "gfx/ExtendedMap.h"
#include "gfx/ViewBuffer.h"

namespace kartova {
namespace {

std::uint8_t P(int block, int x, int y) { return static_cast<std::uint8_t>(block * 7 + x + 3 * y); }

// Blocks whose every pixel tells block, column and line apart.
BlockSet PatternBlocks() {
  BlockSet blocks;
  for (int y = 0; y < 32; ++y) {
    for (int b = 0; b < 256; ++b) {
      for (int x = 0; x < 32; ++x) {
        blocks.StripRow(y)[b * 32 + x] = P(b, x, y);
        blocks.WideStripRow(y)[b * 64 + 2 * x] = P(b, x, y);
        blocks.WideStripRow(y)[b * 64 + 2 * x + 1] = P(b, x, y);
      }
    }
  }
  return blocks;
}

ExtendedMap PatternGrid(int w, int h) {
  ExtendedMap grid;
  grid.Reset(w, h, 0);
  for (int y = 0; y < grid.Height(); ++y) {
    for (int x = 0; x < grid.Width(); ++x)
      grid.Set(x, y, static_cast<std::uint8_t>(x * 5 + y * 11));
  }
  return grid;
}

class ViewBufferTest : public ::testing::Test {
 protected:
  // Renders and compares the visible window with what the grid says must be seen.
  bool RenderAndCheck(int h, int v, int pw, int ph, int zoom) {
    const bool rebuilt = buffer_.Render(grid_, blocks_, {h, v, pw, ph, zoom});
    IndexedImage out;
    buffer_.CopyVisible(out);
    const int s = 32 * zoom;
    EXPECT_EQ(out.width, std::min(pw, grid_.Width() * s));
    EXPECT_EQ(out.height, std::min(ph, grid_.Height() * s));
    for (int y = 0; y < out.height; ++y) {
      for (int x = 0; x < out.width; ++x) {
        const int gx = x + h, gy = y + v;
        const std::uint8_t want = P(grid_.At(gx / s, gy / s), gx % s / zoom, gy % s / zoom);
        if (out.At(x, y) != want) {
          ADD_FAILURE() << "pixel " << x << "," << y << " at scroll " << h << "," << v;
          return rebuilt;
        }
      }
    }
    return rebuilt;
  }

  BlockSet blocks_ = PatternBlocks();
  ExtendedMap grid_ = PatternGrid(20, 15);  // 26 × 21 cells, 832 × 672 pixels at zoom 1
  ViewBuffer buffer_;
};

TEST_F(ViewBufferTest, ScrollingInsideTheSlackOnlyMovesTheTransferWindow) {
  EXPECT_TRUE(RenderAndCheck(0, 0, 100, 80, 1));
  // 5 columns and 4 rows of blocks are built: 160 × 128.
  EXPECT_EQ(buffer_.RightLimit(), 160 - 100 - 32);
  EXPECT_EQ(buffer_.BottomLimit(), 128 - 80 - 32);
  EXPECT_FALSE(RenderAndCheck(28, 16, 100, 80, 1));
  EXPECT_EQ(buffer_.SourceColumn(), 28);
  EXPECT_EQ(buffer_.SourceLineFromBottom(), 128 - 16 - 80);
  EXPECT_TRUE(RenderAndCheck(29, 16, 100, 80, 1));
  EXPECT_TRUE(RenderAndCheck(61, 50, 100, 80, 1));  // one block further
  EXPECT_FALSE(RenderAndCheck(40, 40, 100, 80, 1));
  buffer_.Invalidate();
  EXPECT_TRUE(RenderAndCheck(40, 40, 100, 80, 1));
}

TEST_F(ViewBufferTest, ClipsAtTheEndOfTheGridAndDoublesLinesAtZoom2) {
  EXPECT_TRUE(RenderAndCheck(832 - 100, 672 - 80, 100, 80, 1));
  EXPECT_EQ(buffer_.Image().width, 4 * 32);
  EXPECT_TRUE(RenderAndCheck(0, 0, 300, 200, 1));
  EXPECT_TRUE(RenderAndCheck(0, 0, 300, 200, 2));  // a zoom change rebuilds on its own
  EXPECT_FALSE(RenderAndCheck(3, 7, 300, 200, 2));
  EXPECT_TRUE(RenderAndCheck(26 * 64 - 300, 21 * 64 - 200, 300, 200, 2));
  grid_ = PatternGrid(1, 1);  // a picture larger than the whole grid
  buffer_.Invalidate();
  EXPECT_TRUE(RenderAndCheck(0, 0, 5000, 5000, 2));
}

TEST_F(ViewBufferTest, PatchingABlockUpdatesTheCachedBuffer) {
  RenderAndCheck(20, 20, 100, 80, 2);
  grid_.Set(1, 1, 99);
  buffer_.PatchBlock(grid_, blocks_, 1, 1);
  grid_.Set(3, 2, 98);  // outside the covered area: nothing to patch
  buffer_.PatchBlock(grid_, blocks_, 3, 2);
  EXPECT_FALSE(RenderAndCheck(20, 20, 100, 80, 2));
}

TEST_F(ViewBufferTest, NonsenseViewsStayInsideTheBuffer) {
  IndexedImage out;
  for (auto [h, v, w] :
       {std::array{-50, -70, 100}, std::array{5000, 9000, 100}, std::array{0, 0, -10}}) {
    buffer_.Render(grid_, blocks_, {h, v, w, w, 1});
    buffer_.CopyVisible(out);
    buffer_.PatchBlock(grid_, blocks_, 25, 20);
  }
}

}  // namespace
}  // namespace kartova
