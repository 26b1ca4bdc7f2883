// Reads a source, a text of one statement a line, into the option table. It reports nothing about lines: what is not a
// statement is skipped, and no keyword is checked.
#pragma once

#include <new>

#include "foundation/BasicTypes.h"
#include "foundation/ReadStream.h"
#include "foundation/String.h"

// In bytes: 1 GiB, so that a message that quotes a line stays below the length of a String.
inline constexpr unsigned int longestSourceLine = 0x40000000;

// Hands each line to the visitor. Returns 0, or 1 when the stream has failed, as it does at a line or a source that
// memory cannot hold; the half line before a failure is dropped.
template <class Visitor>
int ReadLines(ReadStream& stream, Visitor visit)
{
  try {
    String line;
    while (!stream.endOfFile()) {
      stream.getLine(line, '\n', longestSourceLine);
      if (!stream.failure()) visit(line);
    }
  } catch (const std::bad_alloc&) {
    stream.setFailure();
  }
  return stream.failure() ? 1 : 0;
}

class SPASourceProgram {
 public:
  // Stores every statement up to the end of the stream, or when `restricted` only those that labelOk accepts. Returns
  // 0, or 1 when the stream has failed; what was read before the failure stays stored.
  int read(ReadStream& stream, boolean& restricted);
};

// 1 when the label is one of the eight that a VPDINFO source gives, compared whole, else 0.
int labelOk(String& label);
