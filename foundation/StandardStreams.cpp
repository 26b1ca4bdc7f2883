#include "foundation/StandardStreams.h"

#include <iostream>

StandardWriteStream::StandardWriteStream() : WriteStream(&std::cout) {}

StandardErrorStream::StandardErrorStream() : WriteStream(&std::cerr) {}

StandardReadStream::StandardReadStream() : ReadStream(&std::cin) {}

void PrintErrorLine(const String& line)
{
  StandardErrorStream error;
  error.putString(line + '\n');
  error.flush();
}
