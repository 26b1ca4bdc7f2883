// Broken preconditions: a caller's fault, never an input's. The texts are fixed by the operation that asserts.
#pragma once

// Writes "source:line: function: Assertion `expression' failed." to standard error and ends the program by abort.
[[noreturn]] void AssertionFailed(const char* expression, const char* source, const char* function, unsigned int line);

// Ends the program unless `holds`. The line is the caller's; __builtin_LINE because clang 14 has no
// std::source_location.
inline void Assert(bool holds, const char* expression, const char* source, const char* function,
                   unsigned int line = __builtin_LINE())
{
  if (!holds) [[unlikely]] {
    AssertionFailed(expression, source, function, line);
  }
}
