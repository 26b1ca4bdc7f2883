// The system's number and flag types. Every int, long and unsigned that an operation takes or gives holds a value of
// 32 bits, whatever the host's `long` holds.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>

static_assert(CHAR_BIT == 8 && sizeof(int) == 4 && sizeof(long) == 8 && sizeof(std::size_t) == 8,
              "the widths for which this system is written");

using boolean = bool;

// The one place where a wider `long` is brought down to the system's width: its low 32 bits.
constexpr std::uint32_t Low32(unsigned long value) { return static_cast<std::uint32_t>(value); }
constexpr std::int32_t Low32(long value) { return static_cast<std::int32_t>(value); }
