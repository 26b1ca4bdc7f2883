#include "foundation/ByteString.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "foundation/Allocate.h"
#include "foundation/Assertion.h"
#include "foundation/PreAllocatedString.h"

namespace {

void AssertBelow(unsigned int n, unsigned int length, const char* expression, const AssertingFunction& function)
{
  Assert(n < length, expression, "ByteString", function);
}

void AssertPosition(unsigned int position, unsigned int length, const AssertingFunction& function)
{
  Assert(position <= length, "position <= len", "ByteString", function);
}

// The distance of nibble n's lowest bit from the lowest of its byte.
unsigned int NibbleShift(unsigned int n) { return n % 2 == 0 ? 4 : 0; }

unsigned char BitMask(unsigned int n) { return static_cast<unsigned char>(0x80U >> (n % 8)); }

// The bytes that the digits of the text spell, each set at its place; empty when one of them is no digit.
ByteString FromString(const String& text, unsigned int digitsPerByte, boolean padLeft, boolean (*isDigit)(char),
                      void (*setDigit)(ByteString& bytes, unsigned int place, unsigned char value))
{
  const unsigned int rest = text.length() % digitsPerByte;
  const unsigned int missing = rest != 0 ? digitsPerByte - rest : 0;
  ByteString bytes(text.length() / digitsPerByte + (rest != 0 ? 1 : 0), 0x00);
  // Zeros in front are the same as beginning in the middle of the first byte.
  const unsigned int first = padLeft ? missing : 0;
  for (unsigned int i = 0; i < text.length(); i++) {
    if (!isDigit(text[i])) return ByteString();
    setDigit(bytes, first + i, Value(text[i]));
  }
  return bytes;
}

}  // namespace

ByteString::ByteString(unsigned int n, unsigned char fill) { std::fill_n(extend(n), n, fill); }

ByteString::ByteString(const ByteString& b) : ByteString(b.buffer, b.len) {}

ByteString::ByteString(const ByteString& b, unsigned int n) : ByteString(b.buffer, MIN(n, b.len)) {}

ByteString::ByteString(const char* p, unsigned int n) : ByteString(reinterpret_cast<const unsigned char*>(p), n) {}

ByteString::ByteString(const unsigned char* p, unsigned int n) { MoveBytes(extend(n), p, n); }

ByteString::~ByteString() { DeAllocate(buffer); }

ByteString& ByteString::operator=(const ByteString& b)
{
  if (b.len > capacity) {
    unsigned char* block = Allocate<unsigned char>(b.len);
    DeAllocate(buffer);
    buffer = block;
    capacity = b.len;
  }
  len = b.len;
  MoveBytes(buffer, b.buffer, len);
  return *this;
}

void ByteString::init(unsigned char fill) { std::fill_n(buffer, len, fill); }

void ByteString::setNthByte(unsigned int n, unsigned char value)
{
  AssertBelow(n, len, "n < len", "void ByteString::setNthByte (unsigned int, unsigned char)");
  buffer[n] = value;
}

unsigned char ByteString::getNthByte(unsigned int n) const
{
  AssertBelow(n, len, "n < len", "unsigned char ByteString::getNthByte (unsigned int) const");
  return buffer[n];
}

unsigned char& ByteString::operator[](unsigned int n)
{
  AssertBelow(n, len, "n < len", "unsigned char &ByteString::operator[] (unsigned int)");
  return buffer[n];
}

unsigned char ByteString::operator[](unsigned int n) const
{
  AssertBelow(n, len, "n < len", "unsigned char ByteString::operator[] (unsigned int) const");
  return buffer[n];
}

void ByteString::setNthNibble(unsigned int n, unsigned char value)
{
  AssertBelow(n / 2, len, "byteNumber < len", "void ByteString::setNthNibble (unsigned int, unsigned char)");
  const unsigned int kept = buffer[n / 2] & (0xF0U >> NibbleShift(n));
  buffer[n / 2] = static_cast<unsigned char>(kept | (value & 0x0FU) << NibbleShift(n));
}

unsigned char ByteString::getNthNibble(unsigned int n) const
{
  AssertBelow(n / 2, len, "byteNumber < len", "unsigned char ByteString::getNthNibble (unsigned int) const");
  return (buffer[n / 2] >> NibbleShift(n)) & 0x0F;
}

void ByteString::setNthBit(unsigned int n, boolean value)
{
  AssertBelow(n / 8, len, "byteNumber < len", "void ByteString::setNthBit (unsigned int, boolean)");
  const unsigned int others = buffer[n / 8] & ~static_cast<unsigned int>(BitMask(n));
  buffer[n / 8] = static_cast<unsigned char>(value ? others | BitMask(n) : others);
}

boolean ByteString::getNthBit(unsigned int n) const
{
  AssertBelow(n / 8, len, "byteNumber < len", "boolean ByteString::getNthBit (unsigned int) const");
  return (buffer[n / 8] & BitMask(n)) != 0;
}

ByteString& ByteString::remove(unsigned int position, unsigned int count)
{
  const unsigned int start = MIN(position, len);
  const unsigned int removed = MIN(count, len - start);
  MoveBytes(buffer + start, buffer + start + removed, len - start - removed);
  len -= removed;
  return *this;
}

ByteString& ByteString::insert(unsigned int position, const ByteString& b)
{
  AssertPosition(position, len, "ByteString &ByteString::insert (unsigned int, const ByteString &)");
  return insertBytes(position, b.buffer, b.len);
}

ByteString& ByteString::insert(unsigned int position, unsigned char byte)
{
  AssertPosition(position, len, "ByteString &ByteString::insert (unsigned int, unsigned char)");
  return insertBytes(position, &byte, 1);
}

ByteString& ByteString::insertBytes(unsigned int position, const unsigned char* p, unsigned int n)
{
  const SteadyBytes<unsigned char> inserted(p, n, buffer, capacity);
  const unsigned int tail = len - position;
  unsigned char* const place = extend(n) - tail;
  MoveBytes(place + n, place, tail);
  MoveBytes(place, inserted.get(), n);
  return *this;
}

ByteString& ByteString::replace(unsigned int position, unsigned int count, const ByteString& b)
{
  AssertPosition(position, len, "ByteString &ByteString::replace (unsigned int, unsigned int, const ByteString &)");
  return replaceBytes(position, count, b.buffer, b.len);
}

ByteString& ByteString::replace(unsigned int position, unsigned int count, unsigned char byte)
{
  AssertPosition(position, len, "ByteString &ByteString::replace (unsigned int, unsigned int, unsigned char)");
  return replaceBytes(position, count, &byte, 1);
}

ByteString& ByteString::replaceBytes(unsigned int position, unsigned int count, const unsigned char* p, unsigned int n)
{
  const SteadyBytes<unsigned char> by(p, n, buffer, capacity);
  return remove(position, count).insertBytes(position, by.get(), n);
}

ByteString& ByteString::operator+=(const ByteString& b) { return insertBytes(len, b.buffer, b.len); }

ByteString& ByteString::operator+=(unsigned char byte)
{
  *extend(1) = byte;
  return *this;
}

void ByteString::reSize(unsigned int n)
{
  if (n <= capacity) return;
  const unsigned int grown = GrownCapacity(n, capacity);
  buffer = ReAllocate(buffer, capacity, grown);
  capacity = grown;
}

unsigned char* ByteString::extend(unsigned int n)
{
  const unsigned int start = len;
  reSize(AddLengths(len, n));
  len += n;
  return buffer + start;
}

ByteString ByteString::operator()(unsigned int start, unsigned int count) const
{
  const unsigned int first = MIN(start, len);
  return ByteString(buffer + first, MIN(count, len - first));
}

boolean ByteString::equal(const ByteString& b) const
{
  return std::equal(buffer, buffer + len, b.buffer, b.buffer + b.len);
}

String ByteString::toHexString() const
{
  PreAllocatedString text(AddLengths(len, len));
  for (unsigned int i = 0; i < len; i++) {
    text += hexDigit[buffer[i] >> 4];
    text += hexDigit[buffer[i] & 0x0F];
  }
  return text;
}

String ByteString::toBinaryString() const
{
  const unsigned int four = AddLengths(AddLengths(len, len), AddLengths(len, len));
  PreAllocatedString text(AddLengths(four, four));
  for (unsigned int i = 0; i < len; i++) {
    for (unsigned int bit = 0; bit < 8; bit++) text += booleanDigit[(buffer[i] & BitMask(bit)) != 0 ? 1 : 0];
  }
  return text;
}

ByteString ByteString::FromHexString(const String& text, boolean padLeft)
{
  return FromString(
      text, 2, padLeft, [](char ch) { return std::isxdigit(static_cast<unsigned char>(ch)) != 0; },
      [](ByteString& bytes, unsigned int place, unsigned char value) { bytes.setNthNibble(place, value); });
}

ByteString ByteString::FromBinaryString(const String& text, boolean padLeft)
{
  return FromString(text, 8, padLeft, isbdigit, [](ByteString& bytes, unsigned int place, unsigned char value) {
    bytes.setNthBit(place, value == 1);
  });
}

ByteString operator+(const ByteString& a, const ByteString& b)
{
  ByteString joined(a);
  joined += b;
  return joined;
}

ByteString operator+(const ByteString& a, unsigned char b) { return a + ByteString(&b, 1); }

ByteString operator+(unsigned char a, const ByteString& b) { return ByteString(&a, 1) + b; }

boolean isbdigit(char ch) { return ch == '0' || ch == '1'; }

unsigned char Value(char ch)
{
  if (ch >= '0' && ch <= '9') return static_cast<unsigned char>(ch - '0');
  return static_cast<unsigned char>(std::tolower(static_cast<unsigned char>(ch)) - 'a' + 10);
}
