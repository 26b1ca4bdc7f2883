// What the model of the fuzzer leaves out: ModelTest holds records that are made of a load module's bytes.

#include "headers/Crc32.h"
#include "headers/KespHeader.h"
#include "tests/TestSupport.h"

TEST(KespHeaderTest, NewHeaderHoldsItsDefaultsAndFitValuesFillTheirFields)
{
  KespHeader header(104);
  EXPECT_EQ(InFileOrder(header), Hex(Raw("02220003") + std::string(20, '\0') + Raw("0000006C 00010040") +
                                     std::string(70, '\0') + Raw("0004 F0000000")));
  char date[] = "202411302201x", updated[] = "203812150846", eleven[] = "20240115123";
  ByteString phylum = Bytes("F1F2F3F4F5");
  header.setLidDateTime(date);
  header.setLidDateTime(eleven);
  header.setLidUpdateTime(updated);
  header.setLidUpdateTime(eleven);
  for (String number : {"5A6B7C8D", "5A6B7C8DEF", "5A6B7C8D9", "", "1234567", "1234567G"}) header.setLidNumber(number);
  header.setLidClass(0x10B0C);
  header.setCRCNumber(0x0D0E0F10);
  header.setLidLength(0x11121314);
  header.setMtdNumber(0x115);
  header.setLidInfo((std::string(64, 'i') + "x").c_str());
  header.setPhylumData(phylum);
  EXPECT_EQ(InFileOrder(header), Hex(Raw("02220003 5A6B7C8D 202411302201 0B0C 0D0E0F10 11121314 0000006D 15010040") +
                                     std::string(64, 'i') + Raw("203812150846 0005 F1F2F3F4F5")));
}

TEST(KespHeaderTest, VersionTwoHoldsTheFieldsOfItsLengthAndTheOthersReadAsZero)
{
  const std::string lid = Raw("02220002 1A2B3C4D 199912312359 0102 03040506 0708090A 000000");
  const auto header = [&](char length) { return KespHeader(ToBytes(lid + length + std::string(76, '\x20'))); };
  EXPECT_EQ(Hex(header(30).getByteString()),
            Hex(Raw("22020200 A1B2C3D4 919921133295 0201 06050403 0A090807 1E000000 2020")));
  EXPECT_EQ(header(1).getMagicNumber(), 0);
  EXPECT_EQ(header(2).getMagicNumber(), 0x0222);
  EXPECT_EQ(header(27).getLength(), 0U);
  EXPECT_EQ(header(28).getLength(), 28U);
  EXPECT_FALSE(header(13).holdsLidDateTime());
  EXPECT_TRUE(header(14).holdsLidDateTime());
  EXPECT_STREQ(std::asctime(header(13).getLidDateTime()), "Sun Dec 31 23:00:00 1999\n");
}

TEST(Crc32Test, EveryTableEntryTakesPart)
{
  std::string bytes;
  while (bytes.size() < 256) bytes += static_cast<char>(bytes.size());
  EXPECT_EQ(cupdGenCrc32(bytes.data(), 256), 0xAC148725);
}
