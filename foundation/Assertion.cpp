#include "foundation/Assertion.h"

#include <cstdio>
#include <cstdlib>

void AssertionFailed(const char* expression, const char* source, const AssertingFunction& function)
{
  std::fprintf(stderr, "%s:%u: %s: Assertion `%s' failed.\n", source, function.line, function.text, expression);
  std::abort();
}
