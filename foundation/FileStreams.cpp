#include "foundation/FileStreams.h"

#include "foundation/FileBuffer.h"

namespace {

class OutputFile : public std::ostream {
 public:
  OutputFile(const String& name, int mode) : std::ostream(nullptr), buffer(name, mode)
  {
    rdbuf(&buffer);
    if (!buffer.isWritable()) setstate(failbit);
  }

 private:
  FileWriteBuffer buffer;
};

class InputFile : public std::istream {
 public:
  InputFile(const String& name, int mode) : std::istream(nullptr), buffer(name, mode)
  {
    rdbuf(&buffer);
    if (!buffer.isReadable()) setstate(failbit);
  }

 private:
  FileReadBuffer buffer;
};

}  // namespace

WriteFileStream::WriteFileStream(const FileName& name, int mode) : WriteStream(new OutputFile(name.getSource(), mode))
{}

WriteFileStream::WriteFileStream(const FileName& name, const String&) : WriteFileStream(name, std::ios_base::out) {}

WriteFileStream::~WriteFileStream() { delete stream; }

ReadFileStream::ReadFileStream(const FileName& name, int mode) : ReadStream(new InputFile(name.getSource(), mode))
{
  if (!name.isValid()) setFailure();
}

ReadFileStream::ReadFileStream(const FileName& name, const String&) : ReadFileStream(name, std::ios_base::in) {}

ReadFileStream::~ReadFileStream() { delete stream; }
