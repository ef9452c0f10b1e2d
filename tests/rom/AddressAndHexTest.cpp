#include <gtest/gtest.h>

#include "rom/Address.h"
#include "rom/HexText.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

TEST(AddressTest, ProperPointersAgreeAndMalformedOnesMaskDifferently) {
  EXPECT_EQ(BankPointerToOffset(0x25, 0x4000), 0x94000);
  EXPECT_EQ(BankPointerToOffset(2, 0x1234), 0x8000 + 0x1234);
  EXPECT_EQ(MapGroupOffset(0x4000), 0x94000);
  EXPECT_EQ(SameBankOffset(0x92384, 0x6ABC), 0x92ABC);
  EXPECT_EQ(MapHeaderOffset(0x40ED, 9, 2), 0x90000 + 0x40ED + 18);
  // Bit 15 survives only in the secondary-header form.
  const std::tuple<int, int, int, std::int64_t, std::int64_t> cases[] = {
      {3, 0x45, 0x10, 0xC510, 0xC510}, {3, 0xC5, 0x10, 0x14510, 0xC510}, {0, 0x85, 0, 0x8500, 0x0500}};
  for (const auto& [bank, hi, lo, secondary, hi_lo] : cases) {
    EXPECT_EQ(SecondaryHeaderOffset(bank, hi, lo), secondary) << hi;
    EXPECT_EQ(BankHiLoToOffset(bank, hi, lo), hi_lo) << hi;
  }
}

TEST(RuntimeErrorTest, TheInnermostContextWinsAndTheGermanMessageStaysAsItIs) {
  RuntimeError error = RuntimeError::Overflow();
  EXPECT_FALSE(error.context());
  try {
    WithErrorContext({ErrorActivity::kOpeningRom, "/roms/outer.gbc", std::nullopt}, [&] {
      WithErrorContext({ErrorActivity::kReadingLocationNames, "/roms/demo.gbc", 0x92384},
                       [] { throw RuntimeError::Overflow(); });
    });
  } catch (const RuntimeError& raised) {
    error = raised;
  }
  ASSERT_TRUE(error.context());
  EXPECT_EQ(error.context()->activity, ErrorActivity::kReadingLocationNames);
  EXPECT_EQ(error.GermanMessage(), "Laufzeitfehler '6': \xC3\x9C" "berlauf");
  EXPECT_EQ(DescribeContextEnglish(*error.context()),
            "while reading the location names from demo.gbc, table at 0x092384");
  EXPECT_EQ(DescribeContextEnglish({ErrorActivity::kReadingHeaders, "rom.gbc", std::nullopt}),
            "while reading the map headers from rom.gbc");
  EXPECT_EQ(DescribeContextEnglish({ErrorActivity::kBuildingMap, "", 0x3FC0123}),
            "while building the map, block data at 0x3FC0123");
}

TEST(HexTextTest, PadsCutsAndParsesLikeTheAmpersandHForm) {
  EXPECT_EQ(Hex2(0) + Hex2(255) + Hex2(5) + Hex2(0x1AB) + Hex2(-1), "00FF05ABFF");
  EXPECT_EQ(Hex4(0xC733), "C733");
  EXPECT_EQ(Hex6(0x94000), "094000");
  const std::pair<const char*, std::int64_t> parsed[] = {
      {"1A", 26},      {"", 0},        {"12G4", 0x12},         {"xyz", 0},        {"ff", 255},
      {"FFFF", -1},    {"8000", -32768}, {"92384", 0x92384}, {"FFFFFFFF", -1}, {"000000001", 1}};
  for (const auto& [text, value] : parsed) EXPECT_EQ(ParseHex(text), value) << text;
  EXPECT_THROW(ParseHex("123456789"), RuntimeError);

  // The field validation: "&H0" + text, or "&H" + text, must be a number.
  EXPECT_TRUE(IsHexNumberAfterZero("") && IsHexNumberAfterZero("1ff"));
  EXPECT_FALSE(IsHexNumberAfterZero("0A - Cave") || IsHexNumberAfterZero("12G"));
  EXPECT_FALSE(IsHexNumber(""));
  EXPECT_TRUE(IsHexNumber("00FF"));
}

TEST(HexTextTest, DecimalParsingAndRuntimeErrors) {
  EXPECT_EQ(ParseDecimal("9060"), 9060);
  EXPECT_EQ(ParseDecimal("abc"), 0);
  EXPECT_EQ(ParseDecimal("-0.5"), -0.5);
  EXPECT_EQ(ParseDecimal(" 12x"), 12);
  EXPECT_EQ(ParseDecimalInt("2.5"), 2);
  EXPECT_EQ(ParseDecimalInt("3.5"), 4);
  EXPECT_THROW(ParseDecimalInt("99999999999"), RuntimeError);

  EXPECT_EQ(RuntimeError::SubscriptOutOfRange().GermanMessage(),
            "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs");
  EXPECT_EQ(RuntimeError::Overflow().GermanMessage(), "Laufzeitfehler '6': Überlauf");
  EXPECT_THROW(CheckedInt32(0x80000000LL), RuntimeError);
  EXPECT_THROW(CheckIndex(21, 21), RuntimeError);
}

}  // namespace
}  // namespace kartova
