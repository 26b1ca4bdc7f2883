#include "headers/BinaryData.h"

#include "headers/UnsignedLongByteIterator.h"

namespace {

// The bytes of `value` at the end of a field filled with `fill`; `modified` tells of bytes of `magnitude` that are not
// zero and have no place in the field.
ByteString Convert(unsigned long value, unsigned long magnitude, unsigned int n, unsigned char fill, boolean& modified)
{
  modified = n == 0;
  ByteString field(n, fill);
  UnsignedLongByteIterator lost(magnitude);
  UnsignedLongByteIterator byte(value);
  for (unsigned int place = n; place > 0 && byte.valid(); byte.next(), lost.next()) {
    field.setNthByte(--place, byte.get());
  }
  for (; lost.valid(); lost.next()) modified = modified || lost.get() != 0;
  return field;
}

}  // namespace

ByteString BinaryData::ConvertUnsigned(unsigned long value, unsigned int n, boolean& modified)
{
  return Convert(value, value, n, 0x00, modified);
}

ByteString BinaryData::ConvertSigned(long value, unsigned int n, boolean& modified)
{
  const auto bits = static_cast<std::uint32_t>(Low32(value));
  const boolean negative = Low32(value) < 0;
  return Convert(bits, negative ? 0U - bits : bits, n, negative ? 0xFF : 0x00, modified);
}
