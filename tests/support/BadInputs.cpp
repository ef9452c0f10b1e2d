#include "support/BadInputs.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <random>
#include <stdexcept>

#include "demo/DemoRom.h"
#include "demo/RomBuilder.h"
#include "rom/Address.h"
#include "support/TempDir.h"

namespace kartova::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes RandomBytes(std::size_t size, std::uint32_t seed) {
  std::mt19937 random(seed);
  Bytes out(size);
  for (auto& b : out) b = static_cast<std::uint8_t>(random());
  return out;
}

Bytes Patched(Bytes bytes, std::int64_t offset, const Bytes& patch) {
  std::copy(patch.begin(), patch.end(), bytes.begin() + offset);
  return bytes;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  if (at == std::string::npos) throw std::logic_error("BadInputs: no '" + from + "' in the INI");
  return text.replace(at, from.size(), to);
}

constexpr char kBinaryLines[] = "\x01\xFF\x00=\x00\n[halb\nTilesetNames\n=\n";

std::vector<BadInput> Build() {
  const BuiltRom demo = DemoRomBuilder().BuildWithLayout();
  const Bytes& rom = demo.bytes;
  const MapLayout& m11 = demo.layout.Map(1, 1);
  const std::int64_t primary = m11.primary_header, secondary = m11.secondary_header;
  const int width = rom[static_cast<std::size_t>(secondary + 2)], height = rom[static_cast<std::size_t>(secondary + 1)];
  const auto last_bank = static_cast<std::uint8_t>(rom.size() / kBankSize - 1);
  const std::string ini = DemoDefinitionIni(), section = "[" + DemoDefinitionSection() + "]\n";

  std::vector<BadInput> list;
  auto add = [&](std::string name, std::string what, Bytes bytes, std::optional<std::string> own_ini = {}) {
    list.push_back({std::move(name), std::move(what), std::move(bytes), 0, std::move(own_ini)});
  };
  auto demo_with = [&](std::string name, std::string what, std::int64_t offset, const Bytes& patch) {
    add(std::move(name), std::move(what), Patched(rom, offset, patch));
  };
  auto demo_ini = [&](std::string name, std::string what, std::string own_ini) {
    add(std::move(name), std::move(what), rom, std::move(own_ini));
  };
  auto cut = [&](std::size_t length) { return Bytes(rom.begin(), rom.begin() + static_cast<std::ptrdiff_t>(length)); };

  // Files of the wrong size or without any structure.
  add("Empty", "a file of 0 bytes", {});
  add("Cut0x100", "the demo cut to 0x100 bytes", cut(0x100));
  add("Cut0x94120", "the demo cut one byte short of the whole map bank table", cut(0x94120));
  add("Cut0x94121", "the demo cut right after the map bank table", cut(0x94121));
  add("Cut0x100000", "the demo cut to 1 MiB, before every map header", cut(0x100000));
  add("CutInBlocks", "the demo cut in the middle of map 1.1's block data",
      cut(static_cast<std::size_t>(m11.blocks + width * height / 2)));
  add("CutLastByte", "the demo one byte short of its end", cut(rom.size() - 1));
  add("Random2MiB", "2 MiB of random bytes (seed 1)", RandomBytes(0x200000, 1));
  add("Random0x94121", "0x94121 random bytes (seed 2), just large enough", RandomBytes(0x94121, 2));
  add("Zeros2MiB", "2 MiB of zero bytes", Bytes(0x200000, 0x00));
  add("Ones2MiB", "2 MiB of 0xFF bytes", Bytes(0x200000, 0xFF));
  list.push_back({"Zeros64MiB", "64 MiB of zero bytes (sparse)", {}, std::uint64_t{64} << 20, {}});

  // The map bank table.
  for (std::uint8_t fill : {0x00, 0xFF}) {
    add(fill ? "GroupTableFFFF" : "GroupTable0000", fill ? "every map group pointer is 0xFFFF" : "every map group pointer is 0x0000",
        Patched(rom, kMapGroupTableOffset, Bytes(2 * kMapBankCount, fill)));
  }

  // The ROM definition.
  const std::string length9 = "HeaderLengthA=9\n";
  for (const auto& [name, value] : {std::pair{"HeaderLength0", "0"}, {"HeaderLength30", "30"}, {"HeaderLength31", "31"},
                                    {"HeaderLengthFFFF", "FFFF"}, {"HeaderLength65535", "65535"},
                                    {"HeaderLengthMinus1", "-1"}, {"HeaderLengthGarbage", "neun"}}) {
    const std::string line = "HeaderLengthA=" + std::string(value);
    demo_ini(name, line + " for headers of 9 bytes", Replaced(ini, length9, line + "\n"));
  }
  add("HeaderLength9For30", "HeaderLengthA=9 for a ROM whose headers are 30 bytes long",
      DemoRomBuilder().HeaderLength(30).Build());
  demo_ini("IniHugeNumbers", "MapNameTable and TilesetBase beyond any file, HeaderLengthA beyond int",
           Replaced(Replaced(Replaced(ini, "MapNameTable=92384", "MapNameTable=FFFFFFFFFFFF"), "TilesetBase=2DFA",
                             "TilesetBase=7FFFFFFF"),
                    length9, "HeaderLengthA=99999999999999999999\n"));
  demo_ini("IniNegativeNumbers", "MapNameTable=-1, TilesetBase=-2DFA",
           Replaced(Replaced(ini, "MapNameTable=92384", "MapNameTable=-1"), "TilesetBase=2DFA", "TilesetBase=-2DFA"));
  demo_ini("IniNameTableAtEnd", "MapNameTable=1FFFFF, the last byte of the file",
           Replaced(ini, "MapNameTable=92384", "MapNameTable=1FFFFF"));
  demo_ini("IniTilesetBaseAtEnd", "TilesetBase=1FFFFE, the table pointer reaching past the end",
           Replaced(ini, "TilesetBase=2DFA", "TilesetBase=1FFFFE"));
  demo_ini("IniMissingSection", "the definition section left out, only the name lists",
           Replaced(ini, section + length9, "[Anders]\n"));
  demo_ini("IniEmpty", "an empty INI file", "");
  const Bytes random = RandomBytes(4096, 3);
  const std::string garbage(random.begin(), random.end());
  demo_ini("IniBinaryGarbage", "4 KiB of random bytes instead of an INI", garbage);
  demo_ini("IniGarbageInSection", "binary bytes, NULs and an unfinished section header in the definition",
           Replaced(ini, length9, length9 + std::string(kBinaryLines, sizeof kBinaryLines - 1) +
                                      garbage.substr(0, 200) + "\n"));
  demo_ini("NameListHugeCount", "the tileset name list claims 0x7FFFFFFF entries",
           Replaced(ini, "[DemoTilesets]\n", "[DemoTilesets]\ncount=7FFFFFFF\n"));

  // Map 1.1's headers.
  demo_with("Tileset0xFF", "map 1.1 names tileset 0xFF (ends the map count of bank 1)", primary + 1, {0xFF});
  demo_with("Tileset0x28", "map 1.1 names tileset 0x28, the last counted, which the table lacks", primary + 1, {0x28});
  add("SecondaryPastEnd", "map 1.1's secondary header pointer with bit 15 set, in ROM bank 0x7F",
      Patched(Patched(rom, primary, {0x7F}), primary + 4, {0xFF}));
  demo_with("Width0", "map 1.1 is 0 blocks wide", secondary + 2, {0});
  demo_with("Height0", "map 1.1 is 0 blocks high", secondary + 1, {0});
  demo_with("Size255", "map 1.1 is 255 x 255 blocks", secondary + 1, {255, 255});
  demo_with("BlocksPastEnd", "map 1.1's blocks in ROM bank 0xFF, past the end of the file", secondary + 3, {0xFF});
  demo_with("BlocksAtLastByte", "map 1.1's blocks start at the file's last byte", secondary + 3, {last_bank, 0xFF, 0x7F});
  demo_with("ScriptBank0xFF", "map 1.1's scripts and events in ROM bank 0xFF", secondary + 6, {0xFF});
  demo_with("EventsAtLastByte", "map 1.1's event header in the last bank at 0x7FFE: counts read past the end",
            secondary + 6, {last_bank, 0xFE, 0x7F, 0xFE, 0x7F});
  demo_with("EventCounts255", "map 1.1 claims 255 warps", m11.event_header + 2, {0xFF});
  demo_with("ScriptCounts255", "map 1.1 claims 255 enter scripts", m11.script_header, {0xFF});

  // Connections of map 1.1: one north record (source 0x4000, destination 0xC703) naming
  // whatever the case names.
  auto connection = [&](std::string name, std::string what, Bytes record) {
    add(std::move(name), std::move(what), Patched(Patched(rom, secondary + 11, {0x08}), secondary + 12, record));
  };
  for (const auto& [name, bank, map] : {std::tuple{"ConnectionBank0", 0, 1}, {"ConnectionBank27", 27, 1},
                                        {"ConnectionMap0", 1, 0}, {"ConnectionMap255", 1, 255}}) {
    connection(name, "a north connection to map " + std::to_string(bank) + "." + std::to_string(map),
               {static_cast<std::uint8_t>(bank), static_cast<std::uint8_t>(map), 0x00, 0x40, 0x03, 0xC7, 4, 4, 0, 0, 0, 0});
  }
  connection("ConnectionOutsideGrid", "a north connection whose destination and strip lie far outside the grid",
             {1, 1, 0xFF, 0xFF, 0xFF, 0xFF, 255, 255, 0xFF, 0xFF, 0xFF, 0xFF});
  connection("ConnectionFlagsAll", "all four connection flags set, the records being whatever follows",
             {1, 1, 0x00, 0x40, 0x00, 0x00, 0, 0, 0, 0, 0, 0});
  demo_with("ConnectionFlags0xFF", "connection flag byte 0xFF on map 1.1", secondary + 11, {0xFF});

  // Location names.
  add("NamesWithoutTerminator", "location names 0 and 94 without a terminator",
      DemoRomBuilder().RawLocationName(0, Bytes(300, 0x80)).RawLocationName(94, Bytes(40, 0x81)).Build());
  add("NamePointersFFFF", "every location-name pointer is 0xFFFF (the bank's last byte, no terminator)",
      Patched(rom, 0x92384, Bytes(2 * 95, 0xFF)));
  {
    // The last bank's end holds no terminator: the name pointer table set there.
    Bytes bytes = rom;
    const std::int64_t last = static_cast<std::int64_t>(bytes.size()) - 0x100;
    std::fill(bytes.begin() + last, bytes.end(), 0x80);
    for (int i = 0; i < 95; ++i) bytes[static_cast<std::size_t>(last + 2 * i)] = 0xFE;
    for (int i = 0; i < 95; ++i) bytes[static_cast<std::size_t>(last + 2 * i + 1)] = 0x7F;
    char table[16];
    std::snprintf(table, sizeof table, "%llX", static_cast<unsigned long long>(last));
    add("NamesRunOffTheEnd", "MapNameTable in the last bank; every name starts 2 bytes before the end, unterminated",
        bytes, Replaced(ini, "MapNameTable=92384", std::string("MapNameTable=") + table));
  }
  return list;
}

}  // namespace

const std::vector<BadInput>& BadInputs() {
  static const std::vector<BadInput> list = Build();
  return list;
}

BadInput IntactDemoInput() { return {"IntactDemo", "the demo as built", BuildDemoRom(), 0, {}}; }

void WriteBadInput(const BadInput& input, const std::string& path) {
  WriteFileBytes(path, input.bytes);
  if (input.zero_size != 0) std::filesystem::resize_file(path, input.zero_size);
}

}  // namespace kartova::test
