#include <gtest/gtest.h>

#include "builder/Morvik.h"

TEST(BuilderTest, ParseTestsTheNameThenTheDateThenTheTime)
{
  for (const char* name : {".lidhdr", "d/"}) EXPECT_EQ(Morvik().morvikParse(name, "x", "235959"), 17) << name;
  for (const char* date : {"", "2024011", "2024O115", "202401155", "+2024011"})
    EXPECT_EQ(Morvik().morvikParse("part", date, "x"), 18) << date;
  for (const char* time : {"", "12345", "12:345", "1234567"})
    EXPECT_EQ(Morvik().morvikParse("part", "20240115", time), 19) << time;
}

TEST(BuilderTest, CodeThatNoBuildReturnsPrintsItsLineOrNothing)
{
  const std::string area = "Invalid RUArea value in the RUVPD source file.\n";
  for (const auto& [code, line] : {std::pair(43, area), {0, ""}, {33, ""}, {101, ""}}) {
    testing::internal::CaptureStderr();
    Morvik().morvikPrintError(code);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), line) << code;
  }
}
