// The section header of the output's object-file envelope: 40 bytes, numbers in host order until Endian().
#pragma once

#include <cstddef>
#include <cstdint>

#include "headers/HeaderRecord.h"

struct SCNHDR {
  unsigned char name[8];              // 0: EBCDIC, zeros after a shorter name
  std::uint32_t physicalAddress;      // 8
  std::uint32_t virtualAddress;       // 12
  std::int32_t numberOfRawDataBytes;  // 16
  std::int32_t offsetToRawData;       // 20: bytes from the beginning of the file
  std::uint32_t relocationOffset;     // 24
  std::uint32_t lineNumberOffset;     // 28
  std::uint16_t numberOfRelocations;  // 32
  std::uint16_t numberOfLineNumbers;  // 34
  std::uint32_t flags;                // 36: 0x20
};

static_assert(offsetof(SCNHDR, name) == 0);
static_assert(offsetof(SCNHDR, physicalAddress) == 8);
static_assert(offsetof(SCNHDR, virtualAddress) == 12);
static_assert(offsetof(SCNHDR, numberOfRawDataBytes) == 16);
static_assert(offsetof(SCNHDR, offsetToRawData) == 20);
static_assert(offsetof(SCNHDR, relocationOffset) == 24);
static_assert(offsetof(SCNHDR, lineNumberOffset) == 28);
static_assert(offsetof(SCNHDR, numberOfRelocations) == 32);
static_assert(offsetof(SCNHDR, numberOfLineNumbers) == 34);
static_assert(offsetof(SCNHDR, flags) == 36);
static_assert(sizeof(SCNHDR) == 40);

// Every operation but valid(), getLength(), writeHeader() and destruction asserts valid().
class ScnHdr {
 public:
  static constexpr unsigned int dataSectionFlag = 0x20;

  // `length` zero bytes; valid from 40 on.
  explicit ScnHdr(unsigned int length);
  // All of the bytes; valid when there are at least 16, filled up with zero bytes to 40.
  explicit ScnHdr(const ByteString& b);

  // At most 8 characters, in EBCDIC; what the field holds after them stays.
  void setSectionName(String& name);
  void setNumberOfRawDataBytes(long number);
  // Bytes from the beginning of the file, 32 bits.
  void setOffsetToRawData(long offset);
  void setSectionFlagAsData();

  // Host order to file order; on a little-endian host a second call undoes the first.
  void Endian();
  // A copy of all the bytes.
  ByteString getByteString() const;
  // Writes all the bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean writeHeader(WriteStream& out) const { return record.write(out); }
  unsigned int getLength() const { return record.length(); }
  boolean valid() const { return record.valid(); }

 private:
  SCNHDR& fields(const AssertingFunction& function);

  HeaderRecord record;
};
