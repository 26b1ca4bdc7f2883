#include <sstream>

#include "foundation/ReadStream.h"
#include "source/MapStringString.h"
#include "source/SPAOption.h"
#include "source/SPASourceProgram.h"
#include "source/SPASourceStmt.h"
#include "tests/TestSupport.h"

TEST(SourceStatementTest, LineIsAStatementWithItsLabelAndValueOrACommentOrNeither)
{
  const std::pair<const char*, const char*> rows[] = {
      {":!RUNAME..X.Y", "!RUNAME=X.Y"}, {"!!**::A.X", "A=X"},    {"::", "="},       {"RUNAME.X", "neither"},
      {"\t: A\v.\f B\r C ", "A=BC"},    {"(*:A.X*)", "comment"}, {"", "comment"},   {"(:A.X", "neither"},
      {":a.\xa0\x85:", "a=\xa0\x85:"},  {" ( * c", "comment"},   {" \t", "comment"}};
  for (const auto& [line, expected] : rows) {
    const SPASourceStmt stmt(line);
    std::string seen = stmt.isComment() == 1 ? "comment" : "neither";
    if (stmt.isStmt() == 1) seen = Text(stmt.getLabel()) + "=" + Text(stmt.getValue());
    EXPECT_EQ(seen, expected) << line;
  }
}

TEST(SourceStatementTest, AValueReachesToTheEndOfItsLine) { EXPECT_EQ(skipValue("a.\r\nb", 0), 3U); }

// The number of entries, and those from `key` on.
static std::string From(const MapStringString& map, const std::string& key)
{
  std::string list = std::to_string(map.count());
  for (const auto* node = map.search(key.c_str()); node; node = node->next) list += Text(" " + node->key + node->value);
  return list;
}

TEST(SourceProgramTest, RestrictedReadingKeepsItsLabelsAndAFailedStreamIsReported)
{
  OptionTable().clear();
  SPAOption::SetStringValue("K", "old");
  for (boolean restricted : {true, false}) {
    std::istringstream in(":INSTRSET.1\n(*:K.x\n:K.new\n\n*INSTRSET.2\n:k.x\n!INSTRSET");
    ReadStream stream(&in);
    EXPECT_EQ(SPASourceProgram().read(stream, restricted), 0);
    EXPECT_EQ(From(OptionTable(), "INSTRSET"), restricted ? "2 INSTRSET Kold" : "3 INSTRSET Knew kx");
    stream.setFailure();
    EXPECT_EQ(SPASourceProgram().read(stream, restricted), 1);
  }
}

TEST(SourceProgramTest, MemoryThatEndsIsAReadError)
{
  std::istringstream in(":A.1\n:B.2");
  ReadStream stream(&in);
  EXPECT_EQ(ReadLines(stream, [](const String&) { throw std::bad_alloc(); }), 1);
  EXPECT_TRUE(stream.failure());
}

TEST(MapStringStringTest, KeysStayInByteOrderAndAssignmentReusesCutsAndAppends)
{
  MapStringString map;
  for (const char* key : {"B", "A", "AB", "\xff", "a", ""}) map.add(key, "x");
  map.put("AB", "y");
  map.put("C", "z");
  map.get("B") = "w";
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
  map.add("A", "");
  EXPECT_DEATH(map.add("A", ""), "SPAOption:19: .*Assertion `!includes\\(key\\)' failed\\.");
  EXPECT_DEATH(map.remove("B"), "SPAOption:19: .*Assertion `includes\\(key\\)' failed\\.");
  EXPECT_DEATH(map.replace("B", ""), "SPAOption:19: .*Assertion `node != 0' failed\\.");
  EXPECT_DEATH(std::as_const(map).get("B"), "SPAOption:19: const .*Assertion `node != 0' failed\\.");
  EXPECT_DEATH(map.get("B"), "SPAOption:19: .*Assertion `node != 0' failed\\.");
}
