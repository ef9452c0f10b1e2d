// Feeds arbitrary bytes to the graphics decoder, as a compressed stream read from memory and
// from a ROM file, and through a compress/decompress round trip.
//
// Built by hand with clang, from the repository root:
//   clang++ -std=c++20 -g -O1 -fsanitize=fuzzer,address,undefined -Isrc \
//     fuzz/decompress_fuzz.cpp src/gfx/GraphicsDecompressor.cpp \
//     src/gfx/GraphicsCompressor.cpp src/rom/RomFile.cpp -o build/decompress_fuzz
//   build/decompress_fuzz -max_len=8192 -timeout=2
// The file overload is fed every 64th input only, so file I/O does not dominate the run.

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "gfx/GraphicsCompressor.h"
#include "gfx/GraphicsDecompressor.h"
#include "rom/RomFile.h"

namespace {

void CheckFileAgrees(std::span<const std::uint8_t> data, std::int64_t length,
                     const kartova::GraphicsBuffer& expected) {
  static const std::string path =
      "/tmp/kartova_decompress_fuzz_" + std::to_string(::getpid()) + ".gbc";
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return;
  std::fwrite(data.data(), 1, data.size(), f);
  std::fclose(f);
  kartova::RomFile rom = kartova::RomFile::OpenForRead(path);
  kartova::GraphicsBuffer buffer{};
  if (kartova::DecompressGraphics(rom, 0, buffer) != length || buffer != expected) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static unsigned calls = 0;
  const std::span<const std::uint8_t> data(bytes, size);

  kartova::GraphicsBuffer buffer{};
  const std::int64_t length = kartova::DecompressGraphics(data, buffer);
  if (length < 0) std::abort();
  if (++calls % 64 == 0) CheckFileAgrees(data, length, buffer);

  const auto plain = data.first(std::min<std::size_t>(size, kartova::kGraphicsBufferSize));
  const std::vector<std::uint8_t> stream = kartova::CompressGraphics(plain);
  if (kartova::DecompressGraphics(stream, buffer) != static_cast<std::int64_t>(plain.size())) {
    std::abort();
  }
  for (std::size_t i = 0; i < plain.size(); ++i) {
    if (buffer[i] != plain[i]) std::abort();
  }
  return 0;
}
