#include "events/EventFields.h"

#include <cstddef>

#include "events/MapEventSet.h"
#include "rom/HexText.h"
#include "rom/RuntimeError.h"

namespace kartova {

namespace {

using F = EventFieldFormat;

// Grouped by kind, each kind in the order its frame shows the boxes from the top.
const std::vector<EventField> kTable = {
    {1, kEventWarp, 1, F::kDec, "X-Position:"},
    {2, kEventWarp, 0, F::kDec, "Y-Position:"},
    {3, kEventWarp, 2, F::kHex, "Ziel-Warp:"},
    {4, kEventWarp, 3, F::kHex, "Map-Bank:"},
    {5, kEventWarp, 4, F::kHex, "Map-Nummer:"},

    {10, kEventTrigger, 2, F::kDec, "X-Position:"},
    {9, kEventTrigger, 1, F::kDec, "Y-Position:"},
    {8, kEventTrigger, 0, F::kHex, "Status:"},
    {7, kEventTrigger, 3, F::kHex, "Res-1:"},
    {6, kEventTrigger, 4, F::kWord, "Script-Pointer:"},
    {11, kEventTrigger, 6, F::kHex, "Res-2:"},
    {12, kEventTrigger, 7, F::kHex, "Res-3:"},

    {17, kEventSign, 1, F::kDec, "X-Position:"},
    {16, kEventSign, 0, F::kDec, "Y-Position:"},
    {15, kEventSign, 2, F::kHex, "Typ:"},
    {14, kEventSign, 3, F::kWord, "Script-Pointer:"},

    // People positions show the stored bytes, which lie 4 tiles on from the map tile.
    {19, kEventPeople, 2, F::kDec, "X-Position:"},
    {20, kEventPeople, 1, F::kDec, "Y-Position:"},
    {21, kEventPeople, 0, F::kHex, "Bild:"},
    {22, kEventPeople, 3, F::kHex, "Blickrichtung:"},
    {23, kEventPeople, 4, F::kHex, "Bewegung:"},
    {18, kEventPeople, 5, F::kHex, "Zeitabhängig:"},
    {13, kEventPeople, 6, F::kHex, "Zeitraum:"},
    {24, kEventPeople, 7, F::kHex, "Funktion:"},
    {25, kEventPeople, 8, F::kHex, "Sichtweite:"},
    {26, kEventPeople, 9, F::kWord, "Script-Pointer:"},
    {27, kEventPeople, 11, F::kWord, "Sichtbar falls:"},

    {29, kEventEnter, 0, F::kWord, "Script-Pointer:"},
    {30, kEventEnter, 2, F::kHex, "Res-1:"},
    {31, kEventEnter, 3, F::kHex, "Res-2:"},

    {32, kEventTime, 0, F::kHex, "Bedingung:"},
    {33, kEventTime, 1, F::kWord, "Script-Pointer:"},
};

std::size_t FieldWidth(const EventField& field) { return field.format == F::kWord ? 2 : 1; }

void CheckFieldFits(const EventField& field, std::size_t record_size) {
  if (static_cast<std::size_t>(field.first_byte) + FieldWidth(field) > record_size)
    throw RuntimeError::SubscriptOutOfRange();
}

// The editor's gate for every box: longer texts and texts that "&H" does not turn into a
// number are left alone.
bool TextTaken(std::string_view text) { return text.size() < 7 && IsHexNumber(text); }

bool AllDecimalDigits(std::string_view text) {
  for (char c : text)
    if (c < '0' || c > '9') return false;
  return true;
}

// At most six digits have passed the gate, so the value fits an int.
int DecimalValue(std::string_view text) {
  int value = 0;
  for (char c : text) value = value * 10 + (c - '0');
  return value;
}

}  // namespace

const std::vector<EventField>& EventFieldTable() { return kTable; }

std::vector<EventField> EventFieldsOf(int kind) {
  std::vector<EventField> fields;
  for (const EventField& field : kTable)
    if (field.kind == kind) fields.push_back(field);
  return fields;
}

const EventField* FindEventField(int text_index) {
  for (const EventField& field : kTable)
    if (field.text_index == text_index) return &field;
  return nullptr;
}

std::optional<PositionFields> PositionFieldsOf(int kind) {
  switch (kind) {
    case kEventWarp:
      return PositionFields{1, 2};
    case kEventTrigger:
      return PositionFields{10, 9};
    case kEventSign:
      return PositionFields{17, 16};
    case kEventPeople:
      return PositionFields{19, 20};
    default:
      return std::nullopt;
  }
}

bool IsPositionField(int text_index) {
  const EventField* field = FindEventField(text_index);
  return field != nullptr && field->format == F::kDec;
}

std::string EventFieldText(const EventField& field, std::span<const std::uint8_t> record) {
  CheckFieldFits(field, record.size());
  const auto first = static_cast<std::size_t>(field.first_byte);
  switch (field.format) {
    case F::kDec:
      return Dec(record[first]);
    case F::kHex:
      return Hex2(record[first]);
    case F::kWord:
      return Hex2(record[first]) + Hex2(record[first + 1]);
  }
  return {};
}

std::optional<std::vector<std::uint8_t>> StoreEventFieldText(const EventField& field, std::string_view text,
                                                           std::span<const std::uint8_t> record) {
  CheckFieldFits(field, record.size());
  if (!TextTaken(text)) return std::nullopt;
  std::vector<std::uint8_t> stored(record.begin(), record.end());
  const auto first = static_cast<std::size_t>(field.first_byte);
  if (field.format == F::kDec) {
    if (!AllDecimalDigits(text)) return std::nullopt;
    stored[first] = static_cast<std::uint8_t>(DecimalValue(text) & 0xFF);
    return stored;
  }
  const auto value = static_cast<std::uint32_t>(ParseHex(text));
  if (field.format == F::kHex) {
    stored[first] = static_cast<std::uint8_t>(value & 0xFF);
  } else {
    stored[first] = static_cast<std::uint8_t>((value >> 8) & 0xFF);
    stored[first + 1] = static_cast<std::uint8_t>(value & 0xFF);
  }
  return stored;
}

std::optional<TypedPosition> ParsePositionTexts(int kind, std::string_view x_text, std::string_view y_text) {
  if (!TextTaken(x_text) || !TextTaken(y_text)) return std::nullopt;
  if (!AllDecimalDigits(x_text) || !AllDecimalDigits(y_text)) return std::nullopt;
  TypedPosition position{DecimalValue(x_text) & 0xFF, DecimalValue(y_text) & 0xFF};
  if (kind == kEventPeople) {
    position.x -= 4;
    position.y -= 4;
  }
  return position;
}

int FilterEventFieldKey(int code) {
  if (code == 8 || (code >= 48 && code <= 57) || (code >= 65 && code <= 70) || code == 72 ||
      code == 38)
    return code;
  if (code >= 97 && code <= 102) return code - 32;
  if (code == 104) return 72;
  // The shifted digit row of a German keyboard: the box takes the digit under the finger.
  if (code >= 32 && code <= 37) return code + 16;
  if (code >= 39 && code <= 42) return code + 16;
  if (code == 47) return 55;
  if (code == 61) return 48;
  if (code == 167) return 51;
  return 0;
}

}  // namespace kartova
