// kartova-cli map ROM BANK MAP: the headers of one map, as the editor loads them.

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <system_error>

#include "cli/Command.h"
#include "cli/Json.h"
#include "maps/RomDocument.h"
#include "rom/HexText.h"

namespace kartova::cli {

namespace {

constexpr const char* kUsage = "Usage: kartova-cli [--ini FILE] map ROM BANK MAP\n";

// Decimal digits only, at most nine of them.
std::optional<int> SmallNumber(const std::string& text) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
    return std::nullopt;
  return std::stoi(text);
}

template <std::size_t N>
std::string HexBytes(const std::array<std::uint8_t, N>& bytes) {
  std::string out;
  for (std::uint8_t b : bytes) out += Hex2(b);
  return out;
}

Json MapJson(const RomDocument& doc, int bank, int map) {
  Json json = Json::Object();
  json.Set("bank", bank);
  json.Set("map", map);
  json.Set("offset", doc.HeaderOffset(bank - 1, map - 1));
  json.Set("primary", HexBytes(doc.Primary().bytes));
  json.Set("secondary", HexBytes(doc.Secondary().bytes));
  json.Set("width", doc.Secondary().Width());
  json.Set("height", doc.Secondary().Height());
  return json;
}

int RunMap(const CommandContext& ctx) {
  const std::optional<int> bank = ctx.args.size() == 3 ? SmallNumber(ctx.args[1]) : std::nullopt;
  const std::optional<int> map = ctx.args.size() == 3 ? SmallNumber(ctx.args[2]) : std::nullopt;
  if (!bank || !map || *bank < 1 || *bank > kMapBankCount || *map < 1) {
    ctx.err << "kartova-cli: map needs a ROM file, a map bank 1-26 and a map number from 1\n" << kUsage;
    return 2;
  }
  const std::string& rom = ctx.args[0];
  std::error_code ec;
  if (std::filesystem::is_directory(std::filesystem::path(std::u8string(rom.begin(), rom.end())), ec)) {
    ctx.err << "kartova-cli: " << rom << " is a directory, not a ROM file\n";
    return 1;
  }
  RomDocument doc;
  doc.OpenRom(rom, ctx.settings);
  // The map list of the bank decides which map numbers exist, as in the editor's selector.
  const MapList list = doc.FillMapList(*bank - 1);
  if (list.error) throw *list.error;
  if (static_cast<std::size_t>(*map) > list.entries.size()) {
    ctx.err << "Fehler: Ziel-Map (" << *bank << "." << *map << ") existiert nicht.\n";
    return 1;
  }
  // Only the headers are wanted: the load that reads them again for the header page.
  doc.SetApplyMode(kApplyRestoreHeaders);
  doc.LoadSelectedMap(*bank - 1, *map - 1);
  ctx.out << MapJson(doc, *bank, *map);
  return 0;
}

const CommandRegistrar kMapCommand(Command{
    "map", "map ROM BANK MAP",
    "Prints as JSON the primary and secondary header of map MAP (counted from 1, as the map "
    "list shows it) of map bank BANK (1-26): bank, map, offset (the file offset of the primary "
    "header), primary (its 30 bytes as hex digits), secondary (the 60 bytes of the secondary "
    "header), width and height in blocks. A map number beyond the bank's maps fails with "
    "\"Fehler: Ziel-Map (BANK.MAP) existiert nicht.\".",
    RunMap});

}  // namespace

}  // namespace kartova::cli
