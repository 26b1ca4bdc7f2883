#include "headers/AsciiCharacter.h"
#include "headers/AsciiEbcdic.h"
#include "headers/EbcdicCharacter.h"
#include "headers/Word.h"
#include "tests/TestSupport.h"

TEST(AsciiEbcdicTest, BothTablesTranslateEveryCode)
{
  const ByteString toEbcdic = Bytes(  // of the codes 0x00 to 0x7F, which the upper half repeats
      "00010203372D2E2F1605250B0C0D0E0F101112133C3D322618193F27221D351F405A7F7B5B6C507D4D5D5C4E6B604B61F0F1F2F3F4F5F6F7"
      "F8F97A5E4C7E6E6F7CC1C2C3C4C5C6C7C8C9D1D2D3D4D5D6D7D8D9E2E3E4E5E6E7E8E9ADE0BD5F6D79818283848586878889919293949596"
      "979899A2A3A4A5A6A7A8A9C04FD0A107");
  const ByteString toAscii = Bytes(
      "000102031A091A7F1A1A1A0B0C0D0E0F101112131A1A081A18191A1A1C1D1E1F1A1A1C1A1A0A171B1A1A1A1A1A0506071A1A161A1A1E1A04"
      "1A1A1A1A14151A1A20A6E180EB909FE2AB8B9B2E3C282B7C26A9AA9CDBA599E3A89E21242A293B5E2D2FDFDC9ADDDE989DACBA2C255F3E3F"
      "D78894B0B1B2FCD6FB603A2340273D22F861626364656667686996A4F3AFAEC58C6A6B6C6D6E6F7071729787CE93F1FEC87E737475767778"
      "797AEFC0DA5BF2F9B5B6FDB7B8B9E6BBBCBD8DD9BF5DD8C47B414243444546474849CBCABEE8ECED7D4A4B4C4D4E4F505152A1ADF5F4A38F"
      "5CE7535455565758595AA0858EE9E4D130313233343536373839B3F7F0FAA7FF");
  for (unsigned int code = 0; code < 256; code++) {
    EXPECT_EQ(AsciiEbcdic::AsciiToEbcdic(static_cast<unsigned char>(code)), toEbcdic.getNthByte(code % 128)) << code;
    EXPECT_EQ(AsciiEbcdic::EbcdicToAscii(static_cast<unsigned char>(code)), toAscii.getNthByte(code)) << code;
  }
}

// The encoder gives `hex` in a field of `width` bytes and tells whether anything was lost, whatever the flag was
// before.
static void ExpectField(const DataType& encoder, unsigned int width, const std::string& hex, bool lost)
{
  SCOPED_TRACE("\"" + hex + "\" in " + std::to_string(width));
  EXPECT_TRUE(encoder.valid());
  for (boolean modified : {false, true}) {
    EXPECT_EQ(Hex(encoder.toModifiedByteString(width, modified)), hex);
    EXPECT_EQ(modified, lost);
  }
}

TEST(TextEncodersTest, TextIsPaddedAndCutAndItsLastFourCharactersAreItsValue)
{
  ExpectField(EbcdicCharacter("ab"), 4, "81 82 40 40", false);
  ExpectField(EbcdicCharacter("AB\xe1"), 2, "c1 c2", true);
  ExpectField(EbcdicCharacter("V\xe1"), 2, "e5 81", false);
  ExpectField(EbcdicCharacter("A"), 0, "", true);
  ExpectField(EbcdicCharacter(), 0, "", false);
  ExpectField(AsciiCharacter("a\xe1"), 3, "61 e1 20", false);
  ExpectField(AsciiCharacter("ab"), 1, "61", true);
  EXPECT_EQ(Text(EbcdicCharacter(Bytes("C1 40 41 00")).toString()), Raw("41 20 A6 00"));
  EXPECT_EQ(Hex(AsciiCharacter(Bytes("C1 40 41 00")).toByteString()), "c1 40 41 00");
  EXPECT_EQ(EbcdicCharacter("ABCDE").getValue(), 0xC2C3C4C5U);
  EXPECT_EQ(AsciiCharacter("ABCDE").getValue(), 0x42434445U);
  EXPECT_EQ(AsciiCharacter("A\xff").getValue(), 0x40FFU);  // as a signed character 0xFF adds -1
}

TEST(WordTest, NumberLandsBigEndianAtTheEndOfTheFieldAndTellsOfLostBytesOfItsMagnitude)
{
  ExpectField(Word(0x123456UL), 2, "34 56", true);
  ExpectField(Word(0x1000000UL), 3, "00 00 00", true);
  ExpectField(Word(0xFFFFFFFEUL), 5, "00 ff ff ff fe", false);
  ExpectField(Word(0x100001234UL), 2, "12 34", false);
  ExpectField(Word(), 1, "00", false);
  ExpectField(Word(0L), 5, "00 00 00 00 00", false);
  ExpectField(Word(0x1234L), 1, "34", true);
  ExpectField(Word(-1L), 0, "", true);
  ExpectField(Word(-2L), 6, "ff ff ff ff ff fe", false);
  ExpectField(Word(-128L), 1, "80", false);
  ExpectField(Word(-255L), 1, "01", false);
  ExpectField(Word(-256L), 1, "00", true);
  ExpectField(Word(-0x80000000L), 4, "80 00 00 00", false);
  ExpectField(Word(0xFFFFFFFFL), 5, "ff ff ff ff ff", false);
  EXPECT_EQ(Hex(Word(0x7FFFFFFFL).toByteString()), "7f ff ff ff");
}
