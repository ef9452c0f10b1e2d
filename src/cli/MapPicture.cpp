#include "cli/MapPicture.h"

#include "gfx/ViewBuffer.h"

namespace kartova::cli {

// A view as large as the grid at scroll 0 covers it exactly, so the picture is what the
// editor's view buffer holds for it.
IndexedImage RenderGrid(const RomDocument& doc, int zoom) {
  const ExtendedMap& grid = doc.Grid();
  ViewBuffer buffer;
  ViewBuffer::View view;
  view.zoom = zoom;
  view.picture_width = grid.Width() * 32 * zoom;
  view.picture_height = grid.Height() * 32 * zoom;
  buffer.Render(grid, doc.Blocks(), view);
  IndexedImage picture;
  buffer.CopyVisible(picture);
  return picture;
}

std::vector<PngColour> PngPalette(const ColourTable& colours) {
  std::vector<PngColour> palette;
  palette.reserve(256);
  for (int k = 0; k < 256; ++k) {
    const ColourEntry e = colours.Entry(k);
    palette.push_back({e.red, e.green, e.blue});
  }
  return palette;
}

}  // namespace kartova::cli
