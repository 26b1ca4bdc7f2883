#include "foundation/StandardStreams.h"

#include <iostream>

#include "foundation/SystemCall.h"

namespace {

MessageCapture* capture = nullptr;

}  // namespace

StandardWriteStream::StandardWriteStream() : WriteStream(&std::cout) {}

StandardErrorStream::StandardErrorStream() : WriteStream(&std::cerr) {}

StandardReadStream::StandardReadStream() : ReadStream(&std::cin) {}

void PrintErrorLine(const String& line, MessageKind kind)
{
  if (capture != nullptr) {
    capture->kept.push_back({line, kind});
    return;
  }
  const String whole = line + '\n';
  StandardErrorStream error;
  Uninterrupted([&] {
    error.clearFailure();  // of an earlier line: each gets its own try
    errno = EIO;           // where nothing tells why a write fails
    error.putString(whole);
    return error.failure() ? -1 : 0;
  });
}

MessageCapture::MessageCapture() { capture = this; }

MessageCapture::~MessageCapture() { capture = nullptr; }
