// ByteString against a string of bytes. The input chooses the operations and their arguments, which may be the byte
// string itself.
#include "foundation/ByteStringIterator.h"
#include "fuzz/FuzzInput.h"

// The bytes that digits of the base, 16 or 2, spell.
static string Spelled(string digits, int base, bool padLeft)
{
  const std::size_t perByte = base == 2 ? 8 : 2;
  string bytes;
  if (digits.find_first_not_of(base == 2 ? "01" : "0123456789abcdefABCDEF") != string::npos) return bytes;
  while (digits.size() % perByte != 0) digits.insert(padLeft ? 0 : digits.size(), 1, '0');
  for (std::size_t i = 0; i < digits.size(); i += perByte) {
    bytes += static_cast<char>(std::stoul(digits.substr(i, perByte), nullptr, base));
  }
  return bytes;
}

static void SetDigit(ByteString& s, string& model, int base, unsigned int place, unsigned char value)
{
  string digits = Text(base == 2 ? s.toBinaryString() : s.toHexString());
  Require(digits.size() == model.size() * (base == 2 ? 8 : 2) && Spelled(digits, base, true) == model, "text form");
  if (model.empty()) return;
  place %= static_cast<unsigned int>(digits.size());
  digits[place] = hexDigit[value % base];
  base == 2 ? s.setNthBit(place, value % 2 == 1) : s.setNthNibble(place, value);
  Require((base == 2 ? s.getNthBit(place) : s.getNthNibble(place)) == value % base, "the digit that was set");
  model = Spelled(digits, base, true);
}

static string Visited(const ByteString& s)
{
  string seen;
  for (ByteStringIterator each(s); each.valid(); each.next()) seen += static_cast<char>(each.get());
  return seen;
}

void FuzzByteString(FuzzInput input)
{
  ByteString s;
  string m;
  while (!input.rest.empty()) {
    const unsigned int number = input.byte(), flags = input.byte(), b = input.byte(), count = b < 255 ? b : UINT32_MAX;
    const auto byte = static_cast<unsigned char>(input.byte());
    const char ch = static_cast<char>(byte);
    const unsigned int a = flags % (s.length() + 1), end = s.length(), place = 256 * flags + b;
    const string raw = input.text(), added = flags % 2 == 0 ? raw : m;
    const ByteString own = ToBytes(raw), &other = flags % 2 == 0 ? own : s;
    string digits = raw;
    for (char& digit : digits) digit = flags < 64 ? digit : hexDigit[digit & (flags < 160 ? 15 : 1)];
    const String spelled = ToString(digits);
    const bool left = b % 2 == 0;
    RunOne(
        number, [&] { s.insert(a, other), m.insert(a, added); }, [&] { s.insert(a, byte), m.insert(a, 1, ch); },
        [&] { s.replace(a, count, other), m.replace(a, count, added); }, [&] { s += byte, m += ch; },
        [&] { s.replace(a, count, byte), m.replace(a, count, 1, ch); }, [&] { s += other, m += added; },
        [&] { s.remove(a, count), m.erase(a, count); }, [&] { s = s + other, m += added; },
        [&] { s = byte + (s + byte), m.insert(0, 1, ch) += ch; }, [&] { s.reSize(b); },
        [&] { s = s(a, count), m = m.substr(a, count); }, [&] { s = other, m = added; },
        [&] { s = ByteString(s, b), m = m.substr(0, b); }, [&] { s = ByteString(b, byte), m.assign(b, ch); },
        [&] { s.init(byte), m.assign(end, ch); }, [&] { s.clear(), m.clear(); },
        [&] { Require(s.equal(other) == (m == added), "equality"); }, [&] { SetDigit(s, m, 16, place, byte); },
        [&] { SetDigit(s, m, 2, place, byte); },
        [&] { end == 0 ? ch : m[place % end] = static_cast<char>(s[place % end] = byte); },
        [&] { Require(Visited(s) == m, "each byte"); },
        [&] { Require(Text(ByteString::FromHexString(spelled, left)) == Spelled(digits, 16, left), "hex"); },
        [&] { Require(Text(ByteString::FromBinaryString(spelled, left)) == Spelled(digits, 2, left), "binary"); });
    Require(Text(s) == m, "the bytes");
    if (m.size() > 400) s.clear(), m.clear();
  }
}
