#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "gfx/GraphicsCompressor.h"
#include "gfx/GraphicsDecompressor.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Compresses, checks the end mark and the decompressed length, and returns the stream and
// what decompression gives back.
std::pair<Bytes, Bytes> RoundTrip(const Bytes& data) {
  const Bytes stream = CompressGraphics(data);
  EXPECT_EQ(stream.back(), 0xFF);
  GraphicsBuffer buffer{};
  buffer.fill(0xAA);
  EXPECT_EQ(DecompressGraphics(stream, buffer), static_cast<std::int64_t>(data.size()));
  const auto kept = static_cast<std::ptrdiff_t>(std::min<std::size_t>(data.size(), buffer.size()));
  return {stream, Bytes(buffer.begin(), buffer.begin() + kept)};
}

// Commands of a well-formed stream as (kind, count, relative source).
std::vector<std::tuple<int, int, bool>> Commands(const Bytes& s) {
  std::vector<std::tuple<int, int, bool>> out;
  for (std::size_t i = 0; s[i] != 0xFF;) {
    int kind = s[i] & 0xE0, count = (s[i] & 0x1F) + 1;
    if (kind == 0xE0) kind = (s[i] & 0x1C) << 3, count = (s[i] & 3) * 256 + s[i + 1] + 1, ++i;
    const bool relative = kind >= 0x80 && (s[i + 1] & 0x80);
    const int payload[] = {count, 1, 2, 0, 1 + !relative, 1 + !relative, 1 + !relative};
    i += 1 + static_cast<std::size_t>(payload[kind >> 5]);
    out.emplace_back(kind, count, relative);
  }
  return out;
}

Bytes RandomBytes(std::mt19937& rng, std::size_t n) {
  Bytes b(n);
  for (auto& x : b) x = static_cast<std::uint8_t>(rng());
  return b;
}

// Tileset-like data: runs, pairs, noise, and straight, reversed or mirrored copies of earlier
// pieces, near and far.
Bytes MixedData(std::mt19937& rng, std::size_t size) {
  Bytes data;
  auto pick = [&](std::size_t n) { return rng() % n; };
  while (data.size() < size) {
    const std::size_t len = 1 + pick(pick(4) == 0 ? 1100 : 40);
    Bytes piece;
    switch (pick(7)) {
      case 0:
        piece.assign(len, 0);
        break;
      case 1:
        piece.assign(len, static_cast<std::uint8_t>(rng()));
        break;
      case 2:
        for (std::size_t k = 0; k < len; ++k) piece.push_back(k % 2 ? 0xF0 : 0x0F);
        break;
      case 3:
        piece = RandomBytes(rng, len);
        break;
      default:
        if (data.empty()) break;
        const std::size_t from = pick(data.size());
        piece.assign(data.begin() + from, data.begin() + std::min(data.size(), from + len));
        if (pick(3) == 0) std::reverse(piece.begin(), piece.end());
        if (pick(3) == 0) std::transform(piece.begin(), piece.end(), piece.begin(), ReverseBits);
    }
    data.insert(data.end(), piece.begin(), piece.end());
  }
  data.resize(size);
  return data;
}

TEST(GraphicsCompressorTest, EdgeSizesRoundTrip) {
  EXPECT_EQ(RoundTrip({}).first, Bytes{0xFF});
  EXPECT_EQ(RoundTrip({0x42}).second, Bytes{0x42});
  const Bytes zeros(4096, 0);
  const Bytes four_long_zero_fills = {0xEF, 0xFF, 0xEF, 0xFF, 0xEF, 0xFF, 0xEF, 0xFF, 0xFF};
  EXPECT_EQ(RoundTrip(zeros), std::make_pair(four_long_zero_fills, zeros));
  std::mt19937 rng(7);
  const Bytes noise = RandomBytes(rng, 4096);
  const auto [stream, back] = RoundTrip(noise);
  EXPECT_EQ(back, noise);
  EXPECT_LE(stream.size(), noise.size() + 4 * 2 + 1) << "no worse than long literals";

  // Bytes past the buffer cannot come back, but the length does.
  const Bytes longer = MixedData(rng, 5000);
  EXPECT_EQ(RoundTrip(longer).second, Bytes(longer.begin(), longer.begin() + 4096));
}

TEST(GraphicsCompressorTest, EachCommandKindIsUsedWhereItPays) {
  std::mt19937 rng(99);
  const Bytes piece = RandomBytes(rng, 40), gap = RandomBytes(rng, 300);
  Bytes mirrored = piece, pairs;
  std::transform(piece.begin(), piece.end(), mirrored.begin(), ReverseBits);
  const Bytes backward(piece.rbegin(), piece.rend());
  for (int i = 0; i < 30; ++i) pairs.insert(pairs.end(), {0x3C, 0x7E});
  struct Case {
    Bytes tail;
    int kind;
    bool relative;
  };
  const Case cases[] = {
      {Bytes(100, 0), 0x60, false}, {Bytes(40, 0x55), 0x20, false}, {pairs, 0x40, false},
      {piece, 0x80, true},          {mirrored, 0xA0, true},         {backward, 0xC0, true},
  };
  for (const Case& c : cases) {
    for (bool far : {false, true}) {
      if (far && c.kind < 0x80) continue;
      Bytes data = piece;
      if (far) data.insert(data.end(), gap.begin(), gap.end());
      data.insert(data.end(), c.tail.begin(), c.tail.end());
      SCOPED_TRACE("kind " + std::to_string(c.kind) + (far ? " far" : ""));
      const auto [stream, back] = RoundTrip(data);
      EXPECT_EQ(back, data);
      EXPECT_LT(stream.size() + 15, data.size()) << "structure must save bytes";
      const auto cmds = Commands(stream);
      EXPECT_TRUE(std::any_of(cmds.begin(), cmds.end(), [&](const auto& cmd) {
        const auto [kind, count, relative] = cmd;
        return kind == c.kind && count >= 30 && relative == (c.relative && !far);
      }));
    }
  }
}

TEST(GraphicsCompressorTest, RandomSizesAndMixturesRoundTrip) {
  std::mt19937 rng(2024);
  for (int round = 0; round < 30; ++round) {
    const std::size_t size = round == 0 ? 4096 : rng() % 4097;
    const Bytes data = round % 5 == 4 ? RandomBytes(rng, size) : MixedData(rng, size);
    const auto [stream, back] = RoundTrip(data);
    ASSERT_EQ(back, data) << "round " << round << ", size " << size;
    if (round % 5 != 4 && size > 200) {
      EXPECT_LT(stream.size(), size) << "round " << round;
    }
  }
}

// The fewest bytes any stream can spend on data, by trying every command with every count
// and every source at every position (slow, for short data only).
std::size_t ShortestPossible(const Bytes& d) {
  const std::size_t n = d.size();
  std::vector<std::size_t> best(n + 1, SIZE_MAX);
  best[n] = 1;  // the end mark
  auto offer = [&](std::size_t i, std::size_t count, std::size_t payload) {
    best[i] = std::min(best[i], (count <= 32 ? 1 : 2) + payload + best[i + count]);
  };
  for (std::size_t i = n; i-- > 0;) {
    bool zero = true, same = true, alternating = true;
    for (std::size_t count = 1; count <= std::min<std::size_t>(n - i, 1024); ++count) {
      const std::size_t last = i + count - 1;
      zero &= d[last] == 0;
      same &= d[last] == d[i];
      alternating &= count <= 2 || d[last] == d[last - 2];
      offer(i, count, count);
      if (zero) offer(i, count, 0);
      if (same) offer(i, count, 1);
      if (alternating) offer(i, count, 2);
    }
    for (std::size_t src = 0; src < i; ++src) {
      std::size_t fwd = 0, mir = 0, bwd = 0;
      while (i + fwd < n && d[i + fwd] == d[src + fwd]) ++fwd;
      while (i + mir < n && d[i + mir] == ReverseBits(d[src + mir])) ++mir;
      while (i + bwd < n && bwd <= src && d[i + bwd] == d[src - bwd]) ++bwd;
      const std::size_t reach = std::min<std::size_t>(std::max({fwd, mir, bwd}), 1024);
      for (std::size_t count = 1; count <= reach; ++count) offer(i, count, i - src <= 128 ? 1 : 2);
    }
  }
  return best[0];
}

TEST(GraphicsCompressorTest, StreamsAreAsShortAsPossible) {
  std::mt19937 rng(31);
  const std::uint8_t alphabet[] = {0x00, 0x0F, 0xF0, 0x3C, 0x81, 0x42};
  for (int round = 0; round < 16; ++round) {
    Bytes data = MixedData(rng, 1 + rng() % 300);
    if (round % 2) {
      for (auto& b : data) b = alphabet[rng() % 6];
    }
    const auto [stream, back] = RoundTrip(data);
    ASSERT_EQ(back, data) << "round " << round;
    EXPECT_EQ(stream.size(), ShortestPossible(data)) << "round " << round;
  }
}

}  // namespace
}  // namespace kartova
