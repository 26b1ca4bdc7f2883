#include "foundation/Assertion.h"

#include <cstdio>
#include <cstdlib>

void AssertionFailed(const char* expression, const char* source, const char* function, unsigned int line)
{
  std::fprintf(stderr, "%s:%u: %s: Assertion `%s' failed.\n", source, line, function, expression);
  std::abort();
}
