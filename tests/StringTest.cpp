#include <gtest/gtest.h>

#include <climits>
#include <sstream>

#include "foundation/PreAllocatedString.h"
#include "foundation/StringIterator.h"
#include "tests/TestSupport.h"

namespace {

using std::string_literals::operator""s;

String S(const std::string& text) { return String(text.data(), static_cast<unsigned int>(text.size())); }
const char* P(const String& text) { return text; }
std::string Whole(const String& s) { return Text(s) + (P(s)[s.length()] == '\0' ? "" : "(no NUL)"); }

TEST(StringTest, AnArgumentInTheStringItselfCountsAsCopiedBefore)
{
  const std::tuple<const char*, void (*)(String&), const char*> rows[] = {
      {"+=", [](String& s) { s += s; }, "abcdabcd"},
      {"append", [](String& s) { s.append(P(s) + 2, 2); }, "abcdcd"},
      {"assign, =", [](String& s) { s.assign(P(s) + 1, 3) = P(s) + 1; }, "cd"},
      {"= whole", [](String& s) { s = *&s; }, "abcd"},
      {"insert whole", [](String& s) { s.insert(1, s); }, "aabcdbcd"},
      {"insert its tail", [](String& s) { s.insert(2, P(s) + 1); }, "abbcdcd"},
      {"insert in the block", [](String& s) { s.reSize(50), s.insert(1, s).insert(2, P(s) + 6); }, "aacdbcdbcd"},
      {"substitute whole", [](String& s) { s.substitute(s, "x"); }, "x"},
      {"substitute by whole", [](String& s) { s.substitute("b", s); }, "aabcdcd"},
      {"format", [](String& s) { (s = "%d!").itoa(-5, s); }, "-5!"},
  };
  for (const auto& [claim, edit, after] : rows) {
    String s("abcd");
    edit(s);
    EXPECT_EQ(Whole(s), after) << claim;
  }
}

TEST(StringTest, EditsKeepNulsAndCutTheirRanges)
{
  const String a("ab"), b("c\0", 2);
  EXPECT_EQ(Whole(S("ab").insert(1, S("\0\0"s)) += 'c'), "a\0\0bc"s);
  EXPECT_EQ(Whole(S("ab").insert(2, 'c').insert(0, "xy")), "xyabc");
  EXPECT_EQ(Whole(S("abcdef").remove(1, 2).remove(2, UINT_MAX).remove(2, 1)), "ad");
  EXPECT_EQ(Whole(S("aZ1\0b\xe9"s).toUpper() + S("Zb1\0B\xc9"s).toLower()), "AZ1\0B\xe9zb1\0b\xc9"s);
  EXPECT_EQ(Whole(S("  ab").strip(0).padBlanks(6).padBlanks(1)), "  ab  ");
  EXPECT_EQ(Whole(S(" \ta\t \0 b"s).strip(1)), "\ta\t");
  EXPECT_EQ(Whole(S("  ").strip(0) + S("  ").strip(1)), "");
  EXPECT_EQ(Whole('x' + (a + b) + ("y" + b + "z") + 'w'), "xabc\0yc\0zw"s);
  EXPECT_EQ(Whole(String(b, 9) + String(a, 1) + a(0, 1) + a(1, UINT_MAX) + a(2, 1) + a(3, 1)), "c\0aab"s);
  EXPECT_EQ(Whole(S("old").itoa(7, (std::string(300, 'x') + "%d").c_str())), std::string(300, 'x') + "7");
  EXPECT_EQ(Whole(S("").uitoa(UINT_MAX, "%u ") + S("").ltoa(4294967291L, "%ld")), "4294967295 -5");
  EXPECT_EQ(Whole(S("").ultoa(0xABCDEF00000012UL, "%lu") + S("").ltoa(-1, "%% %#lx")), "18% 0xffffffff");
  EXPECT_EQ(Whole(S("").ultoa(4294967295, "%ld") + S("").itoa(-1, "%03li")), "-1-01");
  EXPECT_EQ(Whole(S("xaabby").substitute("ab", "")), "xy");
  EXPECT_EQ(Whole(S("b.b").substitute("b", "a").substitute("", "x")), "a.a");
  EXPECT_EQ(Whole(S("aab").substitute("a", "aa")), "aaaab");
}

TEST(StringTest, SearchesSeeTheTextAndLeaveTheRest)
{
  // The text, what is searched in it, what breaking and a token give and leave, the tail.
  const std::string rows[][5] = {{"k::v::", "::", "k|v::", "k|:v::", "::v::"},
                                 {"value", "xl", "|value", "va|ue", ""},
                                 {"::v", "::", "|v", "|:v", "::v"},
                                 {"v", "", "|v", "|v", "v"},
                                 {"a\0::"s, "::", "|a\0::"s, "|a\0::"s, ""},
                                 {"x,y;z", ";,", "|x,y;z", "x,y|z", ""},
                                 {"abcabc", "ca", "ab|bc", "ab|abc", "cabc"}};
  for (const auto& [text, searched, broken, token, tail] : rows) {
    String b = S(text), t = b;
    EXPECT_EQ(Text(b.strStr(S(searched))), tail) << text;
    EXPECT_EQ(Whole(b.strBreakStr(S(searched)) + "|" + b), broken) << text;
    EXPECT_EQ(Whole(t.strTok(S(searched)) + "|" + t), token) << text;
  }
  EXPECT_EQ(Text(S("a=b=c").strChr('=') + S("a=b").strChr('x') + S("a\0b"s).strChr('b')), "=b=c");
}

TEST(StringTest, GrowthAddsTheOldBlockToTheRequest)
{
  PreAllocatedString s(5);
  const char* block = s;
  EXPECT_EQ(Whole(s = "12345"), "12345");
  EXPECT_EQ(P(s = String("abcde")), block);
  block = s += 'f';  // 7 bytes and the 6 of the old block
  s.assign("123456789012", 12).remove(4, 8).insert(0, "abcdefgh").clear();
  EXPECT_EQ(P(s += "123456789012"), block);
  EXPECT_NE(P(s += 'x'), block);
  String assigned("ab");
  assigned = "longer than it was";
  EXPECT_EQ(Whole(assigned += "!"), "longer than it was!");
}

TEST(StringTest, NumbersSaturateAtThirtyTwoBitsInEveryBase)
{
  const String above("2147483648"), below("-2147483649"), far("99999999999999999999");
  EXPECT_EQ((std::vector{above.AtoI(10), below.AtoI(10), far.AtoI(10)}), (std::vector{INT_MAX, INT_MIN, INT_MAX}));
  EXPECT_EQ((std::vector{above.AtoL(10), below.AtoL(10)}), (std::vector<long>{INT_MAX, INT_MIN}));
  EXPECT_EQ((std::vector{above.AtoUI(10), below.AtoUI(10)}), (std::vector{0x7fffffffU, 0x80000000U}));
  EXPECT_EQ((std::vector{above.AtoUL(10), below.AtoUL(10), far.AtoUL(10), S(" -4294967296").AtoUL(10),
                         S(" -4294967295").AtoUL(10)}),
            (std::vector{0x80000000UL, 0x7fffffffUL, 0xffffffffUL, 0xffffffffUL, 1UL}));
  EXPECT_EQ(
      (std::vector{S(" \t+7").AtoI(10), S("12ab").AtoI(10), S("x").AtoI(10), S("").AtoI(10), S("1\0002"s).AtoI(10)}),
      (std::vector{7, 12, 0, 0, 1}));
  EXPECT_EQ(
      (std::vector{S("0x1Fg").AtoI(0), S("0178").AtoI(0), S("0xff").AtoI(16), S("1012").AtoI(2), S("-zZ").AtoI(36)}),
      (std::vector{31, 15, 255, 5, -1295}));
}

TEST(StringTest, OrderIsThatOfUnsignedBytesAndThenOfLengths)
{
  const std::string sorted[] = {"", "B", "a", "a\0"s, "a\0b"s, "a\0c"s, "ab", "abc", "z", "\x7f\x7f", "\x80", "\xff"};
  for (const std::string& a : sorted) {
    for (const std::string& b : sorted) {
      EXPECT_EQ(S(a) > S(b), &a > &b) << a << " and " << b;
      EXPECT_EQ(S(a) == S(b), &a == &b) << a << " and " << b;
      EXPECT_EQ(S(a) != S(b), &a != &b) << a << " and " << b;
    }
  }
  EXPECT_EQ(String::Compare("a", 1, "abc", 3), -2);
  EXPECT_TRUE(String::Equal(nullptr, 0, nullptr, 0));
  EXPECT_TRUE(String("a") == std::string("a").data());
  EXPECT_TRUE(S("a\0"s) != "a");
  EXPECT_EQ(insensitive_memcmp("aB\xe9", "Ab\xe9", 3), 0);
  EXPECT_EQ(insensitive_memcmp("\xe9", "A", 1), 0xe9 - 'a');
}

TEST(StringTest, ReadsAWordThenRawCharactersAndWritesThemUnformatted)
{
  std::istringstream in("  alpha \0beta"s);
  String word("old"), raw("old"), last;
  word.getWord(in);
  raw.get(in, 3);
  last.getWord(in);
  EXPECT_EQ(Whole(word + "|" + raw + "|" + last), "alpha| \0b|eta"s);
  EXPECT_TRUE(last.getWord(in).fail());
  EXPECT_EQ(Whole(last), "");
  std::ostringstream out;
  out.width(9);
  out << raw;
  for (StringIterator each(raw); each.valid(); each.next()) out.put(each.get());
  EXPECT_EQ(out.str(), " \0b \0b"s);
}

}  // namespace
