// What the fuzzers share: claims, and the input taken apart from its front. Behind its end come zeros and empty texts.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "foundation/ByteString.h"

using std::string;

// Ends the program unless the claim holds; the fuzzer then keeps the input.
inline void Require(bool holds, const char* claim)
{
  if (holds) return;
  std::fprintf(stderr, "Not so: %s\n", claim);
  std::abort();
}

// Runs the operation with this number, counted round.
template <class... Operation>
void RunOne(unsigned int number, const Operation&... operation)
{
  unsigned int i = 0;
  ((i++ == number % sizeof...(operation) ? operation() : void()), ...);
}

inline String Text(const string& text) { return String(text.data(), static_cast<unsigned int>(text.size())); }
inline ByteString Bytes(const string& raw) { return ByteString(raw.data(), static_cast<unsigned int>(raw.size())); }

struct FuzzInput {
  string rest;
  unsigned int byte() { return static_cast<unsigned char>(take(1)[0]); }
  // Mostly short, at times longer than the 128 characters that a line is read in.
  string text()
  {
    const unsigned int length = byte();
    return take(length < 224 ? length % 24 : length - 100);
  }
  string take(std::size_t length)
  {
    string taken = rest.substr(0, length);
    rest.erase(0, length);
    return taken;
  }
};

// Each fuzzer's own: what it does with one input.
static void Run(FuzzInput input);

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  Run({string(data, data + size)});
  return 0;
}
