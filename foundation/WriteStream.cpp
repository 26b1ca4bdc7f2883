#include "foundation/WriteStream.h"

void WriteStream::close()
{
  if (open) flush();
  open = false;
}

void WriteStream::putChar(char ch) { stream->put(ch); }

void WriteStream::putString(const char* text) { *stream << text; }

void WriteStream::putString(const String& s) { *stream << s; }

void WriteStream::write(const char* p, unsigned int n) { stream->write(p, n); }

void WriteStream::write(const unsigned char* p, unsigned int n) { write(reinterpret_cast<const char*>(p), n); }

void WriteStream::putByteString(const ByteString& b) { write(b.getBytePointer(), b.length()); }

void WriteStream::flush() { stream->flush(); }

void WriteStream::setFailure() { stream->setstate(std::ios_base::failbit); }

void WriteStream::clearFailure() { stream->clear(stream->rdstate() & std::ios_base::eofbit); }

WriteStream& WriteStream::operator<<(const String& s)
{
  putString(s);
  return *this;
}

WriteStream& WriteStream::operator<<(const char* text)
{
  putString(text);
  return *this;
}

WriteStream& WriteStream::operator<<(char ch)
{
  putChar(ch);
  return *this;
}

WriteStream& WriteStream::operator<<(unsigned long value) { return *this << static_cast<unsigned int>(Low32(value)); }

WriteStream& WriteStream::operator<<(unsigned int value)
{
  *stream << value;
  return *this;
}

WriteStream& WriteStream::operator<<(long value) { return *this << static_cast<int>(Low32(value)); }

WriteStream& WriteStream::operator<<(int value)
{
  *stream << value;
  return *this;
}

WriteStream& WriteStream::setHexadecimal()
{
  stream->setf(std::ios_base::hex, std::ios_base::basefield);
  return *this;
}

WriteStream& WriteStream::setDecimal()
{
  stream->setf(std::ios_base::dec, std::ios_base::basefield);
  return *this;
}

WriteStream& WriteStream::setOctal()
{
  stream->setf(std::ios_base::oct, std::ios_base::basefield);
  return *this;
}
