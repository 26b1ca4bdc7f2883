#include "foundation/FileStreams.h"

#include "foundation/FileBuffer.h"

namespace {

// A standard stream with the buffer of its file.
template <class Stream, class Buffer>
class FileStream : public Stream {
 public:
  FileStream(const FileName& name, int mode) : Stream(nullptr), buffer(name.getSource(), mode)
  {
    this->rdbuf(&buffer);
    if (!buffer.isOpen()) this->setstate(std::ios_base::failbit);
  }

 private:
  Buffer buffer;
};

using OutputFile = FileStream<std::ostream, FileWriteBuffer>;
using InputFile = FileStream<std::istream, FileReadBuffer>;

}  // namespace

WriteFileStream::WriteFileStream(const FileName& name, int mode) : WriteStream(new OutputFile(name, mode)) {}

WriteFileStream::WriteFileStream(const FileName& name, const String&) : WriteFileStream(name, std::ios_base::out) {}

WriteFileStream::~WriteFileStream() { delete stream; }

ReadFileStream::ReadFileStream(const FileName& name, int mode) : ReadStream(new InputFile(name, mode))
{
  if (!name.isValid()) setFailure();
}

ReadFileStream::ReadFileStream(const FileName& name, const String&) : ReadFileStream(name, std::ios_base::in) {}

ReadFileStream::~ReadFileStream() { delete stream; }
