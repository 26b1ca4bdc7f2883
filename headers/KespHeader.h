// The LID header with which a load module may begin: 104 bytes, then the phylum data. In the file all numbers are
// big-endian, and digits stand two to a byte with the first in the high nibble; the record holds them in host order
// until Endian(). Format version 2 is a short form: its header-length field says how many of the 104 bytes there are.
// It has neither update time nor phylum data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>

#include "headers/HeaderRecord.h"

struct KESPHDR {
  std::uint16_t magicNumber;       // 0: 0x0222
  std::uint16_t version;           // 2
  unsigned char lidNumber[4];      // 4: 8 hexadecimal digits
  unsigned char lidDateTime[6];    // 8: 12 decimal digits, YYYYMMDDhhmm
  std::uint16_t lidClass;          // 14
  std::uint32_t crc;               // 16
  std::uint32_t lidLength;         // 20
  std::uint32_t headerLength;      // 24: bytes, the phylum data included
  unsigned char mtdNumber;         // 28
  unsigned char flags1;            // 29
  unsigned char reserved;          // 30
  unsigned char flags2;            // 31
  char lidInfo[64];                // 32: zeros after a shorter text
  unsigned char lidUpdateTime[6];  // 96: as lidDateTime; not in version 2
  std::uint16_t phylumLength;      // 102: bytes of phylum data; not in version 2
};

static_assert(offsetof(KESPHDR, magicNumber) == 0);
static_assert(offsetof(KESPHDR, version) == 2);
static_assert(offsetof(KESPHDR, lidNumber) == 4);
static_assert(offsetof(KESPHDR, lidDateTime) == 8);
static_assert(offsetof(KESPHDR, lidClass) == 14);
static_assert(offsetof(KESPHDR, crc) == 16);
static_assert(offsetof(KESPHDR, lidLength) == 20);
static_assert(offsetof(KESPHDR, headerLength) == 24);
static_assert(offsetof(KESPHDR, mtdNumber) == 28);
static_assert(offsetof(KESPHDR, flags1) == 29);
static_assert(offsetof(KESPHDR, reserved) == 30);
static_assert(offsetof(KESPHDR, flags2) == 31);
static_assert(offsetof(KESPHDR, lidInfo) == 32);
static_assert(offsetof(KESPHDR, lidUpdateTime) == 96);
static_assert(offsetof(KESPHDR, phylumLength) == 102);
static_assert(sizeof(KESPHDR) == 104);

// Every operation but valid(), writeHeader() and destruction asserts valid(). The bytes after the cut of a
// version-2 header are zeros at first. A setter also writes a field that the cut divides; getByteString() and
// writeHeader() give only the bytes before the cut.
class KespHeader {
 public:
  static constexpr unsigned short lidMagicNumber = 0x0222;
  static constexpr int shortVersion = 2;

  // A new header of version 3 in `size` bytes, with the phylum data F0 00 00 00; valid from 104 on.
  explicit KespHeader(unsigned int size);
  // The header in front of a load module's bytes; valid when there are at least 104, whatever they hold.
  explicit KespHeader(const ByteString& bytes);

  // 0 when the header has only a part of the field.
  unsigned short getMagicNumber() const;
  // The header-length field; 0 when the header has only a part of it.
  unsigned int getLength() const;
  // Whether the header reaches past its date and time, which a short version-2 header may not.
  boolean holdsLidDateTime() const;
  // The date and time as local broken-down time, seconds 0, not normalised; it lies in the record, and each call
  // overwrites it.
  tm* getLidDateTime();
  // The same of the update time; in version 2, made of zeros.
  tm* getLidUpdateTime();

  // 12 characters, YYYYMMDDhhmm; the low four bits of each become a digit. A shorter text changes nothing.
  void setLidDateTime(char* text);
  // The same; in version 2, changes nothing.
  void setLidUpdateTime(char* text);
  // The first 8 hexadecimal digits; fewer, or a character that is not one, change nothing.
  void setLidNumber(String& hex);
  // At most 64 characters; the rest of the field becomes zeros.
  void setLidInfo(String text);
  void setLidClass(int number);
  void setCRCNumber(unsigned int crc);
  void setLidLength(unsigned int length);
  void setMtdNumber(int number);
  // Sets the lengths too: of the data, in 16 bits, and of the header. In version 2, changes nothing.
  void setPhylumData(ByteString& data);

  // File order to host order and back.
  void Endian();
  // The header bytes, then the phylum data.
  ByteString getByteString() const;
  // Writes the same bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean writeHeader(WriteStream& out) const;
  boolean valid() const { return record.valid(); }

 private:
  KESPHDR& fields(const AssertingFunction& function);
  const KESPHDR& fields(const AssertingFunction& function) const;
  tm* brokenDown(const unsigned char (&digits)[6]);

  HeaderRecord record;  // the whole fixed part, zeros after the cut of a version-2 header
  unsigned int held;    // bytes of it that the header has
  tm time = {};         // what getLidDateTime and getLidUpdateTime point to
  int version = 0;      // as made; 0 when the record is invalid
  ByteString phylumData;
};
