// Output over a standard stream that it does not own. No operation throws or returns a result: callers test failure()
// afterwards.
#pragma once

#include <ostream>

#include "foundation/ByteString.h"
#include "foundation/String.h"

class WriteStream {
 public:
  explicit WriteStream(std::ostream* output) : stream(output) {}
  virtual ~WriteStream() = default;
  WriteStream(const WriteStream&) = delete;
  WriteStream& operator=(const WriteStream&) = delete;
  // Flushes, once; a file stays open until its stream is destroyed.
  virtual void close();

  void putChar(char ch);
  void putString(const char* text);
  // All length() characters, NUL bytes included.
  void putString(const String& s);
  void write(const char* p, unsigned int n);
  void write(const unsigned char* p, unsigned int n);
  void putByteString(const ByteString& b);
  void flush();

  boolean isOpen() const { return open; }
  boolean failure() const { return stream->fail(); }
  void setFailure();
  // Takes back the failure, whatever set it.
  void clearFailure();

  // Strings and characters as they are; numbers, 32 bits wide, as text in the current base.
  WriteStream& operator<<(const String& s);
  WriteStream& operator<<(const char* text);
  WriteStream& operator<<(char ch);
  WriteStream& operator<<(unsigned long value);
  WriteStream& operator<<(unsigned int value);
  WriteStream& operator<<(long value);
  WriteStream& operator<<(int value);
  WriteStream& setHexadecimal();
  WriteStream& setDecimal();
  WriteStream& setOctal();

 protected:
  std::ostream* stream;

 private:
  boolean open = true;
};
