// Between the system's text and the standard library's, byte for byte.
#pragma once

#include <string>

#include "foundation/String.h"

inline std::string ToText(const String& text) { return std::string(static_cast<const char*>(text), text.length()); }

// The text must not be longer than a String can be.
inline String ToString(const std::string& text) { return String(text.data(), static_cast<unsigned int>(text.size())); }
