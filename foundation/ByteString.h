// The system's byte buffer: counted, growable, deep copies; it owns its block. Nibble 0 is the high nibble of byte 0,
// bit 0 the most significant bit of byte 0. An argument may be the byte string itself: it then counts as copied before
// the operation. A length that would pass 4294967295 throws std::length_error.
#pragma once

#include "foundation/BasicTypes.h"
#include "foundation/String.h"

inline constexpr char booleanDigit[] = "01";
inline constexpr char hexDigit[] = "0123456789abcdef";

class ByteString {
 public:
  // Empty, without a block.
  ByteString() = default;
  // n bytes, each `fill`.
  ByteString(unsigned int n, unsigned char fill);
  ByteString(const ByteString& b);
  // The first n bytes of b, or all when it has fewer.
  ByteString(const ByteString& b, unsigned int n);
  ByteString(const char* p, unsigned int n);
  ByteString(const unsigned char* p, unsigned int n);
  ~ByteString();

  // The block is kept when the bytes fit, else replaced by one of exactly their number.
  ByteString& operator=(const ByteString& b);

  unsigned int length() const { return len; }
  boolean empty() const { return len == 0; }
  // Makes the byte string empty and keeps its block.
  void clear() { len = 0; }
  // The first byte, or null while nothing was ever allocated; an operation that lengthens moves it.
  unsigned char* getBytePointer() const { return buffer; }
  // Sets all bytes to `fill`.
  void init(unsigned char fill);

  // Access by number; the byte must be inside. Of a nibble's value only the low four bits count.
  void setNthByte(unsigned int n, unsigned char value);
  unsigned char getNthByte(unsigned int n) const;
  unsigned char& operator[](unsigned int n);
  unsigned char operator[](unsigned int n) const;
  void setNthNibble(unsigned int n, unsigned char value);
  unsigned char getNthNibble(unsigned int n) const;
  void setNthBit(unsigned int n, boolean value);
  boolean getNthBit(unsigned int n) const;

  // Removes `count` bytes, or all up to the end when there are fewer; nothing when the position is after them.
  ByteString& remove(unsigned int position, unsigned int count);
  // Each position may be at most length(); replace() cuts a range that reaches past the end.
  ByteString& insert(unsigned int position, const ByteString& b);
  ByteString& insert(unsigned int position, unsigned char byte);
  ByteString& replace(unsigned int position, unsigned int count, const ByteString& b);
  ByteString& replace(unsigned int position, unsigned int count, unsigned char byte);
  ByteString& operator+=(const ByteString& b);
  ByteString& operator+=(unsigned char byte);
  // Makes sure that the block holds n bytes. A growing block takes its old capacity on top.
  void reSize(unsigned int n);
  // Lengthens by n bytes of undefined content and returns the first of them, for a reader to fill.
  unsigned char* extend(unsigned int n);

  // At most `count` bytes from `start` on; empty when `start` is not inside.
  ByteString operator()(unsigned int start, unsigned int count) const;
  boolean equal(const ByteString& b) const;

  // Two lower-case hexadecimal digits a byte; eight binary digits a byte.
  String toHexString() const;
  String toBinaryString() const;
  // The bytes that the digits spell; empty when the text holds anything but digits. When the digits do not fill the
  // last byte, padLeft true puts the missing zeros before all digits, padLeft false after them.
  static ByteString FromHexString(const String& text, boolean padLeft);
  static ByteString FromBinaryString(const String& text, boolean padLeft);

 private:
  ByteString& insertBytes(unsigned int position, const unsigned char* p, unsigned int n);
  ByteString& replaceBytes(unsigned int position, unsigned int count, const unsigned char* p, unsigned int n);

  unsigned char* buffer = nullptr;
  unsigned int len = 0;       // bytes in use
  unsigned int capacity = 0;  // bytes of the block
};

ByteString operator+(const ByteString& a, const ByteString& b);
ByteString operator+(const ByteString& a, unsigned char b);
ByteString operator+(unsigned char a, const ByteString& b);

// True for '0' and '1'.
boolean isbdigit(char ch);
// The value of a hexadecimal digit of either case, which ch must be.
unsigned char Value(char ch);
