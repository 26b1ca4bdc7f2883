#include <gtest/gtest.h>

#include "headers/AsciiCharacter.h"
#include "headers/AsciiEbcdic.h"
#include "headers/EbcdicCharacter.h"
#include "headers/UnsignedLongByteIterator.h"
#include "headers/Word.h"
#include "tests/TestSupport.h"

TEST(AsciiEbcdicTest, BothTablesTranslateEveryCode)
{
  const ByteString toEbcdic = Bytes(  // of the codes 0x00 to 0x7F, which the upper half repeats
      "00010203372D2E2F1605250B0C0D0E0F101112133C3D322618193F27221D351F405A7F7B5B6C507D4D5D5C4E6B604B61"
      "F0F1F2F3F4F5F6F7F8F97A5E4C7E6E6F7CC1C2C3C4C5C6C7C8C9D1D2D3D4D5D6D7D8D9E2E3E4E5E6E7E8E9ADE0BD5F6D"
      "79818283848586878889919293949596979899A2A3A4A5A6A7A8A9C04FD0A107");
  const ByteString toAscii = Bytes(
      "000102031A091A7F1A1A1A0B0C0D0E0F101112131A1A081A18191A1A1C1D1E1F1A1A1C1A1A0A171B1A1A1A1A1A050607"
      "1A1A161A1A1E1A041A1A1A1A14151A1A20A6E180EB909FE2AB8B9B2E3C282B7C26A9AA9CDBA599E3A89E21242A293B5E"
      "2D2FDFDC9ADDDE989DACBA2C255F3E3FD78894B0B1B2FCD6FB603A2340273D22F861626364656667686996A4F3AFAEC5"
      "8C6A6B6C6D6E6F7071729787CE93F1FEC87E737475767778797AEFC0DA5BF2F9B5B6FDB7B8B9E6BBBCBD8DD9BF5DD8C4"
      "7B414243444546474849CBCABEE8ECED7D4A4B4C4D4E4F505152A1ADF5F4A38F5CE7535455565758595AA0858EE9E4D1"
      "30313233343536373839B3F7F0FAA7FF");
  for (unsigned int code = 0; code < 256; code++) {
    EXPECT_EQ(AsciiEbcdic::AsciiToEbcdic(static_cast<unsigned char>(code)), toEbcdic.getNthByte(code % 128)) << code;
    EXPECT_EQ(AsciiEbcdic::EbcdicToAscii(static_cast<unsigned char>(code)), toAscii.getNthByte(code)) << code;
  }
}

TEST(TextEncodersTest, TextIsPaddedAndCutAndItsLastFourCharactersAreItsValue)
{
  const struct {
    const char* text;
    unsigned int width;
    std::string ascii, ebcdic;
    unsigned int values[2];
  } rows[] = {
      {"ab", 4, "61 62 20 20", "81 82 40 40", {0x6162, 0x8182}},
      {"", 0, "", "", {0, 0}},
      {"", 1, "20", "40", {0, 0}},
      {"A", 0, " cut", " cut", {0x41, 0xC1}},
      {"ABCDE", 3, "41 42 43 cut", "c1 c2 c3 cut", {0x42434445, 0xC2C3C4C5}},
      {"A\xff", 2, "41 ff", "c1 07", {0x40FF, 0xC107}},  // as a signed character 0xFF adds -1
  };
  for (const auto& row : rows) {
    const AsciiCharacter ascii{String(row.text)};
    const EbcdicCharacter ebcdic{String(row.text)};
    for (const DataType* const encoder : std::initializer_list<const DataType*>{&ascii, &ebcdic}) {
      boolean cut = encoder->byteLength() <= row.width;
      const std::string bytes = Hex(encoder->toModifiedByteString(row.width, cut));
      EXPECT_EQ(bytes + (cut ? " cut" : ""), encoder == &ascii ? row.ascii : row.ebcdic) << row.text;
    }
    EXPECT_TRUE(ascii.getValue() == row.values[0] && ebcdic.getValue() == row.values[1]) << row.text;
  }
  EXPECT_EQ(Text(EbcdicCharacter(Bytes("C1 40 41 00")).toString()), Raw("41 20 A6 00"));
  EXPECT_EQ(Hex(AsciiCharacter(Bytes("C1 40 41 00")).toByteString()), "c1 40 41 00");
}

TEST(BinaryDataTest, NumbersLandBigEndianAtTheEndOfTheField)
{
  const struct {
    bool isSigned;
    long value;
    unsigned int width;
    std::string bytes;
  } rows[] = {
      {false, 0x123456, 2, "34 56 cut"},
      {false, 0x1234, 2, "12 34"},
      {false, 0x1234, 6, "00 00 00 00 12 34"},
      {false, 0, 0, " cut"},
      {false, 0x01000000, 3, "00 00 00 cut"},
      {false, 0xFFFFFFFE, 5, "00 ff ff ff fe"},
      {false, 0x100000005, 4, "00 00 00 05"},
      {true, 0x1234, 1, "34 cut"},
      {true, 5, 4, "00 00 00 05"},
      {true, -1, 0, " cut"},
      {true, -2, 6, "ff ff ff ff ff fe"},
      {true, -128, 1, "80"},
      {true, -129, 1, "7f"},
      {true, -256, 1, "00 cut"},
      {true, -65536, 2, "00 00 cut"},
      {true, -2147483648L, 4, "80 00 00 00"},
  };
  for (const auto& row : rows) {
    const Word word = row.isSigned ? Word(row.value) : Word(static_cast<unsigned long>(row.value));
    boolean cut = row.bytes.find("cut") == std::string::npos;
    const std::string bytes = Hex(word.toModifiedByteString(row.width, cut));
    EXPECT_EQ(bytes + (cut ? " cut" : ""), row.bytes) << row.value << " in " << row.width;
  }
  boolean cut = true;
  EXPECT_EQ(Hex(BinaryData::ConvertUnsigned(0x8000, 2, cut) + BinaryData::ConvertSigned(-3, 3, cut)), "80 00 ff ff fd");
  EXPECT_EQ(Hex(Word(-1L).toByteString() + Word().toByteString()), "ff ff ff ff 00 00 00 00");
  std::string bytes;
  for (UnsignedLongByteIterator it(0x12345678); it.valid(); it.next()) bytes += static_cast<char>(it.get());
  EXPECT_EQ(Hex(bytes), "78 56 34 12");
}
