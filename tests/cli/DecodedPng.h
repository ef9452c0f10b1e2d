#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace kartova::test {

// A PNG file as libpng reads it, without any transformation: an 8-bit indexed picture gives
// its indices and palette exactly as they were encoded.
struct DecodedPng {
  bool ok = false;  // libpng read the whole file without an error
  std::string error;
  std::uint32_t width = 0, height = 0;
  int bit_depth = 0;
  int colour_type = -1;
  std::vector<std::array<std::uint8_t, 3>> palette;
  std::vector<std::uint8_t> pixels;  // width × height samples, top row first
  std::vector<std::string> chunks;   // the chunk names in file order

  std::uint8_t Index(std::uint32_t x, std::uint32_t y) const { return pixels.at(y * width + x); }
  // The colour of a pixel as 0xRRGGBB.
  std::uint32_t Rgb(std::uint32_t x, std::uint32_t y) const {
    const auto& c = palette.at(Index(x, y));
    return std::uint32_t{c[0]} << 16 | c[1] << 8 | c[2];
  }
};

DecodedPng ReadPng(const std::string& path);

}  // namespace kartova::test
