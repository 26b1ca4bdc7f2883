#include <gtest/gtest.h>

#include "headers/Crc32.h"
#include "headers/KespHeader.h"
#include "tests/TestSupport.h"

static const std::string kDigits = "1A2B3C4D 199912312359 0102 03040506 0708090A ";  // offsets 4 to 23

// A file of 110 bytes: a header of `version` with the header length `length` and 4 bytes of phylum data, 2 bytes more.
static std::string File(const char* version, char length)
{
  return Raw("0222" + (version + kDigits) + "000000") + length + std::string(68, 'Z') + Raw("200402290007 0004") + "abcdEF";
}

static ByteString Start(const std::string& file, size_t n) { return ByteString(file.data(), static_cast<unsigned int>(n)); }

static void SetAll(KespHeader& header)
{
  char dates[] = "199912312359200402290007";
  String number = "1A2B3C4D5E";
  ByteString phylum = Bytes("F1F2F3F4F5");
  header.setLidNumber(number), header.setLidClass(0x10102), header.setCRCNumber(0x03040506);
  header.setLidDateTime(dates), header.setLidUpdateTime(dates + 12), header.setLidLength(0x0708090A);
  header.setMtdNumber(0x10B), header.setPhylumData(phylum);
  header.setLidInfo(String((std::string(64, 'i') + "behind").c_str()));
}

TEST(KespHeaderTest, NewHeaderHoldsItsDefaultsAndEverySetterFillsItsField)
{
  KespHeader header(104);
  header.Endian();
  EXPECT_EQ(Hex(header.getByteString()), Hex(Raw("02220003") + std::string(20, '\0') + Raw("0000006C 00010040") +
                                             std::string(70, '\0') + Raw("0004 F0000000")));
  header.Endian();
  SetAll(header);
  char shortDate[] = "20240115123";
  String shortNumber = "1234567";
  header.setLidDateTime(shortDate), header.setLidUpdateTime(shortDate), header.setLidNumber(shortNumber);
  header.Endian();
  EXPECT_EQ(Hex(header.getByteString()), Hex(Raw("02220003" + kDigits + "0000006D 0B010040") + std::string(64, 'i') +
                                             Raw("200402290007 0005 F1F2F3F4F5")));
}

TEST(KespHeaderTest, CutFileIsInvalidBelow104BytesAndKeepsThePhylumDataThereIs)
{
  for (size_t length = 0; length <= 110; length++) {
    KespHeader header(Start(File("0003", 108), length));
    ASSERT_EQ(header.valid(), length >= 104) << length;
    if (length < 104) continue;
    char dates[40] = "";
    const size_t end = std::strftime(dates, 40, "%Y%m%d%H%M%S ", header.getLidDateTime());
    EXPECT_NE(std::strftime(dates + end, 40 - end, "%Y%m%d%H%M%S", header.getLidUpdateTime()), 0U);
    EXPECT_EQ(std::string(dates), "19991231235900 20040229000700");
    EXPECT_TRUE(header.getMagicNumber() == 0x0222 && header.getLength() == 108);
    header.Endian();
    EXPECT_EQ(Hex(header.getByteString()), Hex(File("0003", 108).substr(0, std::min<size_t>(length, 108)))) << length;
  }
}

TEST(KespHeaderTest, VersionTwoHeaderIsCutToItsLengthFieldAndNothingBehindItIsTouched)
{
  for (unsigned int length = 0; length <= 106; length++) {
    const std::string file = File("0002", static_cast<char>(length));
    const std::string held = file.substr(0, std::min(length, 104U));
    KespHeader header(Start(file, file.size()));
    if (length >= 104) { EXPECT_EQ(Hex(header.getByteString()).substr(96 * 3), Hex(held.substr(96))); }
    header.Endian();
    EXPECT_EQ(Hex(header.getByteString()), Hex(held)) << length;
    header.Endian();
    SetAll(header);
    EXPECT_TRUE(header.getLidDateTime() != nullptr && header.getLidUpdateTime() != nullptr);
    EXPECT_EQ(header.getByteString().length(), held.size()) << header.getMagicNumber() << header.getLength();
  }
}

TEST(KespHeaderDeathTest, AnInvalidHeaderFailsItsAssertion)
{
  EXPECT_DEATH(KespHeader(ByteString(103, 0)).Endian(), "Assertion `valid\\(\\)' failed\\.");
}

TEST(Crc32Test, EveryByteGivesItsRemainder)
{
  for (unsigned int byte = 0; byte < 256; byte++) {
    unsigned int remainder = byte << 24;
    for (int bit = 0; bit < 8; bit++) remainder = (remainder << 1) ^ ((remainder >> 31) * 0x04C11DB7);
    EXPECT_EQ(cupdGenCrc32(std::string(1, static_cast<char>(byte)).c_str(), 1), remainder) << byte;
  }
  EXPECT_TRUE(cupdGenCrc32("123456789", 9) == 0x89A1897F && cupdGenCrc32("", 0) == 0);
}
