#include "foundation/StandardStreams.h"

#include <iostream>

#include "foundation/SystemCall.h"

StandardWriteStream::StandardWriteStream() : WriteStream(&std::cout) {}

StandardErrorStream::StandardErrorStream() : WriteStream(&std::cerr) {}

StandardReadStream::StandardReadStream() : ReadStream(&std::cin) {}

void PrintErrorLine(const String& line)
{
  const String whole = line + '\n';
  StandardErrorStream error;
  Uninterrupted([&] {
    error.clearFailure();  // of an earlier line: each gets its own try
    errno = 0;
    error.putString(whole);
    return error.failure() ? -1 : 0;
  });
}
