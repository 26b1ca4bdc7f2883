// The fuzzers' models, on inputs that are made from their seeds: the same ones in every run.

#include <malloc.h>

#include <iostream>
#include <random>
#include <set>

#include "fuzz/FuzzInput.h"
#include "tests/TestSupport.h"

// Three seeds in a row, cut somewhere, with one byte in eight drawn anew.
static string Drawn(const std::vector<string>& seeds, std::mt19937& draw)
{
  const auto seed = [&] { return seeds[draw() % seeds.size()]; };
  string input = seed() + seed() + seed();
  input.resize(draw() % input.size());
  for (char& ch : input) {
    if (draw() % 8 == 0) ch = draw() % 2 == 0 ? static_cast<char>(draw()) : input[draw() % input.size()];
  }
  return input;
}

void ExpectHolds(void (*fuzz)(FuzzInput), const string& name, int rounds)
{
  std::vector<string> seeds;
  const fs::directory_iterator folder(KELVRA_SEEDS + name);
  for (const auto& path : std::set<fs::path>(begin(folder), end(folder))) seeds.push_back(Content(path));
  std::mt19937 draw;
  std::streambuf* const messages = std::cerr.rdbuf();
  const string first = Drawn(seeds, draw);
  fuzz({first});
  const std::size_t held = mallinfo2().uordblks;
  for (; rounds > 0 && !testing::Test::HasFailure(); rounds--) {
    const string input = Drawn(seeds, draw);
    EXPECT_NO_THROW(fuzz({input})) << Hex(input);
  }
  fuzz({first});
  EXPECT_LT(mallinfo2().uordblks, held + 250000) << "blocks are left";  // the most that is kept for the next
  std::cerr.rdbuf(messages);
}

TEST(ModelTest, String) { ExpectHolds(FuzzString, "StringFuzz", 6000); }
TEST(ModelTest, ByteString) { ExpectHolds(FuzzByteString, "ByteStringFuzz", 4000); }
TEST(ModelTest, LidHeader) { ExpectHolds(FuzzLidHeader, "LidHeaderFuzz", 10000); }
TEST(ModelTest, Source) { ExpectHolds(FuzzSource, "SourceFuzz", 1000); }
