#include <gtest/gtest.h>

#include <bit>
#include <csignal>

#include "driver/Kelvra.h"
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

TEST(ApplicationTest, KeepsItsNameAndVersion)
{
  Kelvra tool;
  tool.setName(tool.getName() + "ab");
  tool.setMajorVersion(tool.getMajorVersion() + 2);
  tool.setMinorVersion(tool.getMinorVersion() + 2);
  EXPECT_EQ(Text(tool.getName()), "ab");
  EXPECT_EQ(tool.getMajorVersion(), 3U);
  EXPECT_EQ(tool.readInitFile(), 0);
  EXPECT_EQ(tool.getMinorVersion(), 2U);
}

TEST(AssertionDeathTest, IndexesAndPositionsAfterTheEndEndTheProgramWithTheirLine)
{
  static String s("abc");
  static ByteString b = Bytes("01 02");
  const std::string index = "index < len", position = "position <= len", byte = "n < len", number = "byteNumber < len";
  const std::pair<void (*)(), std::string> rows[] = {
      {[] { s[-1] = 'x'; }, index},
      {[] { s[3L] = 'x'; }, index},
      {[] { s[3U] = 'x'; }, index},
      {[] { s[3UL] = 'x'; }, index},
      {[] { (void)std::as_const(s)[3]; }, index},
      {[] { (void)std::as_const(s)[-1L]; }, index},
      {[] { (void)std::as_const(s)[3U]; }, index},
      {[] { (void)std::as_const(s)[3UL]; }, index},
      {[] { s.insert(4, s); }, position},
      {[] { s.insert(4, ""); }, position},
      {[] { s.insert(4, 'x'); }, position},
      {[] { b.setNthByte(2, 0); }, byte},
      {[] { b.getNthByte(2); }, byte},
      {[] { b[2] = 0; }, byte},
      {[] { (void)std::as_const(b)[2]; }, byte},
      {[] { b.setNthNibble(4, 0); }, number},
      {[] { b.getNthNibble(4); }, number},
      {[] { b.setNthBit(16, true); }, number},
      {[] { b.getNthBit(16); }, number},
      {[] { b.insert(3, b); }, position},
      {[] { b.insert(3, 0); }, position},
      {[] { b.replace(3, 0, b); }, position},
      {[] { b.replace(3, 0, 0); }, position},
  };
  for (const auto& [call, expression] : rows) {
    EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT),
                "^[A-Za-z]*String:[0-9]+: .*String::.*: Assertion `" + expression + "' failed\\.\n$");
  }
  EXPECT_DEATH(Path("a:b").remove("c"), "Path:[0-9]+: .*`includes\\(library\\)' failed");
  EXPECT_DEATH(PathIterator(Path("::")).get(), "Path:[0-9]+: .*::get .*`valid\\(\\)' failed");
  EXPECT_DEATH(PathIterator(Path("::")).next(), "Path:[0-9]+: .*::next .*`valid\\(\\)' failed");
  EXPECT_DEATH(s[-1] = 'x', "^String:[0-9]+: char &String::operator\\[\\] \\(int\\): ");
}

}  // namespace
