#include <gtest/gtest.h>

#include "maps/HeaderFields.h"
#include "rom/RuntimeError.h"

namespace kartova {
namespace {

class HeaderFieldsTest : public ::testing::Test {
 protected:
  HeaderFieldsTest() {
    for (int i = 0; i < PrimaryHeaderBuffer::kSize; ++i) p.bytes[i] = static_cast<std::uint8_t>(0x10 + i);
    for (int i = 0; i < SecondaryHeaderBuffer::kSize; ++i) s.bytes[i] = static_cast<std::uint8_t>(0xA0 + i);
  }
  HeaderFieldEdit Edit(int field, std::string_view text, int updating = kUpdatingIdle, int extra = 0) {
    return EditHeaderField(field, text, updating, extra, p, s);
  }
  PrimaryHeaderBuffer p;
  SecondaryHeaderBuffer s;
};

TEST_F(HeaderFieldsTest, BoxesShowTheirBytesInFileOrder) {
  const char* expected[] = {"10", "1314", "18", "A0", "A3A4A5", "A6", "A7A8", "A9AA", "AB", "A2", "A1"};
  for (int i = 0; i < kHeaderFieldCount; ++i) EXPECT_EQ(HeaderFieldText(i, p, s, 0), expected[i]) << i;
  std::array<std::string, kExtraByteNameCount> names;
  names[0] = "Flags:";
  EXPECT_EQ(ExtraByteCaption(0, names), "Angel:");
  EXPECT_EQ(ExtraByteCaption(1, names), "Flags:");
  EXPECT_EQ(HeaderFieldText(2, p, s, 21), "2D");  // byte 29, the last one
  EXPECT_THROW(ExtraByteCaption(22, names), RuntimeError);
  EXPECT_THROW(HeaderFieldText(2, p, s, 22), RuntimeError);
}

TEST_F(HeaderFieldsTest, TypedTextsStoreTheirLowBitsOrAreIgnoredSilently) {
  EXPECT_TRUE(Edit(3, "1FF").stored);
  EXPECT_EQ(s.bytes[0], 0xFF);
  for (const char* ignored : {"1234567", "12G", "-1", " 12"}) {
    HeaderFieldEdit e = Edit(3, ignored);
    EXPECT_FALSE(e.stored) << ignored;
    EXPECT_TRUE(e.set_changes_pending) << ignored;
  }
  EXPECT_EQ(s.bytes[0], 0xFF);
  EXPECT_TRUE(Edit(2, "7", kUpdatingIdle, 3).stored);  // the selector picks byte 8 + 3
  EXPECT_EQ(p.bytes[11], 7);
  EXPECT_TRUE(Edit(6, "5B4A").stored);  // file order: high byte first
  EXPECT_EQ(s.bytes[7], 0x5B);
  EXPECT_EQ(s.bytes[8], 0x4A);
  EXPECT_TRUE(Edit(7, "12FFFF").stored);
  EXPECT_EQ(s.bytes[9], 0xFF);
  EXPECT_EQ(s.bytes[10], 0xFF);
  EXPECT_TRUE(Edit(10, "33").stored);  // the height box writes the width
  EXPECT_EQ(s.bytes[2], 0x33);
  EXPECT_EQ(s.bytes[1], 0xA1);
  const auto before = s.bytes;
  for (int field : {0, 1, 4}) EXPECT_FALSE(Edit(field, "77").stored);
  EXPECT_EQ(s.bytes, before);
  EXPECT_FALSE(Edit(3, "77", kUpdatingShowingHeaders).stored);
  EXPECT_EQ(s.bytes[0], 0xFF);
}

TEST_F(HeaderFieldsTest, ConnectionFlagsReachTheCheckBoxesUnlessTheyAreBeingWritten) {
  HeaderFieldEdit e = Edit(8, "0");
  EXPECT_EQ(e.connection_flags, 0);
  EXPECT_EQ(ConnectionChecks(0), (std::array<bool, 4>{false, false, false, false}));
  EXPECT_EQ(Edit(8, "105").connection_flags, 0x05);
  EXPECT_EQ(s.bytes[11], 0x05);
  EXPECT_EQ(ConnectionChecks(0x05), (std::array<bool, 4>{false, true, false, true}));
  e = Edit(8, "0F", kUpdatingShowingHeaders);
  EXPECT_EQ(e.connection_flags, 0x0F);
  EXPECT_FALSE(e.stored);
  EXPECT_FALSE(Edit(8, "0F", kUpdatingConnectionChecks).connection_flags);
  EXPECT_FALSE(Edit(8, "0F", kUpdatingConnectionFields).set_changes_pending);
  EXPECT_TRUE(Edit(12, "2AC7").for_connection_editor);
  EXPECT_FALSE(Edit(12, "2AC7", kUpdatingConnectionFields).for_connection_editor);
}

TEST_F(HeaderFieldsTest, CombosShowEntriesOrBareHexAndStoreOnlyTypedCodes) {
  EXPECT_EQ(HeaderComboCode(2, p), 0x15);
  EXPECT_EQ(ShowHeaderCombo(0x0A, 11).list_index, 10);
  EXPECT_EQ(ShowHeaderCombo(0x2A, 0x2A).list_index, -1);
  EXPECT_EQ(ShowHeaderCombo(0x2A, 0x2A).text, "2A");
  HeaderComboEdit e = EditHeaderCombo(0, "0A - Cave", kUpdatingIdle, p);
  EXPECT_TRUE(e.set_changes_pending);
  EXPECT_FALSE(e.stored);
  EXPECT_EQ(p.bytes[1], 0x11);
  EXPECT_TRUE(EditHeaderCombo(0, "0A", kUpdatingIdle, p).stored);
  EXPECT_EQ(p.bytes[1], 0x0A);
  EXPECT_TRUE(EditHeaderCombo(4, "5E3", kUpdatingIdle, p).stored);  // the first two digits
  EXPECT_EQ(p.bytes[7], 0x5E);
  EXPECT_FALSE(EditHeaderCombo(3, "03", kUpdatingShowingHeaders, p).stored);
}

}  // namespace
}  // namespace kartova
