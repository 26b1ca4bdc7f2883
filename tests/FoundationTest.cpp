#include <gtest/gtest.h>

#include <bit>
#include <csignal>

#include "foundation/Application.h"
#include "foundation/ByteOrder.h"
#include "foundation/FileName.h"
#include "foundation/Path.h"
#include "foundation/Time.h"
#include "tests/TestSupport.h"

namespace {

TEST(FileNameTest, SourcesSplitAtTheLastSlashAndDotAndRebuildUnchanged)
{
  for (const std::string row : {"/usr/bin/tool = /usr/bin/|tool|", "dir.x/file = dir.x/|file|", "a.b.c = |a.b|c",
                                ".profile = ||profile", "name. = |name.|", "a.. = |a..|", "a..b = |a.|b", "/ = /||",
                                "// = //||", "/.x = /||x", "d/. = d/|.|", "a.b/ = a.b/||", " = ||"}) {
    FileName fn("old", "q", "m", "e");
    fn.setSource(row.substr(0, row.find(" = ")).c_str());
    EXPECT_EQ(Text(fn.getSource() + " = " + fn.getLibrary() + "|" + fn.getMember() + "|" + fn.getExtension()), row);
    EXPECT_EQ(fn.isValid(), !row.ends_with("||")) << row;
  }
  FileName fn("d", "q", "m", "e");
  fn.setExtension("lidhdr");
  EXPECT_EQ(Text(fn.getSource()), "d/m.lidhdr");
}

TEST(PathTest, ElementsAreFoundExactlyAndEmptyOnesAreSkipped)
{
  Path path("::abc::b:c:");
  EXPECT_TRUE(path.includes("abc"));
  EXPECT_FALSE(path.includes("ab"));
  EXPECT_FALSE(path.isEmpty());
  EXPECT_TRUE(Path(":::").isEmpty());
  path.remove("b");
  path.append(path);
  path.prepend("x");
  path.append("y");
  std::string list;
  for (PathIterator each(path); each.valid(); each.next()) list += Text(each.get()) + " ";
  EXPECT_EQ(list + Text(path), "x abc c abc c y x:::abc:::c::::abc:::c::y");
  const char* position = "::ab:";
  unsigned int length = 9;
  GetNextLibrary(position, length);
  EXPECT_EQ(std::string(position, length), "ab");
}

TEST(ByteOrderTest, SwapsNibblesAndBytesInPlace)
{
  char bytes[] = "\x12\x34\xf0\x56";
  swapCharNibs(bytes, 3);
  htonb(bytes, 2);
  ntohb(bytes, 1);
  EXPECT_EQ(Hex(bytes), littleEndian() == 1 ? "21 34 0f 56" : "21 43 0f 56");
  EXPECT_EQ(littleEndian(), std::endian::native == std::endian::little ? 1 : 0);
  EXPECT_EQ(swapUint16(0x12f4), 0xf412);
  EXPECT_EQ(swapUint32(0x123456f8), 0xf8563412);
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

struct Tool : Application {
  using Application::Application;
  int parseParams(int, char**) override { return 0; }
  int readInitFile() override { return 0; }
  int execute() override { return 0; }
  void printError(int) const override {}
  void showUsage() const override {}
};

TEST(ApplicationTest, KeepsItsNameAndVersion)
{
  Tool tool("a", 1, 2);
  tool.setName(tool.getName() + "b");
  tool.setMajorVersion(tool.getMajorVersion() + 2);
  tool.setMinorVersion(tool.getMinorVersion() + 2);
  EXPECT_EQ(Text(tool.getName()), "ab");
  EXPECT_EQ(tool.getMajorVersion(), 3U);
  EXPECT_EQ(tool.getMinorVersion(), 4U);
}

TEST(AssertionDeathTest, IndexesAndPositionsBehindTheEndEndTheProgramWithTheirLine)
{
  static String s("abc");
  static ByteString b = Bytes("01 02");
  const std::tuple<void (*)(), std::string, const char*> rows[] = {
      {[] { s[-1] = 'x'; }, "char &String::operator[] (int)", "index < len"},
      {[] { s[3L] = 'x'; }, "char &String::operator[] (long int)", "index < len"},
      {[] { s[3U] = 'x'; }, "char &String::operator[] (unsigned int)", "index < len"},
      {[] { s[3UL] = 'x'; }, "char &String::operator[] (long unsigned int)", "index < len"},
      {[] { (void)std::as_const(s)[3]; }, "char String::operator[] (int) const", "index < len"},
      {[] { (void)std::as_const(s)[-1L]; }, "char String::operator[] (long int) const", "index < len"},
      {[] { (void)std::as_const(s)[3U]; }, "char String::operator[] (unsigned int) const", "index < len"},
      {[] { (void)std::as_const(s)[3UL]; }, "char String::operator[] (long unsigned int) const", "index < len"},
      {[] { s.insert(4, s); }, "String &String::insert (unsigned int, const String &)", "position <= len"},
      {[] { s.insert(4, ""); }, "String &String::insert (unsigned int, const char *)", "position <= len"},
      {[] { s.insert(4, 'x'); }, "String &String::insert (unsigned int, char)", "position <= len"},
      {[] { b.setNthByte(2, 0); }, "void ByteString::setNthByte (unsigned int, unsigned char)", "n < len"},
      {[] { b.getNthByte(2); }, "unsigned char ByteString::getNthByte (unsigned int) const", "n < len"},
      {[] { b[2] = 0; }, "unsigned char &ByteString::operator[] (unsigned int)", "n < len"},
      {[] { (void)std::as_const(b)[2]; }, "unsigned char ByteString::operator[] (unsigned int) const", "n < len"},
      {[] { b.setNthNibble(4, 0); }, "void ByteString::setNthNibble (unsigned int, unsigned char)", "byteNumber < len"},
      {[] { b.getNthNibble(4); }, "unsigned char ByteString::getNthNibble (unsigned int) const", "byteNumber < len"},
      {[] { b.setNthBit(16, true); }, "void ByteString::setNthBit (unsigned int, boolean)", "byteNumber < len"},
      {[] { b.getNthBit(16); }, "boolean ByteString::getNthBit (unsigned int) const", "byteNumber < len"},
      {[] { b.insert(3, b); }, "ByteString &ByteString::insert (unsigned int, const ByteString &)", "position <= len"},
      {[] { b.insert(3, 0); }, "ByteString &ByteString::insert (unsigned int, unsigned char)", "position <= len"},
      {[] { b.replace(3, 0, b); }, "ByteString &ByteString::replace (unsigned int, unsigned int, const ByteString &)",
       "position <= len"},
      {[] { b.replace(3, 0, 0); }, "ByteString &ByteString::replace (unsigned int, unsigned int, unsigned char)",
       "position <= len"},
  };
  for (const auto& [call, function, expression] : rows) {
    std::string line = function.find("ByteString::") == function.npos ? "String:[0-9]+: " : "ByteString:[0-9]+: ";
    for (const char ch : function + ": Assertion `" + expression + "' failed.\n")
      line += std::string("()[]*.").find(ch) < 6 ? std::string{'[', ch, ']'} : std::string{ch};
    EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT), testing::MatchesRegex(line)) << function;
  }
}

}  // namespace
