#include "gfx/GraphicsDecompressor.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "gfx/GraphicsCommands.h"
#include "rom/RomFile.h"

namespace kartova {

namespace {

constexpr std::int64_t kBufferEnd = kGraphicsBufferSize;

// The compressed stream as it lies in memory.
class MemorySource {
 public:
  explicit MemorySource(std::span<const std::uint8_t> stream)
      : next_(stream.data()), end_(stream.data() + stream.size()) {}

  bool Next(std::uint8_t& b) {
    if (next_ == end_) return false;
    b = *next_++;
    return true;
  }
  std::size_t Read(std::uint8_t* dst, std::size_t n) {
    const std::size_t got = std::min(n, Left());
    if (got > 0) std::memcpy(dst, next_, got);
    next_ += got;
    return got;
  }
  std::size_t Skip(std::size_t n) {
    const std::size_t got = std::min(n, Left());
    next_ += got;
    return got;
  }
  void SkipToEnd() { next_ = end_; }

 private:
  std::size_t Left() const { return static_cast<std::size_t>(end_ - next_); }
  const std::uint8_t* next_;
  const std::uint8_t* end_;
};

// The compressed stream read from the ROM file in chunks. When decoding is over, the file is
// left positioned just after the last byte the decoder took, as if it had read byte by byte.
class FileSource {
 public:
  FileSource(RomFile& file, std::int64_t offset) : file_(file), start_(offset) {
    file_.Seek(offset);
  }
  ~FileSource() { file_.Seek(start_ + consumed_); }
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  bool Next(std::uint8_t& b) {
    if (next_ == filled_ && !Refill()) return RanOffTheFile();
    b = chunk_[next_++];
    ++consumed_;
    return true;
  }
  std::size_t Read(std::uint8_t* dst, std::size_t n) {
    std::size_t done = 0;
    while (done < n && (next_ < filled_ || Refill())) {
      const std::size_t take = std::min(n - done, filled_ - next_);
      std::memcpy(dst + done, chunk_ + next_, take);
      next_ += take;
      done += take;
    }
    consumed_ += static_cast<std::int64_t>(done);
    if (done < n) RanOffTheFile();
    return done;
  }
  std::size_t Skip(std::size_t n) {
    std::size_t done = 0;
    while (done < n && (next_ < filled_ || Refill())) {
      const std::size_t take = std::min(n - done, filled_ - next_);
      next_ += take;
      done += take;
    }
    consumed_ += static_cast<std::int64_t>(done);
    if (done < n) RanOffTheFile();
    return done;
  }
  void SkipToEnd() {
    if (start_ >= 0) consumed_ = std::max(consumed_, file_.Size() - start_);
    next_ = filled_ = 0;
    at_end_ = true;
  }

 private:
  static constexpr std::size_t kChunkSize = 1024;

  // The chunks read ahead of the decoder: that the last one is short says nothing yet. Only
  // a stream that needs a byte the file does not have runs past its end.
  bool Refill() {
    if (at_end_) return false;
    filled_ = file_.ReadAhead(chunk_, kChunkSize);
    next_ = 0;
    if (filled_ < kChunkSize) at_end_ = true;
    return filled_ > 0;
  }

  bool RanOffTheFile() {
    file_.NoteReadPastEnd();
    return false;
  }

  RomFile& file_;
  std::int64_t start_;
  std::int64_t consumed_ = 0;
  std::uint8_t chunk_[kChunkSize] = {};
  std::size_t next_ = 0;
  std::size_t filled_ = 0;
  bool at_end_ = false;
};

// Runs the commands of one stream. The output position only grows, so once it has passed
// the end of the buffer every further write is skipped; such runs are counted, not walked,
// which keeps decoding linear in the length of the stream however large the counts are.
template <class Source>
class Decoder {
 public:
  Decoder(Source& source, GraphicsBuffer& buffer) : source_(source), buffer_(buffer) {}

  std::int64_t Run() {
    buffer_.fill(0);
    std::uint8_t c = 0;
    while (source_.Next(c) && c != kEndMark) {
      int command = c & 0xE0;
      int count = (c & 0x1F) + 1;
      if (command == kLongForm) {
        // The long form takes its command from bits 2-4. When those name the long form
        // again, every further byte is taken as yet another count byte: the rest of the
        // stream is swallowed and nothing more is written.
        if ((c & 0x1C) == 0x1C) {
          source_.SkipToEnd();
          break;
        }
        std::uint8_t low = 0;
        if (!source_.Next(low)) break;
        command = (c & 0x1C) << 3;
        count = (c & 0x03) * 256 + low + 1;
      }
      if (!RunCommand(command, count)) break;
    }
    return position_;
  }

 private:
  // How many of the next count output positions still lie inside the buffer.
  int WritableCount(int count) const {
    return static_cast<int>(std::clamp<std::int64_t>(kBufferEnd - position_, 0, count));
  }
  std::uint8_t* Out() { return buffer_.data() + std::min(position_, kBufferEnd); }

  // Returns false when the stream ended inside the command.
  bool RunCommand(int command, int count) {
    switch (command) {
      case kLiteral:
        return Literal(count);
      case kByteFill:
        return ByteFill(count);
      case kAlternatingFill:
        return AlternatingFill(count);
      case kZeroFill:
        std::memset(Out(), 0, static_cast<std::size_t>(WritableCount(count)));
        position_ += count;
        return true;
      case kCopy:
      case kBitReversedCopy:
      case kBackwardCopy:
        return Copy(command, count);
      default:
        return false;
    }
  }

  bool Literal(int count) {
    const std::size_t writable = static_cast<std::size_t>(WritableCount(count));
    const std::size_t got = source_.Read(Out(), writable);
    std::size_t skipped = 0;
    if (got == writable) skipped = source_.Skip(static_cast<std::size_t>(count) - writable);
    position_ += static_cast<std::int64_t>(got + skipped);
    return got + skipped == static_cast<std::size_t>(count);
  }

  bool ByteFill(int count) {
    std::uint8_t value = 0;
    if (!source_.Next(value)) return false;
    std::memset(Out(), value, static_cast<std::size_t>(WritableCount(count)));
    position_ += count;
    return true;
  }

  bool AlternatingFill(int count) {
    std::uint8_t pair[2] = {0, 0};
    if (!source_.Next(pair[0]) || !source_.Next(pair[1])) return false;
    std::uint8_t* out = Out();
    const int writable = WritableCount(count);
    for (int k = 0; k < writable; ++k) out[k] = pair[k & 1];
    position_ += count;
    return true;
  }

  bool Copy(int command, int count) {
    std::uint8_t s = 0;
    if (!source_.Next(s)) return false;
    std::int64_t from = 0;
    if (s & 0x80) {
      from = position_ - ((s & 0x7F) + 1);
    } else {
      std::uint8_t t = 0;
      if (!source_.Next(t)) return false;
      from = s * 256 + t;
    }
    // Only the steps k whose source lies inside the buffer write anything.
    const bool backward = command == kBackwardCopy;
    std::int64_t first = backward ? from - (kBufferEnd - 1) : -from;
    std::int64_t end = backward ? from + 1 : kBufferEnd - from;
    first = std::max<std::int64_t>(first, 0);
    end = std::min<std::int64_t>(end, WritableCount(count));
    std::uint8_t* out = Out();
    const std::uint8_t* in = buffer_.data();
    // Byte by byte on purpose: a source just behind the output reads what this very
    // command has written, which is how the game repeats short patterns.
    for (std::int64_t k = first; k < end; ++k) {
      const std::uint8_t value = in[backward ? from - k : from + k];
      out[k] = command == kBitReversedCopy ? ReverseBits(value) : value;
    }
    position_ += count;
    return true;
  }

  Source& source_;
  GraphicsBuffer& buffer_;
  std::int64_t position_ = 0;
};

}  // namespace

std::int64_t DecompressGraphics(RomFile& file, std::int64_t offset, GraphicsBuffer& buffer) {
  FileSource source(file, offset);
  return Decoder<FileSource>(source, buffer).Run();
}

std::int64_t DecompressGraphics(std::span<const std::uint8_t> stream, GraphicsBuffer& buffer) {
  MemorySource source(stream);
  return Decoder<MemorySource>(source, buffer).Run();
}

}  // namespace kartova
