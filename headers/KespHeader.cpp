#include "headers/KespHeader.h"

#include <algorithm>

#include "foundation/Allocate.h"
#include "foundation/ByteOrder.h"

namespace {

constexpr char source[] = "KespHeader";
constexpr unsigned int fixedSize = sizeof(KESPHDR);

KESPHDR& CastToStructKESPHDR(ByteString& bytes) { return ViewAs<KESPHDR>(bytes); }

const KESPHDR& CastToConstStructKESPHDR(const ByteString& bytes) { return ViewAs<KESPHDR>(bytes); }

// Digit fields are held with the first digit of a byte in the low nibble on a little-endian host.
template <std::size_t width>
void SwapDigits(unsigned char (&digits)[width])
{
  htonb(reinterpret_cast<char*>(digits), width);
}

// Stores one digit for each of the text's first 12 characters; a shorter text changes nothing.
void StoreDigits(unsigned char (&digits)[6], const char* text)
{
  if (memchr(text, '\0', 2 * sizeof digits) != nullptr) return;
  for (unsigned char& byte : digits) {
    const int high = *text++ & 0x0F;
    const int low = *text++ & 0x0F;
    byte = static_cast<unsigned char>(high << 4 | low);
  }
  SwapDigits(digits);
}

}  // namespace

KespHeader::KespHeader(unsigned int size) : record(source, size, fixedSize), held(record.length())
{
  if (!valid()) return;
  version = 3;
  KESPHDR& lid = fields("KespHeader::KespHeader (unsigned int)");
  lid.magicNumber = lidMagicNumber;
  lid.version = 3;
  lid.flags1 = 0x01;
  lid.flags2 = 0x40;
  ByteString phylum = ByteString::FromHexString("F0000000", true);
  setPhylumData(phylum);
}

KespHeader::KespHeader(const ByteString& bytes)
    : record(source, ByteString(bytes, fixedSize), fixedSize), held(record.length())
{
  if (!valid()) return;
  KESPHDR& lid = fields("KespHeader::KespHeader (const ByteString &)");
  version = ntohs(lid.version);
  if (version == shortVersion) {
    // Cut in file order, in which the bytes that remain of a divided number are its first.
    held = MIN(fixedSize, ntohl(lid.headerLength));
    memset(reinterpret_cast<unsigned char*>(&lid) + held, 0, fixedSize - held);
  }
  Endian();
  if (version != shortVersion) phylumData = bytes(fixedSize, lid.phylumLength);
}

KESPHDR& KespHeader::fields(const AssertingFunction& function) { return CastToStructKESPHDR(record.bytes(function)); }

const KESPHDR& KespHeader::fields(const AssertingFunction& function) const
{
  return CastToConstStructKESPHDR(record.bytes(function));
}

unsigned short KespHeader::getMagicNumber() const
{
  const KESPHDR& lid = fields("short unsigned int KespHeader::getMagicNumber () const");
  return held >= offsetof(KESPHDR, version) ? lid.magicNumber : 0;
}

unsigned int KespHeader::getLength() const
{
  // A length that cuts its own field stood in the last byte, which is now zero.
  return fields("unsigned int KespHeader::getLength () const").headerLength;
}

boolean KespHeader::holdsLidDateTime() const
{
  fields("boolean KespHeader::holdsLidDateTime () const");
  return held >= offsetof(KESPHDR, lidClass);
}

tm* KespHeader::getLidDateTime() { return brokenDown(fields("tm *KespHeader::getLidDateTime ()").lidDateTime); }

tm* KespHeader::getLidUpdateTime()
{
  static constexpr KESPHDR zeros = {};
  const KESPHDR& lid = fields("tm *KespHeader::getLidUpdateTime ()");
  return brokenDown((version == shortVersion ? zeros : lid).lidUpdateTime);
}

tm* KespHeader::brokenDown(const unsigned char (&digits)[6])
{
  unsigned char file[6];
  memcpy(file, digits, sizeof file);
  SwapDigits(file);
  const auto number = [&](int byte) { return (file[byte] >> 4) * 10 + (file[byte] & 0x0F); };
  time.tm_sec = 0;
  time.tm_min = number(5);
  time.tm_hour = number(4);
  time.tm_mday = number(3);
  time.tm_mon = number(2) - 1;
  time.tm_year = number(0) * 100 + number(1) - 1900;
  return &time;
}

void KespHeader::setLidDateTime(char* text)
{
  StoreDigits(fields("void KespHeader::setLidDateTime (char *)").lidDateTime, text);
}

void KespHeader::setLidUpdateTime(char* text)
{
  KESPHDR& lid = fields("void KespHeader::setLidUpdateTime (char *)");
  if (version != shortVersion) StoreDigits(lid.lidUpdateTime, text);
}

void KespHeader::setLidNumber(String& hex)
{
  KESPHDR& lid = fields("void KespHeader::setLidNumber (String &)");
  const ByteString digits = ByteString::FromHexString(hex, false);
  if (digits.length() < sizeof lid.lidNumber || hex.length() < 2 * sizeof lid.lidNumber) return;
  memcpy(lid.lidNumber, digits.getBytePointer(), sizeof lid.lidNumber);
  SwapDigits(lid.lidNumber);
}

void KespHeader::setLidInfo(String text)
{
  KESPHDR& lid = fields("void KespHeader::setLidInfo (String)");
  memset(lid.lidInfo, 0, sizeof lid.lidInfo);
  memcpy(lid.lidInfo, static_cast<const char*>(text), std::min<std::size_t>(text.length(), sizeof lid.lidInfo));
}

void KespHeader::setLidClass(int number)
{
  fields("void KespHeader::setLidClass (int)").lidClass = static_cast<std::uint16_t>(number);
}

void KespHeader::setCRCNumber(unsigned int crc) { fields("void KespHeader::setCRCNumber (unsigned int)").crc = crc; }

void KespHeader::setLidLength(unsigned int length)
{
  fields("void KespHeader::setLidLength (unsigned int)").lidLength = length;
}

void KespHeader::setMtdNumber(int number)
{
  fields("void KespHeader::setMtdNumber (int)").mtdNumber = static_cast<unsigned char>(number);
}

void KespHeader::setPhylumData(ByteString& data)
{
  KESPHDR& lid = fields("void KespHeader::setPhylumData (ByteString &)");
  if (version == shortVersion) return;
  phylumData = data;
  lid.phylumLength = static_cast<std::uint16_t>(data.length());
  lid.headerLength = fixedSize + data.length();
}

void KespHeader::Endian()
{
  KESPHDR& lid = fields("void KespHeader::Endian ()");
  ToFileOrder(lid.magicNumber, lid.version, lid.lidClass, lid.crc, lid.lidLength, lid.headerLength);
  SwapDigits(lid.lidNumber);
  SwapDigits(lid.lidDateTime);
  if (version == shortVersion) return;
  SwapDigits(lid.lidUpdateTime);
  ToFileOrder(lid.phylumLength);
}

ByteString KespHeader::getByteString() const
{
  return ByteString(record.bytes("ByteString KespHeader::getByteString () const"), held) + phylumData;
}

boolean KespHeader::writeHeader(WriteStream& out) const
{
  if (valid()) out.putByteString(getByteString());
  return !out.failure();
}
