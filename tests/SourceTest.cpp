#include <gtest/gtest.h>

#include <sstream>

#include "foundation/ReadStream.h"
#include "source/MapStringString.h"
#include "source/SPAOption.h"
#include "source/SPASourceProgram.h"
#include "source/SPASourceStmt.h"
#include "tests/TestSupport.h"

TEST(SourceStatementTest, LineGivesItsLabelAndValue)
{
  const std::pair<const char*, std::string> rows[] = {
    {":RUNAME.MYRU01", "RUNAME=MYRU01"}, {"*RUDEST.ABCD", "RUDEST=ABCD"}, {"!!**::RUNAME.X", "RUNAME=X"}, {"::", "="},
    {":!RUNAME.X", "!RUNAME=X"}, {"*!A.X", "!A=X"}, {":RUNAME...X.Y.", "RUNAME=X.Y."}, {":RUNAME", "RUNAME="},
    {"\t:  RU NAME\v.\f A B\r C\n", "RUNAME=ABC"}, {":a.\xa0\x85:", "a=\xa0\x85:"}, {":.X", "=X"}, {"!", "="},
    {"(*comment*)", "comment"}, {" ( * c", "comment"}, {"", "comment"}, {" \t\r", "comment"}, {"RUNAME.X", "neither"},
    {"(:A.X", "neither"}, {".:A.X", "neither"},
  };
  for (const auto& [line, expected] : rows) {
    const SPASourceStmt stmt(line);
    std::string seen = stmt.isStmt() == 1 ? Text(stmt.getLabel()) + "=" + Text(stmt.getValue()) : "neither";
    if (stmt.isComment() == 1) seen = stmt.isStmt() == 0 ? "comment" : "both";
    EXPECT_EQ(seen, expected) << line;
  }
}

TEST(SourceStatementTest, SkipFunctionsStopAtTheFirstOtherCharacter)
{
  using Skip = unsigned int (*)(const String&, unsigned int);
  const struct { Skip skip; const char* text; unsigned int start, end; } rows[] = {
    {skipWS, "a \t\n\v\f\rb", 1, 7}, {skipWS, "a \xa0", 1, 2}, {skipbang, "!!*", 0, 2}, {skipstar, "**:", 1, 2},
    {skipcolon, "::!", 0, 2}, {skipPeriod, "..a", 0, 2}, {skipPeriod, "a..", 1, 3}, {skipLabel, "a :.b", 0, 3},
    {skipLabel, "abc", 1, 3}, {skipValue, "a.\r\nb", 0, 3}, {skipValue, "ab", 2, 2}, {skipWS, "ab", 0, 0},
  };
  for (const auto& row : rows) EXPECT_EQ(row.skip(row.text, row.start), row.end) << row.text << " from " << row.start;
}

// "0" or what else `read` returns, and then the labels' values, "-" for an absent label.
static std::string Read(const std::string& text, boolean restricted, const std::vector<const char*>& labels)
{
  std::istringstream in(text);
  ReadStream stream(&in);
  if (text == "failed") stream.setFailure();
  std::string seen = SPASourceProgram().read(stream, restricted) == 0 ? "ok" : "failure";
  for (const char* label : labels) seen += SPAOption::StringValid(label) ? " " + Text(SPAOption::GetStringValue(label)) : " -";
  return seen;
}

TEST(SourceProgramTest, LastStatementOfALabelCountsAndRestrictionKeepsEightLabels)
{
  EXPECT_EQ(Read("", false, {"K1"}), "ok -");
  EXPECT_EQ(Read(":K1.a\r\n\n(*:K2.x*)\n:k1.b\nK3.c\n*K4\n!K1.d", false, {"K1", "k1", "K2", "K3", "K4"}), "ok d b - - ");
  EXPECT_EQ(Read("failed", false, {}), "failure");
  std::string text;
  const std::vector<const char*> eight = {"PRODUCTID", "INSTRSET", "SWRTYPE", "DEVELBY", "DEVELFOR", "DEVLABID", "VERLEVEL",
                                          "RELMODLVL"};
  for (const char* label : eight) text += std::string(":") + label + ".R\n";
  EXPECT_EQ(Read(text + ":K1.R\n:K5.R\n:productid.R\n:VERLEVELS.R\n:VERLEVE.R\n", true, eight), "ok R R R R R R R R");
  EXPECT_EQ(Read("", true, {"K1", "K5", "productid", "VERLEVELS", "VERLEVE"}), "ok d - - - -");
  for (const size_t length : {1, 126, 127, 128, 129, 255, 256, 257, 300}) {  // of a last line without a newline
    const std::string value(length, 'v');
    EXPECT_EQ(Read("!." + value, false, {""}), "ok " + value);
  }
}

// The entries from the one of `key` on.
static std::string From(const MapStringString& map, const char* key)
{
  std::string listed = std::to_string(map.count()) + ":";
  for (const auto* node = map.search(key); node != nullptr; node = node->next) {
    listed += " " + Text(node->key) + "=" + Text(node->value);
  }
  return listed;
}

TEST(MapStringStringTest, KeysStayInByteOrderThroughPutAndRemove)
{
  MapStringString map;
  for (const char* const key : {"B", "A", "AB", "\xff", "a", ""}) map.add(key, "1");
  map.put("AB", "2");
  map.put("C", "3");
  map.get("B") = "4";
  EXPECT_EQ(From(map, ""), "7: =1 A=1 AB=2 B=4 C=3 a=1 \xff=1");
  for (const char* const key : {"", "AB", "\xff", "a"}) map.remove(key);
  map.add("D", "5");
  EXPECT_EQ(From(map, "A"), "4: A=1 B=4 C=3 D=5");
  EXPECT_FALSE(map.includes("AB") || map.includes("a") || map.includes(""));
}

TEST(MapStringStringTest, AssignmentReusesCutsAndAppends)
{
  const char* const keys[] = {"A", "B", "C", "D"};
  for (int before = 0; before <= 3; before++) {
    for (int after = 0; after <= 3; after++) {
      MapStringString map, other, longer;
      for (int i = 0; i < before; i++) map.add(keys[i + 1], "old");
      for (int i = 0; i < after; i++) other.add(keys[i], "new");
      for (const char* const key : keys) longer.add(key, "longer");
      map = other;
      ...
    }
  }
}

TEST(MapStringStringDeathTest, BrokenPreconditionsNameTheirLine)
{
  MapStringString map;
  const MapStringString& constant = map;
  EXPECT_DEATH((map.add("A", ""), map.add("A", "")), "SPAOption:19: .*Assertion `!includes\\(key\\)' failed\\.");
  EXPECT_DEATH(map.remove("A"), "SPAOption:19: .*Assertion `includes\\(key\\)' failed\\.");
  EXPECT_DEATH(map.replace("A", ""), "SPAOption:19: .*Assertion `node != 0' failed\\.");
  EXPECT_DEATH(static_cast<void>(map.get("A")), "SPAOption:19: .*Assertion `node != 0' failed\\.");
  EXPECT_DEATH(static_cast<void>(constant.get("A")), "SPAOption:19: .*Assertion `node != 0' failed\\.");
}
