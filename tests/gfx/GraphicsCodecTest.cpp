#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "gfx/GraphicsCompressor.h"
#include "gfx/GraphicsDecompressor.h"
#include "rom/RomFile.h"
#include "support/TempDir.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Result {
  std::int64_t length;
  GraphicsBuffer buffer;
  Bytes Head(std::size_t n) const { return Bytes(buffer.begin(), buffer.begin() + n); }
};

Result Decompress(const Bytes& stream) {
  Result r{};
  r.buffer.fill(0xAA);  // whatever an earlier tileset left there
  r.length = DecompressGraphics(stream, r.buffer);
  return r;
}

TEST(GraphicsDecompressorTest, FillsAndLiteral) {
  // literal 3, byte fill 4, alternating fill 5 (odd: ends with a), alternating 4, zeros 2, fill 1
  Result r = Decompress({0x02, 1, 2, 3, 0x23, 9, 0x44, 5, 6, 0x43, 7, 8, 0x61, 0x20, 4, 0xFF});
  EXPECT_EQ(r.length, 19);
  EXPECT_EQ(r.Head(20), (Bytes{1, 2, 3, 9, 9, 9, 9, 5, 6, 5, 6, 5, 7, 8, 7, 8, 0, 0, 4, 0}));
  EXPECT_TRUE(std::all_of(r.buffer.begin() + 19, r.buffer.end(), [](auto b) { return b == 0; }));
}

TEST(GraphicsDecompressorTest, CopiesFromRelativeAndAbsoluteSources) {
  // 1 2 3 4; copy 4 from 4 behind; copy 3 from 0x0001; mirrored copy 2 from 11 behind;
  // backward copy 4 from 1 behind; copy 5 from 2 behind, reading its own output.
  Result r = Decompress(
      {0x03, 1, 2, 3, 4, 0x83, 0x83, 0x82, 0x00, 0x01, 0xA1, 0x8A, 0xC3, 0x80, 0x84, 0x81, 0xFF});
  EXPECT_EQ(r.length, 22);
  EXPECT_EQ(r.Head(22),
            (Bytes{1, 2, 3, 4, 1, 2, 3, 4, 2, 3, 4, 0x80, 0x40, 0x40, 0x80, 4, 3, 4, 3, 4, 3, 4}));
  EXPECT_EQ(ReverseBits(0xC4), 0x23);
}

TEST(GraphicsDecompressorTest, LongFormAndItsChaining) {
  // 0xE5: byte fill (bits 2-4 = 1), count 1 * 256 + 0x10 + 1; 0xE0 0x01: literal of 2;
  // 0xF8: backward copy of 35; 0xEF 0xFF: zero fill of 1024.
  Result r = Decompress({0xE5, 0x10, 0x77, 0xE0, 0x01, 5, 6, 0xF8, 0x22, 0x80, 0xEF, 0xFF, 0xFF});
  EXPECT_EQ(r.length, 273 + 2 + 35 + 1024);
  EXPECT_EQ(r.buffer[272], 0x77);
  EXPECT_EQ(Bytes(r.buffer.begin() + 273, r.buffer.begin() + 279), (Bytes{5, 6, 6, 5, 0x77, 0x77}));

  // 0xFD names the long form again: every later byte, end mark included, is one more count
  // byte, so nothing after it is written.
  EXPECT_EQ(Decompress({0x22, 0x11, 0xFD, 0x01, 0xFF, 0x22, 0x33, 0xFF}).length, 3);
}

TEST(GraphicsDecompressorTest, AccessesOutsideTheBufferAreSkippedButCounted) {
  // zeros to 4090, literal of 10 (6 fit), byte fill 3, copy from inside landing outside,
  // literal 2: the stream stays aligned although nothing of it is stored.
  Bytes s = {0xEF, 0xFF, 0xEF, 0xFF, 0xEF, 0xFF, 0xEF, 0xF9, 0x09, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  s.insert(s.end(), {0x22, 0x55, 0x84, 0x0F, 0xF0, 0x01, 0x66, 0x67, 0xFF});
  Result r = Decompress(s);
  EXPECT_EQ(r.length, 4090 + 10 + 3 + 5 + 2);
  EXPECT_EQ(r.buffer[4090], 1);
  EXPECT_EQ(r.buffer[4095], 6);

  // At 2: copy 6 from 5 behind (starts at -3); backward copy 4 from 1 behind (runs below 0);
  // copy 2 from 0x7FFF. Bytes from outside are not written.
  EXPECT_EQ(Decompress({0x01, 1, 2, 0x85, 0x84, 0xFF}).Head(8), (Bytes{1, 2, 0, 0, 0, 1, 2, 0}));
  EXPECT_EQ(Decompress({0x01, 1, 2, 0xC3, 0x80, 0xFF}).Head(6), (Bytes{1, 2, 2, 1, 0, 0}));
  Result far = Decompress({0x01, 1, 2, 0x81, 0x7F, 0xFF, 0x00, 3});
  EXPECT_EQ(far.length, 5);
  EXPECT_EQ(far.Head(5), (Bytes{1, 2, 0, 0, 3}));
}

TEST(GraphicsDecompressorTest, StreamEndsAtEndMarkOrEndOfData) {
  EXPECT_EQ(Decompress({0xFF, 0x23, 9}).length, 0);
  EXPECT_EQ(Decompress({}).length, 0);
  EXPECT_EQ(Decompress({0x21, 4, 0x62}).length, 5) << "no end mark";
  Result cut = Decompress({0x21, 4, 0x04, 7, 8});
  EXPECT_EQ(cut.length, 4) << "a cut literal keeps the bytes it got";
  EXPECT_EQ(cut.Head(5), (Bytes{4, 4, 7, 8, 0}));
  for (const Bytes& s : {Bytes{0x21, 4, 0x25}, Bytes{0x21, 4, 0x45, 1}, Bytes{0x21, 4, 0x85},
                         Bytes{0x21, 4, 0x85, 0x00}, Bytes{0x21, 4, 0xE4}}) {
    EXPECT_EQ(Decompress(s).length, 2) << "command 0x" << std::hex << int{s[2]} << " cut";
  }
}

TEST(GraphicsDecompressorTest, HugeCountsAreCountedWithoutBeingWalked) {
  // 100000 zero fills of 1024, then as many long copies: walking every skipped position
  // would keep the suite busy for minutes.
  constexpr int kCommands = 100000;
  Bytes s = {0x00, 0x42};
  for (int i = 0; i < kCommands; ++i) s.insert(s.end(), {0xEF, 0xFF});
  for (int i = 0; i < kCommands; ++i) s.insert(s.end(), {0xF3, 0xFF, 0x80});
  Result r = Decompress(s);
  EXPECT_EQ(r.length, 1 + std::int64_t{2 * kCommands} * 1024);
  EXPECT_EQ(r.buffer[0], 0x42);
}

class GraphicsDecompressorFileTest : public ::testing::Test {
 protected:
  RomFile Open(const Bytes& bytes, const std::string& name) {
    test::WriteFileBytes(dir_.File(name), bytes);
    return RomFile::OpenForRead(dir_.File(name));
  }
  test::TempDir dir_;
};

TEST_F(GraphicsDecompressorFileTest, ReadsFromTheOffsetUpToTheEndMarkOrTheEndOfTheFile) {
  Bytes rom(0x2005, 0xEE);
  const Bytes stream = {0x02, 1, 2, 3, 0x85, 0x81, 0xFF};
  std::copy(stream.begin(), stream.end(), rom.begin() + 0x1FFE);  // across a page boundary
  RomFile f = Open(rom, "a.gbc");
  GraphicsBuffer buffer{};
  EXPECT_EQ(DecompressGraphics(f, 0x1FFE, buffer), 9);
  EXPECT_EQ(Bytes(buffer.begin(), buffer.begin() + 9), (Bytes{1, 2, 3, 2, 3, 2, 3, 2, 3}));
  EXPECT_EQ(f.Position(), 0x1FFE + 7) << "just after the end mark";

  RomFile cut = Open({0, 0, 0x21, 5, 0x03, 1, 2}, "b.gbc");
  EXPECT_EQ(DecompressGraphics(cut, 2, buffer), 4);
  EXPECT_EQ(cut.Position(), 7);
  EXPECT_EQ(DecompressGraphics(cut, 100, buffer), 0);
  EXPECT_EQ(DecompressGraphics(cut, -4, buffer), 0);
  RomFile swallowed = Open(Bytes(9000, 0xFE), "c.gbc");
  EXPECT_EQ(DecompressGraphics(swallowed, 10, buffer), 0);
  EXPECT_EQ(swallowed.Position(), 9000);
}

TEST_F(GraphicsDecompressorFileTest, FileAndMemoryAgreeOnRandomStreams) {
  std::mt19937 rng(1234);
  for (int round = 0; round < 40; ++round) {
    Bytes stream(std::uniform_int_distribution<int>(0, 6000)(rng));
    // Without 0xFC..0xFE, which would swallow the rest of the stream at once.
    for (auto& b : stream) b = static_cast<std::uint8_t>(rng() % 0xFC);
    if (round % 4 == 0) stream.push_back(0xFF);
    Bytes rom(17 + stream.size(), 0x99);
    std::copy(stream.begin(), stream.end(), rom.begin() + 17);
    RomFile f = Open(rom, std::to_string(round) + ".gbc");
    const Result mem = Decompress(stream);
    GraphicsBuffer from_file{};
    EXPECT_EQ(DecompressGraphics(f, 17, from_file), mem.length) << "round " << round;
    EXPECT_EQ(from_file, mem.buffer) << "round " << round;
  }
}

// Compresses, checks the end mark and the decompressed length, and returns the stream and
// what decompression gives back.
std::pair<Bytes, Bytes> RoundTrip(const Bytes& data) {
  const Bytes stream = CompressGraphics(data);
  EXPECT_EQ(stream.back(), 0xFF);
  const Result r = Decompress(stream);
  EXPECT_EQ(r.length, static_cast<std::int64_t>(data.size()));
  return {stream, r.Head(std::min<std::size_t>(data.size(), r.buffer.size()))};
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
    const std::size_t len = 1 + pick(pick(4) == 0 ? 1100 : 40), kind = pick(7);
    Bytes piece;
    if (kind == 0) piece.assign(len, 0);
    if (kind == 1) piece.assign(len, static_cast<std::uint8_t>(rng()));
    for (std::size_t k = 0; kind == 2 && k < len; ++k) piece.push_back(k % 2 ? 0xF0 : 0x0F);
    if (kind == 3) piece = RandomBytes(rng, len);
    if (kind > 3 && !data.empty()) {
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

TEST(GraphicsCompressorTest, EdgeAndRandomSizesRoundTrip) {
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

  for (int round = 0; round < 12; ++round) {
    const std::size_t size = round == 0 ? 4096 : rng() % 4097;
    const Bytes data = MixedData(rng, size);
    const auto [mixed_stream, mixed_back] = RoundTrip(data);
    ASSERT_EQ(mixed_back, data) << "round " << round << ", size " << size;
    EXPECT_TRUE(size <= 200 || mixed_stream.size() < size) << "round " << round;
  }
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

}  // namespace
}  // namespace kartova
