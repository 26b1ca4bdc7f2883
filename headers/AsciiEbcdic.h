// The translation between 7-bit ASCII and EBCDIC: the printable characters as in code page 1047.
#pragma once

#include <array>

class AsciiEbcdic {
 public:
  AsciiEbcdic() = delete;

  // A code of 0x80 or more translates as the code with its top bit cleared.
  static unsigned char AsciiToEbcdic(unsigned char code) { return toEbcdic[code]; }
  // 0x1A for most codes that no ASCII code translates to.
  static unsigned char EbcdicToAscii(unsigned char code) { return toAscii[code]; }

  static const std::array<unsigned char, 256> toEbcdic;
  static const std::array<unsigned char, 256> toAscii;
};

// The bytes that pad text fields.
inline constexpr unsigned char asciiBlankChar = 0x20;
extern const unsigned char ebcdicBlankChar;
