// The system's text: counted, growable, always followed by a NUL, deep copies. It owns its block. NUL bytes may stand
// among its characters; operations marked "text view" see only what comes before the first of them. An argument may be
// the string itself or point into its buffer: it then counts as copied before the operation. A length that would pass
// 4294967295 throws std::length_error.
#pragma once

#include <iosfwd>

#include "foundation/BasicTypes.h"

class String {
 public:
  // In characters: the NUL after them is counted too.
  static constexpr unsigned int longestText = UINT_MAX - 1;

  // Empty.
  String();
  // Empty, with room for n characters.
  explicit String(unsigned int n);
  // A copy of the NUL-terminated text.
  String(const char* s);
  // Exactly n bytes from p, NUL bytes included.
  String(const char* p, unsigned int n);
  String(const String& s);
  // The first n characters of s, or all when it has fewer.
  String(const String& s, unsigned int n);
  ~String();

  // The block is kept when the new text fits, else replaced by one of exactly its size.
  String& operator=(const String& s);
  String& operator=(const char* s);
  String& assign(const char* p, unsigned int n);

  unsigned int length() const { return len; }
  boolean empty() const { return len == 0; }
  // Makes the string empty and keeps its block.
  void clear();
  operator const char*() const { return buffer; }
  operator char*() const { return buffer; }

  // The character at the index, which must be below length(); a negative index counts as a huge one.
  char& operator[](int index);
  char& operator[](long index);
  char& operator[](unsigned int index);
  char& operator[](unsigned long index);
  char operator[](int index) const;
  char operator[](long index) const;
  char operator[](unsigned int index) const;
  char operator[](unsigned long index) const;

  // Each lengthens the string and returns it. An insert position may be at most length().
  String& append(const char* p, unsigned int n);
  String& operator+=(char ch);
  String& operator+=(const char* s);
  String& operator+=(const String& s);
  String& insert(unsigned int position, const String& s);
  String& insert(unsigned int position, const char* s);
  String& insert(unsigned int position, char ch);

  // Removes `count` characters, or all up to the end when there are fewer; nothing when the position is after them.
  String& remove(unsigned int position, unsigned int count);
  // Makes sure that the block holds n characters and the NUL. A growing block takes its old capacity on top.
  void reSize(unsigned int n);

  // At most `count` characters from `start` on; empty when `start` is not inside the string.
  String operator()(unsigned int start, unsigned int count) const;
  // Text view. The tail from the first occurrence on; empty when there is none.
  String strStr(const String& s) const;
  String strChr(char ch) const;
  // Text view. Cuts off and returns the text before the first separator, which is dropped; without one, returns an
  // empty text and changes nothing.
  String strBreakStr(const String& separator);
  // Text view. The same for a single delimiter: the first of `delimiters`, in their order, that occurs at all.
  String strTok(const String& delimiters);

  // Letters by the platform's classification; all other bytes stay.
  String& toLower();
  String& toUpper();
  // Text view. Removes trailing blanks, and leading ones too when bothEnds is not 0. Only ' ' is a blank.
  String& strip(int bothEnds);
  // Appends blanks up to the width.
  String& padBlanks(unsigned int width);
  // Text view. Replaces every occurrence of `from`, searching from the beginning again after each, so that what a
  // replacement forms is replaced too. When `to` itself contains `from`, one pass from left to right instead.
  String& substitute(const String& from, const String& to);

  // The value in a printf-style format with one conversion becomes the whole text, however long.
  String& itoa(int value, const char* format);
  String& uitoa(unsigned int value, const char* format);
  String& ltoa(long value, const char* format);
  String& ultoa(unsigned long value, const char* format);

  // Text view. The leading number in the base (as strtol takes it: 2 to 36, or 0 for prefixes), 0 when there is none.
  // AtoI and AtoL saturate at the signed 32-bit limits, AtoUL at 4294967295, where a minus negates modulo 2^32; AtoUI
  // gives the bits of AtoI.
  int AtoI(int base) const;
  unsigned int AtoUI(int base) const;
  long AtoL(int base) const;
  unsigned long AtoUL(int base) const;

  static boolean Equal(const char* a, unsigned int aLength, const char* b, unsigned int bLength);
  // Negative, 0 or positive by the first differing byte (unsigned), else by the lengths.
  static int Compare(const char* a, unsigned int aLength, const char* b, unsigned int bLength);

  // Reads one line; the delimiter is consumed and not stored. A last line without one is a line. A line of more than
  // `longest` bytes, at most longestText, and an end of input before any byte, set the stream's failure.
  std::istream& getLine(std::istream& stream, char delimiter, unsigned int longest = longestText);
  // Skips white space and reads up to the next white space, which stays in the stream.
  std::istream& getWord(std::istream& stream);
  // Reads up to n raw bytes.
  std::istream& get(std::istream& stream, unsigned int n);

 private:
  // Ends the text after n characters, which the block holds.
  void end(unsigned int n);
  // Makes the n characters at p, which fit in the block and may lie in it, the whole text.
  void store(const char* p, unsigned int n);
  String& assignText(const char* p, unsigned int n);
  String& insertText(unsigned int position, const char* p, unsigned int n);
  String& format(const char* form, std::uint32_t bits);
  template <class Number>
  String& print(const char* form, Number value);
  void swap(String& other);

  char* buffer;           // never null; `len` characters and a NUL
  unsigned int len;       // characters, without the NUL
  unsigned int capacity;  // bytes of the block, at least len + 1
};

String operator+(const String& a, const String& b);
String operator+(const String& a, const char* b);
String operator+(const char* a, const String& b);
String operator+(const String& a, char b);
String operator+(char a, const String& b);

// != and a text on the left follow from these. The form for a changeable text keeps the conversion of a String to a
// pointer out of the choice.
boolean operator==(const String& a, const String& b);
boolean operator==(const String& a, const char* b);
boolean operator==(const String& a, char* b);
boolean operator>(const String& a, const String& b);
// There is no other order. Without these, the conversion to a pointer would compare addresses.
template <class Other>
boolean operator<(const String& a, const Other& b) = delete;
template <class Other>
boolean operator<=(const String& a, const Other& b) = delete;
template <class Other>
boolean operator>=(const String& a, const Other& b) = delete;

// Writes all length() characters unformatted.
std::ostream& operator<<(std::ostream& stream, const String& s);

// Compares n bytes after tolower: 0, or the difference of the first two that differ.
int insensitive_memcmp(const char* a, const char* b, unsigned int n);
