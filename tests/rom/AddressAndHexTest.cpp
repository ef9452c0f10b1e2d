#include <gtest/gtest.h>

#include "rom/Address.h"
#include "rom/HexText.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

TEST(AddressTest, ProperPointersAgreeAcrossForms) {
  EXPECT_EQ(BankPointerToOffset(0x25, 0x4000), 0x94000);
  EXPECT_EQ(MapGroupOffset(0x4000), 0x94000);
  EXPECT_EQ(SameBankOffset(0x92384, 0x6ABC), 0x92ABC);
  EXPECT_EQ(BankHiLoToOffset(3, 0x45, 0x10), 0xC510);
  EXPECT_EQ(SecondaryHeaderOffset(3, 0x45, 0x10), 0xC510);
  EXPECT_EQ(MapHeaderOffset(0x40ED, 9, 2), 0x90000 + 0x40ED + 18);
}

TEST(AddressTest, MalformedPointersMaskDifferently) {
  // Bit 15 survives only in the secondary-header form.
  EXPECT_EQ(SecondaryHeaderOffset(3, 0xC5, 0x10), 0x14510);
  EXPECT_EQ(BankHiLoToOffset(3, 0xC5, 0x10), 0xC510);
  EXPECT_EQ(SecondaryHeaderOffset(0, 0x85, 0), 0x8500);
  EXPECT_EQ(BankHiLoToOffset(0, 0x85, 0), 0x0500);
  EXPECT_EQ(BankPointerToOffset(2, 0x1234), 0x8000 + 0x1234);
}

TEST(HexTextTest, PadsAndCutsToTheLastDigits) {
  EXPECT_EQ(Hex2(0), "00");
  EXPECT_EQ(Hex2(255), "FF");
  EXPECT_EQ(Hex2(5), "05");
  EXPECT_EQ(Hex2(0x1AB), "AB");
  EXPECT_EQ(Hex4(0xC733), "C733");
  EXPECT_EQ(Hex6(0x94000), "094000");
  EXPECT_EQ(Hex2(-1), "FF");
}

TEST(HexTextTest, ParsesLikeTheAmpersandHForm) {
  EXPECT_EQ(ParseHex("1A"), 26);
  EXPECT_EQ(ParseHex(""), 0);
  EXPECT_EQ(ParseHex("12G4"), 0x12);
  EXPECT_EQ(ParseHex("xyz"), 0);
  EXPECT_EQ(ParseHex("ff"), 255);
  EXPECT_EQ(ParseHex("FFFF"), -1);
  EXPECT_EQ(ParseHex("8000"), -32768);
  EXPECT_EQ(ParseHex("92384"), 0x92384);
  EXPECT_EQ(ParseHex("FFFFFFFF"), -1);
  EXPECT_EQ(ParseHex("000000001"), 1);
  EXPECT_THROW(ParseHex("123456789"), RuntimeError);
}

TEST(HexTextTest, NumberTestsMatchTheFieldValidation) {
  EXPECT_TRUE(IsHexNumberAfterZero(""));
  EXPECT_TRUE(IsHexNumberAfterZero("1ff"));
  EXPECT_FALSE(IsHexNumberAfterZero("0A - Cave"));
  EXPECT_FALSE(IsHexNumberAfterZero("12G"));
  EXPECT_FALSE(IsHexNumber(""));
  EXPECT_TRUE(IsHexNumber("00FF"));
}

TEST(HexTextTest, DecimalParsing) {
  EXPECT_EQ(ParseDecimal("9060"), 9060);
  EXPECT_EQ(ParseDecimal("abc"), 0);
  EXPECT_EQ(ParseDecimal("-0.5"), -0.5);
  EXPECT_EQ(ParseDecimal(" 12x"), 12);
  EXPECT_EQ(ParseDecimalInt("2.5"), 2);
  EXPECT_EQ(ParseDecimalInt("3.5"), 4);
  EXPECT_THROW(ParseDecimalInt("99999999999"), RuntimeError);
}

TEST(RuntimeErrorTest, GermanMessages) {
  EXPECT_EQ(RuntimeError::SubscriptOutOfRange().GermanMessage(),
            "Laufzeitfehler '9': Index außerhalb des gültigen Bereichs");
  EXPECT_EQ(RuntimeError::Overflow().GermanMessage(), "Laufzeitfehler '6': Überlauf");
  EXPECT_THROW(CheckedInt32(0x80000000LL), RuntimeError);
  EXPECT_THROW(CheckIndex(21, 21), RuntimeError);
}

}  // namespace
}  // namespace kartova
