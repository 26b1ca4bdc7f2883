#include <gtest/gtest.h>

#include <bit>
#include <csignal>
#include <regex>
#include <sstream>

#include "foundation/ByteOrder.h"
#include "foundation/FileName.h"
#include "foundation/Path.h"
#include "foundation/Time.h"
#include "tests/TestSupport.h"

namespace {

TEST(FileNameTest, SourcesSplitAtTheLastSlashAndDotAndRebuildUnchanged)
{
  // A source, then its library, member and extension.
  std::istringstream rows(
      "/usr/bin/tool=/usr/bin/|tool| dir.x/file=dir.x/|file| a.b.c=|a.b|c .profile=||profile name.=|name.| a..=|a..| "
      "a..b=|a.|b /=/|| //=//|| /.x=/||x d/.=d/|.| a.b/=a.b/|| =||");
  for (std::string row; rows >> row;) {
    FileName fn(String("old"), String("q"), String("m"), String("e"));
    EXPECT_EQ(Text(fn.getSource()), "old/m.e");
    fn.setSource(String(row.substr(0, row.find('=')).c_str()));
    EXPECT_EQ(Text(fn.getSource() + "=" + fn.getLibrary() + "|" + fn.getMember() + "|" + fn.getExtension()), row);
    EXPECT_EQ(fn.isValid(), !fn.getMember().empty() || !fn.getExtension().empty()) << row;
  }
}

TEST(PathTest, ElementsAreFoundExactlyAndEmptyOnesAreSkipped)
{
  Path path("::abc::b:c:"), empty(":::");
  EXPECT_TRUE(empty.isEmpty() && !path.isEmpty() && path.includes(String("abc")) && !path.includes(String("ab")));
  path.remove(String("b"));
  path.append(path), path.prepend(String("x")), path.append(String("y"));
  std::string list;
  for (PathIterator each(path); each.valid(); each.next()) list += Text(each.get()) + " ";
  EXPECT_EQ(list + Text(path), "x abc c abc c y x:::abc:::c::::abc:::c::y");
}

TEST(ByteOrderTest, SwapsNibblesAndBytesInPlace)
{
  char bytes[] = "\x12\x34\xf0\x56";
  swapCharNibs(bytes, 3), htonb(bytes, 2), ntohb(bytes, 1);
  EXPECT_EQ(Hex(bytes), littleEndian() == 1 ? "21 34 0f 56" : "21 43 0f 56");
  EXPECT_EQ(littleEndian(), std::endian::native == std::endian::little ? 1 : 0);
  EXPECT_TRUE(swapUint16(0x12f4) == 0xf412 && swapUint32(0x123456f8) == 0xf8563412);
}

TEST(TimeTest, FormatsTheLocalMomentWithinItsBuffer)
{
  setenv("TZ", "XYZ5", 1);
  const Time now;
  const auto format = [&now](const std::string& text) { return Text(now.formatString(String(text.c_str()))); };
  EXPECT_EQ(format("%z ") + Text(now.toString()), format("-0500 %a %b %e %H:%M:%S %Y"));
  EXPECT_NEAR(std::stod(format("%s")), static_cast<double>(currentTime()), 5);
  EXPECT_EQ(format(std::string(499, 'x')) + format(std::string(500, 'y')) + format(""), std::string(499, 'x'));
  unsetenv("TZ");
}

TEST(AssertionDeathTest, IndexesAndPositionsBehindTheEndEndTheProgramWithTheirLine)
{
  static String s("abc");
  static ByteString b = Bytes("01 02");
  const std::tuple<void (*)(), std::string, std::string> rows[] = {
      {[] { s[-1] = 'x'; }, "char &String::operator[] (int)", "index <"},
      {[] { s[3L] = 'x'; }, "char &String::operator[] (long int)", "index <"},
      {[] { s[3U] = 'x'; }, "char &String::operator[] (unsigned int)", "index <"},
      {[] { s[3UL] = 'x'; }, "char &String::operator[] (long unsigned int)", "index <"},
      {[] { (void)std::as_const(s)[3]; }, "char String::operator[] (int) const", "index <"},
      {[] { (void)std::as_const(s)[-1L]; }, "char String::operator[] (long int) const", "index <"},
      {[] { (void)std::as_const(s)[3U]; }, "char String::operator[] (unsigned int) const", "index <"},
      {[] { (void)std::as_const(s)[3UL]; }, "char String::operator[] (long unsigned int) const", "index <"},
      {[] { s.insert(4, s); }, "String &String::insert (unsigned int, const String &)", "position <="},
      {[] { s.insert(4, ""); }, "String &String::insert (unsigned int, const char *)", "position <="},
      {[] { s.insert(4, 'x'); }, "String &String::insert (unsigned int, char)", "position <="},
      {[] { b.setNthByte(2, 0); }, "void ByteString::setNthByte (unsigned int, unsigned char)", "n <"},
      {[] { b.getNthByte(2); }, "unsigned char ByteString::getNthByte (unsigned int) const", "n <"},
      {[] { b[2] = 0; }, "unsigned char &ByteString::operator[] (unsigned int)", "n <"},
      {[] { (void)std::as_const(b)[2]; }, "unsigned char ByteString::operator[] (unsigned int) const", "n <"},
      {[] { b.setNthNibble(4, 0); }, "void ByteString::setNthNibble (unsigned int, unsigned char)", "byteNumber <"},
      {[] { b.getNthNibble(4); }, "unsigned char ByteString::getNthNibble (unsigned int) const", "byteNumber <"},
      {[] { b.setNthBit(16, true); }, "void ByteString::setNthBit (unsigned int, boolean)", "byteNumber <"},
      {[] { b.getNthBit(16); }, "boolean ByteString::getNthBit (unsigned int) const", "byteNumber <"},
      {[] { b.insert(3, b); }, "ByteString &ByteString::insert (unsigned int, const ByteString &)", "position <="},
      {[] { b.insert(3, 0); }, "ByteString &ByteString::insert (unsigned int, unsigned char)", "position <="},
      {[] { b.replace(3, 0, b); }, "ByteString &ByteString::replace (unsigned int, unsigned int, const ByteString &)",
       "position <="},
      {[] { b.replace(3, 0, 0); }, "ByteString &ByteString::replace (unsigned int, unsigned int, unsigned char)",
       "position <="},
  };
  for (const auto& [call, function, check] : rows) {
    std::string line = std::regex_replace(function, std::regex(R"([()\[\]*])"), R"(\$&)");
    line.insert(0, line.find("ByteString::") == line.npos ? "String:[0-9]+: " : "ByteString:[0-9]+: ");
    line.append(": Assertion `").append(check).append(" len' failed\\.\n");
    EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT), testing::MatchesRegex(line)) << function;
  }
}

}  // namespace
