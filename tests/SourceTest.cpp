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
  std::istringstream rows(  // each line, a bar, and what it is
      ":RUNAME.MYRU01|RUNAME=MYRU01\n*RUDEST.ABCD|RUDEST=ABCD\n!!**::RUNAME.X|RUNAME=X\n:!RUNAME.X|!RUNAME=X\n"
      ":RUNAME...X.Y.|RUNAME=X.Y.\n*!A.X|!A=X\n:RUNAME|RUNAME=\n::|=\n!|=\n:.X|=X\n:a.\xa0\x85:|a=\xa0\x85:\n"
      "\t:  RU NAME\v.\f A B\r C |RUNAME=ABC\n(*comment*)|comment\n ( * c|comment\n|comment\n \t\r|comment\n"
      "RUNAME.X|neither\n(:A.X|neither\n.:A.X|neither");
  for (std::string line, expected; std::getline(rows, line, '|') && std::getline(rows, expected);) {
    const SPASourceStmt stmt(line.c_str());
    std::string seen = stmt.isComment() == 1 ? "comment" : "neither";
    if (stmt.isStmt() == 1) seen = Text(stmt.getLabel()) + "=" + Text(stmt.getValue());
    EXPECT_EQ(seen, expected) << line;
  }
}

TEST(SourceStatementTest, SkipFunctionsStopAtTheFirstOtherCharacter)
{
  const std::tuple<unsigned int (*)(const String&, unsigned int), const char*, unsigned int, unsigned int> rows[] = {
      {skipWS, "a \t\n\v\f\rb", 1, 7}, {skipWS, "a \xa0", 1, 2},   {skipWS, "ab", 0, 0},
      {skipbang, "!!*", 0, 2},         {skipstar, "**:", 1, 2},    {skipcolon, "::!", 0, 2},
      {skipPeriod, "a..", 1, 3},       {skipLabel, "a :.b", 0, 3}, {skipValue, "a.\r\nb", 0, 3}};
  for (const auto& [skip, text, start, end] : rows) EXPECT_EQ(skip(text, start), end) << text << " from " << start;
}

TEST(SourceProgramTest, RestrictedReadingKeepsEightLabelsAndAFailedStreamIsReported)
{
  std::istringstream eight("PRODUCTID INSTRSET SWRTYPE DEVELBY DEVELFOR DEVLABID VERLEVEL RELMODLVL");
  for (std::string label; eight >> label;) {
    String same(label.c_str()), longer((label + "X").c_str()), lower(same);
    EXPECT_TRUE(labelOk(same) == 1 && labelOk(longer) == 0 && labelOk(lower.toLower()) == 0) << label;
  }
  SPAOption::SetStringValue("K", "old");
  for (boolean restricted : {true, false}) {
    std::istringstream in(":INSTRSET.1\n(*:K.x\n:K.new\n\n*INSTRSET.2\n:k.x\n!INSTRSET");
    ReadStream stream(&in);
    EXPECT_EQ(SPASourceProgram().read(stream, restricted), 0);
    EXPECT_EQ(Text(SPAOption::GetStringValue("K") + SPAOption::GetStringValue("INSTRSET")), restricted ? "old" : "new");
    stream.setFailure();
    EXPECT_NE(SPASourceProgram().read(stream, restricted), 0);
  }
}

// The number of entries, and those from `key` on.
static std::string From(const MapStringString& map, const std::string& key)
{
  std::string list = std::to_string(map.count());
  for (const auto* node = map.search(key.c_str()); node; node = node->next) list += Text(" " + node->key + node->value);
  return list;
}

TEST(MapStringStringTest, KeysStayInByteOrderAndAssignmentReusesCutsAndAppends)
{
  MapStringString map;
  for (const char* key : {"B", "A", "AB", "\xff", "a", ""}) map.add(key, "x");
  map.put("AB", "y"), map.put("C", "z"), map.get("B") = "w";
  EXPECT_EQ(From(map, ""), "7 x Ax ABy Bw Cz ax \xffx");
  for (const char* key : {"", "AB", "\xff", "a"}) map.remove(key);
  map.add("D", "v");
  EXPECT_EQ(From(map, "A"), "4 Ax Bw Cz Dv");
  for (const std::string keys : {"ABCDE", "XYZ", "", "A", "AB"}) {  // each over what the one before it left
    MapStringString other;
    for (const char key : keys) other.add(String(&key, 1), "v");
    map = other;
    EXPECT_EQ(From(map, keys.substr(0, 1)), From(other, keys.substr(0, 1)));
    if (!keys.empty()) map.remove(keys.substr(keys.size() - 1).c_str());
  }
}

TEST(MapStringStringDeathTest, BrokenPreconditionsNameTheirLine)
{
  MapStringString map;
  EXPECT_DEATH((map.add("A", ""), map.add("A", "")), "SPAOption:19: .*Assertion `!includes\\(key\\)' failed\\.");
  EXPECT_DEATH(map.remove("A"), "SPAOption:19: .*Assertion `includes\\(key\\)' failed\\.");
  EXPECT_DEATH(map.replace("A", ""), "SPAOption:19: .*Assertion `node != 0' failed\\.");
  EXPECT_DEATH(map.get("A"), "SPAOption:19: .*Assertion `node != 0' failed\\.");
  EXPECT_DEATH(std::as_const(map).get("A"), "SPAOption:19: .*Assertion `node != 0' failed\\.");
}
