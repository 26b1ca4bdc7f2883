#include "foundation/ReadStream.h"

#include <exception>

#include "foundation/Allocate.h"

namespace {

constexpr unsigned int readStep = 256;

}  // namespace

// Runs a read; memory that cannot be had for what it brings is a failure of the stream.
template <class Read>
void ReadStream::guard(Read readIt)
{
  try {
    readIt();
  } catch (const std::exception&) {
    stream->setstate(std::ios_base::badbit);
  }
}

int ReadStream::getChar() { return stream->get(); }

int ReadStream::peekChar() const { return endOfFile() ? -1 : stream->peek(); }

void ReadStream::read(unsigned char* p, unsigned int n) { stream->read(reinterpret_cast<char*>(p), n); }

void ReadStream::getString(String& s, unsigned int n)
{
  guard([&] { s.get(*stream, n); });
}

void ReadStream::getLine(String& s, char delimiter, unsigned int longest)
{
  guard([&] { s.getLine(*stream, delimiter, longest); });
}

ReadStream& ReadStream::operator>>(String& s)
{
  getLine(s, '\n');
  return *this;
}

unsigned int ReadStream::readUpTo(unsigned char* p, unsigned int n)
{
  read(p, n);
  if (stream->eof() && !stream->bad()) clearFailure();
  return static_cast<unsigned int>(stream->gcount());
}

void ReadStream::appendTo(ByteString& b, unsigned int n)
{
  guard([&] {
    const unsigned int got = readUpTo(b.extend(n), n);
    b.remove(b.length() - (n - got), n - got);
  });
}

ReadStream& ReadStream::getByteString(ByteString& b, unsigned int n)
{
  b.clear();
  while (b.length() < n && !endOfFile()) appendTo(b, MIN(readStep, n - b.length()));
  return *this;
}

ReadStream& ReadStream::getByteString(ByteString& b)
{
  b.clear();
  while (!endOfFile()) appendTo(b, readStep);
  return *this;
}

void ReadStream::setOffset(unsigned long offset)
{
  const std::streamoff target = Low32(offset);
  std::streambuf* buffer = stream->rdbuf();
  if (buffer == nullptr || buffer->pubseekpos(target, std::ios_base::in) != std::streampos(target)) setFailure();
  stream->clear(stream->rdstate() & ~std::ios_base::eofbit);
}

unsigned long ReadStream::getOffset() const
{
  std::streambuf* buffer = stream->rdbuf();
  std::streamoff position = -1;
  if (buffer != nullptr) position = buffer->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
  return Low32(static_cast<unsigned long>(position));
}

boolean ReadStream::endOfFile() const { return stream->eof() || stream->peek() == std::char_traits<char>::eof(); }

void ReadStream::setFailure() { stream->setstate(std::ios_base::failbit); }

void ReadStream::clearFailure() { stream->clear(stream->rdstate() & std::ios_base::eofbit); }
