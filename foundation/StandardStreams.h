// The process's three standard streams, which stay open, and the way in which a message line is written.
#pragma once

#include "foundation/ReadStream.h"
#include "foundation/WriteStream.h"

class StandardWriteStream : public WriteStream {
 public:
  StandardWriteStream();
  ~StandardWriteStream() override = default;
};

class StandardErrorStream : public WriteStream {
 public:
  StandardErrorStream();
  ~StandardErrorStream() override = default;
};

class StandardReadStream : public ReadStream {
 public:
  StandardReadStream();
  ~StandardReadStream() override = default;
};

// Writes the line and its end to standard error in one piece, so that lines of parallel runs do not mix.
void PrintErrorLine(const String& line);
