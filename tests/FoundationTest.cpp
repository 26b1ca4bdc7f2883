#include <bit>
#include <csignal>

#include "foundation/ByteOrder.h"
#include "foundation/FileName.h"
#include "foundation/Path.h"
#include "foundation/Time.h"
#include "tests/TestSupport.h"

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
  path.prepend(Path("w"));
  path.prepend("x");
  path.append("y");
  std::string list;
  PathIterator each(Path("z"));
  for (each.reset(path); each.valid(); each.next()) list += Text(each.get()) + " ";
  EXPECT_EQ(list + Text(path), "x w abc c abc c y x:w:::abc:::c::::abc:::c::y");
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

TEST(AssertionDeathTest, IndexesAndPositionsAfterTheEndEndTheProgramWithTheirLine)
{
  static String s("abc");
  static ByteString b = Bytes("01 02");
  const std::pair<std::string, std::vector<void (*)()>> rows[] = {
      {"index < len",
       {[] { s[-1] = 'x'; }, [] { s[3L] = 'x'; }, [] { s[3U] = 'x'; }, [] { s[3UL] = 'x'; },
        [] { (void)std::as_const(s)[3]; }, [] { (void)std::as_const(s)[-1L]; }, [] { (void)std::as_const(s)[3U]; },
        [] { (void)std::as_const(s)[3UL]; }}},
      {"position <= len",
       {[] { s.insert(4, s); }, [] { s.insert(4, ""); }, [] { s.insert(4, 'x'); }, [] { b.insert(3, b); },
        [] { b.insert(3, 0); }, [] { b.replace(3, 0, b); }, [] { b.replace(3, 0, 0); }}},
      {"n < len",
       {[] { b.setNthByte(2, 0); }, [] { b.getNthByte(2); }, [] { b[2] = 0; }, [] { (void)std::as_const(b)[2]; }}},
      {"byteNumber < len",
       {[] { b.setNthNibble(4, 0); }, [] { b.getNthNibble(4); }, [] { b.setNthBit(16, true); },
        [] { b.getNthBit(16); }}}};
  for (const auto& [expression, calls] : rows) {
    for (const auto call : calls) {
      EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT),
                  "^[A-Za-z]*String:[0-9]+: .*String::.*: Assertion `" + expression + "' failed\\.\n$");
    }
  }
  EXPECT_DEATH(Path("a:b").remove("c"), "Path:[0-9]+: .*`includes\\(library\\)' failed");
  EXPECT_DEATH(PathIterator(Path("::")).get(), "Path:[0-9]+: .*::get .*`valid\\(\\)' failed");
  EXPECT_DEATH(PathIterator(Path("::")).next(), "Path:[0-9]+: .*::next .*`valid\\(\\)' failed");
}
