// What the model of the fuzzer leaves out: ModelTest holds the edits, the searches and the reading.

#include <climits>
#include <sstream>

#include "foundation/PreAllocatedString.h"
#include "foundation/StringIterator.h"
#include "tests/TestSupport.h"

using std::string_literals::operator""s;

static std::string Whole(const String& s)
{
  return Text(s) + (static_cast<const char*>(s)[s.length()] == '\0' ? "" : "(no NUL)");
}

TEST(StringTest, PiecesSumsVisitsAndTheUnformattedOutputKeepNuls)
{
  const String a("ab"), b("c\0", 2);
  EXPECT_EQ(Whole('x' + (a + b) + ("y" + b + "z") + 'w'), "xabc\0yc\0zw"s);
  EXPECT_EQ(Whole(String(b, 9) + String(a, 1) + a(0, 1) + a(1, UINT_MAX) + a(2, 1) + a(3, 1)), "c\0aab"s);
  std::ostringstream out;
  out.width(9);
  out << b;
  for (StringIterator each(b); each.valid(); each.next()) out.put(each.get());
  EXPECT_EQ(out.str(), "c\0c\0"s);
}

TEST(StringTest, SubstitutionPassesOnceWhenTheReplacementHoldsWhatIsSearched)
{
  EXPECT_EQ(Whole(String("aab").substitute("a", "aa")), "aaaab");
  String s("abcd");
  EXPECT_EQ(Whole(s.substitute("b", s)), "aabcdcd");
}

TEST(StringTest, FormattedNumberOfThirtyTwoBitsBecomesTheText)
{
  String s = "%d!";
  EXPECT_EQ(Whole(s.itoa(-5, s)), "-5!");
  EXPECT_EQ(Whole(s.itoa(7, (std::string(300, 'x') + "%d").c_str())), std::string(300, 'x') + "7");
  EXPECT_EQ(Whole(s.itoa(-1, "%%%03li")), "%-01");
  EXPECT_EQ(Whole(s.itoa(1, "")), "");
  EXPECT_EQ(Whole(s.uitoa(UINT_MAX, "%u ")), "4294967295 ");
  EXPECT_EQ(Whole(s.ltoa(4294967291L, "%ld")), "-5");
  EXPECT_EQ(Whole(s.ltoa(-1, "%% %#lx")), "% 0xffffffff");
  EXPECT_EQ(Whole(s.ultoa(0xABCDEF00000012UL, "%lu")), "18");
  EXPECT_EQ(Whole(s.ultoa(4294967295, "%% %ld")), "% -1");
}

TEST(StringTest, GrowthAddsTheOldBlockToTheRequest)
{
  PreAllocatedString s(5);
  const char* block = s;
  EXPECT_EQ(Whole(s), "");
  EXPECT_EQ(static_cast<const char*>((s = "1234") += '5'), block);
  EXPECT_NE(static_cast<const char*>(s = String("abcdef")), block);  // takes 7 bytes
  block = s += 'f';                                                  // 8 bytes and the 7 of the old block
  s.assign("12345678901234", 14).remove(4, 10).insert(0, "abcdefghij").clear();
  EXPECT_EQ(static_cast<const char*>(s += "12345678901234"), block);
  EXPECT_NE(static_cast<const char*>(s += 'x'), block);
}

TEST(StringTest, NumbersSaturateAtThirtyTwoBitsInEveryBase)
{
  using Row = std::tuple<std::string, int, int, unsigned long>;
  const Row rows[] = {{"2147483648", 10, INT_MAX, 0x80000000},
                      {"-2147483649", 10, INT_MIN, 0x7fffffff},
                      {" -4294967296", 10, INT_MIN, 0xffffffff},
                      {"99999999999999999999", 10, INT_MAX, 0xffffffff},
                      {" -4294967295", 10, INT_MIN, 1},
                      {" \t+7", 10, 7, 7},
                      {"1\0002"s, 10, 1, 1},
                      {"1012", 2, 5, 5},
                      {"-zZ", 36, -1295, 4294966001}};
  for (const auto& [text, base, number, magnitude] : rows) {
    const String s = ToString(text);
    EXPECT_EQ(s.AtoI(base), number) << text;
    EXPECT_EQ(s.AtoL(base), number) << text;
    EXPECT_EQ(s.AtoUI(base), static_cast<unsigned int>(number)) << text;
    EXPECT_EQ(s.AtoUL(base), magnitude) << text;
  }
}

TEST(StringTest, OrderIsThatOfUnsignedBytesAndThenOfLengths)
{
  const std::string sorted[] = {"", "B", "a", "a\0"s, "a\0b"s, "a\0c"s, "ab", "abc", "z", "\x7f\x7f", "\x80", "\xff"};
  for (const std::string& a : sorted) {
    for (const std::string& b : sorted) {
      EXPECT_EQ(ToString(a) > ToString(b), &a > &b) << a << " and " << b;
      EXPECT_EQ(ToString(a) == ToString(b), &a == &b) << a << " and " << b;
      EXPECT_EQ(ToString(a) != ToString(b), &a != &b) << a << " and " << b;
    }
  }
  EXPECT_EQ(String::Compare("a", 1, "abc", 3), -2);
  EXPECT_TRUE(String::Equal(nullptr, 0, nullptr, 0));
  EXPECT_TRUE(String("a") == std::string("a").data());
  EXPECT_TRUE(ToString("a\0"s) != "a");
  EXPECT_EQ(insensitive_memcmp("aB\xe9x", "Ab\xe9y", 3), 0);
  EXPECT_EQ(insensitive_memcmp("\x80", "\x7f", 1), 1);
}
