// Two runs of bytes in files, compared in pieces.
#pragma once

#include <optional>

#include "image/InputFile.h"

// A file's bytes from an offset up to its end.
struct Payload {
  InputFile& file;
  std::uint64_t offset;

  std::uint64_t length() const { return file.size() > offset ? file.size() - offset : 0; }
};

// How far from the beginning the two first differ: at the end of the shorter one when that is all there is. Nothing
// when they are the same, or when a file could not be read, which then has its reason.
std::optional<std::uint64_t> FirstDifference(const Payload& one, const Payload& other);
