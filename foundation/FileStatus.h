// What the operating system says of a file, taken once when the object is made.
#pragma once

#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <ctime>

#include "foundation/BasicTypes.h"
#include "foundation/String.h"

class FileStatus {
 public:
  // Not known.
  FileStatus() = default;
  // Of an open file, or of the file that has the name now.
  explicit FileStatus(int descriptor);
  explicit FileStatus(const String& name);

  // Whether the operating system gave the status; without it the file counts as of no kind and of size 0.
  boolean valid() const { return error == 0; }
  boolean isDirectory() const { return S_ISDIR(status.st_mode); }
  boolean isRegular() const { return S_ISREG(status.st_mode); }
  // In bytes.
  std::uint64_t size() const { return static_cast<std::uint64_t>(status.st_size); }
  time_t modificationTime() const { return status.st_mtime; }
  // False only when both are known to be different files, by device and inode, or when one of them is known not to
  // exist.
  boolean mayBeSameFile(const FileStatus& other) const;

 private:
  boolean isAbsent() const;

  struct stat status = {};
  int error = EAGAIN;  // an errno value, 0 when the status is known
};

// Whether a NUL byte stands in the name, which then names no file.
boolean HoldsNul(const String& name);
