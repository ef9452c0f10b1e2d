#include <gtest/gtest.h>

#include "events/EventGeometry.h"
#include "events/MapEventSet.h"
#include "gfx/MarkerBlend.h"

namespace kartova {
namespace {

// Marker pixel (x, y) of kind k tells kind, column and row apart; the buffer shows colour
// index (x + y) % 256, and entry i of the lookup is grey i.
MarkerSet Markers(int size) {
  MarkerSet set;
  for (int k = 0; k < kMarkerKindCount; ++k) {
    set[k].size = size;
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        set[k].pixels.push_back(std::uint32_t(k) << 16 | std::uint32_t(x) << 8 | std::uint32_t(y));
  }
  return set;
}

// x, y, width, height of a blended cell.
std::array<int, 4> Box(const BlendedCell& cell) { return {cell.x, cell.y, cell.width, cell.height}; }

class MarkerBlendTest : public ::testing::Test {
 protected:
  MarkerBlendTest() {
    buffer_.Resize(200, 100);
    for (int y = 0; y < buffer_.height; ++y)
      for (int x = 0; x < buffer_.width; ++x) buffer_.Row(y)[x] = static_cast<std::uint8_t>(x + y);
    for (std::uint32_t i = 0; i < 256; ++i) colours_[i] = i << 16 | i << 8 | i;
    shown_ = {&buffer_, 5, 7, 40, 30, 40, 30, &colours_};
  }
  std::uint32_t Under(int x, int y) const { return shown_.PixelAt(x, y); }

  IndexedImage buffer_;
  std::array<std::uint32_t, 256> colours_{};
  ShownPicture shown_;
  MarkerSet markers_ = Markers(16);
};

TEST_F(MarkerBlendTest, ThePictureEdgesClipTheCellAndTheMarker) {
  const auto cell = BlendMarker(markers_, shown_, 16, kMarkerWarp, -10, 4);
  ASSERT_TRUE(cell);
  EXPECT_EQ(Box(*cell), (std::array{0, 4, 6, 16}));
  EXPECT_EQ(cell->pixels[0], MixMarkerPixel(markers_[3].pixels[10], Under(0, 4)));
  EXPECT_EQ(cell->pixels[6 * 15 + 5], MixMarkerPixel(markers_[3].pixels[15 * 16 + 15], Under(5, 19)));

  const auto top = BlendMarker(markers_, shown_, 16, kMarkerPeople, 3, -13);
  ASSERT_TRUE(top);
  EXPECT_EQ(Box(*top), (std::array{3, 0, 16, 3}));
  EXPECT_EQ(top->pixels[0], MixMarkerPixel(markers_[0].pixels[13 * 16], Under(3, 0)));

  // Cells off the picture give nothing; the right and bottom edges cut the rest.
  for (auto [x, y] : {std::pair{-16, 0}, {0, -16}, {40, 0}, {0, 30}, {-2147483647 - 1, 0}})
    EXPECT_FALSE(BlendMarker(markers_, shown_, 16, 0, x, y)) << x << "," << y;
  const auto corner = BlendMarker(markers_, shown_, 16, kMarkerTrigger, 30, 20);
  ASSERT_TRUE(corner);
  EXPECT_EQ(Box(*corner), (std::array{30, 20, 10, 10}));
  EXPECT_EQ(corner->pixels.size(), 100u);
  EXPECT_EQ(corner->pixels[99], MixMarkerPixel(markers_[2].pixels[9 * 16 + 9], Under(39, 29)));
}

TEST_F(MarkerBlendTest, MixesHalfAndHalfWithWhatIsShownOrTheBackground) {
  EXPECT_EQ(MixMarkerPixel(0xFF0000, 0x0000FF), 0xFF80007Fu);
  EXPECT_EQ(MixMarkerPixel(0x00C800, 0x006400), 0xFF009600u);  // (200 * 128 + 100 * 127) / 255
  EXPECT_EQ(Under(3, 2), 0xFF111111u);                         // index 5 + 3 + 7 + 2
  // Where the window or the buffer ends, the background is under.
  shown_.window_width = 20;
  shown_.source_y = 90;                                           // ten buffer lines left
  const auto cell = BlendMarker(markers_, shown_, 16, 9, 16, 0);  // kind 9 shows the people's marker
  ASSERT_TRUE(cell);
  EXPECT_EQ(cell->pixels[3],
            MixMarkerPixel(markers_[0].pixels[3], 0xFF000000u | std::uint8_t(5 + 19 + 90) * 0x010101u));
  EXPECT_EQ(cell->pixels[4], MixMarkerPixel(markers_[0].pixels[4], 0xFF404040u));
  EXPECT_EQ(cell->pixels[16 * 10], MixMarkerPixel(markers_[0].pixels[16 * 10], 0xFF404040u));
  EXPECT_FALSE(BlendMarker(MarkerSet{}, shown_, 16, 0, 0, 0));  // no marker loaded
}

TEST_F(MarkerBlendTest, EventMarkersGoPeopleFirstAndScaleToTheCell) {
  MapEventSet events;
  events.SetRecords(kEventWarp, {2, 1, 1, 1, 1});                            // y 2, x 1
  events.SetRecords(kEventPeople, {0, 6, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});  // stored + 4
  const EventViewport view{.h_scroll = 6 * 8, .v_scroll = 6 * 8, .width = 40, .height = 30, .cell = 8};
  const auto cells = BlendEventMarkers(Markers(32), shown_, events, view);
  ASSERT_EQ(cells.size(), 2u);
  EXPECT_EQ(Box(cells[0]), (std::array{8, 16, 8, 8}));  // the person at tile (1, 2)
  EXPECT_EQ(Box(cells[1]), (std::array{8, 16, 8, 8}));
  EXPECT_EQ(cells[1].pixels[8 * 1 + 1], MixMarkerPixel(Markers(32)[3].pixels[4 * 32 + 4], Under(9, 17)));
}

}  // namespace
}  // namespace kartova
