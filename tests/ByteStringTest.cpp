#include <gtest/gtest.h>

#include <climits>

#include "foundation/ByteString.h"
#include "foundation/ByteStringIterator.h"
#include "tests/TestSupport.h"

namespace {

std::string List(const std::vector<ByteString>& all)
{
  std::string list;
  for (const ByteString& bytes : all) list += Hex(bytes) + "|";
  return list;
}

TEST(ByteStringTest, EditsCutTheirRangesAndTakeTheByteStringItselfAsACopy)
{
  ByteString b, ab = Bytes("0a 0b 0c"), two = Bytes("ee ff"), none;
  EXPECT_EQ(List({b += ab, b += b, (b = ab).insert(1, b), (b = ab).replace(1, 1, b), (b = ab).replace(0, 3, b),
                  (b = ab).replace(1, 9, b), b = b}),
            "0a 0b 0c|0a 0b 0c 0a 0b 0c|0a 0a 0b 0c 0b 0c|0a 0a 0b 0c 0c|0a 0b 0c|0a 0a 0b 0c|0a 0a 0b 0c|");
  EXPECT_EQ(List({(b = ab).replace(1, 2, two), (b = ab).replace(0, 3, two), (b = ab).replace(1, 1, two),
                  (b = ab).replace(0, 2, none), (b = ab).replace(2, UINT_MAX, two), (b = ab).replace(3, 5, two),
                  b = none, (b = ab).replace(1, 1, 0xee), (b = ab).replace(0, 2, 0xee), (b = ab).replace(1, 0, 0xee),
                  (b = ab).replace(3, 5, 0xee), (b = ab).replace(1, UINT_MAX, 0xee)}),
            "0a ee ff|ee ff|0a ee ff 0c|0c|0a 0b ee ff|0a 0b 0c ee ff||0a ee 0c|ee 0c|0a ee 0b 0c|0a 0b 0c ee|0a ee|");
  EXPECT_EQ(List({(b = ab).insert(3, two).insert(0, 1), b.remove(1, 2), b.remove(4, 1), b.remove(1, UINT_MAX),
                  b + 0xff + two, 0xff + b, ab(1, 1), ab(2, UINT_MAX), ab(3, 1), ByteString(ab, 2),
                  ByteString(2U, 0x5a), ByteString("\xff", 1)}),
            "01 0a 0b 0c ee ff|01 0c ee ff|01 0c ee ff|01|01 ff ee ff|ff 01|0b|0c||0a 0b|5a 5a|ff|");
  EXPECT_TRUE(!none.getBytePointer() && ab.equal(ab(0, 9)) && !ab.equal(ab(0, 2)) && !ab.equal(Bytes("0a 0b 0d")));
}

TEST(ByteStringTest, NibblesAndBitsCountFromTheMostSignificantEnd)
{
  ByteString b = Bytes("1f a0");
  std::string nibbles, bits, bytes;
  for (unsigned int i = 0; i < 4; i++) nibbles += hexDigit[b.getNthNibble(i)];
  for (unsigned int i = 0; i < 16; i++) bits += booleanDigit[b.getNthBit(i)];
  EXPECT_EQ(nibbles + bits + Text(b.toHexString() + b.toBinaryString()), "1fa000011111101000001fa00001111110100000");
  b.setNthNibble(0, 0xe2), b.setNthNibble(3, 0x15), b.setNthBit(1, true), b.setNthBit(7, false), b.setNthBit(8, false);
  EXPECT_EQ(Hex(b), "6e 25");
  b.init(0xc3), b[1] = 0xfe, b.setNthBit(15, true);
  for (ByteStringIterator each(b); each.valid(); each.next()) bytes += static_cast<char>(each.get());
  EXPECT_EQ(Hex(bytes), "c3 ff");
}

TEST(ByteStringTest, DigitTextsFillBytesFromTheSideThatIsNotPadded)
{
  const auto hex = [](const char* text, boolean left) { return ByteString::FromHexString(String(text), left); };
  const auto bin = [](const char* text, boolean left) { return ByteString::FromBinaryString(String(text), left); };
  EXPECT_EQ(List({hex("ABC", true), hex("ABC", false), hex("1", true), hex("1", false), hex("A5f9", true),
                  bin("101", true), bin("101", false), bin("100000011", true), bin("100000011", false)}),
            "0a bc|ab c0|01|10|a5 f9|05|a0|01 03|81 80|");
  for (const char* bad : {"", "0g1", "g12", "12g", "0x1F", "1F 20", "-1", "12\xe9", "1:", "1@", "1G", "1`"})
    EXPECT_TRUE(hex(bad, true).empty() && hex(bad, false).empty()) << bad;
  for (const char* bad : {"", "12", "1 0", "000000002", "/1", "1a"})
    EXPECT_TRUE(bin(bad, true).empty() && bin(bad, false).empty()) << bad;
}

}  // namespace
