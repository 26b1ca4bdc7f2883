#include <gtest/gtest.h>

#include <climits>

#include "foundation/ByteStringIterator.h"
#include "tests/TestSupport.h"

namespace {

TEST(ByteStringTest, EditsCutTheirRangesAndTakeTheByteStringItselfAsACopy)
{
  const ByteString ab = Bytes("0a 0b 0c"), two = Bytes("ee ff"), none;
  ByteString b;
  EXPECT_EQ(Hex((b = ab) += b), "0a 0b 0c 0a 0b 0c");
  EXPECT_EQ(Hex((b = ab).insert(1, b)), "0a 0a 0b 0c 0b 0c");
  EXPECT_EQ(Hex((b = ab).insert(3, two).insert(0, 1)), "01 0a 0b 0c ee ff");
  EXPECT_EQ(Hex((b = ab).replace(1, 1, b)), "0a 0a 0b 0c 0c");
  EXPECT_EQ(Hex((b = ab).replace(0, 3, b = *&b)), "0a 0b 0c");
  EXPECT_EQ(Hex((b = ab).replace(1, 9, b)), "0a 0a 0b 0c");
  EXPECT_EQ(Hex((b = ab).replace(1, 2, two)), "0a ee ff");
  EXPECT_EQ(Hex((b = ab).replace(1, 1, two)), "0a ee ff 0c");
  EXPECT_EQ(Hex((b = ab).replace(0, 2, none)), "0c");
  EXPECT_EQ(Hex((b = ab).replace(2, UINT_MAX, two)), "0a 0b ee ff");
  EXPECT_EQ(Hex((b = ab).replace(0, 2, 0xee)), "ee 0c");
  EXPECT_EQ(Hex((b = ab).replace(3, 5, 0xee)), "0a 0b 0c ee");
  EXPECT_EQ(Hex((b = ab).replace(1, UINT_MAX, 0xee)), "0a ee");
  EXPECT_EQ(Hex((b = ab).remove(1, 1).remove(2, 1)), "0a 0c");
  EXPECT_EQ(Hex((b = ab).remove(1, UINT_MAX)), "0a");
  EXPECT_EQ(Hex(0xff + ab + 0xfe + ab(1, 1) + ab(3, 1)), "ff 0a 0b 0c fe 0b");
  EXPECT_EQ(Hex(ab(2, UINT_MAX) + ByteString(ab, 2) + ByteString(ab, 9)), "0c 0a 0b 0a 0b 0c");
  EXPECT_EQ(Hex(ByteString(2U, 0x5a) + ByteString("\xff", 1)), "5a 5a ff");
  EXPECT_TRUE(ab.equal(ab(0, 9)));
  EXPECT_FALSE(ab.equal(ab(0, 2)));
  EXPECT_FALSE(ab.equal(Bytes("0a 0b 0d")));
}

TEST(ByteStringTest, GrowthAddsTheOldBlockToTheRequest)
{
  EXPECT_EQ(ByteString().getBytePointer(), nullptr);
  ByteString b = Bytes("0a 0b 0c");
  b += 0x0d;  // 4 bytes and the 3 of the old block
  const unsigned char* const block = b.getBytePointer();
  b.clear();
  b = Bytes("01 02 03 04 05 06 07");
  EXPECT_EQ(b.getBytePointer(), block);
  b.reSize(8);
  EXPECT_NE(b.getBytePointer(), block);
}

TEST(ByteStringTest, BytesNibblesAndBitsCountFromTheMostSignificantEnd)
{
  ByteString b = Bytes("1f a0");
  std::string bytes, digits;
  for (ByteStringIterator each(b); each.valid(); each.next()) bytes += static_cast<char>(each.get());
  for (unsigned int i = 0; i < 4; i++) digits += hexDigit[b.getNthNibble(i)];
  for (unsigned int i = 0; i < 16; i++) digits += booleanDigit[b.getNthBit(i)];
  EXPECT_EQ(Hex(bytes), "1f a0");
  EXPECT_EQ(digits, "1fa00001111110100000");
  EXPECT_EQ(Text(b.toHexString() + b.toBinaryString()), digits);
  b.init(0xc3);
  b.setNthNibble(0, 0xe2);
  b.setNthNibble(3, 0x15);
  b.setNthNibble(2, 9);
  b.setNthBit(3, true);
  b.setNthBit(8, false);
  EXPECT_EQ(Hex(b), "33 15");
}

TEST(ByteStringTest, DigitTextsFillBytesFromTheSideThatIsNotPadded)
{
  const auto hex = ByteString::FromHexString, binary = ByteString::FromBinaryString;
  const std::tuple<decltype(hex), const char*, const char*, const char*> rows[] = {
      {hex, "ABC", "0a bc", "ab c0"},
      {hex, "1", "01", "10"},
      {hex, "A5f9", "a5 f9", "a5 f9"},
      {binary, "101", "05", "a0"},
      {binary, "100000011", "01 03", "81 80"}};
  for (const auto& [read, text, left, right] : rows) {
    EXPECT_EQ(Hex(read(text, true)), left) << text;
    EXPECT_EQ(Hex(read(text, false)), right) << text;
  }
  for (const boolean left : {true, false}) {
    for (const char* bad : {"", "0g1", "g12", "12g", "0x1F", "1F 20", "-1", "12\xe9", "1:", "1@", "1G", "1`"})
      EXPECT_EQ(Hex(hex(bad, left)), "") << bad;
    for (const char* bad : {"", "12", "1 0", "000000002", "/1", "1a"}) EXPECT_EQ(Hex(binary(bad, left)), "") << bad;
  }
}

}  // namespace
