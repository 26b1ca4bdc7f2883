// list: a line about each image.
#pragma once

#include <string>

#include "image/Image.h"

struct ListRow {
  std::string loadId;  // its 8 digits; empty when the image has none
  std::string name;
  std::string versionLevel;
  std::string built;  // local date and time; empty when they are none
  std::uint64_t lidSize = 0;
};

ListRow List(const Image& image);
