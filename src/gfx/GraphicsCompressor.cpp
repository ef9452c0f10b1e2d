#include "gfx/GraphicsCompressor.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <limits>
#include <numeric>

#include "gfx/GraphicsCommands.h"
#include "gfx/GraphicsDecompressor.h"

namespace kartova {

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr int kShortCountMax = 32;    // counts up to this fit into the command byte
constexpr int kLongCountMax = 1024;   // the long form's ten count bits
constexpr int kRelativeReach = 128;   // a one-byte source reaches this far back

// The three ways of repeating earlier output.
enum CopyKind { kForward, kMirrored, kBackward, kCopyKinds };
constexpr int kCopyCommand[kCopyKinds] = {kCopy, kBitReversedCopy, kBackwardCopy};

// What a command costs beyond its command byte(s): 0 for a zero fill, 1 for a byte fill or
// a copy from close behind, 2 for an alternating fill or a copy from anywhere, its count
// for a literal.
enum PayloadClass : std::uint8_t { kFree = 0, kOneByte = 1, kTwoBytes = 2, kLiteralBytes };

// For each position: how many bytes each command kind could produce from there, and for the
// copies the source that gives that many.
struct Reaches {
  std::vector<std::uint16_t> zero, same, alternating;
  std::array<std::vector<std::uint16_t>, kCopyKinds> near, far, near_source, far_source;

  explicit Reaches(std::size_t n) : zero(n), same(n), alternating(n) {
    for (int k = 0; k < kCopyKinds; ++k) {
      near[k].assign(n, 0);
      far[k].assign(n, 0);
      near_source[k].assign(n, 0);
      far_source[k].assign(n, 0);
    }
  }
  int NearBest(std::size_t i) const {
    return std::max({near[kForward][i], near[kMirrored][i], near[kBackward][i]});
  }
  int FarBest(std::size_t i) const {
    return std::max({far[kForward][i], far[kMirrored][i], far[kBackward][i]});
  }
};

std::uint16_t Capped(int n) { return static_cast<std::uint16_t>(std::min(n, kLongCountMax)); }

void FindFillReaches(Bytes data, Reaches& r) {
  const std::size_t n = data.size();
  for (std::size_t i = n; i-- > 0;) {
    const bool has_next = i + 1 < n;
    r.zero[i] = data[i] != 0 ? 0 : Capped(1 + (has_next ? r.zero[i + 1] : 0));
    r.same[i] = has_next && data[i + 1] == data[i] ? Capped(1 + r.same[i + 1]) : 1;
    if (i + 2 < n && data[i + 2] == data[i]) {
      r.alternating[i] = Capped(1 + r.alternating[i + 1]);
    } else {
      r.alternating[i] = static_cast<std::uint16_t>(std::min<std::size_t>(2, n - i));
    }
  }
}

using Symbols = std::vector<std::uint16_t>;

// All suffixes of one text in sorted order, with the common prefix of any two of them in
// constant time.
class SuffixIndex {
 public:
  // The text ends with a symbol that occurs nowhere else and is smaller than all others.
  SuffixIndex(const Symbols& text, std::size_t alphabet)
      : text_(text), order_(text.size()), rank_(text.size()) {
    Sort(alphabet);
    FindCommonPrefixes();
  }

  std::size_t Size() const { return order_.size(); }
  std::size_t SuffixAt(std::size_t rank) const { return order_[rank]; }

  int CommonPrefixOfRanks(std::size_t a, std::size_t b) const {
    if (a == b) return static_cast<int>(text_.size() - order_[a]);
    if (a > b) std::swap(a, b);
    const auto level = static_cast<std::size_t>(std::bit_width(b - a)) - 1;
    const Symbols& row = sparse_[level];
    return std::min(row[a + 1], row[b + 1 - (std::size_t{1} << level)]);
  }
  int CommonPrefix(std::size_t a, std::size_t b) const {
    return CommonPrefixOfRanks(rank_[a], rank_[b]);
  }

 private:
  // Prefix doubling: sorted by the first symbol, then by the first 2, 4, 8 ... symbols, each
  // round a counting sort by rank of the pairs (rank of the first half, rank of the second).
  void Sort(std::size_t alphabet) {
    const std::size_t n = text_.size();
    std::vector<std::size_t> count(std::max(alphabet, n), 0), by_second(n);
    for (std::uint16_t c : text_) ++count[c];
    std::partial_sum(count.begin(), count.end(), count.begin());
    for (std::size_t i = n; i-- > 0;) order_[--count[text_[i]]] = i;
    std::size_t classes = Rerank(0, std::vector<std::size_t>(text_.begin(), text_.end()));
    for (std::size_t half = 1; classes < n; half *= 2) {
      std::size_t filled = 0;
      for (std::size_t s = n - std::min(half, n); s < n; ++s) by_second[filled++] = s;
      for (std::size_t s : order_) {
        if (s >= half) by_second[filled++] = s - half;
      }
      std::fill(count.begin(), count.begin() + static_cast<std::ptrdiff_t>(classes), 0);
      for (std::size_t r : rank_) ++count[r];
      std::partial_sum(count.begin(), count.begin() + static_cast<std::ptrdiff_t>(classes),
                       count.begin());
      for (std::size_t k = n; k-- > 0;) order_[--count[rank_[by_second[k]]]] = by_second[k];
      classes = Rerank(half, rank_);
    }
  }

  // Ranks from the pairs (key[s], key[s + half]) in the current order; returns their number.
  std::size_t Rerank(std::size_t half, const std::vector<std::size_t>& key) {
    const std::size_t n = order_.size();
    auto second = [&](std::size_t s) { return half > 0 && s + half < n ? key[s + half] + 1 : 0; };
    std::vector<std::size_t> fresh(n);
    std::size_t classes = 0;
    for (std::size_t k = 0; k < n; ++k) {
      const std::size_t s = order_[k];
      const std::size_t p = order_[k > 0 ? k - 1 : 0];
      if (k > 0 && (key[s] != key[p] || second(s) != second(p))) ++classes;
      fresh[s] = classes;
    }
    rank_ = std::move(fresh);
    return classes + 1;
  }

  // Common prefixes of neighbours in sorted order, then minima over ranges of them whose
  // lengths are powers of two.
  void FindCommonPrefixes() {
    const std::size_t n = text_.size();
    Symbols neighbour(n, 0);
    std::size_t h = 0;
    for (std::size_t i = 0; i < n; ++i) {
      if (rank_[i] == 0) {
        h = 0;
        continue;
      }
      const std::size_t j = order_[rank_[i] - 1];
      while (i + h < n && j + h < n && text_[i + h] == text_[j + h]) ++h;
      neighbour[rank_[i]] = static_cast<std::uint16_t>(h);
      if (h > 0) --h;
    }
    sparse_.push_back(std::move(neighbour));
    for (std::size_t width = 2; width <= n; width *= 2) {
      const Symbols& below = sparse_.back();
      Symbols row(n - width + 1);
      for (std::size_t k = 0; k < row.size(); ++k) {
        row[k] = std::min(below[k], below[k + width / 2]);
      }
      sparse_.push_back(std::move(row));
    }
  }

  const Symbols& text_;
  std::vector<std::size_t> order_;  // suffix starts by rank
  std::vector<std::size_t> rank_;   // rank by suffix start
  std::vector<Symbols> sparse_;
};

constexpr std::size_t kNoSource = std::numeric_limits<std::size_t>::max();

// The data, its bit-mirrored bytes and its bytes in reverse order, one after the other, so
// that every copy is a common prefix of two suffixes: the target at i in the data, and the
// source at src in the data (forward), in the mirrored bytes (mirrored), or at n-1-src in the
// reversed bytes (backward, which reads src, src-1, ... and cannot pass position 0).
class CopyText {
 public:
  static constexpr std::size_t kAlphabet = 256 + 3;

  explicit CopyText(Bytes data) : n_(data.size()) {
    text_.reserve(3 * n_ + 3);
    for (std::uint8_t b : data) text_.push_back(Symbol(b));
    text_.push_back(2);
    for (std::uint8_t b : data) text_.push_back(Symbol(ReverseBits(b)));
    text_.push_back(1);
    for (std::size_t k = n_; k-- > 0;) text_.push_back(Symbol(data[k]));
    text_.push_back(0);
  }
  const Symbols& Text() const { return text_; }

  std::size_t SourceStart(CopyKind kind, std::size_t src) const {
    switch (kind) {
      case kForward: return src;
      case kMirrored: return n_ + 1 + src;
      default: return 3 * n_ + 1 - src;
    }
  }
  // The source whose suffix starts at start, or kNoSource.
  std::size_t SourceOf(CopyKind kind, std::size_t start) const {
    switch (kind) {
      case kForward: return start < n_ ? start : kNoSource;
      case kMirrored: return start > n_ && start <= 2 * n_ ? start - n_ - 1 : kNoSource;
      default: return start > 2 * n_ + 1 && start <= 3 * n_ + 1 ? 3 * n_ + 1 - start : kNoSource;
    }
  }

 private:
  // Symbols 0..2 close the three parts.
  static std::uint16_t Symbol(std::uint8_t b) { return static_cast<std::uint16_t>(b + 3); }

  std::size_t n_;
  Symbols text_;
};

// The longest copy of one kind from any earlier source, for every target. In sorted order the
// best source for a target is the nearest one, on either side, that lies before the target in
// the data. Walking the ranks, a stack keeps the sources that can still be nearest: a later
// rank with an earlier position hides every source above it.
void FindFarReaches(const SuffixIndex& index, const CopyText& text, CopyKind kind,
                    std::size_t n, Reaches& r) {
  struct Entry {
    std::size_t source;
    std::size_t rank;
  };
  std::vector<Entry> stack;
  auto visit = [&](std::size_t rank) {
    const std::size_t start = index.SuffixAt(rank);
    if (start < n) {
      const auto hidden = std::partition_point(stack.begin(), stack.end(),
                                               [&](const Entry& e) { return e.source < start; });
      if (hidden != stack.begin()) {
        const Entry& best = *(hidden - 1);
        const std::uint16_t length = Capped(index.CommonPrefixOfRanks(best.rank, rank));
        if (length > r.far[kind][start]) {
          r.far[kind][start] = length;
          r.far_source[kind][start] = static_cast<std::uint16_t>(best.source);
        }
      }
    }
    const std::size_t source = text.SourceOf(kind, start);
    if (source == kNoSource) return;
    while (!stack.empty() && stack.back().source >= source) stack.pop_back();
    stack.push_back({source, rank});
  };
  for (std::size_t rank = 0; rank < index.Size(); ++rank) visit(rank);
  stack.clear();
  for (std::size_t rank = index.Size(); rank-- > 0;) visit(rank);
}

// The longest forward or mirrored copy from at most kRelativeReach bytes behind. A source d
// bytes behind i matches one byte more than the source d bytes behind i + 1, or none.
void FindNearReaches(Bytes data, CopyKind kind, Reaches& r) {
  const std::size_t n = data.size();
  std::vector<std::uint8_t> source(data.begin(), data.end());
  if (kind == kMirrored) {
    for (auto& b : source) b = ReverseBits(b);
  }
  std::array<std::uint16_t, kRelativeReach + 1> run{};  // by distance
  for (std::size_t i = n; i-- > 0;) {
    const std::size_t reach = std::min<std::size_t>(i, kRelativeReach);
    std::uint16_t best = 0;
    std::size_t best_distance = 1;
    for (std::size_t d = 1; d <= reach; ++d) {
      run[d] = source[i - d] == data[i] ? static_cast<std::uint16_t>(run[d] + 1) : 0;
      if (run[d] > best) best = run[d], best_distance = d;
    }
    r.near[kind][i] = Capped(best);
    r.near_source[kind][i] = static_cast<std::uint16_t>(i - best_distance);
  }
}

// The longest backward copy from at most kRelativeReach bytes behind. The far reach is an
// upper bound, often already met by a near source.
void FindNearBackwardReaches(const SuffixIndex& index, const CopyText& text, std::size_t n,
                             Reaches& r) {
  for (std::size_t i = 1; i < n; ++i) {
    const std::uint16_t far = r.far[kBackward][i];
    if (far < 2 || i - r.far_source[kBackward][i] <= kRelativeReach) {
      r.near[kBackward][i] = far;
      r.near_source[kBackward][i] = r.far_source[kBackward][i];
      continue;
    }
    const std::size_t reach = std::min<std::size_t>(i, kRelativeReach);
    for (std::size_t distance = 1; distance <= reach; ++distance) {
      const std::size_t src = i - distance;
      const std::uint16_t length = Capped(index.CommonPrefix(i, text.SourceStart(kBackward, src)));
      if (length > r.near[kBackward][i]) {
        r.near[kBackward][i] = length;
        r.near_source[kBackward][i] = static_cast<std::uint16_t>(src);
        if (length == far) break;
      }
    }
  }
}

void FindCopyReaches(Bytes data, Reaches& r) {
  const CopyText text(data);
  const SuffixIndex index(text.Text(), CopyText::kAlphabet);
  for (int k = 0; k < kCopyKinds; ++k) {
    FindFarReaches(index, text, static_cast<CopyKind>(k), data.size(), r);
  }
  FindNearReaches(data, kForward, r);
  FindNearReaches(data, kMirrored, r);
  FindNearBackwardReaches(index, text, data.size(), r);
}

struct Choice {
  std::uint16_t count = 0;
  PayloadClass payload = kLiteralBytes;
};

// Minimum over a range of positions, the furthest position winning a tie (a longer command
// for the same cost). Values are set from the end of the data towards its start.
class RangeMinimum {
 public:
  explicit RangeMinimum(std::size_t positions) {
    while (leaves_ < positions) leaves_ *= 2;
    node_.assign(2 * leaves_, kEmpty);
  }
  void Set(std::size_t at, int value) {
    std::size_t k = leaves_ + at;
    node_[k] = static_cast<std::uint32_t>(value) << kIndexBits | (kIndexMask - at);
    for (k /= 2; k > 0; k /= 2) node_[k] = std::min(node_[2 * k], node_[2 * k + 1]);
  }
  // The position in [first, last] holding the least value.
  std::size_t Find(std::size_t first, std::size_t last) const {
    std::uint32_t best = kEmpty;
    for (std::size_t lo = first + leaves_, hi = last + leaves_ + 1; lo < hi; lo /= 2, hi /= 2) {
      if (lo & 1) best = std::min(best, node_[lo++]);
      if (hi & 1) best = std::min(best, node_[--hi]);
    }
    return kIndexMask - (best & kIndexMask);
  }

 private:
  static constexpr int kIndexBits = 13;  // positions 0..4096
  static constexpr std::size_t kIndexMask = (std::size_t{1} << kIndexBits) - 1;
  static constexpr std::uint32_t kEmpty = std::numeric_limits<std::uint32_t>::max();
  std::size_t leaves_ = 1;
  std::vector<std::uint32_t> node_;
};

// Shortest encoding by dynamic programming from the end: cost[i] is the fewest bytes that
// produce data[i..]. Within one command form a command's cost does not depend on its count
// (a literal's grows with it, which cost[j] + j absorbs), so each choice is a range minimum.
class CommandChooser {
 public:
  CommandChooser(std::size_t n, const Reaches& r)
      : n_(n), reaches_(r), cost_(n + 1, 0), choice_(n), rest_(n + 1), rest_after_literal_(n + 1) {}

  std::vector<Choice> Run() {
    rest_.Set(n_, 0);
    rest_after_literal_.Set(n_, static_cast<int>(n_));
    for (std::size_t i = n_; i-- > 0;) {
      const int zero = reaches_.zero[i];
      const int one = std::max<int>(reaches_.same[i], reaches_.NearBest(i));
      const int two = std::max({one, int{reaches_.alternating[i]}, reaches_.FarBest(i)});
      const int longest = static_cast<int>(std::min<std::size_t>(kLongCountMax, n_ - i));
      best_ = std::numeric_limits<int>::max();
      Consider(i, kLiteralBytes, 1, longest);
      Consider(i, kTwoBytes, 3, two);
      Consider(i, kOneByte, 2, one);
      Consider(i, kFree, 1, zero);
      cost_[i] = best_;
      rest_.Set(i, best_);
      rest_after_literal_.Set(i, best_ + static_cast<int>(i));
    }
    return choice_;
  }

 private:
  // Commands of one payload class with counts first..last, in both command forms.
  void Consider(std::size_t i, PayloadClass payload, int first, int last) {
    ConsiderForm(i, payload, first, std::min(last, kShortCountMax), 1);
    ConsiderForm(i, payload, std::max(first, kShortCountMax + 1), last, 2);
  }

  void ConsiderForm(std::size_t i, PayloadClass payload, int first, int last, int header) {
    if (first > last) return;
    const std::size_t lo = i + static_cast<std::size_t>(first);
    const std::size_t hi = i + static_cast<std::size_t>(last);
    std::size_t end = 0;
    int total = header;
    if (payload == kLiteralBytes) {
      end = rest_after_literal_.Find(lo, hi);
      total += static_cast<int>(end - i) + cost_[end];
    } else {
      end = rest_.Find(lo, hi);
      total += static_cast<int>(payload) + cost_[end];
    }
    const auto count = static_cast<std::uint16_t>(end - i);
    if (total < best_ || (total == best_ && count >= choice_[i].count)) {
      best_ = total;
      choice_[i] = {count, payload};
    }
  }

  std::size_t n_;
  const Reaches& reaches_;
  std::vector<int> cost_;
  std::vector<Choice> choice_;
  RangeMinimum rest_;                // cost[j]
  RangeMinimum rest_after_literal_;  // cost[j] + j
  int best_ = 0;
};

void PutHeader(std::vector<std::uint8_t>& out, int command, int count) {
  const int field = count - 1;
  if (count <= kShortCountMax) {
    out.push_back(static_cast<std::uint8_t>(command | field));
  } else {
    out.push_back(static_cast<std::uint8_t>(kLongForm | (command >> 3) | (field >> 8)));
    out.push_back(static_cast<std::uint8_t>(field & 0xFF));
  }
}

// Writes a copy of count bytes at position at; near says whether the chosen cost was that of
// a source close behind. The reaches guarantee that such a source exists.
void PutCopy(std::vector<std::uint8_t>& out, const Reaches& r, std::size_t at, int count,
             bool near) {
  for (int k = 0; k < kCopyKinds; ++k) {
    if ((near ? r.near[k][at] : r.far[k][at]) < count) continue;
    const std::size_t src = near ? r.near_source[k][at] : r.far_source[k][at];
    PutHeader(out, kCopyCommand[k], count);
    if (near) {
      out.push_back(static_cast<std::uint8_t>(0x80 | (at - src - 1)));
    } else {
      out.push_back(static_cast<std::uint8_t>(src >> 8));
      out.push_back(static_cast<std::uint8_t>(src & 0xFF));
    }
    return;
  }
}

void PutLiteral(std::vector<std::uint8_t>& out, Bytes data, std::size_t at, int count) {
  PutHeader(out, kLiteral, count);
  out.insert(out.end(), data.begin() + static_cast<std::ptrdiff_t>(at),
             data.begin() + static_cast<std::ptrdiff_t>(at) + count);
}

void PutCommand(std::vector<std::uint8_t>& out, Bytes data, const Reaches& r, std::size_t at,
                const Choice& c) {
  const int count = c.count;
  switch (c.payload) {
    case kFree:
      PutHeader(out, kZeroFill, count);
      break;
    case kOneByte:
      if (r.same[at] >= count) {
        PutHeader(out, kByteFill, count);
        out.push_back(data[at]);
      } else {
        PutCopy(out, r, at, count, true);
      }
      break;
    case kTwoBytes:
      if (r.alternating[at] >= count) {
        PutHeader(out, kAlternatingFill, count);
        out.push_back(data[at]);
        out.push_back(data[at + 1]);
      } else {
        PutCopy(out, r, at, count, false);
      }
      break;
    case kLiteralBytes:
      PutLiteral(out, data, at, count);
      break;
  }
}

}  // namespace

std::vector<std::uint8_t> CompressGraphics(std::span<const std::uint8_t> data) {
  // Bytes past the buffer cannot come back out of the decoder, so they are not worth
  // searching; they still go into the stream so that the decompressed length is right.
  const Bytes head = data.first(std::min<std::size_t>(data.size(), kGraphicsBufferSize));
  Reaches reaches(head.size());
  FindFillReaches(head, reaches);
  FindCopyReaches(head, reaches);
  const std::vector<Choice> choice = CommandChooser(head.size(), reaches).Run();

  std::vector<std::uint8_t> out;
  std::size_t at = 0;
  while (at < head.size()) {
    PutCommand(out, head, reaches, at, choice[at]);
    at += choice[at].count;
  }
  while (at < data.size()) {
    const int count = static_cast<int>(std::min<std::size_t>(kLongCountMax, data.size() - at));
    PutLiteral(out, data, at, count);
    at += static_cast<std::size_t>(count);
  }
  out.push_back(kEndMark);
  return out;
}

}  // namespace kartova
