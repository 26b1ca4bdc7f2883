// Yields the four bytes of a 32-bit number, the least significant first.
#pragma once

#include <cstdint>

#include "foundation/BasicTypes.h"

class UnsignedLongByteIterator {
 public:
  explicit UnsignedLongByteIterator(unsigned long number) : value(Low32(number)) {}

  boolean valid() const { return index < 4; }
  unsigned char get() const { return static_cast<unsigned char>(value); }
  void next()
  {
    index++;
    value >>= 8;
  }

 private:
  std::uint32_t value;
  std::uint16_t index = 0;
};
