#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "events/EventFields.h"
#include "events/MapEventSet.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

using Bytes = std::vector<std::uint8_t>;

// One record of each kind whose bytes all differ, so a field reading the wrong byte shows it.
const Bytes kRecords[kEventKindCount] = {
    {0x10, 0x21, 0x03, 0x04, 0x05},
    {0xA1, 0x07, 0x08, 0xB2, 0x34, 0x52, 0xC3, 0xD4},
    {0x0C, 0x0D, 0x02, 0x12, 0x4F},
    {0x1A, 0x0A, 0x0B, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x34, 0x52, 0x78, 0x56},
    {0x41, 0x23, 0x01, 0x02},
    {0x07, 0x45, 0x67}};
const Bytes& kWarp = kRecords[kEventWarp];
const Bytes& kPeople = kRecords[kEventPeople];

// `stored` is what `typed` puts at first_byte.
struct FieldCase {
  int text_index, kind;
  std::string label;
  int first_byte;
  std::string shown, typed;
  Bytes stored;
};

const std::vector<FieldCase> kCases = {
    {1, 0, "X-Position:", 1, "33", "200", {200}},       {2, 0, "Y-Position:", 0, "16", "7", {7}},
    {3, 0, "Ziel-Warp:", 2, "03", "A", {0x0A}},         {4, 0, "Map-Bank:", 3, "04", "1B", {0x1B}},
    {5, 0, "Map-Nummer:", 4, "05", "ff", {0xFF}},       {6, 1, "Script-Pointer:", 4, "3452", "5C01", {0x5C, 0x01}},
    {7, 1, "Res-1:", 3, "B2", "9", {0x09}},             {8, 1, "Status:", 0, "A1", "0", {0x00}},
    {9, 1, "Y-Position:", 1, "7", "255", {255}},        {10, 1, "X-Position:", 2, "8", "012", {12}},
    {11, 1, "Res-2:", 6, "C3", "E", {0x0E}},            {12, 1, "Res-3:", 7, "D4", "E0", {0xE0}},
    {13, 3, "Zeitraum:", 6, "04", "44", {0x44}},        {14, 2, "Script-Pointer:", 3, "124F", "4", {0x00, 0x04}},
    {15, 2, "Typ:", 2, "02", "3", {0x03}},              {16, 2, "Y-Position:", 0, "12", "40", {40}},
    {17, 2, "X-Position:", 1, "13", "41", {41}},        {18, 3, "Zeitabhängig:", 5, "03", "1", {0x01}},
    {19, 3, "X-Position:", 2, "11", "4", {4}},          {20, 3, "Y-Position:", 1, "10", "19", {19}},
    {21, 3, "Bild:", 0, "1A", "2F", {0x2F}},            {22, 3, "Blickrichtung:", 3, "01", "D", {0x0D}},
    {23, 3, "Bewegung:", 4, "02", "12", {0x12}},        {24, 3, "Funktion:", 7, "05", "C", {0x0C}},
    {25, 3, "Sichtweite:", 8, "06", "7", {0x07}},       {26, 3, "Script-Pointer:", 9, "3452", "ABCD", {0xAB, 0xCD}},
    {27, 3, "Sichtbar falls:", 11, "7856", "0", {0x00, 0x00}},
    {29, 4, "Script-Pointer:", 0, "4123", "6000", {0x60, 0x00}},
    {30, 4, "Res-1:", 2, "01", "80", {0x80}},           {31, 4, "Res-2:", 3, "02", "81", {0x81}},
    {32, 5, "Bedingung:", 0, "07", "9", {0x09}},        {33, 5, "Script-Pointer:", 1, "4567", "0001", {0x00, 0x01}},
};

TEST(EventFieldsTest, EveryFieldShowsAndStoresItsBytes) {
  ASSERT_EQ(EventFieldTable().size(), kCases.size());
  for (const FieldCase& c : kCases) {
    SCOPED_TRACE("Text(" + std::to_string(c.text_index) + ")");
    const EventField* field = FindEventField(c.text_index);
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->kind, c.kind);
    EXPECT_EQ(field->first_byte, c.first_byte);
    EXPECT_EQ(std::string(field->label), c.label);
    const Bytes& record = kRecords[c.kind];
    EXPECT_EQ(EventFieldText(*field, record), c.shown);
    Bytes expected = record;
    for (std::size_t i = 0; i < c.stored.size(); ++i) expected[static_cast<std::size_t>(c.first_byte) + i] = c.stored[i];
    EXPECT_EQ(StoreEventFieldText(*field, c.typed, record), expected);
  }
  for (int missing : {0, 28, 34, -1}) EXPECT_EQ(FindEventField(missing), nullptr);
  // Each field is in the frame of its kind, once.
  std::set<int> in_frames;
  for (int kind = 0; kind < kEventKindCount; ++kind)
    for (const EventField& field : EventFieldsOf(kind)) EXPECT_TRUE(field.kind == kind && in_frames.insert(field.text_index).second);
  EXPECT_EQ(in_frames.size(), kCases.size());
}

TEST(EventFieldsTest, TheFourPlacedKindsHavePositionFields) {
  for (int kind = 0; kind < 4; ++kind) {
    const auto position = PositionFieldsOf(kind);
    ASSERT_TRUE(position.has_value());
    EXPECT_TRUE(IsPositionField(position->x_text) && IsPositionField(position->y_text));
    EXPECT_EQ(FindEventField(position->x_text)->label, std::string("X-Position:"));
  }
  EXPECT_FALSE(PositionFieldsOf(kEventEnter).has_value());
  EXPECT_FALSE(IsPositionField(3) || IsPositionField(28));
}

TEST(EventFieldsTest, TextsOutsideTheRulesOrRecordsTooShortAreRefused) {
  const EventField& bank = *FindEventField(4);
  const EventField& script = *FindEventField(26);
  for (const char* text : {"", "G", "1 2", "-1", "&H10", "0000001", "1234567"})
    EXPECT_FALSE(StoreEventFieldText(bank, text, kWarp).has_value()) << '"' << text << '"';
  EXPECT_TRUE(StoreEventFieldText(bank, "000001", kWarp).has_value());  // six characters
  EXPECT_EQ(StoreEventFieldText(bank, "1FF", kWarp)->at(3), 0xFF);      // the low byte only
  const Bytes five_digits = *StoreEventFieldText(script, "12345", kPeople);
  EXPECT_EQ(Bytes(five_digits.begin() + 9, five_digits.begin() + 11), (Bytes{0x23, 0x45}));
  // A decimal box with a hex letter in it is no position.
  EXPECT_FALSE(StoreEventFieldText(*FindEventField(1), "1A", kWarp).has_value());
  EXPECT_EQ(StoreEventFieldText(*FindEventField(1), "300", kWarp)->at(1), 300 & 0xFF);
  EXPECT_THROW(EventFieldText(*FindEventField(27), Bytes{1, 2, 3}), RuntimeError);
  EXPECT_THROW(StoreEventFieldText(*FindEventField(27), "1", Bytes{1, 2, 3}), RuntimeError);

  // Positions typed into a frame: map tiles, people without their offset of 4.
  const auto xy = [](int kind, const char* x, const char* y) {
    const auto typed = ParsePositionTexts(kind, x, y);
    return typed ? std::pair{typed->x, typed->y} : std::pair{999, 999};
  };
  EXPECT_EQ(xy(kEventWarp, "12", "7"), std::pair(12, 7));
  EXPECT_EQ(xy(kEventTrigger, "257", "0"), std::pair(1, 0));  // low 8 bits
  EXPECT_EQ(xy(kEventPeople, "2", "10"), std::pair(-2, 6));
  EXPECT_FALSE(ParsePositionTexts(kEventWarp, "1B", "7").has_value());
  EXPECT_FALSE(ParsePositionTexts(kEventWarp, "12", "").has_value());
  EXPECT_FALSE(ParsePositionTexts(kEventSign, "1234567", "1").has_value());
}

TEST(EventFieldsTest, KeyFilterPassesDigitsHexAndShiftedDigits) {
  struct Range { int lo, hi, delta; bool kept; };
  const std::vector<Range> ranges = {
      {-5, 7, 0, false},    {8, 8, 0, true},       {9, 31, 0, false},    {32, 37, 16, true},
      {38, 38, 0, true},    {39, 42, 16, true},    {43, 46, 0, false},   {47, 47, 8, true},
      {48, 57, 0, true},    {58, 60, 0, false},    {61, 61, -13, true},  {62, 64, 0, false},
      {65, 70, 0, true},    {71, 71, 0, false},    {72, 72, 0, true},    {73, 96, 0, false},
      {97, 102, -32, true}, {103, 103, 0, false},  {104, 104, -32, true}, {105, 166, 0, false},
      {167, 167, -116, true}, {168, 400, 0, false},
  };
  for (const Range& r : ranges)
    for (int code = r.lo; code <= r.hi; ++code)
      EXPECT_EQ(FilterEventFieldKey(code), r.kept ? code + r.delta : 0) << "code " << code;
}

}  // namespace
}  // namespace kartova
