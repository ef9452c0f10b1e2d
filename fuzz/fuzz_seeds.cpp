// Writes the seed corpora of the fuzz targets, one directory per target:
//   fuzz_seeds <directory>      e.g. build/fuzz/corpus
// Seeds are built from the demo ROM at run time, so no binary input is kept in the repository:
// the demo as it is, broken pointers and counts, cut files, odd INI definitions, edit scripts.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "demo/DemoRom.h"
#include "demo/DemoWorld.h"
#include "gfx/GraphicsCompressor.h"

using namespace kartova;
using namespace kartova::fuzz;

namespace {

namespace fs = std::filesystem;

class SeedWriter {
 public:
  SeedWriter(fs::path root, std::string target) : dir_(std::move(root) / std::move(target)) {
    fs::create_directories(dir_);
  }
  void Add(const Bytes& seed) {
    char name[32];
    std::snprintf(name, sizeof name, "seed-%03d", count_++);
    WriteFile((dir_ / name).string(), seed);
  }
  void Add(const std::string& text) { Add(Bytes(text.begin(), text.end())); }

 private:
  fs::path dir_;
  int count_ = 0;
};

const MapLayout& Map(MapRef ref) { return Demo().layout.Map(ref.bank, ref.number); }

// Definitions the editor must survive: defaults only, the longest header, one past it, a
// tileset table and a name table out of reach, name lists of every length.
std::vector<std::string> IniVariants() {
  const std::string demo = DemoDefinitionIni();
  const std::string section = "[" + DemoDefinitionSection() + "]\n";
  return {
      demo,
      "",
      section + "HeaderLengthA=30\n",
      section + "HeaderLengthA=31\n",
      section + "HeaderLengthA=-5\nResName0=Eins\n",
      section + "TilesetBase=7FFFFFF0\nMapNameTable=FFFFFF\n",
      section + "TilesetNames=L\n[L]\ncount=FFFF\n00=a\n",
      section + "MusicNames=L\n[L]\ncount=8000\n",
      "[Settings]\r\nHeaderLengthA=10\r\nTilesetBase=\"2DFA\"\r\nMusicNames=M\r\n[M]\r\ncount=2\r\n00="
      "\xC4rger\r\n01=Stille",
  };
}

// Patch lists over the demo image, each aimed at one thing the editor reads.
std::vector<Bytes> PatchVariants() {
  using namespace demo;
  const MapLayout& town = Map(kMuehlental);
  const MapLayout& house = Map(kMuehlentalHaus);
  const MapLayout& cave = Map(kGrotte);
  const TilesetLayout& outdoor = Demo().layout.tilesets.at(kOutdoorTileset);
  const std::int64_t group_table = 0x940ED;
  std::vector<std::vector<PatchRecord>> lists = {
      {},
      {PatchAt(0x134, {'K', 'A', 'P', 'U', 'T', 'T'})},
      {PatchAt(group_table, {0xFF, 0xFF})},        // bank 1 points past bank 0x25
      {PatchAt(group_table + 2, {0x00, 0x40})},    // bank 2 points at the start of bank 0x25
      {PatchAt(town.primary_header + 1, {0xFF})},  // bank 1 lists no map
      {PatchAt(town.primary_header + 5, {0x5F})},  // location past the last name
      {PatchAt(town.primary_header, {0xFF, 0x00, 0x00, 0xFF, 0xFF})},  // secondary header past the end
      {PatchAt(town.secondary_header + 1, {0xFF, 0xFF})},              // 255 x 255 blocks
      {PatchAt(town.secondary_header + 1, {0x00, 0x00})},              // no blocks at all
      {PatchAt(town.secondary_header + 11, {0x0F}),                    // four connections, three invented
       PatchAt(town.secondary_header + 36,
               {0x02, 0x01, 0xFF, 0xFF, 0x00, 0xFF, 0x7F, 0x80, 0x00, 0x01, 0xFF, 0xFF})},
      {PatchAt(town.script_header, {0xFF}), PatchAt(town.event_header + 2, {0xFF})},  // 255 records
      {PatchAt(house.event_header + 2, {0x00, 0x00, 0x00, 0x00})},                    // no events
      {PatchAt(cave.secondary_header + 3, {0xFF, 0xFF, 0xFF})},                       // blocks past the end
      {PatchAt(outdoor.record, {0xFF, 0xFF, 0xFF})},                                  // graphics past the end
      {PatchAt(outdoor.graphics, {0xE0, 0xFF, 0xFF})},  // a long command at once
      {PatchAt(0x92384, {0xFF, 0x7F})},                 // a name out of its bank
      {PatchAt(kPaletteMapBankOffset, {0xFF}), PatchAt(kLightingPointerTable, {0xFF, 0xFF})},
  };
  std::vector<Bytes> out;
  for (const auto& list : lists) out.push_back(EncodePatches(list));
  // Files cut inside the header lists, inside bank 0x25's table and just after the title.
  for (std::int64_t cut : {town.primary_header + 4, std::int64_t{0x940F0}, std::int64_t{0x140}}) {
    out.push_back({kCutAnchor, static_cast<std::uint8_t>(cut), static_cast<std::uint8_t>(cut >> 8),
                   static_cast<std::uint8_t>(cut >> 16)});
  }
  return out;
}

// Whole files (repeated up to the end of bank 0x25): nothing, a title, 0xFF bytes.
std::vector<Bytes> RawFiles() {
  Bytes title(0x150, 0);
  for (std::size_t i = 0; i < kDemoTitle.size(); ++i)
    title[0x134 + i] = static_cast<std::uint8_t>(kDemoTitle[i]);
  Bytes ff(0x400, 0xFF);
  return {{}, title, ff};
}

void RomSeeds(const fs::path& root, const std::string& target, const std::vector<Bytes>& tails) {
  SeedWriter out(root, target);
  const std::string demo_ini = DemoDefinitionIni();
  for (const Bytes& patches : PatchVariants()) {
    for (const Bytes& tail : tails) out.Add(EncodeRomCase(0, demo_ini, patches, tail));
  }
  for (const std::string& ini : IniVariants()) out.Add(EncodeRomCase(0, ini, {}, tails.front()));
  for (const Bytes& raw : RawFiles()) out.Add(EncodeRomCase(kRawFileFlag, demo_ini, raw, tails.front()));
  out.Add(EncodeRomCase(kRawFileFlag | kExactFileFlag, demo_ini, RawFiles()[1], tails.front()));
}

// Edit scripts using every operation (see edit_save_fuzz.cpp).
std::vector<Bytes> EditScripts() {
  return {
      {0, 0},
      {0, 0, 0, 1, 3, 3, 0x11, 4, 3, 0x22, 3, 0},                 // a stroke of two cells, a full save
      {1, 0, 1, 1, 31, 0x20, 1, 3, 1, 4, 0},                      // two header bytes, undo
      {2, 0, 2, 0, 0, 9, 9, 1, 1, 1, 0, 3, 2},                    // a warp changed, events saved
      {4, 0, 5, 0, 3, 5, 1, 2, 4, 0, 4, 1},                       // failing saves, undo, redo
      {0, 0, 1, 1, 31, 40, 32, 40, 0, 0, 0, 10, 10, 0x42, 3, 1},  // the map made larger, painted, saved
      {1, 0, 0, 0, 4, 4, 7, 3, 1, 3, 2, 3, 0},                    // a cell, saved by every scope
      {3, 0, 0, 0, 5, 5, 9, 6, 0, 0, 6, 6, 1, 6, 3, 0},           // saved as a copy, painted, saved back
  };
}

void IniSeeds(const fs::path& root) {
  SeedWriter out(root, "ini_fuzz");
  for (const std::string& text : IniVariants()) {
    for (std::uint8_t choice : {0, 1, 200}) {
      std::string seed = {static_cast<char>(choice), static_cast<char>(choice), 4, 'a', 'b', 'c', 'd'};
      out.Add(seed + text);
    }
  }
  out.Add(std::string("\x00\x00\x00", 3) + "[a]\nk = \"v\" \n[A]\nk=2\n;c=3\n[b\nk=4");
}

void MapFileSeeds(const fs::path& root) {
  SeedWriter out(root, "mapfile_fuzz");
  out.Add(Bytes{0, 0});
  out.Add(Bytes{1, 4, 0xFF, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  Bytes whole{5, 0};
  whole.insert(whole.end(), 600, 0x21);
  out.Add(whole);
  out.Add(Bytes{12, 255, 0xFF});
}

void DecompressSeeds(const fs::path& root) {
  SeedWriter out(root, "decompress_fuzz");
  out.Add(Bytes{});
  out.Add(Bytes{0xFF});
  for (const auto& [number, tileset] : Demo().layout.tilesets) {
    const auto begin = Demo().bytes.begin() + tileset.graphics;
    out.Add(Bytes(begin, begin + tileset.graphics_size));
  }
  Bytes pattern(256);
  for (std::size_t i = 0; i < pattern.size(); ++i) pattern[i] = static_cast<std::uint8_t>(i % 7 == 0 ? i : 0);
  out.Add(CompressGraphics(pattern));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s <corpus directory>\n", argv[0]);
    return 2;
  }
  const fs::path root = argv[1];
  RomSeeds(root, "open_fuzz", {{}});
  RomSeeds(root, "load_fuzz", {{0, 0, 0, 0, 0}, {2, 8, 40, 90, 3}});
  RomSeeds(root, "edit_save_fuzz", EditScripts());
  MapFileSeeds(root);
  IniSeeds(root);
  DecompressSeeds(root);
  return 0;
}
