#include "foundation/Allocate.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>
#include <stdexcept>

namespace {

constexpr std::size_t hugePage = std::size_t{2} << 20;
// What is worth a huge page: clearing one costs as much as some 100 faults of small pages, 512 KiB have 128.
constexpr std::size_t hugeWorth = std::size_t{512} << 10;

}  // namespace

unsigned int AddLengths(unsigned int a, unsigned int b)
{
  if (b > MaximumLength - a) throw std::length_error("more than 4294967295 bytes");
  return a + b;
}

void* AllocateBlock(unsigned int n)
{
  // The rest behind the last whole huge page gets one too where it is worth it, else small pages.
  const std::size_t onHugePages = (n + hugePage - hugeWorth) / hugePage * hugePage;
  const std::size_t wholePages = (n + hugePage - 1) / hugePage * hugePage;
  void* block = onHugePages != 0 ? std::aligned_alloc(hugePage, wholePages) : std::malloc(n != 0 ? n : 1);
  if (block == nullptr) throw std::bad_alloc();
  if (onHugePages != 0) ::madvise(block, onHugePages, MADV_HUGEPAGE);
  return block;
}

void DeAllocateBlock(void* block) { std::free(block); }
