// Calls of the operating system that a signal may interrupt.
#pragma once

#include <cerrno>

// The call's result, negative for a failure that errno tells; an interrupted call is made again.
template <class Call>
auto Uninterrupted(Call call)
{
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}
