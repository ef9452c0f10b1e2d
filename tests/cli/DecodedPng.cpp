#include "cli/DecodedPng.h"

#include <png.h>

#include <csetjmp>
#include <cstdio>
#include <memory>

#include "support/TempDir.h"

namespace kartova::test {

namespace {

struct ErrorText {
  char text[200] = {};
};

[[noreturn]] void OnError(png_structp png, png_const_charp message) {
  std::snprintf(static_cast<ErrorText*>(png_get_error_ptr(png))->text, sizeof(ErrorText::text), "%s",
                message);
  png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

// libpng leaves by longjmp on an error: rows and palette go into storage made beforehand.
bool Decode(png_structp png, png_infop info, std::FILE* file, DecodedPng& out,
            std::vector<png_bytep>& rows) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_init_io(png, file);
  png_read_info(png, info);
  out.width = png_get_image_width(png, info);
  out.height = png_get_image_height(png, info);
  out.bit_depth = png_get_bit_depth(png, info);
  out.colour_type = png_get_color_type(png, info);
  if (out.bit_depth != 8 || png_get_rowbytes(png, info) != out.width) png_error(png, "not one byte a pixel");
  png_colorp colours = nullptr;
  int count = 0;
  if (png_get_PLTE(png, info, &colours, &count) & PNG_INFO_PLTE) {
    out.palette.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) out.palette[i] = {colours[i].red, colours[i].green, colours[i].blue};
  }
  out.pixels.resize(std::size_t{out.width} * out.height);
  rows.resize(out.height);
  for (std::uint32_t y = 0; y < out.height; ++y) rows[y] = out.pixels.data() + std::size_t{y} * out.width;
  png_read_image(png, rows.data());
  png_read_end(png, nullptr);
  return true;
}

std::vector<std::string> ChunkNames(const std::string& bytes) {
  std::vector<std::string> names;
  for (std::size_t at = 8; at + 12 <= bytes.size();) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data() + at);
    const std::size_t length = std::size_t{p[0]} << 24 | p[1] << 16 | p[2] << 8 | p[3];
    names.push_back(bytes.substr(at + 4, 4));
    at += 12 + length;
  }
  return names;
}

}  // namespace

DecodedPng ReadPng(const std::string& path) {
  DecodedPng out;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
  if (!file) {
    out.error = "cannot open " + path;
    return out;
  }
  ErrorText error;
  png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &error, OnError, OnWarning);
  png_infop info = png_create_info_struct(png);
  std::vector<png_bytep> rows;
  out.ok = Decode(png, info, file.get(), out, rows);
  out.error = error.text;
  png_destroy_read_struct(&png, &info, nullptr);
  out.chunks = ChunkNames(ReadFileText(path));
  return out;
}

}  // namespace kartova::test
