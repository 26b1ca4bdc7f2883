// Streams over a file that they open, own and close. Opening never throws: a file that does not open leaves the stream
// in failure. `mode` are the bits of std::ios_base::openmode; the constructors with a text fix the mode, and the text
// takes no part.
#pragma once

#include <span>

#include "foundation/FileName.h"
#include "foundation/FileStatus.h"
#include "foundation/ReadStream.h"
#include "foundation/WriteStream.h"

// A file that the open creates gets the permissions 0664, less the process's umask.
class WriteFileStream : public WriteStream {
 public:
  WriteFileStream(const FileName& name, int mode);
  WriteFileStream(const FileName& name, const String& text);
  // For output, but in failure, with the file as it was, when it may be one of those kept.
  WriteFileStream(const FileName& name, std::span<const FileStatus> kept);
  ~WriteFileStream() override;
};

// In failure too when the name is not valid or is a directory's.
class ReadFileStream : public ReadStream {
 public:
  ReadFileStream(const FileName& name, int mode);
  ReadFileStream(const FileName& name, const String& text);
  ~ReadFileStream() override;

  // The file's status when it was opened.
  const FileStatus& status() const;
};
