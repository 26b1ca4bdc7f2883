// The stream buffers of the file streams: a file descriptor and a small block each, on the calls of the operating
// system. An interrupted call is repeated and a partial one continued. Bytes that do not fit in the block go between
// the file and the caller's memory directly.
#pragma once

#include <sys/types.h>

#include <array>
#include <optional>
#include <streambuf>

#include "foundation/FileStatus.h"
#include "foundation/String.h"

// A file of the operating system, closed with the object.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  ~FileDescriptor() { close(); }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  // Opens the file with the flags of open(2); 0 or an errno value. To be called once, or again after a failure. A name
  // that holds a NUL byte names no file. A file that the open creates gets the permissions 0664, less the process's
  // umask. The file never takes the place of a standard stream that is closed, so that no message lands in it.
  int open(const String& name, int flags);
  // Whether the file took all that was written to it, as far as its close tells; errno has the reason when not.
  boolean close();
  boolean isOpen() const { return number != none; }
  // For the operating system's calls.
  int descriptor() const { return number; }
  FileStatus status() const { return FileStatus(number); }
  // Up to n bytes, 0 at the end of the file; throws std::system_error when the file cannot be read.
  std::streamsize read(char* p, std::streamsize n) const;
  // All n bytes; false when the file refuses some of them, for the reason that errno has.
  boolean write(const char* p, std::streamsize n) const;
  // The new position, -1 on failure; `whence` as for lseek.
  off_t seek(off_t offset, int whence) const;
  // Makes the file empty; whether that succeeded.
  boolean truncate() const;

 private:
  static constexpr int none = -1;  // also what open(2) gives for a failure

  int number = none;
};

class FileReadBuffer : public std::streambuf {
 public:
  // `mode` are the bits of std::ios_base::openmode.
  FileReadBuffer(const String& name, int mode);

  // False also for a directory, which opens but cannot be read.
  boolean isOpen() const { return file.isOpen(); }
  // The file's status at the open, and as it is now.
  const FileStatus& status() const { return openStatus; }
  FileStatus statusNow() const { return file.status(); }

 protected:
  int_type underflow() override;
  std::streamsize xsgetn(char* p, std::streamsize n) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  FileDescriptor file;
  FileStatus openStatus;
  off_t readEnd = 0;  // position in the file of what the next read brings
  std::array<char, 4096> block;
};

// Opens a file for output as it stands, with all that it holds.
enum class AsItStands { open };

class FileWriteBuffer : public std::streambuf {
 public:
  FileWriteBuffer(const String& name, int mode);
  FileWriteBuffer(const String& name, AsItStands how);
  // Writes what the block still holds.
  ~FileWriteBuffer() override;

  boolean isOpen() const { return file.isOpen(); }
  // Whether the open made the file, or found it empty at the end of a link that had led nowhere.
  boolean isNew() const { return !oldStatus; }
  // The status of a file that was there before, at the open.
  const FileStatus& status() const { return *oldStatus; }
  // Cuts a regular file to nothing; whether it is empty then. One that cannot be cut is closed.
  boolean empty();

 protected:
  int_type overflow(int_type ch) override;
  std::streamsize xsputn(const char* p, std::streamsize n) override;
  int sync() override;

 private:
  FileDescriptor file;
  std::optional<FileStatus> oldStatus;
  std::array<char, 512> block;  // smaller than any image, so that each is written from where it stands
};
