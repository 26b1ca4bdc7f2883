// The command line, seen from outside: which files a run names, and what it says when it cannot.

#include <set>

#include "driver/Kelvra.h"
#include "tests/TestSupport.h"

namespace {

const std::string kInfo = "vpdinfo File is qel.vpdinfo\n", kPart = "ruvpd File is part.lidhdr\n" + kInfo;

using Words = std::vector<std::string>;

std::set<fs::path> Listing(const TemporaryFolder& folder)
{
  const fs::recursive_directory_iterator all(folder.path());
  return {begin(all), end(all)};
}

// Runs among the named files, each of which holds its own name ("dir/" is a folder); only `output` may come.
void Check(const TemporaryFolder& folder, Words files, const Words& arguments, int status, const std::string& err,
           const std::string& output = "")
{
  SCOPED_TRACE(testing::PrintToString(arguments));
  files.insert(files.end(), {"part.lidhdr", "qel.vpdinfo"});
  for (const std::string& name : files) {
    fs::create_directories(fs::path(folder / name).parent_path());
    if (name.back() != '/') folder.write(name, name);
  }
  std::set<fs::path> names = Listing(folder);
  if (!output.empty()) names.insert(folder / output);
  ExpectRun(folder, arguments, status, err);
  EXPECT_EQ(Listing(folder), names);
}

TEST(CommandLine, NamesAreDefaultedAndProbed)
{
  const std::string nested = "ruvpd File is d.x/part.lidhdr\nvpdinfo File is d.x/qel.vpdinfo\n";
  const struct {
    Words files, arguments;
    std::string lid, output, said = kPart;
  } rows[] = {
      {{"part.kesp"}, {"-l", "part"}, "part.kesp", "part.ruhx"},
      {{"part", "part.kesp"}, {"-l", "part"}, "part", "part.ruhx"},
      {{"part/", "part.kesp"}, {"-l", "part"}, "part.kesp", "part.ruhx"},
      {{"x.kesp", "part"}, {"-r", "part", "-l", "x"}, "x.kesp", "x.ruhx", kInfo},
      {{"x.kesp", "part/"}, {"-r", "part", "-l", "x"}, "x.kesp", "x.ruhx"},
      {{"part.kesp"}, {"-l", "part", "-o", ".ruhx"}, "part.kesp", ".ruhx"},
      {{"x.kesp", "d/"}, {"-lfoo", "x.kesp", "-rbar", "part.lidhdr", "-output", "d/o"}, "x.kesp", "d/o"},
      {{"a.kesp", "b.kesp"}, {"-o", "c", "-l", "a", "-r", "a", "-l", "b", "-r", "part", "-o", "d"}, "b.kesp", "d"},
      {{"part.kesp"}, {"-r", "a", "-o", "b", "-l", "part", "-r", "", "-o", ""}, "part.kesp", "part.ruhx"},
      {{"a.b.c", "a.b.lidhdr"}, {"-l", "a.b.c"}, "a.b.c", "a.b.ruhx", "ruvpd File is a.b.lidhdr\n" + kInfo},
      {{"part.", "part..lidhdr"}, {"-l", "part."}, "part.", "part..ruhx", "ruvpd File is part..lidhdr\n" + kInfo},
      {{"-r.kesp", "-r.lidhdr"}, {"-l", "-r"}, "-r.kesp", "-r.ruhx", "ruvpd File is -r.lidhdr\n" + kInfo},
      {{"d.x/part", "d.x/part.lidhdr", "d.x/qel.vpdinfo"}, {"-l", "d.x/part"}, "d.x/part", "d.x/part.ruhx", nested}};
  for (const auto& row : rows) {
    const TemporaryFolder folder;
    Check(folder, row.files, row.arguments, 0, row.said + "kelvra process completed successfully.\n", row.output);
    EXPECT_EQ(folder.read(row.output).erase(0, 600), row.lid);  // the headers take 600 bytes
  }
}

TEST(CommandLine, FaultsAndNamesThatLeadNowhereEndInTheirCodeAndMakeNoFile)
{
  const std::tuple<int, std::string, std::vector<Words>> rows[] = {
      {30,
       "Required parameter missing.\nUsage : kelvra -r partname.lidhdr -l partname.kesp -o outfile.ruhx\n",
       // clang-format off
       {{}, {"", ""}, {"-"}, {"-x"}, {"extra"}, {"-l"}, {"-l", ""}, {"-lfoo"}, {"-l=part"}, {"-L", "part"},
        {"--lid", "part"}, {"l", "part"}, {"-r", "part.lidhdr"}, {"-r", "part", "-o", "out"}, {"extra", "-l", "part"},
        {"-l", "part", "extra"}, {"-l", "part", ""}, {"-l", "part", "-"}, {"-l", "part", "-r"}, {"-l", "part", "-o"},
        {"-l", "part", "-l"}, {"-l", "part", "-l", ""}, {"-l", "part", "-h"}, {"--", "-l", "part"}}},
      // clang-format on
      {33,
       "Error in reading object file.\n",
       {{"-l", "none"}, {"-l", "none.kesp"}, {"-l", "dir"}, {"-l", "/"}, {"-l", "empty/"}}},
      {17,
       "Invalid filename specified.\nFile does not have a kesp header on it.\n",
       {{"-l", "dir/"}, {"-l", "dir/.kesp"}, {"-l", "part", "-r", ".lidhdr"}, {"-l", "part", "-r", "dir/"}}},
      {50,
       "File name is dir.lidhdr.\nUnable to open RUVPD source file for input.\nkelvra process failed.\n",
       {{"-l", "part", "-r", "dir"}, {"-l", "part", "-r", "dir.lidhdr"}}},
      {34,
       kPart + "Error in writing output (.ruh) file.\n",
       {{"-l", "part", "-o", "dir/"}, {"-l", "part", "-o", "dir"}, {"-l", "part", "-o", "no/x"}}}};
  char* nothing[] = {nullptr};
  EXPECT_EQ(Kelvra().parseParams(0, nothing), 30);
  EXPECT_EQ(Kelvra().readInitFile(), 0);
  EXPECT_EQ(Kelvra().getMajorVersion(), 1U);
  EXPECT_EQ(Kelvra().getMinorVersion(), 0U);
  for (const auto& [status, err, commandLines] : rows) {
    for (const Words& arguments : commandLines) {
      Check(TemporaryFolder(), {"part.kesp", "dir/.kesp", "empty/"}, arguments, status, err);
    }
  }
}

}  // namespace
