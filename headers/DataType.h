// A value that can be turned into the bytes of a fixed-width field. Encoding never fails: a value that does not fit is
// cut, and the caller is told.
#pragma once

#include "foundation/ByteString.h"

class DataType {
 public:
  virtual ~DataType() = default;
  virtual boolean valid() const = 0;
  // The width in bytes that holds the value whole.
  virtual unsigned int byteLength() const = 0;
  // The value in byteLength() bytes.
  virtual ByteString toByteString() const = 0;
  // The value in exactly n bytes; `modified` tells whether any of it was lost.
  virtual ByteString toModifiedByteString(unsigned int n, boolean& modified) const = 0;

  boolean invalid() const { return !valid(); }
};
