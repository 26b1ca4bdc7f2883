// Walks the bytes of one ByteString. It owns nothing.
#pragma once

#include "foundation/ByteString.h"

class ByteStringIterator {
 public:
  explicit ByteStringIterator(const ByteString& b) : bytes(&b) {}

  void reset() { index = 0; }
  boolean valid() const { return index < bytes->length(); }
  void next() { index++; }
  // The current byte; valid() must hold.
  unsigned char get() const { return bytes->getNthByte(index); }

 private:
  const ByteString* bytes;
  unsigned int index = 0;
};
