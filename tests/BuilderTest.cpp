#include <iostream>

#include "builder/Morvik.h"
#include "driver/Kelvra.h"
#include "foundation/StandardStreams.h"
#include "source/MapStringString.h"
#include "source/SPAOption.h"
#include "tests/TestSupport.h"

TEST(BuilderTest, ParseTestsTheNameThenTheDateThenTheTime)
{
  for (const char* name : {".lidhdr", "d/"}) EXPECT_EQ(Morvik().morvikParse(name, "x", "235959"), 17) << name;
  for (const char* date : {"", "2024011", "2024O115", "202401155", "+2024011"})
    EXPECT_EQ(Morvik().morvikParse("part", date, "x"), 18) << date;
  for (const char* time : {"", "12345", "12:345", "1234567"})
    EXPECT_EQ(Morvik().morvikParse("part", "20240115", time), 19) << time;
}

TEST(BuilderTest, BothTablesHaveTheirCodesAndOthersPrintNothing)
{
  const auto codes = [](std::span<const MessageRow> table) {
    std::string text;
    for (const MessageRow& row : table) text += std::to_string(row.code) + ' ';
    return text;
  };
  EXPECT_EQ(codes(KelvraMessages()), "0 4 8 12 16 17 30 31 32 33 34 90 100 101 ");
  EXPECT_EQ(codes(MorvikMessages()),
            "4 8 12 16 17 18 19 30 31 32 35 36 37 38 39 40 41 42 43 44 45 46 47 48 50 51 60 61 90 100 ");
  testing::internal::CaptureStderr();
  Morvik().morvikPrintError(33);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(BuilderTest, AGivenVpdinfoSourceIsNamedAndReadAsOneAndMessagesCanBeKept)
{
  const TemporaryFolder folder;
  const String source = ToString(folder.write("part.lidhdr", ":VPDINFONM.other"));
  const std::string given = folder.write("given.txt", ":VERLEVEL.V1\n:RUDEST.NONSENSE");
  OptionTable().clear();
  Morvik builder;
  {
    MessageCapture capture;
    EXPECT_EQ(builder.morvikParse(source, "20240115", "235959"), 0);
    EXPECT_EQ(Text(builder.nameSources()[1].getSource()), folder / "other.vpdinfo");
    builder.setVpdinfoSource(FileName(ToString(given)));
    EXPECT_EQ(Text(builder.nameSources()[1].getSource()), given);
    EXPECT_EQ(builder.sourceFiles().size(), 1U);  // it is not read to name the other
    EXPECT_EQ(builder.morvikExecute(), 0);
    EXPECT_EQ(builder.morvikGetHeader()(92, 4).toHexString(), "e5f14040");
    ASSERT_EQ(capture.lines().size(), 3U);
    EXPECT_EQ(Text(capture.lines()[0].text), "ruvpd File is " + Text(source));
    EXPECT_EQ(Text(capture.lines()[2].text), "vpdinfo File is " + given);
  }
  testing::internal::CaptureStderr();
  std::cerr.setstate(std::ios_base::failbit);  // by an earlier line
  PrintErrorLine("said");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "said\n");
}
