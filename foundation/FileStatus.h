// What the operating system says of an open file, taken once when the object is made.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <ctime>

#include "foundation/BasicTypes.h"

class FileStatus {
 public:
  // Not known.
  FileStatus() = default;
  explicit FileStatus(int descriptor);

  // Whether the operating system gave the status; without it the file counts as of no kind and of size 0.
  boolean valid() const { return known; }
  boolean isDirectory() const { return S_ISDIR(status.st_mode); }
  boolean isRegular() const { return S_ISREG(status.st_mode); }
  // In bytes.
  std::uint64_t size() const { return static_cast<std::uint64_t>(status.st_size); }
  time_t modificationTime() const { return status.st_mtime; }
  // False only when both are known to be different files: by device and inode, under whatever names.
  boolean mayBeSameFile(const FileStatus& other) const;

 private:
  struct stat status = {};
  boolean known = false;
};
