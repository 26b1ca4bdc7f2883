// The auxiliary header of the output's object-file envelope: 28 bytes, numbers in host order until Endian().
#pragma once

#include <cstddef>
#include <cstdint>

#include "headers/HeaderRecord.h"

struct AUXILLARYHDR {
  std::uint16_t magicNumber;            // 0: 0x010B
  std::uint16_t versionStamp;           // 2: 0x0010
  std::uint32_t textSize;               // 4
  std::uint32_t initialisedDataSize;    // 8
  std::uint32_t uninitialisedDataSize;  // 12
  std::uint32_t entryPoint;             // 16
  std::uint32_t textStart;              // 20
  std::uint32_t dataStart;              // 24
};

static_assert(offsetof(AUXILLARYHDR, magicNumber) == 0);
static_assert(offsetof(AUXILLARYHDR, versionStamp) == 2);
static_assert(offsetof(AUXILLARYHDR, textSize) == 4);
static_assert(offsetof(AUXILLARYHDR, initialisedDataSize) == 8);
static_assert(offsetof(AUXILLARYHDR, uninitialisedDataSize) == 12);
static_assert(offsetof(AUXILLARYHDR, entryPoint) == 16);
static_assert(offsetof(AUXILLARYHDR, textStart) == 20);
static_assert(offsetof(AUXILLARYHDR, dataStart) == 24);
static_assert(sizeof(AUXILLARYHDR) == 28);

// Every operation but valid(), getLength(), writeHeader() and destruction asserts valid().
class AuxillaryHdr {
 public:
  static constexpr unsigned short auxiliaryMagicNumber = 0x010B;
  static constexpr unsigned short auxiliaryVersionStamp = 0x0010;

  // `length` zero bytes; valid from 28 on.
  explicit AuxillaryHdr(unsigned int length);
  // All of the bytes; valid when there are at least 72, the full form of which this layout is the beginning.
  explicit AuxillaryHdr(const ByteString& b);

  // The constants that mark the header and its version.
  void setMFlag();
  void setVStamp();

  // Host order to file order; on a little-endian host a second call undoes the first.
  void Endian();
  // A copy of all the bytes.
  ByteString getByteString() const;
  // Writes all the bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean writeHeader(WriteStream& out) const { return record.write(out); }
  unsigned int getLength() const { return record.length(); }
  boolean valid() const { return record.valid(); }

 private:
  AUXILLARYHDR& fields(const AssertingFunction& function);

  HeaderRecord record;
};
