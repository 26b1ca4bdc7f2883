#include <gtest/gtest.h>

#include <climits>
#include <sstream>

#include "foundation/String.h"
#include "foundation/StringIterator.h"
#include "tests/TestSupport.h"

namespace {

String operator""_s(const char* text, size_t length) { return String(text, static_cast<unsigned int>(length)); }
const char* P(const String& text) { return text; }

// The texts, each closed by '|' that stands for its NUL.
std::string List(const std::vector<String>& texts)
{
  std::string list;
  for (const String& text : texts) list += Text(text) + (P(text)[text.length()] == '\0' ? "|" : "(no NUL)");
  return list;
}

TEST(StringTest, EditsCutTheirRangesKeepNulsAndTakeTheStringItselfAsACopy)
{
  std::vector<String> s(14, "abcd"_s);
  s[9].reSize(50), s[10].reSize(50), s[12] = "%d!";
  EXPECT_EQ(List({s[0] += s[0], s[1] += P(s[1]) + 1, s[2].append(P(s[2]) + 2, 2), s[3].assign(P(s[3]) + 1, 2),
                  s[4] = P(s[4]) + 2, s[5] = s[5], s[6].insert(1, s[6]), s[7].insert(2, P(s[7]) + 1),
                  s[8].substitute(s[8], "x"_s), s[9].insert(1, s[9]), s[10].insert(2, P(s[10]) + 1),
                  s[11].substitute("b"_s, s[11]), s[12].itoa(-5, s[12]), s[13].strBreakStr(s[13]), s[13]}),
            "abcdabcd|abcdbcd|abcdcd|bc|cd|abcd|aabcdbcd|abbcdcd|x|aabcdbcd|abbcdcd|aabcdcd|-5!|||");
  const String a("ab"), b = "c\0"_s, format(std::string(300, 'x').c_str());
  EXPECT_EQ(List({"a\0b"_s += 'c', "ab"_s.insert(1, "\0\0"_s), "ab"_s.insert(2, 'c').insert(0, "xy"),
                  "aZ1\0b\xe9"_s.toUpper(), "aZ1\0B\xc9"_s.toLower(), a + b, b + a, 'x' + ("y" + b + "z") + 'w',
                  a(1, UINT_MAX), a(2, 1), a(3, 1), a(0, 1), String(b, 9)}),
            Text("a\0bc|a\0\0b|xyabc|AZ1\0B\xe9|az1\0b\xc9|abc\0|c\0ab|xyc\0zw|b|||a|c\0|"_s));
  EXPECT_EQ(List({"abcdef"_s.remove(2, 1000), "abcdef"_s.remove(2, UINT_MAX), "abcd"_s.remove(1, 2),
                  "ab"_s.remove(2, 1), "  a  "_s.strip(0), "  a  "_s.strip(1), "\ta\t "_s.strip(1), "  "_s.strip(0),
                  "  "_s.strip(1), "ab"_s.padBlanks(5).padBlanks(1), "a"_s.itoa(7, format + "%d"),
                  ""_s.uitoa(UINT_MAX, "%u"), ""_s.ltoa(4294967291L, "%ld"), ""_s.ultoa(0xABCDEF00000012UL, "%lu")}),
            "ab|ab|ad|ab|  a|a|\ta\t|||ab   |" + Text(format) + "7|4294967295|-5|18|");
}

TEST(StringTest, SearchesGiveTheResultAndLeaveTheRest)
{
  String s, dots("::"), marks(";,"), none, a("a"), aa("aa"), b("b");
  EXPECT_EQ(
      List({(s = "k::v::").strBreakStr(dots), s, (s = "value").strBreakStr(dots), s, (s = "::v").strBreakStr(dots), s,
            s.strBreakStr(none), s, (s = "a\0::"_s).strBreakStr(dots), s, (s = "x,y;z").strTok(marks), s,
            (s = ",a").strTok(marks), s, (s = "xyz").strTok(marks), s, s.strTok(none), s}),
      Text("k|v::||value||v||v||a\0::|x,y|z||a||xyz||xyz|"_s));
  EXPECT_EQ(List({(s = "abcabc").strStr("ca"_s), s, s.strStr(none), s.strStr(aa), (s = "a\0b"_s).strStr(b),
                  s.strChr('b'), s, (s = "a=b=c").strChr('='), s, s.strChr('x'), (s = "aaaa").substitute(aa, a),
                  (s = "xaabby").substitute("ab"_s, none), (s = "b.b").substitute(b, a), s.substitute(none, b),
                  (s = "aab").substitute(a, aa)}),
            Text("cabc|abcabc|abcabc||||a\0b|=b=c|a=b=c||a|xy|a.a|a.a|aaaab|"_s));
}

TEST(StringTest, GrowthAddsTheOldBlockToTheRequest)
{
  String s("abcdef");
  s += 'g';  // 8 bytes and the 7 of the old block
  const char* const block = s;
  s.clear(), s.assign("12345678901234", 14), s.remove(4, 10), s = "123456", s.insert(0, "abcdefgh"), s.reSize(14);
  EXPECT_TRUE(P(s) == block && P(s += 'x') != block);
}

TEST(StringTest, NumbersSaturateAtThirtyTwoBitsInEveryBase)
{
  const String above("2147483648"), below("-2147483649"), far("99999999999999999999");
  EXPECT_EQ((std::vector<long>{above.AtoI(10), above.AtoL(10), above.AtoUI(10), below.AtoI(10), below.AtoL(10),
                               below.AtoUI(10), far.AtoI(10)}),
            (std::vector<long>{INT_MAX, INT_MAX, INT_MAX, INT_MIN, INT_MIN, 1L + INT_MAX, INT_MAX}));
  EXPECT_EQ((std::vector{above.AtoUL(10), far.AtoUL(10), "-1"_s.AtoUL(10), "-4294967295"_s.AtoUL(10)}),
            (std::vector{2147483648UL, 4294967295UL, 4294967295UL, 1UL}));
  EXPECT_EQ((std::vector{" \t+7"_s.AtoI(10), "12ab"_s.AtoI(10), "x"_s.AtoI(10), ""_s.AtoI(10), "1\0002"_s.AtoI(10),
                         "0x1Fg"_s.AtoI(0), "0178"_s.AtoI(0), "0xff"_s.AtoI(16), "1012"_s.AtoI(2), "-zZ"_s.AtoI(36)}),
            (std::vector{7, 12, 0, 0, 1, 31, 15, 255, 5, -1295}));
}

TEST(StringTest, OrderIsThatOfUnsignedBytesAndThenOfLengths)
{
  const String sorted[] = {"", "B", "a", "a\0"_s, "a\0b"_s, "a\0c"_s, "ab", "abc", "z", "\x7f\x7f", "\x80", "\xff"};
  for (const String& a : sorted)
    for (const String& b : sorted)
      EXPECT_TRUE((a > b) == (&a > &b) && (a == b) == (&a == &b) && (a != b) == (&a != &b)) << a << " and " << b;
  EXPECT_TRUE("a"_s == "a" && "a"_s != "ab" && "a\0"_s != "a" && String::Compare("a", 1, "abc", 3) == -2);
  char changeable[] = "a";
  EXPECT_TRUE("a"_s == changeable && "a" == "a"_s && "b" != "a"_s && String::Equal(nullptr, 0, nullptr, 0));
  EXPECT_TRUE(insensitive_memcmp("aB\xe9", "Ab\xe9", 3) == 0 && insensitive_memcmp("\xe9", "A", 1) == 0xe9 - 'a');
}

TEST(StringTest, ReadsAWordThenRawCharactersAndWritesThemUnformatted)
{
  std::istringstream in(Text("  alpha \0beta"_s));
  String word("old"), raw, last, steps;
  word.getWord(in), raw.get(in, 3), last.getWord(in);
  for (StringIterator each(raw); each.valid(); each.next()) steps += each.get();
  EXPECT_EQ(List({word, raw, last, steps}), Text("alpha| \0b|eta| \0b|"_s));
  EXPECT_TRUE(last.getWord(in).fail() && last.empty());
  std::ostringstream out;
  out.width(9), out << raw;
  EXPECT_EQ(out.str(), Text(" \0b"_s));
}

}  // namespace
