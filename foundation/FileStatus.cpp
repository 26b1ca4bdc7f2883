#include "foundation/FileStatus.h"

#include <cstring>

#include "foundation/SystemCall.h"

FileStatus::FileStatus(int descriptor)
    : error(Uninterrupted([&] { return ::fstat(descriptor, &status); }) == 0 ? 0 : errno)
{}

FileStatus::FileStatus(const String& name) : error(ENOENT)
{
  if (HoldsNul(name)) return;
  error = Uninterrupted([&] { return ::stat(name, &status); }) == 0 ? 0 : errno;
  if (error == EACCES) error = ENOENT;  // the name leads this user to no file
}

boolean HoldsNul(const String& name) { return std::strlen(name) != name.length(); }

boolean FileStatus::isAbsent() const
{
  return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP || error == EBADF;
}

boolean FileStatus::mayBeSameFile(const FileStatus& other) const
{
  if (isAbsent() || other.isAbsent()) return false;
  if (!valid() || !other.valid()) return true;
  return status.st_dev == other.status.st_dev && status.st_ino == other.status.st_ino;
}
