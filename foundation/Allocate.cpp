#include "foundation/Allocate.h"

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>

unsigned int AddLengths(unsigned int a, unsigned int b)
{
  if (b > MaximumLength - a) throw std::length_error("more than 4294967295 bytes");
  return a + b;
}

void AskForHugePages(void* block, unsigned int size)
{
  const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  const auto begin = reinterpret_cast<std::uintptr_t>(block);
  const std::uintptr_t firstPage = (begin + page - 1) / page * page;
  const std::uintptr_t endPage = (begin + size) / page * page;
  ::madvise(reinterpret_cast<void*>(firstPage), endPage - firstPage, MADV_HUGEPAGE);
}
