#pragma once

#include <vector>

#include "cli/PngWriter.h"
#include "gfx/ColourTable.h"
#include "gfx/IndexedImage.h"
#include "maps/RomDocument.h"

namespace kartova::cli {

// The whole bordered grid of the document's map (the map, its three-block margin and the
// neighbours' strips) as the editor's map view draws it, every block at the zoom (1 or 2).
IndexedImage RenderGrid(const RomDocument& doc, int zoom);

// The colour table as a PNG palette: all 256 entries, those past the map's palettes black.
std::vector<PngColour> PngPalette(const ColourTable& colours);

}  // namespace kartova::cli
