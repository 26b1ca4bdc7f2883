#include <gtest/gtest.h>

#include <map>

#include "builder/Morvik.h"
#include "tests/TestSupport.h"

TEST(BuilderTest, ParseTestsTheNameThenTheDateThenTheTime)
{
  EXPECT_EQ(Morvik().morvikParse("d/part", "20240115", "235959"), 0);
  for (const char* name : {".lidhdr", "d/"}) EXPECT_EQ(Morvik().morvikParse(name, "x", "235959"), 17) << name;
  for (const char* date : {"", "2024011", "2024O115", "202401155", "+2024011"})
    EXPECT_EQ(Morvik().morvikParse("part", date, "x"), 18) << date;
  for (const char* time : {"", "12345", "12:345", "1234567"})
    EXPECT_EQ(Morvik().morvikParse("part", "20240115", time), 19) << time;
}

TEST(BuilderTest, EachCodePrintsItsLineAndOthersPrintNothing)
{
  std::map<int, std::string> lines = {{4, "Morvik process successful: Warning(s) encountered in source file.\n"},
                                      {8, "Morvik process failed: Error(s) encountered in source file.\n"},
                                      {12, "Morvik process failed: Severe error(s) encountered in source file.\n"},
                                      {16, "Morvik process failed: Terminating error(s) encountered in source file.\n"},
                                      {17, "Invalid filename specified.\n"},
                                      {18, "Invalid date specified.\n"},
                                      {19, "Invalid time specified.\n"},
                                      {30, "Required parameter missing.\n"},
                                      {31, "Too many parameters.\n"},
                                      {32, "Error in getting file length of RU.\n"},
                                      {35, "Invalid body alignment specified.\n"},
                                      {36, "Invalid SSD Model value in the RUVPD source file.\n"},
                                      {37, "Invalid Allow Breakpoints value in the RUVPD source file.\n"},
                                      {38, "Invalid Nucleus Sequence Control value in the RUVPD source file.\n"},
                                      {39, "Invalid RU Destination value in the RUVPD source file.\n"},
                                      {40, "Invalid Code Boundary Requirement value in the RUVPD source file.\n"},
                                      {41, "Invalid Link/loader Bypass value in the RUVPD source file.\n"},
                                      {42, "Invalid Delete RU value in the RUVPD source file.\n"},
                                      {43, "Invalid RUArea value in the RUVPD source file.\n"},
                                      {44, "Invalid Software Type value in the VPDINFO source file.\n"},
                                      {45, "Invalid Developed By Velmor value in the VPDINFO source file.\n"},
                                      {46, "Invalid Developed For Velmor value in the VPDINFO source file.\n"},
                                      {47, "Invalid Online Link/Loadable Flag value in the RUVPD source file.\n"},
                                      {48, "RUNAME value not assigned in header by Morvik.\n"},
                                      {50, "Unable to open RUVPD source file for input.\n"},
                                      {51, "Error reading RUVPD source file.\n"},
                                      {60, "Unable to open VPDINFO source file for input.\n"},
                                      {61, "Error reading VPDINFO source file.\n"},
                                      {90, "Out of memory.\n"},
                                      {100, "Error writing VPD header to STDOUT.\n"}};
  for (int code = -1; code <= 101; code++) {
    testing::internal::CaptureStderr();
    Morvik().morvikPrintError(code);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), lines[code]) << code;
  }
}

TEST(BuilderTest, InfoSourceStandsBesideTheSourceAndARefusalLeavesNoHeader)
{
  const TemporaryFolder folder;
  folder.write("qel.vpdinfo", ":SWRTYPE.LPP\n:DEVELBY.\n:DEVELFOR.");
  folder.write("prod.vpdinfo", ":SWRTYPE.no");
  // Every keyword on which the outcome depends is set, because all builds of a process share them.
  const std::string set = ":RUNAME.\n:RUDEST.NUC1\n:LLBYPASS.N\n:DELETERU.N\n:SSDMODEL.NONE\n:ALLOWBKP.Y\n:LLFLAG.Y\n";
  const auto build = [&](const std::string& keyword, int code, const std::string& info, unsigned int length) {
    const std::string source = folder.write("LONGNAME9.lidhdr", set + keyword);
    Morvik morvik;
    testing::internal::CaptureStderr();
    EXPECT_EQ(morvik.morvikParse(source.c_str(), "20240115", "235959"), 0);
    EXPECT_EQ(morvik.morvikExecute(), code);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "ruvpd File is " + source + "\nvpdinfo File is " + info + "\n");
    EXPECT_EQ(morvik.morvikGetHeader().length(), length) << keyword;
  };
  build(":VPDINFONM.", 0, folder / "qel.vpdinfo", 522);
  build(":VPDINFONM.prod", 44, folder / "prod.vpdinfo", 0);
}
