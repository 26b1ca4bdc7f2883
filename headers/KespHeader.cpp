#include "headers/KespHeader.h"

#include <algorithm>

#include "foundation/Allocate.h"
#include "foundation/Assertion.h"
#include "foundation/ByteOrder.h"
#include "headers/HeaderRecord.h"

namespace {

constexpr unsigned int fixedSize = sizeof(KESPHDR);
constexpr int shortVersion = 2;

KESPHDR& CastToStructKESPHDR(ByteString& bytes) { return ViewAs<KESPHDR>(bytes); }

const KESPHDR& CastToConstStructKESPHDR(const ByteString& bytes) { return ViewAs<KESPHDR>(bytes); }

template <class Field>
unsigned int EndOf(Field KESPHDR::*member)
{
  static constexpr KESPHDR layout = {};
  const auto* begin = reinterpret_cast<const unsigned char*>(&layout);
  const auto* end = reinterpret_cast<const unsigned char*>(&(layout.*member) + 1);
  return static_cast<unsigned int>(end - begin);
}

// Digit fields are held with the first digit of a byte in the low nibble on a little-endian host.
template <std::size_t width>
void SwapDigits(unsigned char (&digits)[width])
{
  htonb(reinterpret_cast<char*>(digits), width);
}

// Stores one digit for each character of the text, which holds them all.
void StoreDigits(unsigned char (&digits)[6], const char* text)
{
  for (unsigned char& byte : digits) {
    const int high = *text++ & 0x0F;
    const int low = *text++ & 0x0F;
    byte = static_cast<unsigned char>(high << 4 | low);
  }
  SwapDigits(digits);
}

boolean HasTwelveCharacters(const char* text) { return memchr(text, '\0', 12) == nullptr; }

}  // namespace

KespHeader::KespHeader(unsigned int size) : header(ZeroBytes(size, fixedSize)), isValid(!header.empty())
{
  if (!valid()) return;
  version = 3;
  KESPHDR& record = CastToStructKESPHDR(header);
  record.magicNumber = lidMagicNumber;
  record.version = 3;
  record.flags1 = 0x01;
  record.flags2 = 0x40;
  ByteString phylum = ByteString::FromHexString("F0000000", true);
  setPhylumData(phylum);
}

KespHeader::KespHeader(const ByteString& bytes)
    : header(AtLeast(ByteString(bytes, fixedSize), fixedSize)), isValid(!header.empty())
{
  if (!valid()) return;
  Endian();
  if (version == shortVersion) {
    // Cut in file order, so that a number that the cut divides keeps its file bytes.
    const unsigned int length = getLength();
    Endian();
    header.remove(length, fixedSize);
    Endian();
  } else {
    phylumData = bytes(fixedSize, CastToStructKESPHDR(header).phylumLength);
  }
}

// The header's bytes that belong to fields: version 2 has none from the update time on.
unsigned int KespHeader::fieldBytes() const
{
  return version == shortVersion ? MIN(header.length(), offsetof(KESPHDR, lidUpdateTime)) : header.length();
}

// Null when the header does not hold the whole field.
template <class Field>
Field* KespHeader::field(Field KESPHDR::*member, const AssertingFunction& function)
{
  Assert(valid(), "valid()", "KespHeader", function);
  return EndOf(member) <= fieldBytes() ? &(CastToStructKESPHDR(header).*member) : nullptr;
}

template <class Field>
const Field* KespHeader::field(Field KESPHDR::*member, const AssertingFunction& function) const
{
  Assert(valid(), "valid()", "KespHeader", function);
  return EndOf(member) <= fieldBytes() ? &(CastToConstStructKESPHDR(header).*member) : nullptr;
}

unsigned short KespHeader::getMagicNumber() const
{
  const auto* number = field(&KESPHDR::magicNumber, "short unsigned int KespHeader::getMagicNumber () const");
  return number != nullptr ? *number : 0;
}

unsigned int KespHeader::getLength() const
{
  const auto* length = field(&KESPHDR::headerLength, "unsigned int KespHeader::getLength () const");
  return length != nullptr ? *length : 0;
}

boolean KespHeader::holdsLidDateTime() const
{
  return field(&KESPHDR::lidDateTime, "boolean KespHeader::holdsLidDateTime () const") != nullptr;
}

tm* KespHeader::getLidDateTime()
{
  return brokenDown(field(&KESPHDR::lidDateTime, "tm *KespHeader::getLidDateTime ()"));
}

tm* KespHeader::getLidUpdateTime()
{
  return brokenDown(field(&KESPHDR::lidUpdateTime, "tm *KespHeader::getLidUpdateTime ()"));
}

tm* KespHeader::brokenDown(const unsigned char (*digits)[6])
{
  unsigned char file[6] = {};
  if (digits != nullptr) {
    memcpy(file, *digits, sizeof file);
    SwapDigits(file);
  }
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
  auto* digits = field(&KESPHDR::lidDateTime, "void KespHeader::setLidDateTime (char *)");
  if (digits != nullptr && HasTwelveCharacters(text)) StoreDigits(*digits, text);
}

void KespHeader::setLidUpdateTime(char* text)
{
  auto* digits = field(&KESPHDR::lidUpdateTime, "void KespHeader::setLidUpdateTime (char *)");
  if (digits != nullptr && HasTwelveCharacters(text)) StoreDigits(*digits, text);
}

void KespHeader::setLidNumber(String& hex)
{
  auto* number = field(&KESPHDR::lidNumber, "void KespHeader::setLidNumber (String &)");
  const ByteString digits = ByteString::FromHexString(hex, false);
  if (number == nullptr || digits.length() < sizeof *number || hex.length() < 2 * sizeof *number) return;
  memcpy(*number, digits.getBytePointer(), sizeof *number);
  SwapDigits(*number);
}

void KespHeader::setLidInfo(String text)
{
  auto* info = field(&KESPHDR::lidInfo, "void KespHeader::setLidInfo (String)");
  if (info == nullptr) return;
  memset(*info, 0, sizeof *info);
  memcpy(*info, static_cast<const char*>(text), std::min<std::size_t>(text.length(), sizeof *info));
}

void KespHeader::setLidClass(int number)
{
  auto* lidClass = field(&KESPHDR::lidClass, "void KespHeader::setLidClass (int)");
  if (lidClass != nullptr) *lidClass = static_cast<std::uint16_t>(number);
}

void KespHeader::setCRCNumber(unsigned int crc)
{
  auto* stored = field(&KESPHDR::crc, "void KespHeader::setCRCNumber (unsigned int)");
  if (stored != nullptr) *stored = crc;
}

void KespHeader::setLidLength(unsigned int length)
{
  auto* stored = field(&KESPHDR::lidLength, "void KespHeader::setLidLength (unsigned int)");
  if (stored != nullptr) *stored = length;
}

void KespHeader::setMtdNumber(int number)
{
  auto* stored = field(&KESPHDR::mtdNumber, "void KespHeader::setMtdNumber (int)");
  if (stored != nullptr) *stored = static_cast<unsigned char>(number);
}

void KespHeader::setPhylumData(ByteString& data)
{
  const AssertingFunction function = "void KespHeader::setPhylumData (ByteString &)";
  auto* dataLength = field(&KESPHDR::phylumLength, function);
  auto* headerLength = field(&KESPHDR::headerLength, function);
  phylumData = data;
  if (dataLength != nullptr) *dataLength = static_cast<std::uint16_t>(data.length());
  if (headerLength != nullptr) *headerLength = fixedSize + data.length();
}

// Converts the field where the header holds it whole; digits are converted byte by byte.
template <class Field>
void KespHeader::convert(Field KESPHDR::*member)
{
  if (EndOf(member) <= fieldBytes()) ToFileOrder(CastToStructKESPHDR(header).*member);
}

void KespHeader::Endian()
{
  Assert(valid(), "valid()", "KespHeader", "void KespHeader::Endian ()");
  const auto convertDigits = [this](unsigned int begin, unsigned int end) {
    end = MIN(end, fieldBytes());
    if (begin < end) htonb(reinterpret_cast<char*>(header.getBytePointer() + begin), static_cast<int>(end - begin));
  };
  convert(&KESPHDR::magicNumber);
  convert(&KESPHDR::version);
  convertDigits(offsetof(KESPHDR, lidNumber), offsetof(KESPHDR, lidClass));
  convert(&KESPHDR::lidClass);
  convert(&KESPHDR::crc);
  convert(&KESPHDR::lidLength);
  convert(&KESPHDR::headerLength);
  if (version == 0) version = CastToStructKESPHDR(header).version;
  convertDigits(offsetof(KESPHDR, lidUpdateTime), offsetof(KESPHDR, phylumLength));
  convert(&KESPHDR::phylumLength);
}

ByteString KespHeader::getByteString() const
{
  Assert(valid(), "valid()", "KespHeader", "ByteString KespHeader::getByteString () const");
  return version == shortVersion ? header : header + phylumData;
}

boolean KespHeader::writeHeader(WriteStream& out) const
{
  out.putByteString(header);
  if (version != shortVersion) out.putByteString(phylumData);
  return !out.failure();
}
