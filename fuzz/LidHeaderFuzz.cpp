// A load module's bytes through its header's record and back, against the file's layout; then every setter, with the
// input's end as its argument.
#include <cstring>

#include "fuzz/FuzzInput.h"
#include "headers/KespHeader.h"

// The date and time that the digits of 6 bytes spell.
static void CheckTime(tm* time, const string& digits)
{
  const auto pair = [&](std::size_t byte) { return (digits[byte] >> 4 & 15) * 10 + (digits[byte] & 15); };
  Require(time->tm_year == pair(0) * 100 + pair(1) - 1900 && time->tm_mon == pair(2) - 1, "year, month");
  Require(time->tm_mday == pair(3) && time->tm_hour == pair(4) && time->tm_min == pair(5), "day, hour, minute");
  Require(time->tm_sec++ == 0, "second");
}

static void CheckFile(KespHeader record, const string& file)
{
  record.Endian();
  std::ostringstream out;
  WriteStream stream(&out);
  Require(record.writeHeader(stream) && out.str() == file, "the file's bytes are written");
  Require(record.getByteString().equal(ToBytes(file)), "they are those of the record");
}

void FuzzLidHeader(FuzzInput input)
{
  const string& file = input.rest;
  KespHeader header(ToBytes(file));
  Require(header.valid() == (file.size() >= 104), "104 bytes make a header");
  if (!header.valid()) return;
  string fields = file.substr(0, 104);
  const auto number = [](const string& raw) { return std::strtoul(ToBytes(raw).toHexString(), nullptr, 16); };
  const auto magic = number(fields.substr(0, 2)), length = number(fields.substr(24, 4));
  const bool isShort = number(fields.substr(2, 2)) == 2;
  const std::size_t held = isShort ? std::min<std::size_t>(104, length) : 104;
  const string phylum = isShort ? "" : file.substr(104, number(fields.substr(102, 2)));
  fields.resize(held), fields.resize(104);  // what is cut counts as zeros
  Require(header.getMagicNumber() == (held >= 2 ? magic : 0), "the magic number");
  Require(header.getLength() == (held >= 28 ? length : 0), "the length");
  Require(header.holdsLidDateTime() == (held >= 14), "whether there is a date");
  CheckTime(header.getLidDateTime(), fields.substr(8, 6));
  CheckTime(header.getLidUpdateTime(), isShort ? string(6, '\0') : fields.substr(96, 6));
  CheckFile(header, fields.substr(0, held) + phylum);

  const string text = file.substr(file.size() - static_cast<unsigned char>(file[30]) % 104U);
  const string four = (text + "1234").substr(0, 4), size(1, static_cast<char>(text.size()));
  const auto value = static_cast<unsigned int>(number(four));
  String characters = ToString(text), hex = ToBytes(four).toHexString() + "0", noHex = characters + "00000000g";
  ByteString tail = ToBytes(text);
  header.setLidNumber(hex), header.setLidNumber(noHex);
  header.setLidDateTime(characters), header.setLidUpdateTime(characters), header.setLidInfo(characters);
  header.setLidClass(static_cast<int>(value)), header.setMtdNumber(static_cast<int>(value));
  header.setCRCNumber(value), header.setLidLength(value), header.setPhylumData(tail);
  string digits, info = text;
  info.resize(64);
  for (std::size_t i = 0; i < 12 && std::strlen(characters) >= 12; i += 2) {
    digits += static_cast<char>(text[i] << 4 | (text[i + 1] & 15));
  }
  const auto put = [&](std::size_t at, const string& b) { fields.replace(at, b.size(), b); };
  put(4, four), put(8, digits), put(14, four.substr(2)), put(16, four), put(20, four), put(28, four.substr(3));
  put(32, info);
  if (!isShort) put(24, string(3, '\0') + static_cast<char>(104 + text.size())), put(96, digits), put(102, '\0' + size);
  CheckFile(header, fields.substr(0, held) + (isShort ? "" : text));
  if (!isShort) CheckFile(KespHeader(ToBytes(fields + text)), fields + text);
}
