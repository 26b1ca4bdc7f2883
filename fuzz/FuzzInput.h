// What the fuzzers share: claims, and the input taken apart from its front. After its end come zeros and empty texts.
#pragma once

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "tests/Convert.h"

using std::string;

// A fuzzer ends with what is thrown and keeps the input; a test shows it.
inline void Require(bool holds, const char* claim)
{
  if (!holds) throw std::logic_error(claim);
}

// Runs the operation with this number, counted round.
template <class... Operation>
void RunOne(unsigned int number, const Operation&... operation)
{
  unsigned int i = 0;
  ((i++ == number % sizeof...(operation) ? operation() : void()), ...);
}

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

// What each fuzzer does with one input. The tests run all of them on inputs of their own.
void FuzzByteString(FuzzInput input);
void FuzzImage(FuzzInput input);
void FuzzLidHeader(FuzzInput input);
void FuzzLint(FuzzInput input);
void FuzzSource(FuzzInput input);
void FuzzString(FuzzInput input);
