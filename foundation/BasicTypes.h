// The system's number and flag types. Every int, long and unsigned that an operation takes or gives holds a value of
// 32 bits, whatever the host's `long` holds.
#pragma once

#include <cstdint>

using boolean = bool;

// The one place where a wider `long` is brought down to the system's width: its low 32 bits.
constexpr std::uint32_t Low32(unsigned long value) { return static_cast<std::uint32_t>(value); }
constexpr std::int32_t Low32(long value) { return static_cast<std::int32_t>(value); }
