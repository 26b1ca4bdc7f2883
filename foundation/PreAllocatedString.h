// A String made with room for n characters: a work buffer that does not grow while it is filled.
#pragma once

#include "foundation/String.h"

class PreAllocatedString : public String {
 public:
  explicit PreAllocatedString(unsigned int n) : String(n) {}
  using String::operator=;
};
