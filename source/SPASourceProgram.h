// Reads a source, a text of one statement a line, into the option table. It reports nothing about lines: what is not a
// statement is skipped, and no keyword is checked.
#pragma once

#include "foundation/BasicTypes.h"
#include "foundation/ReadStream.h"
#include "foundation/String.h"

class SPASourceProgram {
 public:
  // Stores every statement up to the end of the stream, or when `restricted` only those that labelOk accepts. Returns
  // 0, or 1 when the stream has failed; what was read before the failure stays stored.
  int read(ReadStream& stream, boolean& restricted);
};

// 1 when the label is one of the eight that a VPDINFO source gives, compared whole, else 0.
int labelOk(String& label);
