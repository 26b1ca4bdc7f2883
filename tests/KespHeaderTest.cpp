// What the model of the fuzzer leaves out: ModelTest holds records that are made of a load module's bytes.

#include "headers/Crc32.h"
#include "headers/KespHeader.h"
#include "tests/TestSupport.h"

TEST(KespHeaderTest, NewHeaderHoldsItsDefaults)
{
  KespHeader header(104);
  String sevenDigits("1234567");
  header.setLidNumber(sevenDigits);
  EXPECT_EQ(InFileOrder(header), Hex(Raw("02220003") + std::string(20, '\0') + Raw("0000006C 00010040") +
                                     std::string(70, '\0') + Raw("0004 F0000000")));
}

TEST(KespHeaderTest, VersionTwoIsHeldInHostOrderUpToItsLength)
{
  const std::string lid = Raw("02220002 1A2B3C4D 199912312359 0102 03040506 0708090A 0000001E");
  EXPECT_EQ(Hex(KespHeader(ToBytes(lid + std::string(76, '\x20'))).getByteString()),
            Hex(Raw("22020200 A1B2C3D4 919921133295 0201 06050403 0A090807 1E000000 2020")));
}

TEST(Crc32Test, EveryTableEntryTakesPart)
{
  std::string bytes;
  while (bytes.size() < 256) bytes += static_cast<char>(bytes.size());
  EXPECT_EQ(cupdGenCrc32(bytes.data(), 256), 0xAC148725);
}
