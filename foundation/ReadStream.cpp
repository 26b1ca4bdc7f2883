#include "foundation/ReadStream.h"

#include <algorithm>
#include <exception>

#include "foundation/Allocate.h"

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

void ReadStream::getLine(String& s, char delimiter)
{
  guard([&] { s.getLine(*stream, delimiter); });
}

ReadStream& ReadStream::operator>>(String& s)
{
  getLine(s, '\n');
  return *this;
}

ReadStream& ReadStream::getByteString(ByteString& b, unsigned int n)
{
  b.clear();
  appendBytes(b, n);
  return *this;
}

ReadStream& ReadStream::getByteString(ByteString& b)
{
  b.clear();
  return appendByteString(b);
}

ReadStream& ReadStream::appendByteString(ByteString& b)
{
  const unsigned int room = MaximumLength - b.length();
  if (available() > room) {  // known before any memory is spent on it
    setFailure();
    return *this;
  }
  appendBytes(b, room);
  if (!endOfFile()) setFailure();
  return *this;
}

// What the input says to hold still, in bytes; not above 0 when it does not say.
std::streamsize ReadStream::available() const { return stream->good() ? stream->rdbuf()->in_avail() : 0; }

// Reads straight into the byte string. What the input says to hold still is made room for at once and read in one
// piece; without a word from it, 256 bytes at a time.
void ReadStream::appendBytes(ByteString& b, unsigned int most)
{
  constexpr std::streamsize step = 256;
  unsigned int wanted = most;
  while (wanted > 0) {
    const std::streamsize announced = available();
    if (announced <= 0 && endOfFile()) return;
    const auto piece = static_cast<unsigned int>(std::min<std::streamsize>(wanted, std::max(announced, step)));
    const unsigned int start = b.length();
    guard([&] { read(b.extend(piece), piece); });
    if (b.length() == start) return;
    const auto got = static_cast<unsigned int>(stream->gcount());
    b.remove(b.length() - (piece - got), piece - got);
    if (stream->eof() && !stream->bad()) clearFailure();
    wanted -= got;
  }
}

void ReadStream::setOffset(unsigned long offset)
{
  const std::streamoff target = Low32(offset);
  if (stream->rdbuf()->pubseekpos(target, std::ios_base::in) != std::streampos(target)) setFailure();
  stream->clear(stream->rdstate() & ~std::ios_base::eofbit);
}

unsigned long ReadStream::getOffset() const
{
  const std::streamoff position = stream->rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
  return Low32(static_cast<unsigned long>(position));
}

boolean ReadStream::endOfFile() const { return stream->eof() || stream->peek() == std::char_traits<char>::eof(); }

void ReadStream::setFailure() { stream->setstate(std::ios_base::failbit); }

void ReadStream::clearFailure() { stream->clear(stream->rdstate() & std::ios_base::eofbit); }
