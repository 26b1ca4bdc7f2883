// The memory blocks of String and ByteString and the arithmetic of their lengths. Lengths are 32 bits wide; no sum of
// lengths wraps. An allocation that fails throws std::bad_alloc, as `new` does.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "foundation/BasicTypes.h"

constexpr unsigned int MaximumLength = UINT32_MAX;

constexpr unsigned int MIN(unsigned int a, unsigned int b) { return std::min(a, b); }

// a + b; throws std::length_error when the sum passes MaximumLength.
unsigned int AddLengths(unsigned int a, unsigned int b);

// The capacity of a block that has to grow to `needed` bytes: the old capacity on top of it, at most MaximumLength.
constexpr unsigned int GrownCapacity(unsigned int needed, unsigned int oldCapacity)
{
  unsigned int grown = needed;
  return __builtin_add_overflow(needed, oldCapacity, &grown) ? MaximumLength : grown;
}

// Copies n bytes; the two ranges may overlap, and null pointers are allowed when n is 0.
template <class Byte>
void MoveBytes(Byte* to, const Byte* from, unsigned int n)
{
  if (n != 0) std::memmove(to, from, n);
}

// A new array of n bytes, contents undefined, to be freed with DeAllocate. Byte is char or unsigned char.
template <class Byte = char>
[[nodiscard]] Byte* Allocate(unsigned int n)
{
  return static_cast<Byte*>(::operator new(n));
}

// Frees the array; null is allowed.
template <class Byte>
void DeAllocate(Byte* p)
{
  ::operator delete(p);
}

// A new array of newSize bytes that begins with the first oldSize bytes of p; p, which may be null, is freed.
template <class Byte>
[[nodiscard]] Byte* ReAllocate(Byte* p, unsigned int oldSize, unsigned int newSize)
{
  Byte* block = Allocate<Byte>(newSize);
  if (p != nullptr) MoveBytes(block, p, MIN(oldSize, newSize));
  DeAllocate(p);
  return block;
}

// The n bytes at p, to be read while a block changes: p itself, or a copy when the bytes lie in the block, which is
// `size` bytes long.
template <class Byte>
class SteadyBytes {
 public:
  SteadyBytes(const Byte* p, unsigned int n, const Byte* block, unsigned int size) : bytes(p)
  {
    if (reinterpret_cast<std::uintptr_t>(p) - reinterpret_cast<std::uintptr_t>(block) >= size) return;
    copy = std::make_unique_for_overwrite<Byte[]>(n);
    MoveBytes(copy.get(), p, n);
    bytes = copy.get();
  }

  const Byte* get() const { return bytes; }

 private:
  const Byte* bytes;
  std::unique_ptr<Byte[]> copy;
};
