#include "foundation/Allocate.h"

#include <cstdlib>
#include <new>
#include <stdexcept>

unsigned int AddLengths(unsigned int a, unsigned int b)
{
  if (b > MaximumLength - a) throw std::length_error("more than 4294967295 bytes");
  return a + b;
}

void* AllocateBlock(unsigned int n)
{
  void* block = std::malloc(n != 0 ? n : 1);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void DeAllocateBlock(void* block) { std::free(block); }
