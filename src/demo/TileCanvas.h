#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string_view>
#include <vector>

// Drawing the demo's tiles: a canvas of colour numbers 0..3 (the four colours of one palette),
// cut into 8 × 8 tiles and encoded in the Game Boy's 2 bits per pixel.
namespace kartova::demo {

// A picture of w × h pixels, each a colour number 0..3. Coordinates wrap around, so textures
// drawn across an edge tile seamlessly.
class PixelCanvas {
 public:
  PixelCanvas(int width, int height, std::uint8_t fill = 0);
  // One string per pixel row, one digit '0'..'3' per pixel.
  static PixelCanvas FromRows(std::initializer_list<std::string_view> rows);

  int Width() const { return width_; }
  int Height() const { return height_; }
  std::uint8_t At(int x, int y) const;
  void Set(int x, int y, std::uint8_t colour);
  void FillRect(int x, int y, int w, int h, std::uint8_t colour);
  void HLine(int x, int y, int w, std::uint8_t colour) { FillRect(x, y, w, 1, colour); }
  void VLine(int x, int y, int h, std::uint8_t colour) { FillRect(x, y, 1, h, colour); }
  // Copies another canvas in, leaving pixels of colour `transparent` out (-1: none).
  void Paste(const PixelCanvas& other, int x, int y, int transparent = -1);
  // Replaces colour `from` by `to` everywhere.
  void Recolour(std::uint8_t from, std::uint8_t to);

  PixelCanvas FlippedX() const;
  PixelCanvas FlippedY() const;
  // The 8 × 8 tile at tile column tx, tile row ty.
  PixelCanvas Cut(int tx, int ty) const;

  // 16 bytes for an 8 × 8 canvas: per pixel row a low byte then a high byte, bit 7 leftmost.
  std::array<std::uint8_t, 16> Encode() const;

 private:
  int width_;
  int height_;
  std::vector<std::uint8_t> pixels_;
};

// A small deterministic noise source, so that the demo is the same on every build.
class Noise {
 public:
  explicit Noise(std::uint32_t seed) : state_(seed * 2654435761u + 1) {}
  std::uint32_t Next();
  int Below(int n) { return static_cast<int>(Next() % static_cast<std::uint32_t>(n)); }

 private:
  std::uint32_t state_;
};

// Irregular stones packed without gaps, lit from the upper left, as a square texture that
// tiles seamlessly: each pixel belongs to the nearest of `stones` random centres.
struct StoneColours {
  std::uint8_t light, body, shade, crack;
};
PixelCanvas Stones(int size, int stones, std::uint32_t seed, StoneColours colours);

// A round boulder of 16 × 16 pixels standing on colour 1, lit from the upper left: 0 the
// highlight, 2 its body, 3 the outline and shade.
PixelCanvas RoundBoulder();

// The tiles of one tileset with their palettes, and its blocks.
class TilesetArt {
 public:
  // Adds an 8 × 8 tile drawn with palette 0..7 and returns its sheet tile number (the decoder
  // puts data tiles 96 and up at sheet tiles 0x80 and up). A tile drawn before is reused.
  int AddTile(const PixelCanvas& tile, int palette);
  // Adds every tile of a larger canvas, row by row; returns the sheet numbers in that order.
  std::vector<int> AddTiles(const PixelCanvas& canvas, int palette);
  int TileCount() const { return static_cast<int>(tiles_.size()); }

  // A block of 4 × 4 sheet tiles, row by row; equal blocks are stored once.
  int AddBlock(const std::array<std::uint8_t, 16>& tiles);
  int BlockCount() const { return static_cast<int>(blocks_.size()); }

  std::vector<std::uint8_t> Graphics() const;
  std::vector<std::uint8_t> BlockData() const;
  std::array<std::uint8_t, 128> PaletteMap() const;

 private:
  std::vector<std::array<std::uint8_t, 16>> tiles_;
  std::vector<int> palettes_;
  std::map<std::pair<std::array<std::uint8_t, 16>, int>, int> tile_index_;
  std::vector<std::array<std::uint8_t, 16>> blocks_;
  std::map<std::array<std::uint8_t, 16>, int> block_index_;
};

// Sheet tile number of data tile n.
constexpr int SheetTile(int n) { return n < 96 ? n : 0x80 + (n - 96); }

}  // namespace kartova::demo
