// Opens a patched demo ROM (or an arbitrary file) and loads its maps: the view buffer at both
// zooms for a small picture, checked against the block strips, the event markers, the event
// arithmetic and a couple of lightings for each map; every scope and apply mode for the first.
//
// The tail of the input: two lightings (0..8), the view's two scroll bytes, then the maps: the
// running number (over all banks) of the first, and the step to the next.

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "events/EventGeometry.h"
#include "gfx/MarkerBlend.h"
#include "gfx/ViewBuffer.h"
#include "maps/RomDocument.h"

using namespace kartova;
using namespace kartova::fuzz;

namespace {

// A map load decodes a whole tileset: two full loads, and the reloads of the first, keep an
// input to a few milliseconds.
constexpr int kMaxMaps = 2;
constexpr int kPictureWidth = 160;
constexpr int kPictureHeight = 144;
constexpr int kMaxRecordsChecked = 8;

struct Choices {
  std::array<int, 2> lightings{};
  std::array<std::uint8_t, 2> scroll{};
  int first = 0;
  int step = 1;
};

const MarkerSet& Markers() {
  static const MarkerSet markers = [] {
    MarkerSet set;
    for (int kind = 0; kind < kMarkerKindCount; ++kind) {
      set[static_cast<std::size_t>(kind)].size = 16;
      set[static_cast<std::size_t>(kind)].pixels.assign(16 * 16,
                                                        0x102030u * static_cast<std::uint32_t>(kind + 1));
    }
    return set;
  }();
  return markers;
}

// One line of the picture as the strips give it: the blocks of grid row gy / s, from gx on.
void CheckLine(const IndexedImage& shown, int y, const ExtendedMap& grid, const BlockSet& blocks, int zoom,
               int gx, int gy) {
  const int s = kBlockPixels * zoom;
  const std::uint8_t* strip = zoom == 1 ? blocks.StripRow(gy % s) : blocks.WideStripRow(gy % s / 2);
  const std::uint8_t* line = shown.Row(y);
  for (int x = 0; x < shown.width;) {
    const int column = (gx + x) / s, within = (gx + x) % s;
    const int n = std::min(s - within, shown.width - x);
    const std::uint8_t* want = strip + grid.At(column, gy / s) * s + within;
    if (!std::equal(line + x, line + x + n, want)) Fail("view pixel differs from its block");
    x += n;
  }
}

// Renders the view at one zoom, scrolled within the range the scroll bars allow, and checks the
// transfer window against the strips; then blends the event markers over it.
void RenderView(const RomDocument& doc, int zoom, const Choices& choices) {
  const ExtendedMap& grid = doc.Grid();
  const int s = kBlockPixels * zoom;
  const int h_max = std::max(grid.Width() * s - kPictureWidth, 0);
  const int v_max = std::max(grid.Height() * s - kPictureHeight, 0);
  const int h = choices.scroll[0] * 7 % (h_max + 1);
  const int v = choices.scroll[1] * 7 % (v_max + 1);
  ViewBuffer buffer;
  buffer.Render(grid, doc.Blocks(), {h, v, kPictureWidth, kPictureHeight, zoom});
  buffer.PatchBlock(grid, doc.Blocks(), ExtendedMap::kMargin, ExtendedMap::kMargin);
  IndexedImage shown;
  buffer.CopyVisible(shown);
  Check(shown.width == std::min(kPictureWidth, grid.Width() * s), "view width");
  Check(shown.height == std::min(kPictureHeight, grid.Height() * s), "view height");
  for (int y = 0; y < shown.height; ++y) CheckLine(shown, y, grid, doc.Blocks(), zoom, h, y + v);

  std::array<std::uint32_t, 256> colours{};
  for (int k = 0; k < 256; ++k) colours[static_cast<std::size_t>(k)] = doc.Colours().Argb(k);
  const ShownPicture picture{.buffer = &buffer.Image(),
                             .source_x = buffer.SourceColumn(),
                             .source_y = buffer.SourceLine(),
                             .window_width = buffer.VisibleWidth(),
                             .window_height = buffer.VisibleHeight(),
                             .width = kPictureWidth,
                             .height = kPictureHeight,
                             .colours = &colours};
  const EventViewport view{
      .h_scroll = h, .v_scroll = v, .width = kPictureWidth, .height = kPictureHeight, .cell = s / 2};
  for (const BlendedCell& cell : BlendEventMarkers(Markers(), picture, doc.Events(), view)) {
    Check(cell.pixels.size() == static_cast<std::size_t>(cell.width) * static_cast<std::size_t>(cell.height),
          "blended cell size");
    Check(cell.x >= 0 && cell.y >= 0 && cell.x + cell.width <= kPictureWidth &&
              cell.y + cell.height <= kPictureHeight,
          "blended cell off the picture");
  }
}

void CheckEvents(const RomDocument& doc) {
  const MapEventSet& events = doc.Events();
  const EventViewport view{.width = kPictureWidth, .height = kPictureHeight};
  for (int kind = 0; kind < kEventKindCount; ++kind) {
    Check(events.Count(kind) <= 255, "more records than a count byte holds");
    if (kind > kEventPeople) continue;
    for (int i = 0; i < std::min(events.Count(kind), kMaxRecordsChecked); ++i) {
      const EventTile stored = StoredPosition(events, kind, i);
      const int offset = kind == kEventPeople ? kPeopleOffset : 0;
      const EventHits hits = HitTest(events, {stored.column - offset, stored.row - offset});
      Check(hits.Any() && hits.last_in_kind[static_cast<std::size_t>(kind)] >= i,
            "an event not hit on its own tile");
      SelectionMarkerPosition(events, kind, i, view);
    }
  }
}

void CheckLoadedMap(RomDocument& doc, int bank, const Choices& choices) {
  Check(doc.Grid().MapWidth() == doc.MapWidth() && doc.Grid().MapHeight() == doc.MapHeight(),
        "grid size differs from the header");
  for (int zoom = 1; zoom <= 2; ++zoom) RenderView(doc, zoom, choices);
  CheckEvents(doc);
  for (int lighting : choices.lightings) doc.SetTimeOfDay(lighting, bank);
}

// One load; false when it raised the editor's runtime error.
bool Load(RomDocument& doc, int bank, int map, int scope) {
  doc.SetReloadScope(scope);
  try {
    doc.LoadSelectedMap(bank, map);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

// The other scopes and apply modes, after a full load.
void ReloadEveryWay(RomDocument& doc, int bank, int map) {
  Load(doc, bank, map, kReloadMapOnly);
  Load(doc, bank, map, kReloadEventsOnly);
  doc.SetApplyMode(kApplyRestoreHeaders);
  Load(doc, bank, map, kReloadFull);
  doc.SetApplyMode(kApplyEditedHeaders);
  Load(doc, bank, map, kReloadFull);
  doc.SetApplyMode(kApplyNormal);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static RomCaseFiles files(RomCaseFiles::Mode::kInPlace);
  const RomCase c = DecodeRomCase(std::span(data, size));
  const std::string path = files.Prepare(c);
  InputReader tail(c.tail);
  Choices choices;
  for (int& lighting : choices.lightings) lighting = tail.Byte() % 9;
  for (std::uint8_t& s : choices.scroll) s = tail.Byte();
  choices.first = tail.Byte();
  choices.step = tail.Byte() + 1;

  RomDocument doc;
  try {
    doc.OpenRom(path, files.Settings());
  } catch (const RuntimeError&) {
    return 0;
  } catch (const RomOpenError&) {
    return 0;
  }
  std::vector<std::array<int, 2>> maps;
  for (int bank = 0; bank < kMapBankCount; ++bank) {
    for (int map = 0; map < doc.MapCountPerBank()[static_cast<std::size_t>(bank)]; ++map)
      maps.push_back({bank, map});
  }
  const int total = static_cast<int>(maps.size());
  for (int k = 0; k < std::min(kMaxMaps, total); ++k) {
    const auto [bank, map] = maps[static_cast<std::size_t>((choices.first + k * choices.step) % total)];
    if (Load(doc, bank, map, kReloadFull)) CheckLoadedMap(doc, bank, choices);
    if (k == 0) ReloadEveryWay(doc, bank, map);
  }
  return 0;
}
