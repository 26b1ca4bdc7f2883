// A list of library names separated by ":"; empty elements are skipped.
#pragma once

#include "foundation/String.h"

class Path : public String {
 public:
  Path() = default;
  explicit Path(const String& text) : String(text) {}
  using String::operator=;

  // True when the text holds nothing but ":" characters.
  boolean isEmpty() const;
  // Adds ":" and the text at the end, or the text and ":" in front.
  void append(const String& text);
  void append(const Path& path);
  void prepend(const String& text);
  void prepend(const Path& path);
  // True when an element equals the library name exactly.
  boolean includes(const String& library) const;
  // Removes the characters of the first element equal to the name, which must be included; its separators stay.
  void remove(const String& library);
};

class PathIterator {
 public:
  explicit PathIterator(const Path& walked);

  // Starts again at the first element, of this path or of another.
  void reset();
  void reset(const Path& walked);
  boolean valid() const { return length != 0; }
  // The next element, and the current one; valid() must hold.
  void next();
  String get() const;
  // Where in the path's text the current element begins.
  unsigned int offset() const;

 private:
  const Path* path;
  const char* position;
  unsigned int length;  // of the current element; 0 when there is none
};

// Moves `position` past any ":" characters and sets `length` to the characters up to the next ":" or the end.
void GetNextLibrary(const char*& position, unsigned int& length);
