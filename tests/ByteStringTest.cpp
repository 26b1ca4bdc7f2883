// What the model of the fuzzer leaves out: ModelTest holds the edits and the forms.

#include "tests/TestSupport.h"

TEST(ByteStringTest, GrowthAddsTheOldBlockToTheRequest)
{
  EXPECT_EQ(ByteString().getBytePointer(), nullptr);
  ByteString b = Bytes("0a 0b 0c");
  b += 0x0d;  // 4 bytes and the 3 of the old block
  const unsigned char* const block = b.getBytePointer();
  b.clear();
  b = Bytes("01 02 03 04 05 06 07");
  b.reSize(7);
  EXPECT_EQ(b.getBytePointer(), block);
  b.reSize(8);
  EXPECT_NE(b.getBytePointer(), block);
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
