#include "foundation/Allocate.h"

#include <stdexcept>

unsigned int AddLengths(unsigned int a, unsigned int b)
{
  unsigned int sum = a;
  if (__builtin_add_overflow(a, b, &sum)) throw std::length_error("more than 4294967295 bytes");
  return sum;
}
