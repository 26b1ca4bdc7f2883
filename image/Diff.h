// diff: in which fields two images differ, and whether their LIDs do.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "image/Image.h"

// A field with its value in both images; (nothing) where an image does not have it.
struct Difference {
  const RecordRow* record;
  const FieldRow* field;
  std::optional<std::uint64_t> offsets[2];
  FieldValue values[2];
};

struct PayloadDifference {
  std::uint64_t first;  // the first byte that differs, from the beginning of the LID
  std::uint64_t lengths[2];
};

struct DiffResult {
  int status = allWell;
  std::vector<Difference> differences;
  std::optional<PayloadDifference> payload;
  std::vector<std::string> notes;  // causes, where they can be told
  std::vector<Reason> reasons;
};

DiffResult Diff(Image& one, Image& other);
