// The companion's fuzzers' models, as ModelTest.cpp runs the others.
#include "fuzz/FuzzInput.h"
#include "tests/TestSupport.h"

TEST(ModelTest, Image) { ExpectHolds(FuzzImage, "ImageFuzz", 300); }
TEST(ModelTest, Lint) { ExpectHolds(FuzzLint, "LintFuzz", 300); }
