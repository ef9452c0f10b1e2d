#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "maps/LinkData.h"

namespace kartova {
namespace {

// A 10 x 9 map whose bordered 16 x 15 grid numbers each cell by its index.
class LinkDataMapTest : public ::testing::Test {
 protected:
  static constexpr int kRow = 34;
  static constexpr int kLast = 15 * kRow - 4;  // start of the bottom-right cell

  LinkDataMapTest() : grid_(16 * 15) {
    for (std::size_t i = 0; i < grid_.size(); ++i) grid_[i] = static_cast<std::uint8_t>(i);
    data_ = LinkData(grid_, 10, 9);
  }
  static int CellStart(int x, int y) { return (y + 3) * kRow + (x + 3) * 2; }
  int Key(int caret, int key) const { return data_.PressKey(caret, key)->start; }

  std::vector<std::uint8_t> grid_;
  LinkMapInfo info_{10, 9, 0x5A30};
  LinkData data_;
};

TEST_F(LinkDataMapTest, TextAndCellFields) {
  EXPECT_EQ(data_.RowLength(), kRow);
  EXPECT_EQ(data_.Text().substr(28, 8), "0E0F\r\n10");
  EXPECT_EQ(data_.Text().substr(kLast - 2), "EEEF");  // no line break at the end

  const std::tuple<int, int, const char*, const char*> cases[] = {
      {-3, -3, "NA", "C700"}, {0, 0, "5A30", "C733"}, {9, 8, "5A89", "C7BC"},
      {10, 0, "NA", "C73D"},  {0, -1, "NA", "C723"},  {12, 11, "NA", "C7EF"}};
  for (const auto& [x, y, pointer, working] : cases) {
    const LinkCell cell = data_.ReadCell(CellStart(x, y) + 1, info_);
    EXPECT_EQ(cell.position, (LinkPosition{x, y}));
    EXPECT_EQ(cell.block_pointer_text, pointer) << x << "," << y;
    EXPECT_EQ(cell.working_copy_text, working) << x << "," << y;
  }
}

TEST_F(LinkDataMapTest, ArrowKeysMoveAndWrap) {
  EXPECT_EQ(Key(0, kLinkKeyLeft), kLast);
  EXPECT_EQ(Key(kLast, kLinkKeyRight), 0);
  EXPECT_EQ(Key(kRow, kLinkKeyLeft), kRow - 4);  // over the line break
  EXPECT_EQ(Key(kRow - 4, kLinkKeyRight), kRow);
  EXPECT_EQ(Key(6, kLinkKeyUp), 6);  // first line
  EXPECT_EQ(Key(6, kLinkKeyDown), 6 + kRow);
  EXPECT_EQ(Key(kLast, kLinkKeyDown), kLast);  // last line
  EXPECT_EQ(Key(kLast, kLinkKeyUp), kLast - kRow);
  EXPECT_FALSE(data_.PressKey(6, 65).has_value());

  std::set<int> seen;
  int caret = 0;
  for (int step = 0; step < 16 * 15; ++step, caret = Key(caret, kLinkKeyRight))
    EXPECT_TRUE(seen.insert(caret).second && caret % kRow != kRow - 2) << caret;
  EXPECT_EQ(caret, 0);
}

TEST_F(LinkDataMapTest, ClickAndMarkSnapToCellsInsideTheText) {
  EXPECT_EQ(data_.Click(7), (LinkSelection{6, 2}));
  EXPECT_EQ(data_.Click(kRow - 2), (LinkSelection{kRow - 4, 2}));  // on the line break
  EXPECT_EQ(data_.Click(kRow - 1), (LinkSelection{kRow - 4, 2}));
  EXPECT_EQ(data_.Click(kLast + 99), (LinkSelection{kLast, 2}));
  EXPECT_EQ(data_.Click(-5), (LinkSelection{0, 2}));

  EXPECT_EQ(data_.Mark({5, 4}, info_), (LinkSelection{CellStart(5, 4), 2}));
  EXPECT_EQ(data_.Mark({-10, -4}, info_), (LinkSelection{0, 2}));
  EXPECT_EQ(data_.Mark({100, 100}, info_), (LinkSelection{kLast, 2}));
  EXPECT_EQ(data_.Mark({100, -100}, info_), (LinkSelection{kRow - 4, 2}));
  EXPECT_EQ(data_.Mark({42, 42}, {40, 40, 0}), (LinkSelection{kLast, 2}));  // size mismatch
}

TEST(LinkDataTest, EmptyAndShortGridsStaySafe) {
  const LinkData none;
  EXPECT_EQ(none.Click(10), (LinkSelection{0, 0}));
  EXPECT_EQ(none.PressKey(0, kLinkKeyLeft), (LinkSelection{0, 0}));
  EXPECT_EQ(none.Mark({5, 5}, {10, 9, 0}), (LinkSelection{0, 0}));

  // A 0 x 0 map is still a 6 x 6 border; cells the grid does not reach show 00.
  const std::vector<std::uint8_t> few{0xAB, 0xCD};
  const LinkData tiny(few, 0, 0);
  EXPECT_EQ(tiny.TextLength(), 6 * 14 - 2);
  EXPECT_EQ(tiny.Text().substr(0, 6), "ABCD00");
  EXPECT_EQ(tiny.PressKey(0, kLinkKeyLeft), (LinkSelection{6 * 14 - 4, 2}));
}

}  // namespace
}  // namespace kartova
