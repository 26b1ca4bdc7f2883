#include "headers/Crc32.h"

#include <array>
#include <cstdint>

namespace {

// The remainders of the bytes 0x00, 0x10 to 0xF0, and of 0x00 to 0x0F.
// clang-format off
constexpr std::array<std::uint32_t, 16> l_crcth = {
    0x00000000, 0x4C11DB70, 0x9823B6E0, 0xD4326D90,
    0x34867077, 0x7897AB07, 0xACA5C697, 0xE0B41DE7,
    0x690CE0EE, 0x251D3B9E, 0xF12F560E, 0xBD3E8D7E,
    0x5D8A9099, 0x119B4BE9, 0xC5A92679, 0x89B8FD09,
};
constexpr std::array<std::uint32_t, 16> l_crctl = {
    0x00000000, 0x04C11DB7, 0x09823B6E, 0x0D4326D9,
    0x130476DC, 0x17C56B6B, 0x1A864DB2, 0x1E475005,
    0x2608EDB8, 0x22C9F00F, 0x2F8AD6D6, 0x2B4BCB61,
    0x350C9B64, 0x31CD86D3, 0x3C8EA00A, 0x384FBDBD,
};
// clang-format on

}  // namespace

unsigned int cupdGenCrc32(const char* bytes, unsigned int count)
{
  std::uint32_t crc = 0;
  for (unsigned int i = 0; i < count; i++) {
    const unsigned int index = static_cast<unsigned char>(bytes[i]) ^ crc >> 24;
    crc = crc << 8 ^ l_crcth[index >> 4] ^ l_crctl[index & 15];
  }
  return crc;
}
