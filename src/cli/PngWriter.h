#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gfx/IndexedImage.h"

namespace kartova::cli {

// An RGB colour of a PNG palette.
struct PngColour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

// Writes image to path as an 8-bit indexed PNG (colour type 3) whose palette is the given one
// (1 to 256 entries), through libpng. Only the critical chunks are written, so the file holds
// exactly the indices and the palette. A file that cannot be created or written completely
// raises FileWriteError with path and the system's reason; what was written of it is removed.
void WritePng(const std::string& path, const IndexedImage& image,
              const std::vector<PngColour>& palette);

}  // namespace kartova::cli
