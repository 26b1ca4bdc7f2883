#include <gtest/gtest.h>

#include <sstream>

#include "builder/Morvik.h"
#include "tests/TestSupport.h"

TEST(BuilderTest, ParseTestsTheNameThenTheDateThenTheTime)
{
  std::istringstream rows(  // a source, date and time, and the code
      "d/part 20240115 235959 0 .lidhdr x x 17 d/ 20240115 235959 17 p 2024011 x 18 p 2024O115 235959 18 "
      "p 202401155 235959 18 p +2024011 235959 18 p 20240115 12345 19 p 20240115 12:345 19 p 20240115 1234567 19");
  for (std::string source, date, time, code; rows >> source >> date >> time >> code;) {
    EXPECT_EQ(std::to_string(Morvik().morvikParse(source.c_str(), date.c_str(), time.c_str())), code) << source << date;
  }
}

TEST(BuilderTest, EachCodePrintsItsLineAndOthersPrintNothing)
{
  const std::string lines =
      "4 Morvik process successful: Warning(s) encountered in source file.\n8 Morvik process failed: Error(s) "
      "encountered in source file.\n12 Morvik process failed: Severe error(s) encountered in source file.\n16 Morvik "
      "process failed: Terminating error(s) encountered in source file.\n17 Invalid filename specified.\n18 Invalid "
      "date specified.\n19 Invalid time specified.\n30 Required parameter missing.\n31 Too many parameters.\n32 Error "
      "in getting file length of RU.\n35 Invalid body alignment specified.\n36 Invalid SSD Model value in the RUVPD "
      "source file.\n37 Invalid Allow Breakpoints value in the RUVPD source file.\n38 Invalid Nucleus Sequence "
      "Control value in the RUVPD source file.\n39 Invalid RU Destination value in the RUVPD source file.\n40 Invalid "
      "Code Boundary Requirement value in the RUVPD source file.\n41 Invalid Link/loader Bypass value in the RUVPD "
      "source file.\n42 Invalid Delete RU value in the RUVPD source file.\n43 Invalid RUArea value in the RUVPD "
      "source file.\n44 Invalid Software Type value in the VPDINFO source file.\n45 Invalid Developed By Velmor value "
      "in the VPDINFO source file.\n46 Invalid Developed For Velmor value in the VPDINFO source file.\n47 Invalid "
      "Online Link/Loadable Flag value in the RUVPD source file.\n48 RUNAME value not assigned in header by Morvik.\n"
      "50 Unable to open RUVPD source file for input.\n51 Error reading RUVPD source file.\n60 Unable to open VPDINFO "
      "source file for input.\n61 Error reading VPDINFO source file.\n90 Out of memory.\n100 Error writing VPD header "
      "to STDOUT.\n";
  std::string printed;
  for (int code = -1; code <= 101; code++) {
    testing::internal::CaptureStderr();
    Morvik().morvikPrintError(code);
    const std::string line = testing::internal::GetCapturedStderr();
    if (!line.empty()) printed += std::to_string(code) + " " + line;
  }
  EXPECT_EQ(printed, lines);
}

TEST(BuilderTest, InfoSourceStandsBesideTheSourceAndARefusalLeavesNoHeader)
{
  const TemporaryFolder folder;
  folder.write("qel.vpdinfo", ":SWRTYPE.LPP\n:DEVELBY.\n:DEVELFOR."), folder.write("prod.vpdinfo", ":SWRTYPE.no");
  // Every keyword on which the outcome depends is set, because all builds of a process share them.
  const std::string set = ":RUNAME.\n:RUDEST.NUC1\n:LLBYPASS.N\n:DELETERU.N\n:SSDMODEL.NONE\n:ALLOWBKP.Y\n:LLFLAG.Y\n";
  const std::tuple<std::string, int, std::string, unsigned int> rows[] = {{"", 0, "qel", 522}, {"prod", 44, "prod", 0}};
  for (const auto& [keyword, code, info, length] : rows) {
    const std::string source = folder.write("LONGNAME9.lidhdr", set + ":VPDINFONM." + keyword);
    Morvik morvik;
    testing::internal::CaptureStderr();
    EXPECT_EQ(morvik.morvikParse(source.c_str(), "20240115", "235959") == 0 ? morvik.morvikExecute() : -1, code);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "ruvpd File is " + source + "\nvpdinfo File is " + folder / (info + ".vpdinfo") + "\n");
    EXPECT_EQ(morvik.morvikGetHeader().length(), length) << info;
  }
}
