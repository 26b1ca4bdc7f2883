#include "driver/OutputBuffer.h"

#include <sys/mman.h>

#include <cstdlib>

#include "foundation/Allocate.h"
#include "foundation/Assertion.h"

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr boolean checksBounds = true;
#elif defined(__has_feature)
constexpr boolean checksBounds = __has_feature(address_sanitizer);
#else
constexpr boolean checksBounds = false;
#endif

constexpr std::size_t hugePage = std::size_t{2} << 20;
// What is worth a huge page: clearing one costs as much as some 100 faults of small pages, 512 KiB have 128.
constexpr std::size_t hugeWorth = std::size_t{512} << 10;

// `length` bytes, or null. The rest after the last whole huge page gets one too where it is worth it, else small pages.
// Not where each access is checked: an overrun would end in the rounded-up rest.
unsigned char* AllocateForOutput(std::size_t length)
{
  const std::size_t onHugePages = checksBounds ? 0 : (length + hugePage - hugeWorth) / hugePage * hugePage;
  if (onHugePages == 0) return static_cast<unsigned char*>(std::malloc(length));
  void* memory = std::aligned_alloc(hugePage, (length + hugePage - 1) / hugePage * hugePage);
  if (memory != nullptr) ::madvise(memory, onHugePages, MADV_HUGEPAGE);
  return static_cast<unsigned char*>(memory);
}

}  // namespace

OutputBuffer::OutputBuffer(unsigned int frontLength, unsigned int lidLength)
    : lidOffset(frontLength), length(frontLength + lidLength), block(AllocateForOutput(length), std::free)
{}

unsigned int OutputBuffer::readLid(ReadStream& in) { return in.readUpTo(block.get() + lidOffset, length - lidOffset); }

ByteString OutputBuffer::lidBegin(unsigned int n) const
{
  return ByteString(block.get() + lidOffset, MIN(n, length - lidOffset));
}

void OutputBuffer::setFront(const ByteString& front)
{
  Assert(front.length() == lidOffset, "front.length() == lidOffset", "OutputBuffer",
         "void OutputBuffer::setFront (const ByteString &)");
  MoveBytes<unsigned char>(block.get(), front.getBytePointer(), lidOffset);
}

void OutputBuffer::write(WriteStream& out) const { out.write(block.get(), length); }
