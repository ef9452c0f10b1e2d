#include "maps/HeaderFields.h"

#include "rom/HexText.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

constexpr int kFishingGroupByte = 8;
constexpr std::array<int, kHeaderComboCount> kComboBytes = {1, 2, 5, 6, 7};

int ExtraByteIndex(int extra_byte) {
  const long long index = kFishingGroupByte + static_cast<long long>(extra_byte);
  CheckIndex(index, PrimaryHeaderBuffer::kSize);
  return static_cast<int>(index);
}

std::string Pair(std::uint8_t first, std::uint8_t second) { return Hex2(first) + Hex2(second); }

bool IsAcceptableText(std::string_view text) { return text.size() < 7 && IsHexNumberAfterZero(text); }

void StoreFileOrderWord(std::uint8_t& first, std::uint8_t& second, std::int32_t value) {
  first = static_cast<std::uint8_t>(value >> 8 & 0xFF);
  second = static_cast<std::uint8_t>(value & 0xFF);
}

// Stores an accepted text of the header page's own boxes; false for the read-only ones.
bool StoreField(int field, std::int32_t value, int extra_byte, PrimaryHeaderBuffer& primary,
                SecondaryHeaderBuffer& secondary) {
  auto& s = secondary.bytes;
  const auto low = static_cast<std::uint8_t>(value & 0xFF);
  switch (field) {
    case 2: primary.bytes[static_cast<size_t>(ExtraByteIndex(extra_byte))] = low; return true;
    case 3: s[0] = low; return true;
    case 5: s[6] = low; return true;
    case 6: StoreFileOrderWord(s[7], s[8], value); return true;
    case 7: StoreFileOrderWord(s[9], s[10], value); return true;
    case 8: s[11] = low; return true;
    case 9:   // the width
    case 10:  // shows the height, yet stores the width too
      s[2] = low;
      return true;
    default: return false;
  }
}

}  // namespace

std::string HeaderFieldText(int field, const PrimaryHeaderBuffer& primary,
                            const SecondaryHeaderBuffer& secondary, int extra_byte) {
  const auto& p = primary.bytes;
  const auto& s = secondary.bytes;
  switch (field) {
    case 0: return Hex2(p[0]);
    case 1: return Pair(p[3], p[4]);
    case 2: return Hex2(p[static_cast<size_t>(ExtraByteIndex(extra_byte))]);
    case 3: return Hex2(s[0]);
    case 4: return Pair(s[3], s[4]) + Hex2(s[5]);
    case 5: return Hex2(s[6]);
    case 6: return Pair(s[7], s[8]);
    case 7: return Pair(s[9], s[10]);
    case 8: return Hex2(s[11]);
    case 9: return Hex2(s[2]);
    case 10: return Hex2(s[1]);
    default: return {};
  }
}

std::string ExtraByteCaption(int extra_byte,
                             const std::array<std::string, kExtraByteNameCount>& extra_byte_names) {
  if (extra_byte == 0) return "Angel:";
  const long long index = static_cast<long long>(extra_byte) - 1;
  CheckIndex(index, kExtraByteNameCount);
  return extra_byte_names[static_cast<size_t>(index)];
}

std::uint8_t HeaderComboCode(int combo, const PrimaryHeaderBuffer& primary) {
  CheckIndex(combo, kHeaderComboCount);
  return primary.bytes[static_cast<size_t>(kComboBytes[static_cast<size_t>(combo)])];
}

ComboDisplay ShowHeaderCombo(std::uint8_t code, int list_count) {
  if (code < list_count) return {code, {}};
  return {-1, Hex2(code)};
}

std::array<bool, 4> ConnectionChecks(std::uint8_t flags) {
  return {(flags & SecondaryHeaderBuffer::kNorth) != 0, (flags & SecondaryHeaderBuffer::kSouth) != 0,
          (flags & SecondaryHeaderBuffer::kWest) != 0, (flags & SecondaryHeaderBuffer::kEast) != 0};
}

HeaderFieldEdit EditHeaderField(int field, std::string_view text, int updating_controls, int extra_byte,
                                PrimaryHeaderBuffer& primary, SecondaryHeaderBuffer& secondary) {
  HeaderFieldEdit edit;
  edit.set_changes_pending = updating_controls != kUpdatingConnectionFields;
  if (!IsAcceptableText(text) || updating_controls == kUpdatingConnectionChecks) return edit;
  const std::int32_t value = ParseHex(text);
  if (field == 8) edit.connection_flags = static_cast<std::uint8_t>(value & 0xFF);
  if (updating_controls != kUpdatingIdle) return edit;
  if (field >= kFirstConnectionField && field <= kLastConnectionField)
    edit.for_connection_editor = true;
  else
    edit.stored = StoreField(field, value, extra_byte, primary, secondary);
  return edit;
}

HeaderComboEdit EditHeaderCombo(int combo, std::string_view text, int updating_controls,
                                PrimaryHeaderBuffer& primary) {
  HeaderComboEdit edit;
  edit.set_changes_pending = true;
  if (!IsHexNumberAfterZero(text) || updating_controls != kUpdatingIdle) return edit;
  CheckIndex(combo, kHeaderComboCount);
  const size_t first = text.find_first_not_of(' ');
  const size_t last = text.find_last_not_of(' ');
  const std::string_view trimmed = first == std::string_view::npos ? std::string_view{} : text.substr(first, last - first + 1);
  const auto code = static_cast<std::uint8_t>(ParseHex(trimmed.substr(0, 2)) & 0xFF);
  primary.bytes[static_cast<size_t>(kComboBytes[static_cast<size_t>(combo)])] = code;
  edit.stored = true;
  return edit;
}

}  // namespace kartova
