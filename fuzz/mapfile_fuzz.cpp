// Imports arbitrary bytes as a .map file into a loaded demo map, exports the map again and
// checks what the .map format promises: the rows land in the map cells (a short file leaves the
// rest), the border cells never change, the export is the marker and the rows over whatever
// the target file held, importing the export changes nothing, and undo gives the map back.
//
// Input: byte 0 picks the demo map, byte 1 the length of the old contents of the export file
// (times 8), the rest is the .map file.

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "demo/DemoRom.h"
#include "maps/RomDocument.h"

using namespace kartova;
using namespace kartova::fuzz;

namespace {

struct DemoMap {
  int bank = 0;
  int map = 0;
};

std::vector<DemoMap> DemoMaps() {
  std::vector<DemoMap> maps;
  for (const auto& [ref, layout] : Demo().layout.maps) maps.push_back({ref.bank - 1, ref.number - 1});
  return maps;
}

// Each demo map loaded once; an input's edits are undone before the next.
RomDocument& LoadedMap(std::size_t index) {
  static const std::string rom = [] {
    const std::string path = WorkFile("mapfile.gbc");
    WriteFile(path, Demo().bytes);
    return path;
  }();
  static const std::vector<DemoMap> maps = DemoMaps();
  static std::vector<std::unique_ptr<RomDocument>> docs(maps.size());
  std::unique_ptr<RomDocument>& doc = docs[index % maps.size()];
  if (!doc) {
    doc = std::make_unique<RomDocument>();
    CachedIniSettings settings(WorkFile("mapfile.ini"));
    settings.Use(DemoDefinitionIni());
    doc->OpenRom(rom, settings);
    doc->LoadSelectedMap(maps[index % maps.size()].bank, maps[index % maps.size()].map);
  }
  return *doc;
}

std::vector<std::uint8_t> Cells(const ExtendedMap& grid) {
  std::vector<std::uint8_t> cells;
  for (int y = 0; y < grid.Height(); ++y) cells.insert(cells.end(), grid.Row(y), grid.Row(y) + grid.Width());
  return cells;
}

// The grid as the import must leave it.
std::vector<std::uint8_t> ExpectedCells(const ExtendedMap& grid, std::span<const std::uint8_t> file) {
  if (!file.empty() && file[0] == 0xFF) file = file.subspan(1);
  std::vector<std::uint8_t> cells = Cells(grid);
  const int w = grid.MapWidth();
  for (std::size_t k = 0; k < file.size() && k < static_cast<std::size_t>(w * grid.MapHeight()); ++k) {
    const int x = ExtendedMap::kMargin + static_cast<int>(k) % w;
    const int y = ExtendedMap::kMargin + static_cast<int>(k) / w;
    cells[static_cast<std::size_t>(y * grid.Width() + x)] = file[k];
  }
  return cells;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputReader in(std::span(data, size));
  RomDocument& doc = LoadedMap(in.Byte());
  const std::size_t old_export_length = std::size_t{in.Byte()} * 8;
  const auto file = in.Rest();
  const std::string map_path = WorkFile("in.map");
  const std::string export_path = WorkFile("out.map");

  const std::vector<std::uint8_t> before = Cells(doc.Grid());
  std::array<GridConnection, kDirectionCount> connections{};
  for (int d = 0; d < kDirectionCount; ++d)
    connections[static_cast<std::size_t>(d)] = doc.Grid().Connection(d);
  const std::vector<std::uint8_t> expected = ExpectedCells(doc.Grid(), file);
  const std::size_t map_cells = static_cast<std::size_t>(doc.Grid().MapWidth() * doc.Grid().MapHeight());
  const std::size_t data_bytes = file.size() - (!file.empty() && file[0] == 0xFF ? 1 : 0);

  WriteFile(map_path, file);
  const MapImport imported = doc.ImportMap(map_path);
  Check(Cells(doc.Grid()) == expected,
        "an import put cells elsewhere than the map rows, or changed the border");
  Check(imported.blocks_read == std::min(data_bytes, map_cells),
        "an import counted the wrong number of blocks");
  for (int d = 0; d < kDirectionCount; ++d) {
    const GridConnection& c = doc.Grid().Connection(d);
    const GridConnection& was = connections[static_cast<std::size_t>(d)];
    Check(c.present == was.present && c.rect == was.rect && c.bank == was.bank && c.map == was.map,
          "an import changed a connection");
  }

  // The export goes over an older, possibly longer file, whose tail stays.
  Bytes old_export(old_export_length);
  for (std::size_t i = 0; i < old_export.size(); ++i) old_export[i] = static_cast<std::uint8_t>(i * 13 + 5);
  WriteFile(export_path, old_export);
  doc.ExportMap(export_path);
  const Bytes exported = ReadFile(export_path);
  const Bytes rows = doc.MapFileBytes();
  Check(rows.size() == map_cells + 1 && rows[0] == 0xFF, "a .map file without its marker or rows");
  Bytes want = rows;
  if (old_export.size() > rows.size())
    want.insert(want.end(), old_export.begin() + static_cast<std::ptrdiff_t>(rows.size()), old_export.end());
  Check(exported == want, "the export differs from the marker and the rows");

  doc.ImportMap(export_path);
  Check(Cells(doc.Grid()) == expected, "importing the export changed the map");

  while (doc.History().CanUndo()) doc.Undo();
  Check(Cells(doc.Grid()) == before, "undo did not give back the map");
  return 0;
}
