#include "foundation/FileStatus.h"

#include <cerrno>

FileStatus::FileStatus(const FileName& name) : error(::stat(name.getSource(), &status) == 0 ? 0 : errno) {}

boolean FileStatus::missing() const { return error == ENOENT || error == ENOTDIR; }

boolean FileStatus::sameFile(const FileStatus& other) const
{
  return valid() && other.valid() && status.st_dev == other.status.st_dev && status.st_ino == other.status.st_ino;
}
