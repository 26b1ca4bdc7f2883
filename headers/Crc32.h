// The CRC-32 of load modules: polynomial 0x04C11DB7, most significant bit first, initial value 0, no final XOR.
#pragma once

// The CRC of `count` bytes.
unsigned int cupdGenCrc32(const char* bytes, unsigned int count);
