// Standard output with every write tested: what could not be written is told once, at the end.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "image/Reason.h"

class Output {
 public:
  // Kept, and written in large pieces.
  void add(std::string_view text);
  // Writes the rest and closes standard output; the reason when any of it was not written.
  std::optional<Reason> finish();

 private:
  void write();

  std::string pending;
  bool isUsed = false;
  int error = 0;  // of the first failure; nothing is written after it
};
