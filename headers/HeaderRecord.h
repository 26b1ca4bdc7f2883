// What the header records share. A record owns its bytes in one ByteString; it is valid when it was made from enough of
// them, and holds none when it was not. Its numbers and flags are held in host order (build form) until Endian()
// converts them, once, to file order (wire form).
#pragma once

#include <arpa/inet.h>

#include <cstring>
#include <optional>
#include <span>

#include "foundation/ByteString.h"
#include "foundation/WriteStream.h"
#include "headers/EbcdicCharacter.h"

// `length` zero bytes, or none when the layout needs more.
ByteString ZeroBytes(unsigned int length, unsigned int layoutSize);
// All of `bytes`, or none when there are fewer than the record needs.
ByteString AtLeast(const ByteString& bytes, unsigned int needed);

// Writes all the bytes; whether the stream reports no failure afterwards.
boolean WriteRecord(WriteStream& out, const ByteString& bytes);

// The bytes as a layout structure, which they must be long enough for.
template <class Layout>
Layout& ViewAs(ByteString& bytes)
{
  return *reinterpret_cast<Layout*>(bytes.getBytePointer());
}

template <class Layout>
const Layout& ViewAs(const ByteString& bytes)
{
  return *reinterpret_cast<const Layout*>(bytes.getBytePointer());
}

// Fills the field with the text in EBCDIC, left-justified, padded with blanks, cut on the right.
template <std::size_t width>
void StoreText(unsigned char (&field)[width], const String& text)
{
  boolean modified = false;
  const ByteString encoded = EbcdicCharacter(text).toModifiedByteString(width, modified);
  std::memcpy(field, encoded.getBytePointer(), width);
}

// The text's own EBCDIC bytes, at most the field's width of them, at the field's beginning; the rest of the field
// stays.
template <std::size_t width>
void StoreTextUnpadded(unsigned char (&field)[width], const String& text)
{
  const ByteString encoded = EbcdicCharacter(text(0, width)).toByteString();
  if (!encoded.empty()) std::memcpy(field, encoded.getBytePointer(), encoded.length());
}

// Converts numbers of the host to big-endian in place, and back.
inline void ToFileOrder(std::uint16_t& number) { number = htons(number); }
inline void ToFileOrder(std::uint32_t& number) { number = htonl(number); }
inline void ToFileOrder(std::int32_t& number)
{
  number = static_cast<std::int32_t>(htonl(static_cast<std::uint32_t>(number)));
}
template <class... Number>
requires(sizeof...(Number) > 1) void ToFileOrder(Number&... numbers) { (ToFileOrder(numbers), ...); }

// A flag's value: true for the one text, false for the other, nothing for any other; compared whole.
std::optional<boolean> FlagOf(const String& value, const char* textOfTrue, const char* textOfFalse);

// A row of a field's value set.
struct CodedValue {
  const char* value;
  unsigned char code;
};

// The code of the row that equals the value, whole and case-sensitively; nothing when none does.
std::optional<unsigned char> CodeOf(std::span<const CodedValue> values, const String& value);

// Writes the line `what` + value + "." to standard error.
void ReportValue(const char* what, const String& value);
