#include "foundation/Allocate.h"

#include <stdexcept>

unsigned int AddLengths(unsigned int a, unsigned int b)
{
  if (b > MaximumLength - a) throw std::length_error("more than 4294967295 bytes");
  return a + b;
}
