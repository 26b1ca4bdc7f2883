// A file with a name of its own until it gets its true one, for file systems that have no unnamed files. It goes when
// the object does, and when one of the signals that usually end a process does end it.
#pragma once

#include <string>

#include "foundation/FileBuffer.h"

// A fresh name in the folder, which nobody else has: hidden, and random.
std::string FreshName(const std::string& folder);

class TemporaryName {
 public:
  TemporaryName() = default;
  ~TemporaryName() { remove(); }
  TemporaryName(const TemporaryName&) = delete;
  TemporaryName& operator=(const TemporaryName&) = delete;

  // Makes the file, and opens it for writing; 0 or an errno value. To be called once.
  int create(const std::string& folder, FileDescriptor& file);
  // Gives the file its true name, in place of the one that has it; 0 or an errno value.
  int rename(const std::string& target);
  bool exists() const { return !name.empty(); }

 private:
  void remove();

  std::string name;  // empty when there is no file
};
