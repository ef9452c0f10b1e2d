#include "demo/RomLayoutWriter.h"

#include <algorithm>
#include <string>

#include "demo/ConnectionGeometry.h"
#include "gfx/GraphicsCompressor.h"
#include "rom/Address.h"
#include "rom/HexText.h"

namespace kartova {
namespace {

// Where the builder puts what it places itself. The map header lists must be in bank 0x25;
// the rest is a choice that keeps kinds of data together, as the game does.
constexpr int kHeaderListBank = 0x25;
constexpr int kLightingBank = 0x02;  // the lighting tables are read at (pointer & 0x3FFF) + 0x8000
constexpr int kTilesetTableBank = 0x05;
constexpr int kPaletteMapBank = 0x06;
const std::vector<int> kTilesetBlockBanks = BankAllocator::BankRange(0x07, 0x0F);
const std::vector<int> kGraphicsBanks = BankAllocator::BankRange(0x10, 0x1F);
const std::vector<int> kSecondaryBanks = BankAllocator::BankRange(0x25, 0x3F);
const std::vector<int> kBlockBanks = BankAllocator::BankRange(0x26, 0x3F);

std::vector<int> ScriptBanks() {
  std::vector<int> banks = BankAllocator::BankRange(0x2C, 0x3F);
  for (int b = 0x26; b < 0x2C; ++b) banks.push_back(b);
  return banks;
}

std::string MapName(int bank, int number) {
  return "map " + std::to_string(bank) + "." + std::to_string(number);
}

std::vector<int> Pinned(const std::optional<int>& bank, const std::vector<int>& fallback) {
  return bank ? std::vector<int>{*bank} : fallback;
}

std::int64_t ScriptHeaderSize(const MapDecl& m) {
  return 2 + 4 * static_cast<std::int64_t>(m.enter_scripts.size()) +
         3 * static_cast<std::int64_t>(m.time_scripts.size());
}

void Append(std::vector<std::uint8_t>& out, std::initializer_list<std::uint8_t> bytes) {
  out.insert(out.end(), bytes);
}

// Every pointer written is read back with the editor's conversion for it; they must agree.
void CheckReadBack(std::int64_t read_back, std::int64_t placed, const std::string& what) {
  if (read_back != placed) {
    throw RomBuildError("RomBuilder: the pointer to " + what + " leads to 0x" + Hex(read_back) +
                        " instead of 0x" + Hex(placed));
  }
}

std::uint8_t Lo(std::uint16_t w) { return static_cast<std::uint8_t>(w & 0xFF); }
std::uint8_t Hi(std::uint16_t w) { return static_cast<std::uint8_t>(w >> 8); }

}  // namespace

RomLayoutWriter::RomLayoutWriter(const RomBuilder& in)
    : in_(in),
      image_(in.image_size_, in.fill_),
      alloc_(static_cast<std::int64_t>(in.image_size_)) {}

BuiltRom RomLayoutWriter::Run() {
  Validate();
  ReserveFixed();
  PlaceHeaderLists();
  PlaceMapData();
  for (int b = 0; b < kMapBankCount; ++b) {
    const auto& maps = in_.maps_[static_cast<std::size_t>(b)];
    for (std::size_t i = 0; i < maps.size(); ++i) WriteMap(b + 1, static_cast<int>(i) + 1, maps[i]);
  }
  PlaceTilesets();
  PlacePalettes();
  PlaceNames();
  for (const auto& [offset, bytes] : in_.data_) Put(offset, bytes);
  WriteCartridgeHeader();
  ApplyPatches();
  return {std::move(image_), std::move(layout_)};
}

void RomLayoutWriter::Validate() const {
  for (int b = 0; b < kMapBankCount; ++b) {
    const auto& maps = in_.maps_[static_cast<std::size_t>(b)];
    for (std::size_t i = 0; i < maps.size(); ++i) ValidateMap(b + 1, static_cast<int>(i) + 1, maps[i]);
  }
  if (!in_.replacement_tiles_.empty() &&
      in_.image_size_ <= static_cast<std::size_t>(kDefaultImageSize)) {
    throw RomBuildError("RomBuilder: replacement tiles need an image larger than 2 MiB");
  }
}

void RomLayoutWriter::ValidateMap(int bank, int number, const MapDecl& m) const {
  const std::string name = MapName(bank, number);
  auto fail = [&](const std::string& why) { throw RomBuildError("RomBuilder: " + name + " " + why); };
  // The editor counts a bank's maps only while their headers pass these checks.
  if (m.tileset > 0x28) fail("would not be counted: tileset 0x" + Hex2(m.tileset) + " above 0x28");
  if (m.location > 0x5E) fail("would not be counted: location 0x" + Hex2(m.location) + " above 0x5E");
  if (m.fishing > 0x0D) fail("would not be counted: header byte 8 = 0x" + Hex2(m.fishing) + " above 0x0D");
  if (m.extra_header_bytes.size() > static_cast<std::size_t>(in_.header_length_ - 9)) {
    fail("has more extra header bytes than the header length leaves room for");
  }
  if (!m.blocks.empty() && m.blocks.size() != static_cast<std::size_t>(m.width) * m.height) {
    fail("has " + std::to_string(m.blocks.size()) + " blocks for a " + std::to_string(m.width) +
         " x " + std::to_string(m.height) + " map");
  }
  const std::size_t counts[] = {m.enter_scripts.size(), m.time_scripts.size(), m.warps.size(),
                                m.triggers.size(), m.signposts.size(), m.people.size()};
  for (std::size_t c : counts) {
    if (c > 255) fail("has more than 255 events of one kind");
  }
  unsigned seen = 0;
  for (const ConnectionDecl& c : m.connections) {
    const unsigned flag = ConnectionFlag(c.direction);
    if (seen & flag) fail("has two connections in one direction");
    seen |= flag;
    if (c.raw) continue;
    if (c.target.bank < 1 || c.target.bank > kMapBankCount || c.target.number < 1 ||
        c.target.number > in_.MapCount(c.target.bank)) {
      fail("connects to " + MapName(c.target.bank, c.target.number) + ", which was not declared");
    }
  }
}

void RomLayoutWriter::ReserveFixed() {
  alloc_.Reserve(0x100, 0x50, "the cartridge header");
  alloc_.Reserve(kPaletteMapBankOffset, 1, "the palette map bank byte");
  alloc_.Reserve(in_.tileset_base_ + 3, 2, "the tileset table pointer");
  alloc_.Reserve(in_.tileset_base_ + 21, 1, "the tileset table bank");
  alloc_.Reserve(kLightingPointerTable, 16, "the lighting pointer table");
  for (const auto& [n, p] : in_.palettes_) {
    alloc_.Reserve(kPaletteBase + n * 8, 8, "palette " + std::to_string(n));
  }
  for (const auto& [b, c] : in_.bank_colours_) {
    alloc_.Reserve(kMapBankColourBase + b * 8, 8, "the colours of map bank " + std::to_string(b));
  }
  for (const auto& [s, lightings] : in_.special_sets_) {
    alloc_.Reserve(kSpecialPaletteBase + (s - 1) * kSpecialPaletteSetSize,
                   static_cast<std::int64_t>(lightings.size()) * 64,
                   "special palette set " + std::to_string(s));
  }
  for (const auto& [h9, bytes] : in_.replacement_tiles_) {
    alloc_.Reserve(kReplacementTileBase + h9 * kReplacementTileSize, kReplacementTileSize,
                   "replacement tiles " + std::to_string(h9));
  }
  alloc_.Reserve(kMapGroupTableOffset, 2 * kMapBankCount, "the map group table");
  alloc_.Reserve(in_.map_name_table_, 4 * kLocationNameCount, "the location name table");
  for (const auto& [offset, bytes] : in_.data_) {
    alloc_.Reserve(offset, static_cast<std::int64_t>(bytes.size()),
                   "data at 0x" + Hex(offset));
  }
}

void RomLayoutWriter::PlaceHeaderLists() {
  const int length = in_.header_length_;
  std::int64_t empty_list = -1;
  for (int b = 0; b < kMapBankCount; ++b) {
    const auto& maps = in_.maps_[static_cast<std::size_t>(b)];
    std::int64_t list;
    if (maps.empty()) {
      // Empty banks share one terminating record; equal pointers never stop each other's count.
      if (empty_list < 0) {
        empty_list = alloc_.AllocateIn(kHeaderListBank, length, "the empty map header list");
      }
      list = empty_list;
    } else {
      list = alloc_.AllocateIn(kHeaderListBank,
                               length * static_cast<std::int64_t>(maps.size() + 1),
                               "the map header list of bank " + std::to_string(b + 1));
    }
    // A tileset byte above 0x28 ends the editor's walk through the list.
    PutByte(list + static_cast<std::int64_t>(maps.size()) * length + 1, 0xFF);
    const auto pointer = static_cast<std::uint16_t>(list - kMapGroupBase);
    CheckReadBack(MapGroupOffset(pointer), list, "a map header list");
    layout_.group_pointers[static_cast<std::size_t>(b)] = pointer;
    PutWord(kMapGroupTableOffset + 2 * b, pointer);
    for (std::size_t i = 0; i < maps.size(); ++i) {
      layout_.maps[MapRef{b + 1, static_cast<int>(i) + 1}].primary_header =
          MapHeaderOffset(pointer, length, static_cast<std::int64_t>(i));
    }
  }
}

void RomLayoutWriter::PlaceMapData() {
  auto for_each_map = [&](auto&& f) {
    for (int b = 0; b < kMapBankCount; ++b) {
      const auto& maps = in_.maps_[static_cast<std::size_t>(b)];
      for (std::size_t i = 0; i < maps.size(); ++i) {
        const MapRef ref{b + 1, static_cast<int>(i) + 1};
        f(maps[i], layout_.maps[ref], MapName(ref.bank, ref.number));
      }
    }
  };
  for_each_map([&](const MapDecl& m, MapLayout& at, const std::string& name) {
    at.secondary_header = alloc_.Allocate(
        12 + 12 * static_cast<std::int64_t>(m.connections.size()),
        Pinned(m.secondary_header_bank, kSecondaryBanks), "the secondary header of " + name);
  });
  for_each_map([&](const MapDecl& m, MapLayout& at, const std::string& name) {
    at.blocks = alloc_.Allocate(static_cast<std::int64_t>(m.width) * m.height,
                                Pinned(m.block_bank, kBlockBanks), "the blocks of " + name);
  });
  for_each_map([&](const MapDecl& m, MapLayout& at, const std::string& name) {
    // Script header and event header share the script bank; they are kept together.
    const std::int64_t script_size = ScriptHeaderSize(m);
    const auto event_size = static_cast<std::int64_t>(EventHeader(m).size());
    at.script_header = alloc_.Allocate(script_size + event_size,
                                       Pinned(m.script_bank, ScriptBanks()),
                                       "the scripts and events of " + name);
    at.event_header = at.script_header + script_size;
  });
}

void RomLayoutWriter::WriteMap(int bank, int number, const MapDecl& m) {
  const MapLayout& at = layout_.Map(bank, number);
  WritePrimaryHeader(at, m);
  Put(at.secondary_header, SecondaryHeader(at, m));
  if (m.blocks.empty()) {
    std::fill_n(image_.begin() + at.blocks, static_cast<std::size_t>(m.width) * m.height, m.border);
  } else {
    Put(at.blocks, m.blocks);
  }
  Put(at.script_header, ScriptHeader(m));
  Put(at.event_header, EventHeader(m));
}

void RomLayoutWriter::WritePrimaryHeader(const MapLayout& at, const MapDecl& m) {
  const std::uint16_t secondary = BankedPointer(at.secondary_header);
  std::vector<std::uint8_t> h = {RomBankOf(at.secondary_header), m.tileset, m.ability,
                                 Lo(secondary), Hi(secondary), m.location, m.music,
                                 m.lighting, m.fishing};
  CheckReadBack(SecondaryHeaderOffset(h[0], h[4], h[3]), at.secondary_header, "a secondary header");
  h.insert(h.end(), m.extra_header_bytes.begin(), m.extra_header_bytes.end());
  h.resize(static_cast<std::size_t>(in_.header_length_), 0);
  Put(at.primary_header, h);
}

std::vector<std::uint8_t> RomLayoutWriter::SecondaryHeader(const MapLayout& at,
                                                           const MapDecl& m) const {
  const std::uint16_t blocks = BankedPointer(at.blocks);
  const std::uint16_t scripts = BankedPointer(at.script_header);
  const std::uint16_t events = BankedPointer(at.event_header);
  std::uint8_t flags = 0;
  for (const ConnectionDecl& c : m.connections) flags |= ConnectionFlag(c.direction);
  std::vector<std::uint8_t> h = {m.border, m.height, m.width,
                                 RomBankOf(at.blocks), Lo(blocks), Hi(blocks),
                                 RomBankOf(at.script_header), Lo(scripts), Hi(scripts),
                                 Lo(events), Hi(events), m.connection_flags.value_or(flags)};
  CheckReadBack(BankHiLoToOffset(h[3], h[5], h[4]), at.blocks, "map blocks");
  CheckReadBack(BankPointerToOffset(h[6], scripts), at.script_header, "a script header");
  CheckReadBack(BankPointerToOffset(h[6], events), at.event_header, "an event header");
  const std::vector<std::uint8_t> records = ConnectionRecords(m);
  h.insert(h.end(), records.begin(), records.end());
  return h;
}

std::vector<std::uint8_t> RomLayoutWriter::ConnectionRecords(const MapDecl& m) const {
  std::vector<const ConnectionDecl*> sorted;
  for (const ConnectionDecl& c : m.connections) sorted.push_back(&c);
  // Packed in slot order: north, south, west, east.
  std::sort(sorted.begin(), sorted.end(),
            [](const ConnectionDecl* a, const ConnectionDecl* b) { return a->direction < b->direction; });
  std::vector<std::uint8_t> out;
  const MapGeometry self{m.width, m.height, 0};
  for (const ConnectionDecl* c : sorted) {
    std::array<std::uint8_t, 12> record{};
    if (c->raw) {
      record = *c->raw;
    } else {
      const MapDecl& n = in_.maps_[static_cast<std::size_t>(c->target.bank - 1)]
                                  [static_cast<std::size_t>(c->target.number - 1)];
      const MapGeometry neighbour{n.width, n.height,
                                  layout_.Map(c->target.bank, c->target.number).blocks};
      record = MakeConnectionRecord(c->direction, self, neighbour, c->target, c->offset);
    }
    out.insert(out.end(), record.begin(), record.end());
  }
  return out;
}

std::vector<std::uint8_t> RomLayoutWriter::ScriptHeader(const MapDecl& m) const {
  std::vector<std::uint8_t> out;
  out.push_back(static_cast<std::uint8_t>(m.enter_scripts.size()));
  for (const auto& e : m.enter_scripts) Append(out, {Lo(e.script), Hi(e.script), e.res1, e.res2});
  out.push_back(static_cast<std::uint8_t>(m.time_scripts.size()));
  for (const auto& t : m.time_scripts) Append(out, {t.condition, Lo(t.script), Hi(t.script)});
  return out;
}

std::vector<std::uint8_t> RomLayoutWriter::EventHeader(const MapDecl& m) const {
  std::vector<std::uint8_t> out = {0, 0};  // the two bytes the editor passes over
  out.push_back(static_cast<std::uint8_t>(m.warps.size()));
  for (const auto& w : m.warps) Append(out, {w.y, w.x, w.target_warp, w.target_bank, w.target_map});
  out.push_back(static_cast<std::uint8_t>(m.triggers.size()));
  for (const auto& t : m.triggers) {
    Append(out, {t.status, t.y, t.x, t.res1, Lo(t.script), Hi(t.script), t.res2, t.res3});
  }
  out.push_back(static_cast<std::uint8_t>(m.signposts.size()));
  for (const auto& s : m.signposts) Append(out, {s.y, s.x, s.type, Lo(s.script), Hi(s.script)});
  out.push_back(static_cast<std::uint8_t>(m.people.size()));
  for (const auto& p : m.people) {
    Append(out, {p.picture, static_cast<std::uint8_t>(p.y + 4), static_cast<std::uint8_t>(p.x + 4),
                 p.facing, p.movement, p.time_dependence, p.time_range, p.function,
                 p.sight_range, Lo(p.script), Hi(p.script), Lo(p.visibility),
                 Hi(p.visibility)});
  }
  return out;
}

void RomLayoutWriter::PlaceTilesets() {
  int highest = -1;
  for (const auto& maps : in_.maps_) {
    for (const MapDecl& m : maps) highest = std::max(highest, static_cast<int>(m.tileset));
  }
  if (in_.tilesets_.empty() && highest < 0) return;
  // Maps without any declared tileset get a blank one: no tiles, all blocks tile 0.
  const std::map<int, TilesetDecl> blank = {{0, TilesetDecl{}}};
  const std::map<int, TilesetDecl>& tilesets = in_.tilesets_.empty() ? blank : in_.tilesets_;
  highest = std::max(highest, tilesets.rbegin()->first);
  tileset_count_ = highest + 1;
  tileset_table_ = alloc_.AllocateIn(kTilesetTableBank, 15 * tileset_count_, "the tileset table");
  const std::uint16_t table = BankedPointer(tileset_table_);
  PutWord(in_.tileset_base_ + 3, table);
  PutByte(in_.tileset_base_ + 21, RomBankOf(tileset_table_));
  CheckReadBack(BankPointerToOffset(RomBankOf(tileset_table_), table), tileset_table_,
                "the tileset table");
  PutByte(kPaletteMapBankOffset, kPaletteMapBank);
  layout_.palette_map_bank = kPaletteMapBank;
  for (const auto& [n, t] : tilesets) PlaceTileset(n, t);
  // Numbers without a tileset of their own show the lowest declared one.
  const std::int64_t model = tileset_table_ + 15 * tilesets.begin()->first;
  for (int n = 0; n < tileset_count_; ++n) {
    if (tilesets.count(n)) continue;
    std::copy_n(image_.begin() + model, 15, image_.begin() + tileset_table_ + 15 * n);
  }
}

void RomLayoutWriter::PlaceTileset(int number, const TilesetDecl& t) {
  const std::string name = "tileset " + std::to_string(number);
  TilesetLayout& at = layout_.tilesets[number];
  at.record = tileset_table_ + 15 * number;
  const std::vector<std::uint8_t> graphics =
      t.compressed_graphics ? *t.compressed_graphics : CompressGraphics(t.graphics);
  at.graphics_size = static_cast<std::int64_t>(graphics.size());
  at.graphics = alloc_.Allocate(at.graphics_size, kGraphicsBanks, "the graphics of " + name);
  Put(at.graphics, graphics);
  // The editor always reads all 256 blocks.
  std::vector<std::uint8_t> blocks = t.blocks;
  blocks.resize(4096, 0);
  at.blocks = alloc_.Allocate(4096, kTilesetBlockBanks, "the blocks of " + name);
  Put(at.blocks, blocks);
  at.palette_map = alloc_.AllocateIn(kPaletteMapBank, 128, "the palette map of " + name);
  Put(at.palette_map, t.palette_map);

  const std::uint16_t gfx = BankedPointer(at.graphics);
  const std::uint16_t blk = BankedPointer(at.blocks);
  const std::uint16_t pal = BankedPointer(at.palette_map);
  std::vector<std::uint8_t> record = {RomBankOf(at.graphics), Lo(gfx), Hi(gfx),
                                      RomBankOf(at.blocks), Lo(blk), Hi(blk)};
  CheckReadBack(BankHiLoToOffset(record[0], record[2], record[1]), at.graphics, "tile graphics");
  CheckReadBack(BankPointerToOffset(record[3], blk), at.blocks, "tileset blocks");
  CheckReadBack(BankPointerToOffset(kPaletteMapBank, pal), at.palette_map, "a palette map");
  record.insert(record.end(), t.other_bytes.begin(), t.other_bytes.end());
  Append(record, {t.special_palette_set, Lo(pal), Hi(pal)});
  Put(at.record, record);
}

void RomLayoutWriter::PlacePalettes() {
  for (const auto& [n, p] : in_.palettes_) PutPalette(kPaletteBase + n * 8, p);
  for (const auto& [b, c] : in_.bank_colours_) {
    const std::int64_t at = kMapBankColourBase + b * 8;
    PutWord(at, c.first[0]);
    PutWord(at + 2, c.first[1]);
    PutWord(at + 4, c.second[0]);
    PutWord(at + 6, c.second[1]);
  }
  for (const auto& [s, lightings] : in_.special_sets_) {
    std::int64_t at = kSpecialPaletteBase + (s - 1) * kSpecialPaletteSetSize;
    for (const PaletteSet& set : lightings) {
      for (const GbcPalette& p : set) {
        PutPalette(at, p);
        at += 8;
      }
    }
  }
  for (const auto& [h9, bytes] : in_.replacement_tiles_) {
    Put(kReplacementTileBase + h9 * kReplacementTileSize, bytes);
  }
  std::int64_t default_table = -1;
  for (int table = 0; table < 8; ++table) {
    auto it = in_.lighting_tables_.find(table);
    std::int64_t at;
    if (it != in_.lighting_tables_.end()) {
      at = alloc_.AllocateIn(kLightingBank, 64, "lighting table " + std::to_string(table));
      for (int t = 0; t < 8; ++t) Put(at + t * 8, it->second[static_cast<std::size_t>(t)]);
    } else {
      if (default_table < 0) {
        default_table = alloc_.AllocateIn(kLightingBank, 64, "the default lighting table");
        for (int i = 0; i < 64; ++i) PutByte(default_table + i, static_cast<std::uint8_t>(i % 8));
      }
      at = default_table;
    }
    PutWord(kLightingPointerTable + 2 * table,
            static_cast<std::uint16_t>(0x4000 + (at - kLightingTableBase)));
  }
}

void RomLayoutWriter::PlaceNames() {
  const int bank = RomBankOf(in_.map_name_table_);
  std::int64_t empty = -1;
  for (int i = 0; i < kLocationNameCount; ++i) {
    auto it = in_.names_.find(i);
    std::int64_t at;
    if (it != in_.names_.end()) {
      at = alloc_.AllocateIn(bank, static_cast<std::int64_t>(it->second.size()),
                             "location name " + std::to_string(i));
      Put(at, it->second);
    } else {
      if (empty < 0) {
        empty = alloc_.AllocateIn(bank, 1, "the empty location name");
        PutByte(empty, 0x50);
      }
      at = empty;
    }
    CheckReadBack(SameBankOffset(in_.map_name_table_, BankedPointer(at)), at, "a location name");
    layout_.names[static_cast<std::size_t>(i)] = at;
    PutWord(in_.map_name_table_ + 4 * i, BankedPointer(at));
  }
}

void RomLayoutWriter::WriteCartridgeHeader() {
  Put(0x100, std::vector<std::uint8_t>{0x00, 0xC3, 0x50, 0x01});  // nop; jp 0x0150
  Put(kTitleOffset, in_.title_);
  int size_code = 0;
  while ((std::int64_t{0x8000} << size_code) < static_cast<std::int64_t>(image_.size())) ++size_code;
  PutByte(0x147, 0x10);  // MBC3 with timer, RAM and battery
  PutByte(0x148, static_cast<std::uint8_t>(size_code));
  PutByte(0x149, 0x03);  // 32 KiB RAM
  PutByte(0x14A, 0x01);
  PutByte(0x14B, 0x33);
  std::uint8_t check = 0;
  for (std::int64_t i = 0x134; i <= 0x14C; ++i) check = static_cast<std::uint8_t>(check - image_[i] - 1);
  PutByte(0x14D, check);
  std::uint16_t sum = 0;
  image_[0x14E] = image_[0x14F] = 0;
  for (std::uint8_t b : image_) sum = static_cast<std::uint16_t>(sum + b);
  PutByte(0x14E, Hi(sum));
  PutByte(0x14F, Lo(sum));
}

void RomLayoutWriter::ApplyPatches() {
  for (const auto& [offset, bytes] : in_.patches_) {
    if (offset < 0 || offset + static_cast<std::int64_t>(bytes.size()) >
                          static_cast<std::int64_t>(image_.size())) {
      throw RomBuildError("RomBuilder: patch at 0x" + Hex(offset) + " lies outside the image");
    }
    Put(offset, bytes);
  }
}

void RomLayoutWriter::Put(std::int64_t offset, std::span<const std::uint8_t> bytes) {
  std::copy(bytes.begin(), bytes.end(), image_.begin() + offset);
}

void RomLayoutWriter::PutByte(std::int64_t offset, std::uint8_t b) {
  image_[static_cast<std::size_t>(offset)] = b;
}

void RomLayoutWriter::PutWord(std::int64_t offset, std::uint16_t w) {
  PutByte(offset, Lo(w));
  PutByte(offset + 1, Hi(w));
}

void RomLayoutWriter::PutPalette(std::int64_t offset, const GbcPalette& p) {
  for (int j = 0; j < 4; ++j) PutWord(offset + 2 * j, p[static_cast<std::size_t>(j)]);
}

}  // namespace kartova
