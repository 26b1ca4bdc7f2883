// What the header records share. A record owns its bytes in one ByteString; it is valid when it was made from enough of
// them, and holds none when it was not. Its numbers and flags are held in host order (build form) until Endian()
// converts them, once, to file order (wire form).
#pragma once

#include <arpa/inet.h>

#include <cstring>
#include <optional>
#include <span>

#include "foundation/Assertion.h"
#include "foundation/ByteString.h"
#include "foundation/WriteStream.h"
#include "headers/EbcdicCharacter.h"

// The bytes of one record.
class HeaderRecord {
 public:
  // `length` zero bytes; valid when the layout needs no more. Assertions give the source's name, which must outlive the
  // record.
  HeaderRecord(const char* sourceName, unsigned int length, unsigned int layoutSize);
  // All of the bytes; valid when there are at least `needed`.
  HeaderRecord(const char* sourceName, const ByteString& b, unsigned int needed);

  boolean valid() const { return !content.empty(); }
  unsigned int length() const { return content.length(); }
  // All the bytes; asserts valid() on behalf of the function.
  ByteString& bytes(const AssertingFunction& function);
  const ByteString& bytes(const AssertingFunction& function) const;
  // Writes all the bytes, of an invalid record none; whether the stream reports no failure afterwards.
  boolean write(WriteStream& out) const;

 private:
  const char* source;
  ByteString content;  // none when the record is invalid
};

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
  boolean ignored{};
  const ByteString encoded = EbcdicCharacter(text).toModifiedByteString(width, ignored);
  std::memcpy(field, encoded.getBytePointer(), width);
}

// Stores the text's own EBCDIC bytes at the field's beginning, at most the field's width of them. The rest of the field
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

// A row of a field's value set.
struct CodedValue {
  const char* value;
  unsigned char code;
};

inline constexpr CodedValue yesNo[] = {{"Y", 1}, {"N", 0}};

// The code of the row that equals the value, whole and case-sensitively; nothing when none does.
std::optional<unsigned char> CodeOf(std::span<const CodedValue> values, const String& value);

// Writes the line `what` + value + "." to standard error.
void ReportValue(const char* what, const String& value);
