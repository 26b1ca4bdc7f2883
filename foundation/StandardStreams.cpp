#include "foundation/StandardStreams.h"

#include <cerrno>
#include <iostream>

StandardWriteStream::StandardWriteStream() : WriteStream(&std::cout) {}

StandardErrorStream::StandardErrorStream() : WriteStream(&std::cerr) {}

StandardReadStream::StandardReadStream() : ReadStream(&std::cin) {}

void PrintErrorLine(const String& line)
{
  const String whole = line + '\n';
  StandardErrorStream error;
  do {
    error.clearFailure();  // of an earlier line: each gets its own try
    errno = 0;
    error.putString(whole);
  } while (error.failure() && errno == EINTR);
}
