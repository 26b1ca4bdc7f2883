// Walks the characters of one String. It owns nothing; a change of the string invalidates it.
#pragma once

#include "foundation/String.h"

class StringIterator {
 public:
  explicit StringIterator(const String& s) : start(s), current(start), end(start + s.length()) {}

  boolean valid() const { return current < end; }
  void next() { current++; }
  // The current character; valid() must hold.
  char get() const { return *current; }

 private:
  const char* start;
  const char* current;
  const char* end;
};
