#include <gtest/gtest.h>

#include "gfx/BlockChooser.h"
#include "gfx/BlockSet.h"

namespace kartova {
namespace {

// Every pixel of block b is b, so a chooser line shows which blocks it came from.
BlockSet NumberedBlocks() {
  BlockSet blocks;
  for (int y = 0; y < 32; ++y) {
    for (int x = 0; x < BlockSet::kStripWidth; ++x)
      blocks.StripRow(y)[x] = static_cast<std::uint8_t>(x / 32);
    for (int x = 0; x < BlockSet::kWideStripWidth; ++x)
      blocks.WideStripRow(y)[x] = static_cast<std::uint8_t>(x / 64);
  }
  return blocks;
}

TEST(BlockChooserTest, ShowsTwoBlocksARowAtZoomOneAndOneOnDoubledLinesAtZoomTwo) {
  const BlockSet blocks = NumberedBlocks();
  BlockChooser c(1);
  const int max = c.ScrollMaximum(300);
  EXPECT_EQ(max, 128 * 32 - 300);
  c.Draw(blocks, 0, 300);
  EXPECT_EQ(c.Image().At(0, 0), 0);
  EXPECT_EQ(c.Image().At(63, 31), 1);
  c.Draw(blocks, max, 300);
  IndexedImage window;
  c.CopyVisible(300, window);
  EXPECT_EQ(window.At(0, 299), 254);
  EXPECT_EQ(window.At(63, 299), 255);
  EXPECT_EQ(c.HoveredBlock(500, 5000, max, 300), 255);  // clamped into the picture

  c.SetZoom(2);
  EXPECT_EQ(c.ScrollMaximum(300), 256 * 64 - 300);
  c.Draw(blocks, 100, 300);  // rows 1..6, the first shown from line 36
  EXPECT_EQ(c.Image().height, 6 * 64);
  EXPECT_EQ(c.Image().At(10, 0), 1);
  EXPECT_EQ(c.Image().At(63, 127), 2);
  EXPECT_EQ(c.HoveredBlock(10, 30, 100, 300), 2);
  EXPECT_EQ(c.CentredScroll(100, 300), 100 * 64 - (300 - 64) / 2);
}

TEST(BlockChooserTest, SelectionMarkerUsesTheFirstPlusLastRowTest) {
  BlockChooser c(1);
  // 160 pixels show rows f .. f + 4; the selection 60 is in row 30.
  EXPECT_EQ(c.SelectionMarkerTop(60, 10 * 32, 160), BlockChooser::kHiddenMarkerTop);
  EXPECT_EQ(c.SelectionMarkerTop(60, 20 * 32, 160), 30 * 32 - 20 * 32);
  EXPECT_EQ(c.SelectionMarkerTop(60, 29 * 32, 160), 32);
  EXPECT_EQ(c.SelectionMarkerTop(60, 32 * 32, 160), BlockChooser::kHiddenMarkerTop);
  EXPECT_EQ(c.HoveredBlock(40, 10, 32, 160), 3);
}

}  // namespace
}  // namespace kartova
