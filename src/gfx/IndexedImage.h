#pragma once

#include <cstdint>
#include <vector>

namespace kartova {

// An 8-bit picture of colour indices, top line first, rows packed without padding. The ui
// shows it through the colour table as an indexed image.
struct IndexedImage {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> pixels;

  // Changes the size; pixels that stay inside keep nothing in particular (callers fill them).
  void Resize(int w, int h) {
    width = w < 0 ? 0 : w;
    height = h < 0 ? 0 : h;
    pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  }
  std::uint8_t* Row(int y) { return pixels.data() + static_cast<std::size_t>(y) * width; }
  const std::uint8_t* Row(int y) const {
    return pixels.data() + static_cast<std::size_t>(y) * width;
  }
  std::uint8_t At(int x, int y) const { return Row(y)[x]; }
};

}  // namespace kartova
