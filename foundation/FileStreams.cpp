#include "foundation/FileStreams.h"

namespace {

// A standard stream with the buffer of its file.
template <class Stream, class Buffer>
class FileStream : public Stream {
 public:
  template <class How>
  FileStream(const FileName& name, How how) : Stream(nullptr), buffer(name.getSource(), how)
  {
    this->rdbuf(&buffer);
    if (!buffer.isOpen()) this->setstate(std::ios_base::failbit);
  }

  Buffer buffer;
};

using OutputFile = FileStream<std::ostream, FileWriteBuffer>;
using InputFile = FileStream<std::istream, FileReadBuffer>;

}  // namespace

WriteFileStream::WriteFileStream(const FileName& name, int mode) : WriteStream(new OutputFile(name, mode)) {}

WriteFileStream::WriteFileStream(const FileName& name, const String&) : WriteFileStream(name, std::ios_base::out) {}

WriteFileStream::WriteFileStream(const FileName& name, AsItStands how) : WriteStream(new OutputFile(name, how)) {}

WriteFileStream::~WriteFileStream() { delete stream; }

boolean CautiousWriteFileStream::isNew() const { return static_cast<const OutputFile*>(stream)->buffer.isNew(); }

const FileStatus& CautiousWriteFileStream::status() const
{
  return static_cast<const OutputFile*>(stream)->buffer.status();
}

void CautiousWriteFileStream::empty()
{
  if (!static_cast<OutputFile*>(stream)->buffer.empty()) setFailure();
}

ReadFileStream::ReadFileStream(const FileName& name, int mode) : ReadStream(new InputFile(name, mode)) {}

ReadFileStream::ReadFileStream(const FileName& name, const String&) : ReadFileStream(name, std::ios_base::in) {}

ReadFileStream::~ReadFileStream() { delete stream; }

const FileStatus& ReadFileStream::status() const { return static_cast<const InputFile*>(stream)->buffer.status(); }

FileStatus ReadFileStream::statusNow() const { return static_cast<const InputFile*>(stream)->buffer.statusNow(); }
