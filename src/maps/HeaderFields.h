#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "maps/MapHeaders.h"

// The header page without its widgets: what each Header box and HCombo shows, and how a typed
// text reaches the header buffers. The boxes show multi-byte fields in file byte order.
namespace kartova {

// Header(0)..Header(10) are the header page's own boxes; 11..19 edit connection records.
inline constexpr int kHeaderFieldCount = 11;
inline constexpr int kFirstConnectionField = 11;
inline constexpr int kLastConnectionField = 19;
inline constexpr int kHeaderComboCount = 5;
inline constexpr int kExtraByteNameCount = 21;

// Values of UpdatingControls, the guard against change events raised by the program's own
// writes into the boxes.
enum UpdatingControls : int {
  kUpdatingIdle = 0,
  kUpdatingStoring = 1,
  kUpdatingShowingHeaders = 2,
  kUpdatingConnectionChecks = 3,
  kUpdatingConnectionFields = 5,
};

// Text of Header(field), field 0..10, as ShowHeaderFields writes it (empty for other fields).
// Header(2) shows byte 8 while the extra-byte selector is 0, else byte 8 + selector; a selector
// outside 0..21 raises the subscript error.
std::string HeaderFieldText(int field, const PrimaryHeaderBuffer& primary,
                            const SecondaryHeaderBuffer& secondary, int extra_byte);

// Caption of the label beside Header(2): "Angel:" for the fishing group, else the name of the
// chosen extra byte (subscript error for a selector outside 0..21).
std::string ExtraByteCaption(int extra_byte,
                             const std::array<std::string, kExtraByteNameCount>& extra_byte_names);

// The header byte behind HCombo(combo): 0 tileset, 1 the "AbilityNames" byte, 2 location,
// 3 music, 4 lighting. Subscript error for another combo.
std::uint8_t HeaderComboCode(int combo, const PrimaryHeaderBuffer& primary);

// How a combo shows its code: the list entry when the list is long enough, else the bare two
// hex digits as its text.
struct ComboDisplay {
  int list_index = -1;  // -1: show `text`
  std::string text;
};
ComboDisplay ShowHeaderCombo(std::uint8_t code, int list_count);

// Con(0)..Con(3) (north, south, west, east) from the connection flag byte.
std::array<bool, 4> ConnectionChecks(std::uint8_t flags);

// What the change event of Header(field) does with a text.
struct HeaderFieldEdit {
  bool set_changes_pending = false;
  // Header(8) with an acceptable text: the new flags; the ui sets Con(0..3) from them (under
  // UpdatingControls 1) and enables the connection editor when any of the low four bits is set.
  std::optional<std::uint8_t> connection_flags;
  bool stored = false;  // a header buffer was changed
  // Header(11..19) with an acceptable text while idle: the connection editor stores it.
  bool for_connection_editor = false;
};

// The change event of Header(field) with its new text. A text of 7 or more characters, or one
// that is no hex number after "&H0", is ignored silently; so is every text while the
// connection check boxes are being written. Only while idle is anything stored. One-byte
// fields keep the low 8 bits, the two-byte fields 6 and 7 the low 16, stored high byte first
// (file order). Header(9) and Header(10) both store the width; 0, 1 and 4 store nothing.
HeaderFieldEdit EditHeaderField(int field, std::string_view text, int updating_controls, int extra_byte,
                                PrimaryHeaderBuffer& primary, SecondaryHeaderBuffer& secondary);

struct HeaderComboEdit {
  bool set_changes_pending = false;
  bool stored = false;
};

// The change event of HCombo(combo). Stored only while idle and when the whole text is a hex
// number after "&H0": a list entry such as "0A - Cave" is not, so picking from the list stores
// nothing; typing "0A" does. The first two characters of the trimmed text give the byte.
HeaderComboEdit EditHeaderCombo(int combo, std::string_view text, int updating_controls,
                                PrimaryHeaderBuffer& primary);

}  // namespace kartova
