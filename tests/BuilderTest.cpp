#include <gtest/gtest.h>

#include "builder/Morvik.h"
#include "builder/MorvikCreateHeader.h"
#include "source/MapStringString.h"
#include "source/SPAOption.h"
#include "tests/TestSupport.h"

struct BuilderTest : testing::Test {
  BuilderTest() { OptionTable().clear(); }
};

// The header block that the option table makes, in a build that returns the code.
static ByteString Build(const char* source, int code)
{
  Morvik morvik;
  EXPECT_EQ(morvik.morvikParse(source, "20240115", "235959"), 0);
  EXPECT_EQ(MorvikCreateHeader(&morvik), code);
  return morvik.morvikGetHeader();
}

TEST_F(BuilderTest, ParseTestsTheNameThenTheDateThenTheTime)
{
  for (const char* name : {".lidhdr", "d/"}) EXPECT_EQ(Morvik().morvikParse(name, "x", "235959"), 17) << name;
  for (const char* date : {"", "2024011", "2024O115", "202401155", "+2024011"})
    EXPECT_EQ(Morvik().morvikParse("part", date, "x"), 18) << date;
  for (const char* time : {"", "12345", "12:345", "1234567"})
    EXPECT_EQ(Morvik().morvikParse("part", "20240115", time), 19) << time;
}

TEST_F(BuilderTest, CodeThatNoBuildReturnsPrintsItsLineOrNothing)
{
  const std::string area = "Invalid RUArea value in the RUVPD source file.\n";
  for (const auto& [code, line] : {std::pair(43, area), {0, ""}, {33, ""}, {101, ""}}) {
    testing::internal::CaptureStderr();
    Morvik().morvikPrintError(code);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), line) << code;
  }
}

TEST_F(BuilderTest, EmptyValueOfTheVpdHeaderIsIgnoredButForTheFunctionGroups)
{
  for (const char* keyword : {"RULOADID", "RUPFGID", "RUSFGID", "PRODUCTID", "SWRTYPE", "DEVELBY", "DEVELFOR",
                              "DEVLABID", "VERLEVEL", "RELMODLVL"})
    SPAOption::SetStringValue(keyword, "");
  testing::internal::CaptureStderr();
  const ByteString block = Build("part.lidhdr", 0);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");  // nothing about the load ID
  EXPECT_EQ(Hex(block(37, 15) + block(62, 2) + block(92, 8)),
            Hex(Bytes("00000000000000 4040404040404040 0000 0000000000000000")));
}

TEST_F(BuilderTest, VpdinfoSourceStandsBesideTheSourceAndItsValuesWin)
{
  const TemporaryFolder folder;
  const std::string source = folder.write("LONGNAME9.lidhdr", ":RUNAME.\n:SWRTYPE.no\n:VPDINFONM.");
  folder.write("qel.vpdinfo", ":SWRTYPE.LPP");
  Morvik morvik;
  EXPECT_EQ(morvik.morvikParse(source.c_str(), "20240115", "235959"), 0);
  EXPECT_EQ(morvik.morvikExecute(), 0);
  EXPECT_EQ(morvik.morvikGetHeader().length(), 522U);
}
