#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The event editors without their widgets: which text box shows which bytes of which kind of
// record and how (the field table), how a typed text goes back into the record, and the key
// filter of the boxes.
namespace kartova {

enum class EventFieldFormat {
  kDec,   // one byte in decimal, unpadded (positions)
  kHex,   // one byte as two upper-case hex digits
  kWord,  // two bytes as four hex digits, the first stored byte as the high one
};

struct EventField {
  int text_index = 0;  // Text(1)..Text(27), Text(29)..Text(33)
  int kind = 0;        // EventKind
  int first_byte = 0;  // in the record
  EventFieldFormat format = EventFieldFormat::kHex;
  const char* label = "";  // "X-Position:", ...
};

// Every field, grouped by kind, each kind's fields in their order in the frame from the top.
const std::vector<EventField>& EventFieldTable();
// The fields of one kind in frame order.
std::vector<EventField> EventFieldsOf(int kind);
// The field of a Text index; nullptr for 0, 28 and anything outside 1..33.
const EventField* FindEventField(int text_index);
// The X and Y position fields of a kind (warp 1/2, trigger 10/9, signpost 17/16, people 19/20);
// nullopt for the scripts.
struct PositionFields {
  int x_text = 0;
  int y_text = 0;
};
std::optional<PositionFields> PositionFieldsOf(int kind);
bool IsPositionField(int text_index);

// What the field shows for a record.
std::string EventFieldText(const EventField& field, std::span<const std::uint8_t> record);

// A typed text is taken only when it is shorter than 7 characters and "&H" followed by it is a
// hex number; anything else is ignored (nullopt) and the record keeps its bytes.
// For byte and word fields: the record with the value stored (a byte keeps the low 8 bits; a
// word stores its high byte first). Four hex digits are taken as unsigned, so every word field
// stores exactly the bytes typed (FF01 stores FF 01).
std::optional<std::vector<std::uint8_t>> StoreEventFieldText(const EventField& field, std::string_view text,
                                                           std::span<const std::uint8_t> record);

// The position typed into a kind's X and Y fields, as the decimal numbers they show, low 8 bits,
// people less their offset of 4 (so it may be negative). nullopt when either text is not taken
// (the hex rule above) or holds a hex letter, which a position does not have: the edit is
// ignored.
struct TypedPosition {
  int x = 0;
  int y = 0;
};
std::optional<TypedPosition> ParsePositionTexts(int kind, std::string_view x_text, std::string_view y_text);

// The key filter of the fields: the code of the character that reaches the box, or 0 to drop it.
// Digits, A-F, H, "&" and backspace pass; a-f and h are upper-cased; the shifted digit keys of a
// German keyboard become their digits (" " ! " # $ % to 0-5, ' ( ) * to 7 8 9 :, / to 7, = to 0,
// § to 3); everything else is dropped.
int FilterEventFieldKey(int code);

}  // namespace kartova
