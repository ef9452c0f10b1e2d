#include "cli/PngWriter.h"

#include <algorithm>
#include <fstream>

namespace kartova::cli {

namespace {

constexpr int kWindow = 32768;
constexpr int kMinMatch = 3;
constexpr int kMaxMatch = 258;
constexpr int kHashBits = 15;
constexpr int kMaxChain = 24;
constexpr std::size_t kIdatChunk = 1 << 20;

constexpr std::array<int, 29> kLengthBase = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,
                                             15, 17, 19, 23, 27, 31, 35, 43, 51,  59,
                                             67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr std::array<int, 29> kLengthExtra = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                              2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr std::array<int, 30> kDistanceBase = {1,    2,    3,    4,    5,    7,     9,     13,
                                               17,   25,   33,   49,   65,   97,    129,   193,
                                               257,  385,  513,  769,  1025, 1537,  2049,  3073,
                                               4097, 6145, 8193, 12289, 16385, 24577};
constexpr std::array<int, 30> kDistanceExtra = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                                6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

// Bits go out least significant first, as deflate packs them.
class BitWriter {
 public:
  explicit BitWriter(std::vector<std::uint8_t>& out) : out_(out) {}
  void Put(std::uint32_t value, int count) {
    bits_ |= static_cast<std::uint64_t>(value) << filled_;
    filled_ += count;
    while (filled_ >= 8) {
      out_.push_back(static_cast<std::uint8_t>(bits_));
      bits_ >>= 8;
      filled_ -= 8;
    }
  }
  // Huffman codes are defined most significant bit first.
  void PutCode(std::uint32_t code, int length) {
    std::uint32_t reversed = 0;
    for (int i = 0; i < length; ++i) reversed |= ((code >> i) & 1u) << (length - 1 - i);
    Put(reversed, length);
  }
  void Flush() {
    if (filled_ > 0) out_.push_back(static_cast<std::uint8_t>(bits_));
    bits_ = 0;
    filled_ = 0;
  }

 private:
  std::vector<std::uint8_t>& out_;
  std::uint64_t bits_ = 0;
  int filled_ = 0;
};

// The fixed literal/length code of deflate.
void PutLiteralOrLength(BitWriter& w, int symbol) {
  if (symbol < 144) {
    w.PutCode(0x30 + symbol, 8);
  } else if (symbol < 256) {
    w.PutCode(0x190 + symbol - 144, 9);
  } else if (symbol < 280) {
    w.PutCode(symbol - 256, 7);
  } else {
    w.PutCode(0xC0 + symbol - 280, 8);
  }
}

void PutMatch(BitWriter& w, int length, int distance) {
  int l = 28;
  while (kLengthBase[static_cast<std::size_t>(l)] > length) --l;
  PutLiteralOrLength(w, 257 + l);
  w.Put(static_cast<std::uint32_t>(length - kLengthBase[static_cast<std::size_t>(l)]),
        kLengthExtra[static_cast<std::size_t>(l)]);
  const auto it = std::upper_bound(kDistanceBase.begin(), kDistanceBase.end(), distance);
  const auto d = static_cast<std::size_t>(it - kDistanceBase.begin() - 1);
  w.PutCode(static_cast<std::uint32_t>(d), 5);
  w.Put(static_cast<std::uint32_t>(distance - kDistanceBase[d]), kDistanceExtra[d]);
}

std::uint32_t Hash3(const std::uint8_t* p) {
  const std::uint32_t v = static_cast<std::uint32_t>(p[0]) << 16 | p[1] << 8 | p[2];
  return (v * 2654435761u) >> (32 - kHashBits);
}

// One final block with the fixed codes; matches from hash chains over the 32 KiB window.
void Deflate(const std::uint8_t* data, std::size_t size, BitWriter& w) {
  w.Put(1, 1);  // final block
  w.Put(1, 2);  // fixed Huffman codes
  std::vector<std::int64_t> head(std::size_t{1} << kHashBits, -1);
  std::vector<std::int64_t> prev(kWindow, -1);
  const auto n = static_cast<std::int64_t>(size);
  auto insert = [&](std::int64_t pos) {
    if (pos + kMinMatch > n) return;
    const std::uint32_t h = Hash3(data + pos);
    prev[static_cast<std::size_t>(pos % kWindow)] = head[h];
    head[h] = pos;
  };
  std::int64_t i = 0;
  while (i < n) {
    int best_length = 0;
    std::int64_t best_distance = 0;
    if (i + kMinMatch <= n) {
      const int limit = static_cast<int>(std::min<std::int64_t>(kMaxMatch, n - i));
      std::int64_t candidate = head[Hash3(data + i)];
      for (int chain = 0; chain < kMaxChain && candidate >= 0 && i - candidate <= kWindow; ++chain) {
        int length = 0;
        while (length < limit && data[candidate + length] == data[i + length]) ++length;
        if (length > best_length) {
          best_length = length;
          best_distance = i - candidate;
          if (length == limit) break;
        }
        candidate = prev[static_cast<std::size_t>(candidate % kWindow)];
      }
    }
    if (best_length >= kMinMatch) {
      PutMatch(w, best_length, static_cast<int>(best_distance));
      for (int k = 0; k < best_length; ++k) insert(i + k);
      i += best_length;
    } else {
      PutLiteralOrLength(w, data[i]);
      insert(i);
      ++i;
    }
  }
  PutLiteralOrLength(w, 256);
  w.Flush();
}

std::uint32_t Adler32(const std::uint8_t* data, std::size_t size) {
  std::uint32_t a = 1, b = 0;
  while (size > 0) {
    const std::size_t run = std::min<std::size_t>(size, 5552);
    for (std::size_t i = 0; i < run; ++i) {
      a += data[i];
      b += a;
    }
    a %= 65521;
    b %= 65521;
    data += run;
    size -= run;
  }
  return b << 16 | a;
}

void PutBigEndian(std::vector<std::uint8_t>& out, std::uint32_t v) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(v >> shift));
}

void PutChunk(std::vector<std::uint8_t>& out, const char* type, const std::uint8_t* data,
              std::size_t size) {
  PutBigEndian(out, static_cast<std::uint32_t>(size));
  const std::size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  out.insert(out.end(), data, data + size);
  PutBigEndian(out, Crc32(out.data() + start, size + 4));
}

}  // namespace

std::uint32_t Crc32(const std::uint8_t* data, std::size_t size, std::uint32_t crc) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> t{};
    for (std::uint32_t n = 0; n < 256; ++n) {
      std::uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  crc = ~crc;
  for (std::size_t i = 0; i < size; ++i) crc = table[(crc ^ data[i]) & 0xFF] ^ (crc >> 8);
  return ~crc;
}

std::vector<std::uint8_t> ZlibCompress(const std::uint8_t* data, std::size_t size) {
  std::vector<std::uint8_t> out = {0x78, 0x01};
  out.reserve(size / 8 + 64);
  BitWriter w(out);
  Deflate(data, size, w);
  PutBigEndian(out, Adler32(data, size));
  return out;
}

std::vector<std::uint8_t> EncodePng(const IndexedImage& image, const std::vector<PngColour>& palette) {
  std::vector<std::uint8_t> out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  std::vector<std::uint8_t> header;
  PutBigEndian(header, static_cast<std::uint32_t>(image.width));
  PutBigEndian(header, static_cast<std::uint32_t>(image.height));
  header.insert(header.end(), {8, 3, 0, 0, 0});  // 8 bits, indexed, deflate, no filter, no interlace
  PutChunk(out, "IHDR", header.data(), header.size());

  std::vector<std::uint8_t> plte;
  for (std::size_t i = 0; i < std::min<std::size_t>(palette.size(), 256); ++i)
    plte.insert(plte.end(), {palette[i].red, palette[i].green, palette[i].blue});
  PutChunk(out, "PLTE", plte.data(), plte.size());

  // Every row starts with its filter type, 0: the rows are stored as they are.
  const auto w = static_cast<std::size_t>(image.width);
  std::vector<std::uint8_t> raw(static_cast<std::size_t>(image.height) * (w + 1), 0);
  for (int y = 0; y < image.height; ++y)
    std::copy_n(image.Row(y), w, raw.begin() + static_cast<std::ptrdiff_t>(y * (w + 1) + 1));
  const std::vector<std::uint8_t> compressed = ZlibCompress(raw.data(), raw.size());
  for (std::size_t at = 0; at < compressed.size(); at += kIdatChunk)
    PutChunk(out, "IDAT", compressed.data() + at, std::min(kIdatChunk, compressed.size() - at));
  PutChunk(out, "IEND", nullptr, 0);
  return out;
}

bool WritePng(const std::string& path, const IndexedImage& image,
              const std::vector<PngColour>& palette) {
  const std::vector<std::uint8_t> bytes = EncodePng(image, palette);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  if (!file) return false;
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return static_cast<bool>(file);
}

}  // namespace kartova::cli
