// The fuzzers' models, on inputs that are made from their seeds: the same ones in every run.
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <random>
#include <set>

#include "fuzz/FuzzInput.h"
#include "tests/TestSupport.h"

namespace {

class ModelTest : public testing::Test {
 protected:
  ~ModelTest() override { std::cerr.rdbuf(messages); }

  // Three seeds in a row, cut somewhere, with one byte in eight drawn anew.
  string drawn(const std::vector<string>& seeds)
  {
    const auto seed = [&] { return seeds[draw() % seeds.size()]; };
    string input = seed() + seed() + seed();
    input.resize(draw() % input.size());
    for (char& ch : input) {
      if (draw() % 8 == 0) ch = draw() % 2 == 0 ? static_cast<char>(draw()) : input[draw() % input.size()];
    }
    return input;
  }

  void holds(void (*fuzz)(FuzzInput), const string& name, int rounds)
  {
    std::vector<string> seeds;
    const std::filesystem::directory_iterator folder(KELVRA_SEEDS + name);
    for (const auto& path : std::set<std::filesystem::path>(begin(folder), end(folder))) seeds.push_back(Content(path));
    for (; rounds > 0 && !HasFailure(); rounds--) {
      const string input = drawn(seeds);
      EXPECT_NO_THROW(fuzz({input})) << Hex(input);
    }
  }

 private:
  std::mt19937 draw;
  std::streambuf* const messages = std::cerr.rdbuf();
};

TEST_F(ModelTest, String) { holds(FuzzString, "StringFuzz", 6000); }
TEST_F(ModelTest, ByteString) { holds(FuzzByteString, "ByteStringFuzz", 4000); }
TEST_F(ModelTest, LidHeader) { holds(FuzzLidHeader, "LidHeaderFuzz", 10000); }
TEST_F(ModelTest, Source) { holds(FuzzSource, "SourceFuzz", 1000); }

}  // namespace
