#include <gtest/gtest.h>

#include "headers/Crc32.h"
#include "headers/KespHeader.h"
#include "tests/TestSupport.h"

static const std::string kDigits = "1A2B3C4D 199912312359 0102 03040506 0708090A ";  // offsets 4 to 23

// The first `length` bytes of a file: a header of 104, 4 bytes of phylum data and 2 bytes that belong to nothing.
static std::string File(const std::string& version, unsigned int headerLength, size_t length)
{
  return (Raw("0222" + version + kDigits + "000000") + static_cast<char>(headerLength) + std::string(68, 'Z') +
          Raw("200402290007 0004") + "abcdEF")
      .substr(0, length);
}

static KespHeader Header(const std::string& file) { return KespHeader(Bytes(Hex(file))); }

static void SetAll(KespHeader& header)
{
  char dates[] = "199912312359200402290007";
  String number = "1A2B3C4D5E";
  ByteString phylum = Bytes("F1F2F3F4F5");
  header.setLidNumber(number), header.setLidDateTime(dates), header.setLidUpdateTime(dates + 12);
  header.setLidClass(0x10102), header.setCRCNumber(0x03040506), header.setLidLength(0x0708090A);
  header.setMtdNumber(0x10B), header.setPhylumData(phylum), header.setLidInfo((std::string(64, 'i') + "x").c_str());
}

TEST(KespHeaderTest, NewHeaderHoldsItsDefaultsAndEverySetterFillsItsField)
{
  KespHeader header(104);
  header.Endian();
  EXPECT_EQ(Hex(header.getByteString()), Hex(Raw("02220003") + std::string(20, '\0') + Raw("0000006C 00010040") +
                                             std::string(70, '\0') + Raw("0004 F0000000")));
  header.Endian();
  SetAll(header);
  char dates[40] = "20240115123";
  String number = "1234567";
  header.setLidDateTime(dates), header.setLidUpdateTime(dates), header.setLidNumber(number);  // each too short
  std::strftime(dates, 40, "%Y%m%d%H%M%S", header.getLidDateTime());
  std::strftime(dates + 14, 26, "%Y%m%d%H%M%S", header.getLidUpdateTime());
  EXPECT_EQ(std::string(dates), "1999123123590020040229000700");
  EXPECT_TRUE(header.getMagicNumber() == 0x0222 && header.getLength() == 109);
  header.Endian();
  EXPECT_EQ(Hex(header.getByteString()), Hex(Raw("02220003" + kDigits + "0000006D 0B010040") + std::string(64, 'i') +
                                             Raw("200402290007 0005 F1F2F3F4F5")));
}

TEST(KespHeaderTest, CutHeaderGivesBackItsBytesAndNothingBehindThemIsTouched)
{
  for (unsigned int length = 0; length <= 110; length++) {
    SCOPED_TRACE(length);
    KespHeader whole = Header(File("0003", 108, length)), shortForm = Header(File("0002", length, 110));
    ASSERT_EQ(whole.valid(), length >= 104);
    if (length >= 104) whole.Endian();
    EXPECT_TRUE(length < 104 || Hex(whole.getByteString()) == Hex(File("0003", 108, std::min(length, 108U))));
    const std::string held = File("0002", length, std::min(length, 104U));
    EXPECT_EQ(Hex(shortForm.getByteString()(96, 8)), Hex(held.substr(std::min(held.size(), 96UL))));
    shortForm.Endian();
    EXPECT_EQ(Hex(shortForm.getByteString()), Hex(held));
    SetAll(shortForm);
    EXPECT_TRUE(shortForm.getLidDateTime() != nullptr && shortForm.getLidUpdateTime() != nullptr);
    EXPECT_EQ(shortForm.getByteString().length(), held.size()) << shortForm.getMagicNumber() << shortForm.getLength();
    EXPECT_EQ(Hex(shortForm.getByteString()(96, 8)), Hex(held.substr(std::min(held.size(), 96UL))));
  }
}

TEST(KespHeaderDeathTest, AnInvalidHeaderFailsItsAssertion)
{
  EXPECT_DEATH(KespHeader(ByteString(103, 0)).Endian(), "Assertion `valid\\(\\)' failed\\.");
}

TEST(Crc32Test, EveryTableEntryTakesPart)
{
  std::string bytes;
  while (bytes.size() < 256) bytes += static_cast<char>(bytes.size());
  EXPECT_EQ(cupdGenCrc32(bytes.data(), 256), 0xAC148725);
}
