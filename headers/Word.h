// A 32-bit number, signed or unsigned by the type that it is made from, as a field of four bytes.
#pragma once

#include "headers/BinaryData.h"

class Word : public BinaryData {
 public:
  static constexpr long MinimumSignedValue = -2147483648L;
  static constexpr long MaximumSignedValue = 2147483647L;
  static constexpr unsigned long MaximumUnsignedValue = 4294967295UL;

  // Unsigned 0.
  Word() : Word(0UL) {}
  explicit Word(unsigned long v) : isSigned(false), bits(Low32(v)) {}
  explicit Word(long v) : isSigned(true), bits(static_cast<std::uint32_t>(Low32(v))) {}

  // Whether the value is in the range of its type, which 32 bits always are.
  boolean valid() const override;
  unsigned int byteLength() const override { return 4; }
  ByteString toByteString() const override;
  ByteString toModifiedByteString(unsigned int n, boolean& modified) const override;

 private:
  long signedValue() const { return static_cast<std::int32_t>(bits); }

  boolean isSigned;
  std::uint32_t bits;
};
