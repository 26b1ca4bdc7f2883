// Shared ownership of a stream on the heap: the last wrapper that releases it deletes it. An empty wrapper is safe to
// copy, assign, compare, release and destroy.
#pragma once

#include "foundation/BasicTypes.h"
#include "foundation/ReadStream.h"
#include "foundation/WriteStream.h"

template <class Stream>
class StreamPtr {
 public:
  StreamPtr() = default;
  // Takes over the stream, which must come from `new`; null makes an empty wrapper.
  explicit StreamPtr(Stream* owned) : stream(owned), count(owned != nullptr ? new int(1) : nullptr) {}
  StreamPtr(const StreamPtr& other) : stream(other.stream), count(other.count)
  {
    if (count != nullptr) ++*count;
  }
  ~StreamPtr() { release(); }

  StreamPtr& operator=(const StreamPtr& other)
  {
    if (stream == other.stream) return *this;
    release();
    stream = other.stream;
    count = other.count;
    if (count != nullptr) ++*count;
    return *this;
  }

  // Gives up this wrapper's share and leaves it empty.
  void release()
  {
    if (count != nullptr && --*count == 0) {
      delete stream;
      delete count;
    }
    stream = nullptr;
    count = nullptr;
  }

  // The stream; the wrapper must not be empty.
  Stream* operator->() const { return stream; }
  Stream& operator*() const { return *stream; }

  // Compare the streams' addresses; the reverse orders and != follow from these.
  friend boolean operator==(const StreamPtr& a, const StreamPtr& b) { return a.stream == b.stream; }
  friend boolean operator==(const StreamPtr& a, const Stream* b) { return a.stream == b; }

 private:
  Stream* stream = nullptr;
  int* count = nullptr;  // of the wrappers that share the stream
};

using WriteStreamPtr = StreamPtr<WriteStream>;
using ReadStreamPtr = StreamPtr<ReadStream>;
