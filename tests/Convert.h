// Between the library's strings and the standard one, byte for byte.
#pragma once

#include <string>

#include "foundation/ByteString.h"
#include "foundation/StandardString.h"

inline ByteString ToBytes(const std::string& raw)
{
  return ByteString(raw.data(), static_cast<unsigned int>(raw.size()));
}
inline std::string Text(const String& text) { return ToText(text); }
inline std::string Text(const ByteString& b)
{
  return std::string(b.getBytePointer(), b.getBytePointer() + b.length());
}
