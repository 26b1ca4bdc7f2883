// The stream buffers behind the file streams: a file descriptor and a small block each, on the calls of the operating
// system. An interrupted call is repeated and a partial one continued. Bytes that do not fit in the block go between
// the file and the caller's memory directly.
#pragma once

#include <sys/types.h>

#include <array>
#include <streambuf>

#include "foundation/String.h"

// An open file, closed with the object.
class FileDescriptor {
 public:
  // `mode` are the bits of std::ios_base::openmode. Not open when the operating system refuses, when the bits
  // contradict each other, or when the name holds a NUL byte. A file that the open creates gets the permissions 0664,
  // less the process's umask.
  FileDescriptor(const String& name, int mode);
  ~FileDescriptor();
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  boolean isOpen() const { return number >= 0; }
  // Up to n bytes, 0 at the end of the file; throws std::system_error when the file cannot be read.
  std::streamsize read(char* p, std::streamsize n) const;
  // All n bytes; the number written, which is less when the file refuses the rest.
  std::streamsize write(const char* p, std::streamsize n) const;
  // The new position, -1 on failure; `whence` as for lseek.
  off_t seek(off_t offset, int whence) const;
  // What reading the file can bring: a regular file's size in bytes; 0 when that is unknown; -1 when nothing can be
  // read, because the file is not open or is a directory.
  off_t size() const;

 private:
  int number = -1;
};

class FileReadBuffer : public std::streambuf {
 public:
  FileReadBuffer(const String& name, int mode);

  // False also for a directory, which opens but cannot be read.
  boolean isOpen() const { return fileSize >= 0; }

 protected:
  int_type underflow() override;
  std::streamsize xsgetn(char* p, std::streamsize n) override;
  // What a regular file still holds, by its size at the open.
  std::streamsize showmanyc() override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  FileDescriptor file;
  off_t fileSize;
  off_t readEnd = 0;  // position in the file of what the next read brings
  std::array<char, 4096> block;
};

class FileWriteBuffer : public std::streambuf {
 public:
  FileWriteBuffer(const String& name, int mode);
  // Writes what the block still holds.
  ~FileWriteBuffer() override;

  boolean isOpen() const { return opened; }

 protected:
  int_type overflow(int_type ch) override;
  std::streamsize xsputn(const char* p, std::streamsize n) override;
  int sync() override;

 private:
  FileDescriptor file;
  boolean opened;
  std::array<char, 4096> block;
};
