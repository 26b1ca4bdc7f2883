// The file header of the output's object-file envelope: 20 bytes, numbers in host order until Endian().
#pragma once

#include <cstddef>
#include <cstdint>

#include "headers/HeaderRecord.h"

struct FILEHDR {
  std::uint16_t magicNumber;                  // 0: 0x01DF
  std::uint16_t numberOfSections;             // 2
  std::int32_t timeDate;                      // 4: seconds since the epoch
  std::int32_t symbolTableOffset;             // 8: bytes from the beginning of the file
  std::uint32_t numberOfSymbols;              // 12
  std::uint16_t numberOfOptionalHeaderBytes;  // 16: what stands between this header and the section header
  std::uint16_t flags;                        // 18
};

static_assert(offsetof(FILEHDR, magicNumber) == 0);
static_assert(offsetof(FILEHDR, numberOfSections) == 2);
static_assert(offsetof(FILEHDR, timeDate) == 4);
static_assert(offsetof(FILEHDR, symbolTableOffset) == 8);
static_assert(offsetof(FILEHDR, numberOfSymbols) == 12);
static_assert(offsetof(FILEHDR, numberOfOptionalHeaderBytes) == 16);
static_assert(offsetof(FILEHDR, flags) == 18);
static_assert(sizeof(FILEHDR) == 20);

// Every operation but valid(), getLength(), writeHeader() and destruction asserts valid().
class FileHdr {
 public:
  static constexpr unsigned short objectMagicNumber = 0x01DF;

  // `length` zero bytes; valid from 20 on.
  explicit FileHdr(unsigned int length);
  // The first 20 of the bytes; valid when there are that many.
  explicit FileHdr(const ByteString& b);

  void setMagicNumber();
  // In its stored order: the host's before Endian().
  unsigned short getMagicNumber();
  void setNumberOfSections(unsigned short number);
  // Seconds since the epoch, 32 bits.
  void setTimeDate(long time);
  // Bytes from the beginning of the file, 32 bits.
  void setSymPtr(long offset);
  void setNumberOfOptionalHeaderBytes(unsigned short number);

  // Host order to file order; on a little-endian host a second call undoes the first.
  void Endian();
  // A copy of all the bytes.
  ByteString getByteString() const;
  // Writes all the bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean writeHeader(WriteStream& out) const { return record.write(out); }
  unsigned int getLength() const { return record.length(); }
  boolean valid() const { return record.valid(); }

 private:
  FILEHDR& fields(const AssertingFunction& function);

  HeaderRecord record;
};
