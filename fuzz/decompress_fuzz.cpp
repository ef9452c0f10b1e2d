// Feeds arbitrary bytes to the graphics decoder, as a compressed stream read from memory and
// from a ROM file, and through a compress/decompress round trip.
// The file overload is fed every 64th input only, so file I/O does not dominate the run.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "gfx/GraphicsCompressor.h"
#include "gfx/GraphicsDecompressor.h"
#include "rom/RomFile.h"

namespace {

void CheckFileAgrees(std::span<const std::uint8_t> data, std::int64_t length,
                     const kartova::GraphicsBuffer& expected) {
  static const std::string path = kartova::fuzz::WorkFile("decompress.gbc");
  kartova::fuzz::WriteFile(path, data);
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
