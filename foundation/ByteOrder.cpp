#include "foundation/ByteOrder.h"

#include <cstdint>
#include <cstring>

#include "foundation/StandardStreams.h"

int littleEndian()
{
  const std::uint16_t probe = 0x3162;
  unsigned char first = 0;
  std::memcpy(&first, &probe, 1);
  if (first == 0x62) return 1;
  if (first != 0x31) StandardWriteStream() << "error in function littleEndian()!" << '\n';
  return 0;
}

void htonb(char* bytes, int count)
{
  if (littleEndian() == 1) swapCharNibs(bytes, count);
}

void ntohb(char* bytes, int count) { htonb(bytes, count); }

void swapCharNibs(char* bytes, int count)
{
  for (int i = 0; i < count; i++) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    bytes[i] = static_cast<char>((byte & 0x0F) << 4 | byte >> 4);
  }
}

unsigned short swapUint16(unsigned short value) { return __builtin_bswap16(value); }

unsigned int swapUint32(unsigned int value) { return __builtin_bswap32(value); }
