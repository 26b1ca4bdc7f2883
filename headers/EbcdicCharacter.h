// Text as a field of EBCDIC bytes, padded with 0x40. The text is held in ASCII and translated when bytes are made.
#pragma once

#include "headers/DataType.h"

class EbcdicCharacter : public DataType {
 public:
  EbcdicCharacter() = default;
  explicit EbcdicCharacter(const String& s) : text(s) {}
  // The EBCDIC bytes as ASCII characters.
  explicit EbcdicCharacter(const ByteString& b);

  boolean valid() const override { return true; }
  unsigned int byteLength() const override { return text.length(); }
  ByteString toByteString() const override;
  ByteString toModifiedByteString(unsigned int n, boolean& modified) const override;
  virtual String toString() const { return text; }

  // The EBCDIC bytes of the last four characters as a big-endian number.
  unsigned int getValue() const;

 private:
  String text;
};
