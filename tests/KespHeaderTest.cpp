#include <gtest/gtest.h>

#include "headers/Crc32.h"
#include "headers/KespHeader.h"
#include "tests/TestSupport.h"

// The first bytes of a load module: a header of 104, 4 bytes of phylum data, and 2 bytes that belong to nothing.
static std::string Lid(const std::string& version, unsigned int headerLength, unsigned int bytes)
{
  const std::string numbers = Raw("0222" + version + "1A2B3C4D 199912312359 0102 03040506 0708090A 000000");
  return (numbers + static_cast<char>(headerLength) + std::string(68, 'Z') + Raw("200402290007 0004") + "abcdEF")
      .substr(0, bytes);
}

static KespHeader Header(const std::string& lid) { return KespHeader(Bytes(Hex(lid))); }
static KespHeader ShortForm(unsigned int length) { return Header(Lid("0002", length, 110)); }

static std::string InFileOrder(KespHeader header)
{
  if (!header.valid()) return "invalid";
  header.Endian();
  return Hex(header.getByteString());
}

static void SetAll(KespHeader& header)
{
  char date[] = "202411302201x", updated[] = "203812150846";
  String number = "5A6B7C8D";
  ByteString phylum = Bytes("F1F2F3F4F5");
  header.setLidNumber(number);
  header.setLidDateTime(date);
  header.setLidUpdateTime(updated);
  header.setLidClass(0x10B0C);
  header.setCRCNumber(0x0D0E0F10);
  header.setLidLength(0x11121314);
  header.setMtdNumber(0x115);
  header.setLidInfo((std::string(64, 'i') + "x").c_str());
  header.setPhylumData(phylum);
}
static const std::string kSetNumbers = "5A6B7C8D 202411302201 0B0C 0D0E0F10 11121314";  // offsets 4 to 23

TEST(KespHeaderTest, NewHeaderHoldsItsDefaultsAndFitValuesFillTheirFields)
{
  KespHeader header(104);
  EXPECT_EQ(InFileOrder(header), Hex(Raw("02220003") + std::string(20, '\0') + Raw("0000006C 00010040") +
                                     std::string(70, '\0') + Raw("0004 F0000000")));
  SetAll(header);
  char eleven[] = "20240115123";
  header.setLidDateTime(eleven);
  header.setLidUpdateTime(eleven);
  for (String number : {"5A6B7C8D9", "", "1234567", "1234567G"}) header.setLidNumber(number);
  EXPECT_EQ(InFileOrder(header), Hex(Raw("02220003" + kSetNumbers + "0000006D 15010040") + std::string(64, 'i') +
                                     Raw("203812150846 0005 F1F2F3F4F5")));
  header.setLidInfo("ab");
  EXPECT_EQ(Hex(header.getByteString()(32, 64)), Hex("ab" + std::string(62, '\0')));
}

TEST(KespHeaderTest, VersionThreeCutAtAnyLengthIsInvalidOrGivesBackItsBytes)
{
  for (unsigned int length = 0; length <= 110; length++) {
    const std::string bytes = length < 104 ? "invalid" : Hex(Lid("0003", 108, std::min(length, 108U)));
    EXPECT_EQ(InFileOrder(Header(Lid("0003", 108, length))), bytes) << length;
  }
}

// A version-2 header made of `length` bytes is in host order; a changed one in file order.
static void ExpectShortForm(unsigned int length, const std::string& made, const std::string& changed)
{
  KespHeader header = ShortForm(length);
  EXPECT_EQ(Hex(header.getByteString()), Hex(Raw(made))) << length;
  SetAll(header);
  EXPECT_EQ(InFileOrder(header), Hex(Raw(changed))) << length;
}

TEST(KespHeaderTest, VersionTwoConvertsAndChangesTheFieldsBeforeItsUpdateTimeAndGivesOnlyTheBytesThatItHolds)
{
  const std::string held = "22020200 A1B2C3D4 919921133295", all = held + "0201 06050403 0A090807";
  const std::string text = Hex(std::string(68, 'Z')), info = " 155A5A5A" + Hex(std::string(64, 'i'));
  const std::string set = "02220002" + kSetNumbers + "000000";
  ExpectShortForm(3, "220200", "022200");
  ExpectShortForm(6, "22020200 A1B2", "02220002 5A6B");
  ExpectShortForm(14, held, "02220002 5A6B7C8D 202411302201");
  ExpectShortForm(18, held + "0201 0000", "02220002 5A6B7C8D 202411302201 0B0C 0D0E");
  ExpectShortForm(26, all + "0000", "02220002" + kSetNumbers + "0000");
  ExpectShortForm(98, all + "62000000" + text + "2004", set + "62" + info + "2004");
  ExpectShortForm(104, all + "68000000" + text + "200402290007 0004", set + "68" + info + "200402290007 0004");
  for (unsigned int length = 0; length <= 110; length++) {
    KespHeader header = ShortForm(length);
    const std::string bytes = Hex(Lid("0002", length, std::min(length, 104U)));
    EXPECT_EQ(InFileOrder(header), bytes) << length;
    SetAll(header);
    EXPECT_EQ(InFileOrder(header).size(), bytes.size()) << length;
  }
}

TEST(KespHeaderTest, NumbersThatAreNotHeldWholeReadAsZeroAndMissingDigitsToo)
{
  KespHeader whole = Header(Lid("0003", 108, 108));
  EXPECT_EQ(ShortForm(1).getMagicNumber(), 0);
  EXPECT_EQ(ShortForm(2).getMagicNumber(), 0x0222);
  EXPECT_EQ(ShortForm(27).getLength(), 0U);
  EXPECT_EQ(ShortForm(28).getLength(), 28U);
  EXPECT_STREQ(std::asctime(whole.getLidUpdateTime()), "Sun Feb 29 00:07:00 2004\n");
  EXPECT_STREQ(std::asctime(ShortForm(13).getLidDateTime()), "Sun Dec 31 23:00:00 1999\n");
  EXPECT_EQ(ShortForm(104).getLidUpdateTime()->tm_year, -1900);
}

TEST(Crc32Test, EveryTableEntryTakesPart)
{
  std::string bytes;
  while (bytes.size() < 256) bytes += static_cast<char>(bytes.size());
  EXPECT_EQ(cupdGenCrc32(bytes.data(), 256), 0xAC148725);
}
