#include "cli/PngWriter.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstring>

#include "cli/OutputFile.h"

namespace kartova::cli {

namespace {

// Maps are rows of repeated 32-pixel blocks, which even the fast deflate levels find. Level 3
// gives pictures about a third smaller than level 1 for a few per cent more time (the demo's
// harbour town: 26 KB against 40 KB); from level 6 on the time grows faster than the size
// shrinks. Indexed rows gain nothing from the PNG filters, which only help photographic colour.
constexpr int kCompressionLevel = 3;
constexpr std::size_t kIdatChunkSize = 256 * 1024;

// Where libpng's output goes: a buffer that gathers its many small pieces (chunk lengths,
// names and CRCs) into few system writes. Nothing here may throw, since libpng calls it.
struct Sink {
  explicit Sink(OutputFile& f) : file(f) {}
  OutputFile& file;
  std::array<std::uint8_t, 64 * 1024> buffer;
  std::size_t filled = 0;
  // libpng's reason when it gives up; copied, since it may live in a frame the error leaves.
  std::array<char, 128> message{};

  bool Flush() noexcept {
    const bool ok = file.Write(buffer.data(), filled);
    filled = 0;
    return ok;
  }
};

void WriteData(png_structp png, png_bytep data, png_size_t size) {
  Sink& sink = *static_cast<Sink*>(png_get_io_ptr(png));
  while (size > 0) {
    if (sink.filled == sink.buffer.size() && !sink.Flush()) png_error(png, "write failed");
    const std::size_t n = std::min(size, sink.buffer.size() - sink.filled);
    std::memcpy(sink.buffer.data() + sink.filled, data, n);
    sink.filled += n;
    data += n;
    size -= n;
  }
}

void FlushData(png_structp) {}

[[noreturn]] void OnError(png_structp png, png_const_charp message) {
  std::array<char, 128>& reason = static_cast<Sink*>(png_get_error_ptr(png))->message;
  std::strncpy(reason.data(), message != nullptr ? message : "", reason.size() - 1);
  png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

// libpng leaves this function by longjmp on an error, so nothing in it may need a destructor.
bool Encode(png_structp png, png_infop info, const IndexedImage& image,
            const png_color* palette, int palette_size) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_set_IHDR(png, info, static_cast<png_uint_32>(image.width),
               static_cast<png_uint_32>(image.height), 8, PNG_COLOR_TYPE_PALETTE,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_PLTE(png, info, palette, palette_size);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
  png_set_compression_level(png, kCompressionLevel);
  png_set_compression_buffer_size(png, kIdatChunkSize);
  png_write_info(png, info);
  for (int y = 0; y < image.height; ++y) png_write_row(png, image.Row(y));
  png_write_end(png, nullptr);
  return true;
}

}  // namespace

void WritePng(const std::string& path, const IndexedImage& image,
              const std::vector<PngColour>& palette) {
  std::array<png_color, 256> colours{};
  const auto palette_size = static_cast<int>(std::min(palette.size(), colours.size()));
  for (std::size_t i = 0; i < static_cast<std::size_t>(palette_size); ++i)
    colours[i] = {palette[i].red, palette[i].green, palette[i].blue};

  OutputFile file(path);
  Sink sink(file);
  bool encoded = false;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &sink, OnError, OnWarning);
  png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
  if (info != nullptr) {
    png_set_write_fn(png, &sink, WriteData, FlushData);
    encoded = Encode(png, info, image, colours.data(), palette_size) && sink.Flush();
  }
  png_destroy_write_struct(&png, &info);
  if (!encoded) file.Fail(sink.message[0] != '\0' ? sink.message.data() : "out of memory");
  file.Finish();
}

}  // namespace kartova::cli
