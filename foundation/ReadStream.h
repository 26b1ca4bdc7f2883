// Input over a standard stream that it does not own. No operation throws: callers test failure() after opening and
// after reading. A read that meets the end of the input marks it; only the byte-string reads take back the failure that
// a read cut short by the end leaves.
#pragma once

#include <istream>

#include "foundation/ByteString.h"
#include "foundation/String.h"

class ReadStream {
 public:
  explicit ReadStream(std::istream* input) : stream(input) {}
  virtual ~ReadStream() = default;
  ReadStream(const ReadStream&) = delete;
  ReadStream& operator=(const ReadStream&) = delete;

  // The next byte as 0 to 255, or -1 at the end of the input; consumed, or only looked at.
  int getChar();
  int peekChar() const;
  // Up to n bytes; how many came is not told, and a read cut short by the end leaves the failure.
  void read(unsigned char* p, unsigned int n);
  // The same, and returns how many came; fewer than n at the end of the input are no failure.
  unsigned int readUpTo(unsigned char* p, unsigned int n);
  // The string becomes up to n raw characters.
  void getString(String& s, unsigned int n);
  // The string becomes the next line, without its delimiter. A longer line sets the failure.
  void getLine(String& s, char delimiter, unsigned int longest = String::longestText);
  ReadStream& operator>>(String& s);
  // The byte string becomes up to n bytes, or the whole rest of the input. More bytes than a ByteString counts, and a
  // file that cannot be read to its end, set the failure.
  ReadStream& getByteString(ByteString& b, unsigned int n);
  ReadStream& getByteString(ByteString& b);

  // Moves to `offset` bytes from the start and clears the end-of-input flag; the failure flag stays.
  void setOffset(unsigned long offset);
  // The position of the next byte; 4294967295 when the input has none.
  unsigned long getOffset() const;
  boolean endOfFile() const;
  boolean failure() const { return stream->fail(); }
  void setFailure();
  // Takes back the failure, whatever set it; the end-of-input flag stays.
  void clearFailure();

 protected:
  std::istream* stream;

 private:
  template <class Read>
  void guard(Read readIt);
  void appendTo(ByteString& b, unsigned int n);
};
