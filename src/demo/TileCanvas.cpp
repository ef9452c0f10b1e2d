#include "demo/TileCanvas.h"

#include <algorithm>

#include "demo/RomBuilder.h"

namespace kartova::demo {

PixelCanvas::PixelCanvas(int width, int height, std::uint8_t fill)
    : width_(width), height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill) {}

PixelCanvas PixelCanvas::FromRows(std::initializer_list<std::string_view> rows) {
  const int height = static_cast<int>(rows.size());
  const int width = height == 0 ? 0 : static_cast<int>(rows.begin()->size());
  PixelCanvas canvas(width, height);
  int y = 0;
  for (std::string_view row : rows) {
    if (static_cast<int>(row.size()) != width) {
      throw RomBuildError("demo tiles: rows of one picture differ in length");
    }
    for (int x = 0; x < width; ++x) {
      const char c = row[static_cast<std::size_t>(x)];
      if (c < '0' || c > '3') throw RomBuildError("demo tiles: a pixel is not 0..3");
      canvas.Set(x, y, static_cast<std::uint8_t>(c - '0'));
    }
    ++y;
  }
  return canvas;
}

std::uint8_t PixelCanvas::At(int x, int y) const {
  x = ((x % width_) + width_) % width_;
  y = ((y % height_) + height_) % height_;
  return pixels_[static_cast<std::size_t>(y * width_ + x)];
}

void PixelCanvas::Set(int x, int y, std::uint8_t colour) {
  x = ((x % width_) + width_) % width_;
  y = ((y % height_) + height_) % height_;
  pixels_[static_cast<std::size_t>(y * width_ + x)] = static_cast<std::uint8_t>(colour & 3);
}

void PixelCanvas::FillRect(int x, int y, int w, int h, std::uint8_t colour) {
  for (int j = 0; j < h; ++j) {
    for (int i = 0; i < w; ++i) Set(x + i, y + j, colour);
  }
}

void PixelCanvas::Paste(const PixelCanvas& other, int x, int y, int transparent) {
  for (int j = 0; j < other.height_; ++j) {
    for (int i = 0; i < other.width_; ++i) {
      const std::uint8_t c = other.At(i, j);
      if (c != transparent) Set(x + i, y + j, c);
    }
  }
}

void PixelCanvas::Recolour(std::uint8_t from, std::uint8_t to) {
  std::replace(pixels_.begin(), pixels_.end(), from, to);
}

PixelCanvas PixelCanvas::FlippedX() const {
  PixelCanvas out(width_, height_);
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) out.Set(width_ - 1 - x, y, At(x, y));
  }
  return out;
}

PixelCanvas PixelCanvas::FlippedY() const {
  PixelCanvas out(width_, height_);
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) out.Set(x, height_ - 1 - y, At(x, y));
  }
  return out;
}

PixelCanvas PixelCanvas::Cut(int tx, int ty) const {
  PixelCanvas out(8, 8);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) out.Set(x, y, At(tx * 8 + x, ty * 8 + y));
  }
  return out;
}

std::array<std::uint8_t, 16> PixelCanvas::Encode() const {
  std::array<std::uint8_t, 16> out{};
  for (int y = 0; y < 8; ++y) {
    std::uint8_t lo = 0, hi = 0;
    for (int x = 0; x < 8; ++x) {
      const std::uint8_t c = At(x, y);
      const auto bit = static_cast<std::uint8_t>(0x80 >> x);
      if (c & 1) lo |= bit;
      if (c & 2) hi |= bit;
    }
    out[static_cast<std::size_t>(2 * y)] = lo;
    out[static_cast<std::size_t>(2 * y + 1)] = hi;
  }
  return out;
}

std::uint32_t Noise::Next() {
  // xorshift32: small, fast and the same everywhere.
  state_ ^= state_ << 13;
  state_ ^= state_ >> 17;
  state_ ^= state_ << 5;
  return state_;
}

PixelCanvas Stones(int size, int stones, std::uint32_t seed, StoneColours colours) {
  Noise noise(seed);
  std::vector<std::pair<int, int>> centres;
  for (int i = 0; i < stones; ++i) centres.emplace_back(noise.Below(size), noise.Below(size));
  auto wrapped = [size](int d) {
    d = d < 0 ? -d : d;
    return d > size / 2 ? size - d : d;
  };
  auto nearest = [&](int x, int y) {
    int best = 0, best_d = 1 << 30;
    for (int i = 0; i < stones; ++i) {
      const int dx = wrapped(x - centres[static_cast<std::size_t>(i)].first);
      const int dy = wrapped(y - centres[static_cast<std::size_t>(i)].second);
      if (dx * dx + dy * dy < best_d) {
        best_d = dx * dx + dy * dy;
        best = i;
      }
    }
    return std::pair{best, best_d};
  };
  PixelCanvas c(size, size);
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      const auto [id, d] = nearest(x, y);
      const auto wrap = [size](int v) { return ((v % size) + size) % size; };
      std::uint8_t colour = colours.body;
      if (nearest(wrap(x + 1), y).first != id || nearest(x, wrap(y + 1)).first != id) {
        colour = colours.crack;
      } else if (nearest(x, wrap(y - 1)).first != id) {
        colour = colours.light;
      } else {
        const auto [cx, cy] = centres[static_cast<std::size_t>(id)];
        int dx = x - cx, dy = y - cy;
        if (dx > size / 2) dx -= size;
        if (dx < -size / 2) dx += size;
        if (dy > size / 2) dy -= size;
        if (dy < -size / 2) dy += size;
        if (dx + dy > 2 && d > 4) colour = colours.shade;
      }
      c.Set(x, y, colour);
    }
  }
  return c;
}

PixelCanvas RoundBoulder() {
  return PixelCanvas::FromRows({
      "1111111111111111",
      "1111133333311111",
      "1111300002233111",
      "1113000222222311",
      "1130002222222231",
      "1130022222222231",
      "1302222222222223",
      "1302222222222223",
      "1302222222222223",
      "1322222222222323",
      "1322222222223323",
      "1132222222233231",
      "1113322223332311",
      "1111133333331111",
      "1111111111111111",
      "1111111111111111",
  });
}

int TilesetArt::AddTile(const PixelCanvas& tile, int palette) {
  if (tile.Width() != 8 || tile.Height() != 8) throw RomBuildError("demo tiles: a tile is 8 x 8");
  const auto key = std::make_pair(tile.Encode(), palette);
  auto it = tile_index_.find(key);
  if (it != tile_index_.end()) return it->second;
  if (tiles_.size() >= 224) throw RomBuildError("demo tiles: a tileset holds 224 tiles");
  tiles_.push_back(key.first);
  palettes_.push_back(palette);
  const int number = SheetTile(static_cast<int>(tiles_.size()) - 1);
  tile_index_.emplace(key, number);
  return number;
}

std::vector<int> TilesetArt::AddTiles(const PixelCanvas& canvas, int palette) {
  std::vector<int> numbers;
  for (int ty = 0; ty < canvas.Height() / 8; ++ty) {
    for (int tx = 0; tx < canvas.Width() / 8; ++tx) numbers.push_back(AddTile(canvas.Cut(tx, ty), palette));
  }
  return numbers;
}

int TilesetArt::AddBlock(const std::array<std::uint8_t, 16>& tiles) {
  auto it = block_index_.find(tiles);
  if (it != block_index_.end()) return it->second;
  if (blocks_.size() >= 256) throw RomBuildError("demo tiles: a tileset holds 256 blocks");
  blocks_.push_back(tiles);
  const int number = static_cast<int>(blocks_.size()) - 1;
  block_index_.emplace(tiles, number);
  return number;
}

std::vector<std::uint8_t> TilesetArt::Graphics() const {
  std::vector<std::uint8_t> out;
  for (const auto& t : tiles_) out.insert(out.end(), t.begin(), t.end());
  return out;
}

std::vector<std::uint8_t> TilesetArt::BlockData() const {
  std::vector<std::uint8_t> out;
  for (const auto& b : blocks_) out.insert(out.end(), b.begin(), b.end());
  return out;
}

std::array<std::uint8_t, 128> TilesetArt::PaletteMap() const {
  std::array<std::uint8_t, 128> map{};
  for (std::size_t i = 0; i < palettes_.size(); ++i) {
    SetTilePalette(map, SheetTile(static_cast<int>(i)), palettes_[i]);
  }
  return map;
}

}  // namespace kartova::demo
