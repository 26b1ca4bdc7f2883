#include "driver/OutputBuffer.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdlib>

#include "foundation/Allocate.h"
#include "foundation/Assertion.h"

namespace {

// A sanitizer would not see an overrun into the rest of a huge page.
#ifdef __clang__
constexpr boolean plainBlocks = __has_feature(address_sanitizer);
#elif defined(__SANITIZE_ADDRESS__)
constexpr boolean plainBlocks = true;
#else
constexpr boolean plainBlocks = false;
#endif

constexpr std::size_t hugePage = 0x200000;

// How many of the bytes lie on huge pages. The rest after the last whole one gets one too where it is worth it:
// clearing a huge page costs as much as some 100 faults of small pages, 512 KiB have 128.
constexpr std::size_t OnHugePages(std::size_t length) { return (length + hugePage / 4 * 3) / hugePage * hugePage; }
static_assert(OnHugePages(0x7FFFF) == 0 && OnHugePages(0x80000) == 0x200000 && OnHugePages(0x27FFFF) == 0x200000);

// `length` bytes, or null.
unsigned char* AllocateForOutput(std::size_t length)
{
  if (const std::size_t onHugePages = plainBlocks ? 0 : OnHugePages(length)) {
    void* memory = std::aligned_alloc(hugePage, std::max(length, onHugePages));
    if (memory != nullptr) ::madvise(memory, onHugePages, MADV_HUGEPAGE);
    return static_cast<unsigned char*>(memory);
  }
  return static_cast<unsigned char*>(std::malloc(length));
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
