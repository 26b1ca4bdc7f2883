// extract: the LID out of an image.
#pragma once

#include <string>
#include <vector>

#include "image/ImageFile.h"

struct ExtractResult {
  int status = allWell;
  std::vector<Reason> reasons;
};

// Writes the LID to the file, whole or not at all; nothing of an image that is cut or longer than it should be.
ExtractResult Extract(const std::string& image, const std::string& lid);
