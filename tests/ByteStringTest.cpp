// What the model of the fuzzer leaves out: ModelTest holds the edits and the forms.
#include <gtest/gtest.h>

#include "foundation/ByteStringIterator.h"
#include "tests/TestSupport.h"

namespace {

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

TEST(ByteStringTest, IteratorGivesEachByteAndDigitsCountFromTheMostSignificantEnd)
{
  ByteString b = Bytes("1f a0");
  std::string bytes;
  for (ByteStringIterator each(b); each.valid(); each.next()) bytes += static_cast<char>(each.get());
  EXPECT_EQ(Hex(bytes), "1f a0");
  b.setNthNibble(2, 0xe9);
  b.setNthBit(3, false);
  EXPECT_EQ(Hex(b), "0f 90");
}

TEST(ByteStringTest, TextWithAnythingButDigitsOfTheBaseGivesNoBytes)
{
  for (const char* bad : {"0g1", "g12", "12g", "0x1F", "1F 20", "-1", "12\xe9", "1:", "1@", "1G", "1`", "/1"}) {
    EXPECT_EQ(Hex(ByteString::FromHexString(bad, true)), "") << bad;
  }
  for (const char* bad : {"12", "1 0", "000000002", "/1", "1a"}) {
    EXPECT_EQ(Hex(ByteString::FromBinaryString(bad, true)), "") << bad;
  }
}

}  // namespace
