// Host order and file order: numbers in files are big-endian, and a digit field holds its first digit in the high
// nibble of a byte. Numbers are converted with the platform's htons and htonl.
#pragma once

// 1 when the host stores the low byte of a number first, else 0.
int littleEndian();

// Host order of `count` digit bytes to file order, and back: on a little-endian host, the two nibbles of each byte
// change places; on any other host nothing happens.
void htonb(char* bytes, int count);
void ntohb(char* bytes, int count);

// The same whatever the host: nibbles of each byte, bytes of a number.
void swapCharNibs(char* bytes, int count);
unsigned short swapUint16(unsigned short value);
unsigned int swapUint32(unsigned int value);
