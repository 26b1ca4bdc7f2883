// ByteString against a vector of bytes. The input chooses the operations and their arguments, which may be the byte
// string itself.
#include <vector>

#include "foundation/ByteStringIterator.h"
#include "fuzz/FuzzInput.h"

using Vector = std::vector<unsigned char>;

static Vector All(const ByteString& s) { return Vector(s.getBytePointer(), s.getBytePointer() + s.length()); }

static void Splice(Vector& model, unsigned int position, unsigned int count, const Vector& by)
{
  const auto begin = model.begin() + position, end = begin + std::min<std::ptrdiff_t>(count, model.end() - begin);
  model.insert(model.erase(begin, end), by.begin(), by.end());
}

// The bytes that digits of the base, 16 or 2, spell.
static Vector Spelled(string digits, int base, bool padLeft)
{
  const std::size_t perByte = base == 2 ? 8 : 2;
  Vector bytes;
  if (digits.find_first_not_of(base == 2 ? "01" : "0123456789abcdefABCDEF") != string::npos) return bytes;
  while (digits.size() % perByte != 0) digits.insert(padLeft ? 0 : digits.size(), 1, '0');
  for (std::size_t i = 0; i < digits.size(); i += perByte) {
    bytes.push_back(static_cast<unsigned char>(std::stoul(digits.substr(i, perByte), nullptr, base)));
  }
  return bytes;
}

static void SetDigit(ByteString& s, Vector& model, int base, unsigned int place, unsigned char value)
{
  string digits = static_cast<const char*>(base == 2 ? s.toBinaryString() : s.toHexString());
  Require(digits.size() == model.size() * (base == 2 ? 8 : 2) && Spelled(digits, base, true) == model, "text form");
  if (model.empty()) return;
  place %= static_cast<unsigned int>(digits.size());
  digits[place] = hexDigit[value % base];
  base == 2 ? s.setNthBit(place, value % 2 == 1) : s.setNthNibble(place, value);
  Require((base == 2 ? s.getNthBit(place) : s.getNthNibble(place)) == value % base, "the digit that was set");
  model = Spelled(digits, base, true);
}

static void Visit(const ByteString& s, const Vector& model)
{
  Vector seen;
  for (ByteStringIterator each(s); each.valid(); each.next()) seen.push_back(each.get());
  Require(seen == model, "each byte");
}

void FuzzByteString(FuzzInput input)
{
  ByteString s;
  Vector m;
  while (!input.rest.empty()) {
    const unsigned int number = input.byte(), flags = input.byte(), b = input.byte(), count = b < 255 ? b : UINT32_MAX;
    const auto byte = static_cast<unsigned char>(input.byte());
    const unsigned int a = flags % (s.length() + 1), end = s.length(), place = 256 * flags + b;
    const string raw = input.text();
    const Vector added = flags % 2 == 0 ? Vector(raw.begin(), raw.end()) : m, one = {byte};
    const ByteString own = ToBytes(raw), &other = flags % 2 == 0 ? own : s;
    string digits = raw;
    for (char& ch : digits) ch = flags < 64 ? ch : hexDigit[ch & (flags < 160 ? 15 : 1)];
    const bool left = b % 2 == 0;
    RunOne(
        number, [&] { s.insert(a, other), Splice(m, a, 0, added); }, [&] { s.insert(a, byte), Splice(m, a, 0, one); },
        [&] { s.replace(a, count, other), Splice(m, a, count, added); }, [&] { s += byte, m.push_back(byte); },
        [&] { s.replace(a, count, byte), Splice(m, a, count, one); }, [&] { s += other, Splice(m, end, 0, added); },
        [&] { s.remove(a, count), Splice(m, a, count, {}); }, [&] { s = s + other, Splice(m, end, 0, added); },
        [&] { s = byte + (s + byte), Splice(m, 0, 0, one), m.push_back(byte); }, [&] { s.reSize(b); },
        [&] { s = s(a, count), Splice(m, 0, a, {}), m.resize(std::min<std::size_t>(count, m.size())); },
        [&] { s = other, m = added; }, [&] { s = ByteString(s, b), m.resize(std::min(end, b)); },
        [&] { s = ByteString(b, byte), m.assign(b, byte); }, [&] { s.init(byte), m.assign(end, byte); },
        [&] { s.clear(), m.clear(); }, [&] { Require(s.equal(other) == (m == added), "equality"); },
        [&] { SetDigit(s, m, 16, place, byte); }, [&] { SetDigit(s, m, 2, place, byte); },
        [&] { end == 0 ? byte : s[place % end] = m[place % end] = byte; }, [&] { Visit(s, m); },
        [&] { Require(All(ByteString::FromHexString(ToString(digits), left)) == Spelled(digits, 16, left), "hex"); },
        [&] {
          Require(All(ByteString::FromBinaryString(ToString(digits), left)) == Spelled(digits, 2, left), "binary");
        });
    Require(All(s) == m, "the bytes");
    if (m.size() > 400) s.clear(), m.clear();
  }
}
