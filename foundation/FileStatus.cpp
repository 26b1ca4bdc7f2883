#include "foundation/FileStatus.h"

#include <cerrno>

FileStatus::FileStatus(int descriptor)
{
  int result = 0;
  do {
    result = ::fstat(descriptor, &status);
  } while (result != 0 && errno == EINTR);
  known = result == 0;
}

boolean FileStatus::mayBeSameFile(const FileStatus& other) const
{
  if (!valid() || !other.valid()) return true;
  return status.st_dev == other.status.st_dev && status.st_ino == other.status.st_ino;
}
