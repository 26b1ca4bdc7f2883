// The memory in which an output file is put together: room for what stands in front of the load module, then the load
// module, read straight to its place. Nothing is moved. Large blocks lie on huge pages where the operating system
// grants them: filling small pages costs more in page faults than in copying.
#pragma once

#include <memory>
#include <span>

#include "foundation/ByteString.h"
#include "foundation/ReadStream.h"
#include "foundation/WriteStream.h"

class OutputBuffer {
 public:
  // Lengths in bytes; their sum must fit in 32 bits.
  OutputBuffer(unsigned int frontLength, unsigned int lidLength);

  // False when there is no memory for so many bytes; then nothing else may be called.
  boolean valid() const { return block != nullptr; }
  // Reads the load module; returns how many bytes came.
  unsigned int readLid(ReadStream& in);
  // The load module's first bytes, at most n.
  ByteString lidBegin(unsigned int n) const;
  // Lays what stands in front over the room, which it must fill.
  void setFront(const ByteString& front);
  // Writes everything in one piece.
  void write(WriteStream& out) const;
  std::span<const unsigned char> bytes() const { return {block.get(), length}; }

 private:
  unsigned int lidOffset;
  unsigned int length;
  std::unique_ptr<unsigned char, void (*)(void*)> block;
};
