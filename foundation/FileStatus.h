// What the file system says of a named file, taken once when the object is made; symbolic links are followed.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <ctime>

#include "foundation/FileName.h"

class FileStatus {
 public:
  explicit FileStatus(const FileName& name);

  // Whether the file system gave the status; the rest holds only then.
  boolean valid() const { return error == 0; }
  // Whether it said for certain that there is no such file.
  boolean missing() const;
  std::uint64_t size() const { return static_cast<std::uint64_t>(status.st_size); }
  time_t modificationTime() const { return status.st_mtime; }
  // Whether both are the same file under whatever names: same device and inode.
  boolean sameFile(const FileStatus& other) const;

 private:
  struct stat status = {};
  int error;  // 0 or an errno value
};
