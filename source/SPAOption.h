// The process's one table of keywords and values: the source reader fills it, the header builder asks it. It lives
// from before main to the process's end; a run never empties it.
#pragma once

#include "foundation/String.h"

class MapStringString;

class SPAOption {
 public:
  SPAOption() = delete;

  // Stores the pair; a label that is present gets the new value.
  static void SetStringValue(const String& label, const String& value);
  // A copy of the label's value; the label must be present.
  static String GetStringValue(const String& label);
  // 1 when the label is present, whatever its value, else 0.
  static int StringValid(const String& label);
};

// The table itself, for tests and fuzzers, which empty it before they fill it. The program uses SPAOption only.
MapStringString& OptionTable();
