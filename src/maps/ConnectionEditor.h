#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "maps/LinkData.h"

// The rules behind the "Anbindungen" frame: where a direction's connection record sits in the
// secondary header, how the record shows in the boxes Header(11)-Header(19) and how a typed value
// goes back into it, the option buttons ConSel(0)-ConSel(3), and the arithmetic of the three
// position buttons. Pure functions on the 60-byte secondary header; the ui owns the widgets.
namespace kartova {

// Directions are numbered 0 north, 1 south, 2 west, 3 east, as the Con and ConSel arrays are.
// The secondary header is the 60-byte buffer read at the map's secondary-header offset: 12 bytes
// of fixed fields, then four 12-byte connection slots.
using SecondaryHeaderBytes = std::array<std::uint8_t, 60>;
using ConnectionRecord = std::array<std::uint8_t, 12>;
// Texts of Header(11) .. Header(19), in box order.
using ConnectionBoxTexts = std::array<std::string, 9>;
using DirectionFlags = std::array<bool, 4>;

// Flag bit of a direction in secondary byte 11: north 0x08, south 0x04, west 0x02, east 0x01.
std::uint8_t ConnectionFlagBit(int direction);

// Slot of a present direction's record: the number of set directions before it in the order
// north, south, west, east.
int ConnectionSlot(std::uint8_t flags, int direction);
// The slot the editor uses for direction `index`: the number of *enabled* ConSel buttons among
// 0 .. index - 1. An index of -1 (nothing selected) gives slot 0.
int ConnectionSlotOfSelector(const DirectionFlags& enabled, int index);

// Copies of slot 0..3 (bytes 12 + 12 * slot); any other slot is a subscript error.
ConnectionRecord ReadConnectionSlot(const SecondaryHeaderBytes& secondary, int slot);
void WriteConnectionSlot(SecondaryHeaderBytes& secondary, int slot, const ConnectionRecord& record);

// The text of one box (11..19) for a record: two or four upper-case hex digits, multi-byte
// fields in file byte order. Header(16) shows byte 8, Header(17) byte 9.
std::string ConnectionBoxText(const ConnectionRecord& record, int box);
ConnectionBoxTexts ConnectionBoxTextsOf(const ConnectionRecord& record);

// Stores a value read from box `box` (11..19) into the record. Byte 8 is never written: both
// Header(16) and Header(17) write byte 9. Returns false (and changes nothing) for other boxes.
bool StoreConnectionBox(ConnectionRecord& record, int box, std::int32_t value);

// The caption of the strip-length label: "ST-Breite:" for north and south, "ST-Höhe:" for west
// and east, "ST-Größe:" for anything else (the editor disabled or nothing selected).
std::string ConnectionLengthCaption(int index);

// Secondary byte 11 from the check boxes Con(0)..Con(3), and back (bits above 3 are ignored).
std::uint8_t ConnectionFlagsFromChecks(const DirectionFlags& checked);
DirectionFlags ChecksFromConnectionFlags(std::int32_t flags);

// What ShowConnection puts into the frame for direction `index`.
struct ConnectionView {
  int slot = 0;
  ConnectionBoxTexts texts;
  std::string length_caption;
};
ConnectionView ShowConnectionData(const SecondaryHeaderBytes& secondary,
                                  const DirectionFlags& enabled, int index);

// The option buttons ConSel(0)-ConSel(3): enabled state and value. They form one option group,
// so at most one value is set through SelectConnection.
struct ConnectionSelectors {
  DirectionFlags enabled{};
  DirectionFlags value{};
};

// Index of the first button whose value is set, in order 0..3, or -1.
int SelectedConnection(const ConnectionSelectors& selectors);
// Sets the value of button `index` and clears the others, as clicking it would.
void SelectConnection(ConnectionSelectors& selectors, int index);
// Keeps a valid selection: a selected enabled button stays; otherwise the first enabled button
// in the order 3, 2, 1, 0 is selected. Returns the index it selected (the ui shows that
// direction), or -1 when the selection was left alone.
int EnsureConnectionSelected(ConnectionSelectors& selectors);
// Disabling the editor clears every value, then keeps a valid selection as above; returns what
// EnsureConnectionSelected returned.
int ClearConnectionSelection(ConnectionSelectors& selectors);

// Stores the value typed into connection box `box` into the slot of the selected direction.
// `value` is the box text read as hex; the text checks of the Header change handler come first.
void StoreConnectionEdit(SecondaryHeaderBytes& secondary, const ConnectionSelectors& selectors,
                         int box, std::int32_t value);

// Command2 and the window of Command3: where working-copy address v lies in a map of this size.
LinkPosition WorkingCopyPosition(std::int64_t v, int width, int height);
// Command4: where block-data address v lies in a map whose blocks start at `pointer`. A map with
// no blocks (width or height 0) has no cell to point at; its origin (0, 0) is returned.
LinkPosition BlockDataPosition(std::int64_t v, std::int64_t pointer, int width, int height);

// The neighbour Command3/Command4 switch to: indices for the bank and map selectors.
struct NeighbourTarget {
  int bank_index = 0;
  int map_index = 0;
  bool operator==(const NeighbourTarget&) const = default;
};
// bank = Header(11) and map = Header(19) read as hex; map_counts has one entry per map bank.
// A bank outside 1..26 is a subscript error; a map number below 1 or above the bank's map count
// gives no target (the button does nothing).
std::optional<NeighbourTarget> NeighbourTargetOf(std::int32_t bank, std::int32_t map,
                                                 std::span<const int> map_counts);

}  // namespace kartova
