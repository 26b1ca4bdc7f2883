// Text as a field of ASCII bytes, padded with 0x20.
#pragma once

#include "headers/DataType.h"

class AsciiCharacter : public DataType {
 public:
  AsciiCharacter() = default;
  explicit AsciiCharacter(const String& s) : text(s) {}
  // The bytes as they are, one character each.
  explicit AsciiCharacter(const ByteString& b);

  boolean valid() const override { return true; }
  unsigned int byteLength() const override { return text.length(); }
  ByteString toByteString() const override;
  ByteString toModifiedByteString(unsigned int n, boolean& modified) const override;
  virtual String toString() const { return text; }

  // The last four characters as a big-endian number; each character counts as a signed byte.
  unsigned int getValue() const;

 private:
  String text;
};
