#include "image/InputFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "foundation/StandardString.h"
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
  const int error = file.open(ToString(name), O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (error == 0) openStatus = file.status();
  if (error != 0) {
    refuse("cannot open", error);
  } else if (openStatus.isDirectory()) {
    refuse("cannot read", EISDIR);
  } else if (!openStatus.isRegular()) {
    refuse("not a regular file");
  }
}

std::size_t InputFile::read(std::uint64_t offset, std::span<unsigned char> into)
{
  std::size_t count = 0;
  while (count < into.size()) {
    const auto came = Uninterrupted([&] {
      return ::pread(file.descriptor(), into.data() + count, into.size() - count, static_cast<off_t>(offset + count));
    });
    if (came < 0) refuse("cannot read", errno);
    if (came <= 0) break;
    count += static_cast<std::size_t>(came);
  }
  return count;
}

std::optional<Reason> WhyUnread(const std::string& name)
{
  InputFile again(name);
  unsigned char first = 0;
  if (!again.reason()) again.read(0, {&first, 1});
  return again.reason();
}
