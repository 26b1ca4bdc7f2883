#include "foundation/String.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <istream>
#include <ostream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "foundation/Allocate.h"
#include "foundation/Assertion.h"
#include "foundation/PreAllocatedString.h"

namespace {

unsigned int TextLength(const char* text)
{
  const std::size_t length = std::strlen(text);
  if (length != Low32(length)) throw std::length_error("more than 4294967295 characters");
  return Low32(length);
}

unsigned char Byte(char ch) { return static_cast<unsigned char>(ch); }

// The index, asserted to be inside.
unsigned int Checked(unsigned int index, unsigned int length, const AssertingFunction& function)
{
  Assert(index < length, "index < len", "String", function);
  return index;
}

void AssertPosition(unsigned int position, unsigned int length, const AssertingFunction& function)
{
  Assert(position <= length, "position <= len", "String", function);
}

// memcmp, with null pointers allowed when n is 0.
int CompareBytes(const char* a, const char* b, unsigned int n) { return n != 0 ? std::memcmp(a, b, n) : 0; }

// Whether the one conversion of a printf-style format takes a signed number.
boolean IsSignedConversion(const char* form)
{
  const char* conversion = std::strchr(form, '%');
  while (conversion != nullptr && conversion[1] == '%') conversion = std::strchr(conversion + 2, '%');
  if (conversion == nullptr) return false;
  conversion++;
  conversion += std::strspn(conversion, "-+ #0123456789.'hlqjzt");
  return *conversion == 'd' || *conversion == 'i';
}

String Joined(const char* a, unsigned int aLength, const char* b, unsigned int bLength)
{
  PreAllocatedString joined(AddLengths(aLength, bLength));
  joined.append(a, aLength).append(b, bLength);
  return joined;
}

}  // namespace

String::String() : String("", 0) {}

String::String(unsigned int n) : buffer(Allocate(AddLengths(n, 1))), len(0), capacity(n + 1) { clear(); }

String::String(const char* s) : String(s, TextLength(s)) {}

String::String(const char* p, unsigned int n) : String(n) { store(p, n); }

String::String(const String& s) : String(s.buffer, s.len) {}

String::String(const String& s, unsigned int n) : String(s.buffer, MIN(n, s.len)) {}

String::~String() { DeAllocate(buffer); }

String& String::operator=(const String& s) { return assignText(s.buffer, s.len); }

String& String::operator=(const char* s) { return assignText(s, TextLength(s)); }

// A text that begins inside the own block is shorter than its capacity: it only moves.
String& String::assignText(const char* p, unsigned int n)
{
  if (p == buffer) return *this;
  if (n >= capacity) {
    String copy(p, n);
    swap(copy);
  } else {
    store(p, n);
  }
  return *this;
}

String& String::assign(const char* p, unsigned int n)
{
  const SteadyBytes<char> text(p, n, buffer, capacity);
  reSize(n);
  store(text.get(), n);
  return *this;
}

void String::end(unsigned int n)
{
  len = n;
  buffer[len] = '\0';
}

void String::store(const char* p, unsigned int n)
{
  MoveBytes(buffer, p, n);
  end(n);
}

void String::clear() { end(0); }

char& String::operator[](int index)
{
  return buffer[Checked(static_cast<unsigned int>(index), len, "char &String::operator[] (int)")];
}

char& String::operator[](long index)
{
  return buffer[Checked(static_cast<unsigned int>(Low32(index)), len, "char &String::operator[] (long int)")];
}

char& String::operator[](unsigned int index)
{
  return buffer[Checked(index, len, "char &String::operator[] (unsigned int)")];
}

char& String::operator[](unsigned long index)
{
  return buffer[Checked(Low32(index), len, "char &String::operator[] (long unsigned int)")];
}

char String::operator[](int index) const
{
  return buffer[Checked(static_cast<unsigned int>(index), len, "char String::operator[] (int) const")];
}

char String::operator[](long index) const
{
  return buffer[Checked(static_cast<unsigned int>(Low32(index)), len, "char String::operator[] (long int) const")];
}

char String::operator[](unsigned int index) const
{
  return buffer[Checked(index, len, "char String::operator[] (unsigned int) const")];
}

char String::operator[](unsigned long index) const
{
  return buffer[Checked(Low32(index), len, "char String::operator[] (long unsigned int) const")];
}

String& String::append(const char* p, unsigned int n)
{
  const SteadyBytes<char> added(p, n, buffer, capacity);
  reSize(AddLengths(len, n));
  MoveBytes(buffer + len, added.get(), n);
  end(len + n);
  return *this;
}

String& String::operator+=(char ch) { return append(&ch, 1); }

String& String::operator+=(const char* s) { return append(s, TextLength(s)); }

String& String::operator+=(const String& s) { return append(s.buffer, s.len); }

String& String::insert(unsigned int position, const String& s)
{
  AssertPosition(position, len, "String &String::insert (unsigned int, const String &)");
  return insertText(position, s.buffer, s.len);
}

String& String::insert(unsigned int position, const char* s)
{
  AssertPosition(position, len, "String &String::insert (unsigned int, const char *)");
  return insertText(position, s, TextLength(s));
}

String& String::insert(unsigned int position, char ch)
{
  AssertPosition(position, len, "String &String::insert (unsigned int, char)");
  return insertText(position, &ch, 1);
}

String& String::insertText(unsigned int position, const char* p, unsigned int n)
{
  const SteadyBytes<char> inserted(p, n, buffer, capacity);
  reSize(AddLengths(len, n));
  MoveBytes(buffer + position + n, buffer + position, len - position);
  MoveBytes(buffer + position, inserted.get(), n);
  end(len + n);
  return *this;
}

String& String::remove(unsigned int position, unsigned int count)
{
  const unsigned int start = MIN(position, len);
  const unsigned int removed = MIN(count, len - start);
  MoveBytes(buffer + start, buffer + start + removed, len - start - removed);
  end(len - removed);
  return *this;
}

void String::reSize(unsigned int n)
{
  const unsigned int needed = AddLengths(n, 1);
  if (needed <= capacity) return;
  const unsigned int grown = GrownCapacity(needed, capacity);
  buffer = ReAllocate(buffer, capacity, grown);
  capacity = grown;
}

String String::operator()(unsigned int start, unsigned int count) const
{
  const unsigned int first = MIN(start, len);
  return String(buffer + first, MIN(count, len - first));
}

String String::strStr(const String& s) const
{
  const char* found = std::strstr(buffer, s.buffer);
  return found != nullptr ? String(found) : String();
}

String String::strChr(char ch) const
{
  const char* found = std::strchr(buffer, ch);
  return found != nullptr ? String(found) : String();
}

String String::strBreakStr(const String& separator)
{
  const char* found = std::strstr(buffer, separator.buffer);
  if (found == nullptr) return String();
  const String before(buffer, static_cast<unsigned int>(found - buffer));
  remove(0, before.len + TextLength(separator.buffer));
  return before;
}

String String::strTok(const String& delimiters)
{
  for (const char* delimiter = delimiters.buffer; *delimiter != '\0'; delimiter++) {
    if (const char* found = std::strchr(buffer, *delimiter)) {
      const String before(buffer, static_cast<unsigned int>(found - buffer));
      remove(0, before.len + 1);
      return before;
    }
  }
  return String();
}

String& String::toLower()
{
  std::transform(buffer, buffer + len, buffer, [](char ch) { return static_cast<char>(std::tolower(Byte(ch))); });
  return *this;
}

String& String::toUpper()
{
  std::transform(buffer, buffer + len, buffer, [](char ch) { return static_cast<char>(std::toupper(Byte(ch))); });
  return *this;
}

String& String::strip(int bothEnds)
{
  const std::string_view view(buffer);
  const std::size_t last = view.find_last_not_of(' ') + 1;  // 0 when there are only blanks
  const std::size_t first = bothEnds != 0 ? std::min(view.find_first_not_of(' '), last) : 0;
  store(buffer + first, static_cast<unsigned int>(last - first));
  return *this;
}

String& String::padBlanks(unsigned int width)
{
  const unsigned int padded = std::max(width, len);
  reSize(padded);
  std::memset(buffer + len, ' ', padded - len);
  end(padded);
  return *this;
}

String& String::substitute(const String& from, const String& to)
{
  const String searched(from.buffer);
  const String replacement(to.buffer);
  if (searched.empty()) return *this;
  const boolean again = std::strstr(replacement.buffer, searched.buffer) == nullptr;
  unsigned int start = 0;
  while (const char* found = std::strstr(buffer + start, searched.buffer)) {
    const auto before = static_cast<unsigned int>(found - buffer);
    const char* after = found + searched.len;
    const unsigned int afterLength = TextLength(after);
    PreAllocatedString changed(AddLengths(AddLengths(before, replacement.len), afterLength));
    changed.append(buffer, before).append(replacement.buffer, replacement.len).append(after, afterLength);
    swap(changed);
    start = again ? 0 : before + replacement.len;
  }
  return *this;
}

// The conversion of the format, not the type of the value, says whether its 32 bits have a sign.
String& String::format(const char* form, std::uint32_t bits)
{
  return IsSignedConversion(form) ? print(form, long{static_cast<std::int32_t>(bits)})
                                  : print(form, static_cast<unsigned long>(bits));
}

template <class Number>
String& String::print(const char* form, Number value)
{
  const int needed = std::max(std::snprintf(nullptr, 0, form, value), 0);
  PreAllocatedString text(static_cast<unsigned int>(needed));
  std::snprintf(text.buffer, text.capacity, form, value);
  text.end(static_cast<unsigned int>(needed));
  swap(text);
  return *this;
}

String& String::itoa(int value, const char* form) { return format(form, static_cast<std::uint32_t>(value)); }

String& String::uitoa(unsigned int value, const char* form) { return format(form, value); }

String& String::ltoa(long value, const char* form) { return format(form, Low32(static_cast<unsigned long>(value))); }

String& String::ultoa(unsigned long value, const char* form) { return format(form, Low32(value)); }

int String::AtoI(int base) const
{
  const long long value = std::strtoll(buffer, nullptr, base);
  return static_cast<int>(std::clamp<long long>(value, INT32_MIN, INT32_MAX));
}

unsigned int String::AtoUI(int base) const { return static_cast<unsigned int>(AtoI(base)); }

long String::AtoL(int base) const { return AtoI(base); }

// strtoull negates what follows a minus in 64 bits; the magnitude decides whether 32 bits hold it. What passes 64 bits
// comes as their largest number, whose low 32 bits are right too.
unsigned long String::AtoUL(int base) const
{
  const char* text = buffer;
  while (std::isspace(Byte(*text))) text++;
  const unsigned long long value = std::strtoull(text, nullptr, base);
  const unsigned long long magnitude = *text == '-' ? 0 - value : value;
  if (magnitude > UINT32_MAX) return UINT32_MAX;
  return static_cast<std::uint32_t>(value);
}

boolean String::Equal(const char* a, unsigned int aLength, const char* b, unsigned int bLength)
{
  return aLength == bLength && CompareBytes(a, b, aLength) == 0;
}

int String::Compare(const char* a, unsigned int aLength, const char* b, unsigned int bLength)
{
  if (const int difference = CompareBytes(a, b, MIN(aLength, bLength))) return difference;
  const long long difference = static_cast<long long>(aLength) - bLength;
  return static_cast<int>(std::clamp<long long>(difference, INT32_MIN, INT32_MAX));
}

std::istream& String::getLine(std::istream& stream, char delimiter, unsigned int longest)
{
  clear();
  while (!stream.fail()) {
    if (len == longest) {
      stream.setstate(std::ios_base::failbit);
      break;
    }
    reSize(len + 1);
    stream.get(buffer + len, MIN(capacity, longest + 1) - len, delimiter);
    end(len + static_cast<unsigned int>(stream.gcount()));
    // get() reports an empty piece as a failure; with input left it is only the delimiter that comes next.
    if (stream.rdstate() == std::ios_base::failbit) stream.clear();
    if (!stream.good()) break;
    const auto next = stream.peek();
    if (next == std::char_traits<char>::to_int_type(delimiter)) {
      stream.ignore();
      break;
    }
    if (next == std::char_traits<char>::eof()) break;
  }
  return stream;
}

std::istream& String::getWord(std::istream& stream)
{
  clear();
  char ch = '\0';
  if (!(stream >> ch)) return stream;
  do {
    *this += ch;
    if (!stream.get(ch)) return stream;
  } while (!std::isspace(Byte(ch)));
  return stream.putback(ch);
}

std::istream& String::get(std::istream& stream, unsigned int n)
{
  clear();
  if (stream.fail()) return stream;
  reSize(n);
  stream.read(buffer, n);
  end(static_cast<unsigned int>(stream.gcount()));
  return stream;
}

void String::swap(String& other)
{
  std::swap(buffer, other.buffer);
  std::swap(len, other.len);
  std::swap(capacity, other.capacity);
}

String operator+(const String& a, const String& b) { return Joined(a, a.length(), b, b.length()); }

String operator+(const String& a, const char* b) { return Joined(a, a.length(), b, TextLength(b)); }

String operator+(const char* a, const String& b) { return Joined(a, TextLength(a), b, b.length()); }

String operator+(const String& a, char b) { return Joined(a, a.length(), &b, 1); }

String operator+(char a, const String& b) { return Joined(&a, 1, b, b.length()); }

boolean operator==(const String& a, const String& b) { return String::Equal(a, a.length(), b, b.length()); }

boolean operator==(const String& a, const char* b) { return String::Equal(a, a.length(), b, TextLength(b)); }

boolean operator==(const String& a, char* b) { return a == static_cast<const char*>(b); }

boolean operator>(const String& a, const String& b) { return String::Compare(a, a.length(), b, b.length()) > 0; }

std::ostream& operator<<(std::ostream& stream, const String& s)
{
  return stream.write(s, static_cast<std::streamsize>(s.length()));
}

int insensitive_memcmp(const char* a, const char* b, unsigned int n)
{
  for (unsigned int i = 0; i < n; i++) {
    const int difference = std::tolower(Byte(a[i])) - std::tolower(Byte(b[i]));
    if (difference != 0) return difference;
  }
  return 0;
}
