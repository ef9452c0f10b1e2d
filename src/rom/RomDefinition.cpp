#include "rom/RomDefinition.h"

#include <algorithm>

#include "rom/Address.h"
#include "rom/HexText.h"
#include "rom/RomFile.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

constexpr const char* kFallbackSection = "Settings";
// Two-digit keys repeat after FF, so no list has more than this many different entries.
constexpr int kDistinctListKeys = 0x100;

std::string TitleSection(const std::array<std::uint8_t, 16>& title) {
  std::string section;
  for (std::uint8_t b : title) section += Hex2(b);
  return section;
}

// Labels of the header bytes beyond the ninth, read from the definition section only.
void ReadExtraByteNames(const SettingsReader& settings, RomDefinition& def) {
  def.extra_header_byte_names.fill("Res:");
  const auto last = static_cast<std::int32_t>(CheckedInt32(std::int64_t{def.header_length} - 10));
  for (std::int32_t i = last; i >= 0; --i) {
    std::string name = settings.ReadSetting(def.section, "ResName" + Dec(i), "Res");
    CheckIndex(i, static_cast<long long>(def.extra_header_byte_names.size()));
    def.extra_header_byte_names[static_cast<std::size_t>(i)] = name + ":";
  }
}

// The header page shows the extra-byte selector only for records longer than nine bytes; its
// upper limit comes from the value as read, then shorter records count as nine.
void ApplyHeaderLength(RomDefinition& def) {
  def.extra_byte_max = static_cast<std::int32_t>(CheckedInt32(std::int64_t{def.header_length} - 9));
  def.extra_bytes_visible = def.header_length > 9;
  if (def.header_length < 9) def.header_length = 9;
}

}  // namespace

std::string GetDefinitionValue(const SettingsReader& settings, const std::string& section,
                               const std::string& key, const std::string& def) {
  std::string value = settings.ReadSetting(section, key, "");
  if (!value.empty()) return value;
  return settings.ReadSetting(kFallbackSection, key, def);
}

std::vector<std::string> ReadNameList(const SettingsReader& settings, const std::string& section,
                                      const std::string& list_key) {
  std::string list_section = settings.ReadSetting(section, list_key, "");
  if (list_section.empty()) list_section = settings.ReadSetting(kFallbackSection, list_key, "?");

  // The last index is kept as a signed 16-bit number; a count outside its range overflows.
  const std::int64_t last = std::int64_t{ParseHex(settings.ReadSetting(list_section, "count", "0"))} - 1;
  if (last < INT16_MIN || last > INT16_MAX) throw RuntimeError::Overflow();

  std::vector<std::string> items;
  if (last < 0) return items;
  const int count = static_cast<int>(last) + 1;
  items.reserve(static_cast<std::size_t>(count));
  for (int j = 0; j < count; ++j) {
    if (j < kDistinctListKeys) {
      const std::string key = Hex2(j);
      items.push_back(key + " - " + settings.ReadSetting(list_section, key, "?"));
    } else {
      items.push_back(items[static_cast<std::size_t>(j % kDistinctListKeys)]);
    }
  }
  return items;
}

RomDefinition ReadRomDefinition(const std::string& rom_path, const SettingsReader& settings) {
  RomDefinition def;
  {
    RomFile rom = RomFile::OpenForRead(rom_path);
    rom.Seek(kTitleOffset);
    rom.ReadBytes(def.title.data(), def.title.size());
  }
  def.section = TitleSection(def.title);
  def.header_length =
      ParseDecimalInt(GetDefinitionValue(settings, def.section, "HeaderLengthA", "9"));
  def.map_name_table = ParseHex(GetDefinitionValue(settings, def.section, "MapNameTable", "92384"));
  def.tileset_base = ParseHex(GetDefinitionValue(settings, def.section, "TilesetBase", "2DFA"));
  ReadExtraByteNames(settings, def);

  def.name_lists[RomDefinition::kTilesetNames] = ReadNameList(settings, def.section, "TilesetNames");
  def.name_lists[RomDefinition::kAbilityNames] = ReadNameList(settings, def.section, "AbilityNames");
  def.name_lists[RomDefinition::kMusicNames] = ReadNameList(settings, def.section, "MusicNames");
  def.name_lists[RomDefinition::kTimeNames] = ReadNameList(settings, def.section, "TimeNames");

  ApplyHeaderLength(def);
  return def;
}

}  // namespace kartova
