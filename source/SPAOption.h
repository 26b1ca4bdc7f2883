// The process's one table of keywords and values: the source reader fills it, the header builder asks it. It lives
// from before main to the process's end; no run of the tool empties it.
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

// The table itself, for what makes several runs in one process and empties it before each: the companion, tests. The
// tool uses SPAOption only.
MapStringString& OptionTable();
