// Numbers as big-endian fields.
#pragma once

#include "headers/DataType.h"

class BinaryData : public DataType {
 public:
  boolean valid() const override { return true; }

  // The 32-bit value in the last bytes of an n-byte field, wider fields filled in front with zeros or the sign.
  // `modified` is set when n is 0 or when a byte of the value, or of a negative value's magnitude, that did not fit is
  // not zero.
  static ByteString ConvertUnsigned(unsigned long value, unsigned int n, boolean& modified);
  static ByteString ConvertSigned(long value, unsigned int n, boolean& modified);
};
