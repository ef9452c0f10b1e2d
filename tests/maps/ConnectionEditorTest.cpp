#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "maps/ConnectionEditor.h"
#include "rom/HexText.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

TEST(ConnectionSlotTest, RecordsArePackedInDirectionOrderOfTheFlags) {
  // Slots of north, south, west, east; flags 0x05 puts south in slot 0 and east in slot 1.
  const std::pair<std::uint8_t, std::array<int, 4>> cases[] = {
      {0x0F, {0, 1, 2, 3}}, {0x05, {0, 0, 1, 1}}, {0x0A, {0, 1, 1, 2}}, {0xF0, {0, 0, 0, 0}}};
  for (const auto& [flags, slots] : cases)
    for (int d = 0; d < 4; ++d) EXPECT_EQ(ConnectionSlot(flags, d), slots[d]) << int(flags) << d;
  // The editor counts enabled selector buttons instead; nothing selected (-1) is slot 0.
  const DirectionFlags south_east{false, true, false, true};
  EXPECT_EQ(ConnectionSlotOfSelector(south_east, 3), 1);
  EXPECT_EQ(ConnectionSlotOfSelector(south_east, -1), 0);
  SecondaryHeaderBytes secondary{};
  EXPECT_THROW(ReadConnectionSlot(secondary, 4), RuntimeError);
  // The check boxes and the flag byte: the high nibble is no direction.
  EXPECT_EQ(ConnectionFlagsFromChecks({false, true, false, true}), 0x05);
  EXPECT_EQ(ChecksFromConnectionFlags(0x1A), (DirectionFlags{true, false, true, false}));
}

TEST(ConnectionBoxTest, TextsShowFieldsInFileOrderAndEachBoxStoresItsBytes) {
  const ConnectionRecord shown{0x03, 0x0B, 0x2A, 0xC7, 0x35, 0xC7,
                               0x0A, 0x14, 0xF0, 0x1E, 0x05, 0xC8};
  EXPECT_EQ(ConnectionBoxTextsOf(shown),
            (ConnectionBoxTexts{"03", "2AC7", "35C7", "0A", "14", "F0", "1E", "05C8", "0B"}));

  const std::tuple<int, const char*, std::vector<std::pair<int, int>>> cases[] = {
      {11, "1A", {{0, 0x1A}}},
      {19, "1FF", {{1, 0xFF}}},  // one-byte fields keep the low 8 bits
      {12, "C72A", {{2, 0xC7}, {3, 0x2A}}},
      {13, "12345", {{4, 0x23}, {5, 0x45}}},
      {14, "7", {{6, 0x07}}},
      {15, "20", {{7, 0x20}}},
      {16, "AB", {{9, 0xAB}}},  // shows byte 8, writes byte 9
      {17, "CD", {{9, 0xCD}}},
      {18, "FFFF", {{10, 0xFF}, {11, 0xFF}}},
      {8, "12", {}},
  };
  for (const auto& [box, text, changed] : cases) {
    ConnectionRecord record, expected;
    record.fill(0x55);
    expected.fill(0x55);
    for (auto [byte, value] : changed) expected[byte] = static_cast<std::uint8_t>(value);
    EXPECT_EQ(StoreConnectionBox(record, box, ParseHex(text)), !changed.empty());
    EXPECT_EQ(record, expected) << "Header(" << box << ")";
  }
}

TEST(ConnectionSelectorsTest, EnsureKeepsAnEnabledChoiceElsePicksEastFirst) {
  ConnectionSelectors s;
  s.enabled = {true, true, false, false};
  EXPECT_EQ(EnsureConnectionSelected(s), 1);
  SelectConnection(s, 0);
  EXPECT_EQ(EnsureConnectionSelected(s), -1);  // a valid choice stays
  EXPECT_EQ(SelectedConnection(s), 0);
  s.enabled = {false, false, true, false};
  EXPECT_EQ(EnsureConnectionSelected(s), 2);  // a disabled choice is replaced
  EXPECT_EQ(s.value, (DirectionFlags{false, false, true, false}));

  // Disabling the editor clears the choice; with no enabled button it stays cleared.
  s.enabled = {};
  EXPECT_EQ(ClearConnectionSelection(s), -1);
  EXPECT_EQ(SelectedConnection(s), -1);
  s.enabled = {true, false, false, true};
  EXPECT_EQ(ClearConnectionSelection(s), 3);
}

TEST(PositionButtonsTest, PositionsAreClampedIntoTheMap) {
  // 10 x 9 map: working-copy rows of 16, 240 cells from 0xC700.
  EXPECT_EQ(WorkingCopyPosition(0xC733, 10, 9), (LinkPosition{0, 0}));
  EXPECT_EQ(WorkingCopyPosition(0xC700 + 240, 10, 9), (LinkPosition{12, 11}));
  // A four-digit box read as hex is signed: C72A is negative and clamps to the first cell.
  EXPECT_EQ(WorkingCopyPosition(ParseHex("C72A"), 10, 9), (LinkPosition{-3, -3}));

  EXPECT_EQ(BlockDataPosition(0x4000 + 23, 0x4000, 10, 9), (LinkPosition{3, 2}));
  EXPECT_EQ(BlockDataPosition(0x3FFF, 0x4000, 10, 9), (LinkPosition{0, 0}));
  EXPECT_EQ(BlockDataPosition(0x4000 + 90, 0x4000, 10, 9), (LinkPosition{9, 8}));
  EXPECT_EQ(BlockDataPosition(0x4005, 0x4000, 0, 9), (LinkPosition{0, 0}));  // no blocks
}

TEST(PositionButtonsTest, NeighbourNeedsAValidBankAndMap) {
  std::array<int, 26> counts{};
  counts.fill(5);
  counts[2] = 12;
  EXPECT_EQ(NeighbourTargetOf(3, 12, counts), (NeighbourTarget{2, 11}));
  EXPECT_EQ(NeighbourTargetOf(3, 13, counts), std::nullopt);
  EXPECT_EQ(NeighbourTargetOf(3, 0, counts), std::nullopt);
  for (int bank : {0, 27}) {
    try {
      NeighbourTargetOf(bank, 0, counts);
      ADD_FAILURE() << "bank " << bank;
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), RuntimeError::kSubscriptOutOfRange);
    }
  }
}

}  // namespace
}  // namespace kartova
