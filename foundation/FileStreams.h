// Streams over a file that they open, own and close. Opening never throws: a file that does not open leaves the stream
// in failure. `mode` are the bits of std::ios_base::openmode; the constructors with a text fix the mode, and the text
// takes no part.
#pragma once

#include "foundation/FileBuffer.h"
#include "foundation/FileName.h"
#include "foundation/FileStatus.h"
#include "foundation/ReadStream.h"
#include "foundation/WriteStream.h"

// A file that the open creates gets the permissions 0664, less the process's umask.
class WriteFileStream : public WriteStream {
 public:
  WriteFileStream(const FileName& name, int mode);
  WriteFileStream(const FileName& name, const String& text);
  ~WriteFileStream() override;

 protected:
  WriteFileStream(const FileName& name, AsItStands how);
};

// An output file that stays as it is until it is emptied, so that its opener can first see which file it is.
class CautiousWriteFileStream : public WriteFileStream {
 public:
  explicit CautiousWriteFileStream(const FileName& name) : WriteFileStream(name, AsItStands::open) {}

  // Whether the open made the file; if not, the status that it found.
  boolean isNew() const;
  const FileStatus& status() const;
  // Makes a regular file empty. One that cannot be is closed and leaves the stream in failure.
  void empty();
};

// In failure too when the name is not valid, which no file that can be read has, or is a directory's.
class ReadFileStream : public ReadStream {
 public:
  ReadFileStream(const FileName& name, int mode);
  ReadFileStream(const FileName& name, const String& text);
  ~ReadFileStream() override;

  // The file's status when it was opened, and as it is now.
  const FileStatus& status() const;
  FileStatus statusNow() const;
};
