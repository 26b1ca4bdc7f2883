#include "image/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "foundation/SystemCall.h"

std::uint64_t Number(ByteView bytes)
{
  std::uint64_t number = 0;
  for (const unsigned char byte : bytes) number = number << 8 | byte;
  return number;
}

InputFile::InputFile(const std::string& name) : fileName(name)
{
  // Not waiting for the other end of a pipe, which is then refused.
  descriptor = Uninterrupted([&] { return ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); });
  struct stat status = {};
  if (descriptor < 0 || ::fstat(descriptor, &status) != 0) {
    refuse("cannot open", errno);
  } else if (S_ISDIR(status.st_mode)) {
    refuse("cannot read", EISDIR);
  } else if (!S_ISREG(status.st_mode)) {
    refuse("not a regular file");
  }
  fileSize = static_cast<std::uint64_t>(status.st_size);
}

InputFile::~InputFile()
{
  if (descriptor >= 0) ::close(descriptor);
}

std::size_t InputFile::read(std::uint64_t offset, std::span<unsigned char> into)
{
  std::size_t count = 0;
  while (count < into.size()) {
    const auto came = Uninterrupted([&] {
      return ::pread(descriptor, into.data() + count, into.size() - count, static_cast<off_t>(offset + count));
    });
    if (came < 0) refuse("cannot read", errno);
    if (came <= 0) break;
    count += static_cast<std::size_t>(came);
  }
  return count;
}
