#pragma once

#include <array>
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

// An 8-bit indexed picture as a PNG file image (colour type 3): the palette is written as
// given (at most 256 entries), the pixel rows deflate-compressed. Needs no library: the
// compressor is a small LZ77 with the fixed Huffman codes, which suits rows of repeated
// blocks well.
std::vector<std::uint8_t> EncodePng(const IndexedImage& image, const std::vector<PngColour>& palette);

// Writes the encoded picture to path; false when the file could not be written completely.
bool WritePng(const std::string& path, const IndexedImage& image,
              const std::vector<PngColour>& palette);

// The deflate stream in a zlib wrapper (header, compressed data, Adler-32).
std::vector<std::uint8_t> ZlibCompress(const std::uint8_t* data, std::size_t size);
std::uint32_t Crc32(const std::uint8_t* data, std::size_t size, std::uint32_t crc = 0);

}  // namespace kartova::cli
