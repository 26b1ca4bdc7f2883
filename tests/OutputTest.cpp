// Whole runs: the output file byte for byte, and for each return code the whole of standard error.
#include <fstream>

#include "tests/TestSupport.h"

namespace {

using namespace std::string_literals;  // "..."s keeps the NUL bytes of a literal

const std::string kDone = "kelvra process completed successfully.\n", kFailed = "kelvra process failed.\n";
const std::string kRead = "ruvpd File is part.lidhdr\n", kInfo = "vpdinfo File is qel.vpdinfo\n", kBoth = kRead + kInfo;
const std::string kLong = "Long_name.lidhdr", kLongRead = "ruvpd File is " + kLong + "\n" + kInfo;
const std::vector<std::string> kUsual = {"-l", "part.kesp"};

// Pieces of hexadecimal text; without blanks, so that byte n of a block stands at 2 * n.
std::string Zeros(size_t count) { return std::string(2 * count, '0'); }
std::string Number(size_t value)
{
  char hex[9];
  EXPECT_EQ(std::snprintf(hex, sizeof hex, "%08zx", value), 8);
  return hex;
}
const std::string kAuxiliaryHeader = "010b0010" + Zeros(24), kSectionName = "4ba385a7a3000000";
const std::string kVersion3 = "02220003" + Zeros(4);  // up to the date

const std::string kModifiedStamp = "64bb5a80", kModifiedTime = "20230722042640";  // 1690000000, in UTC

// The header block of a source without statements, whose member name is "part".
std::string PlainBlock(size_t lidSize, const std::string& time)
{
  std::string dateAndTime;
  for (const char digit : time) dateAndTime += {'f', digit};
  const std::string vpdHeader = Number(lidSize) + Zeros(4) + "d7c1d9e340404040" + Zeros(9) + "e5d7c4" + Zeros(16) +
                                "f5f0f0f1" + "f0f0f0f0" + Zeros(12) + dateAndTime + Zeros(66) + "00000200" + Zeros(4) +
                                "000000d0" + Zeros(52);
  const std::string ssdHeader = Zeros(32) + "978199a3" + Zeros(7) + "01020001" + Zeros(17);
  return vpdHeader + ssdHeader + Zeros(240);
}

std::string Output(const std::string& stamp, const std::string& block, const std::string& lid)
{
  const size_t offset = 88 + block.size() / 2, size = lid.size() / 2;
  const std::string fileHeader =
      "01df0001" + stamp + Number(offset + size) + Zeros(4) + Number(block.size() / 2 + 28).substr(4) + "0000";
  const std::string sectionHeader = kSectionName + Zeros(8) + Number(size) + Number(offset) + Zeros(12) + "00000020";
  return Hex(Raw(fileHeader + kAuxiliaryHeader + block + sectionHeader + lid));
}

// A folder with a LID and two sources without statements.
struct Part : TemporaryFolder {
  explicit Part(const std::string& lid = "ABCDE")
  {
    for (const char* source : {"part.lidhdr", "qel.vpdinfo"}) write(source, "(* nothing *)\n");
    write("part.kesp", lid);
    const std::chrono::sys_seconds modified(std::chrono::seconds(1690000000));
    fs::last_write_time(*this / "part.kesp", std::chrono::file_clock::from_sys(modified));
  }
};

TEST(Output, HoldsEveryFieldOfAVersionThreeLidAndItsSources)
{
  const std::string lid = "0222 0003 1a2b3c4d 199912312359 0007 89a1897f 0000006f 0000006c 05010040" + Zeros(64) +
                          "200001020304 0004 f0000000 ff0a80";
  const Part folder(Raw(lid));
  folder.write("part.lidhdr",
               "(* comment *)\n:RUNAME.MyUnit\n* RU LOADID . 12AB 34cd\n!*:RUCHGLID...Y\n:RUFLASH.Y\n"
               ":BASELOAD.Y\n:RUPFGID.51aB\n:RUSFGID.7\n:RUDEST.PIBLA\n:LLBYPASS.N\n:DELETERU.Y\n"
               ":SSDMODEL.TERVASCOPIN\n:ALLOWBKP.N\n:LLFLAG.N\n:VPDINFONM.prod\n:VERLEVEL.lost");
  folder.write("prod.vpdinfo",
               ":PRODUCTID.57-X\n:SWRTYPE.MCG\n:DEVELBY.Y\n:DEVELFOR.N\n:DEVLABID.R1\n"
               ":VERLEVEL.V5R4M0\n:RELMODLVL.9\n:INSTRSET.X\n:RUNAME.Restrict\n");
  folder.write("part.ruhx", std::string(2000, 'x'));  // a longer file from an earlier run
  ExpectRun(folder, kUsual, 0, kRead + "vpdinfo File is prod.vpdinfo\n" + kDone);
  const std::string fileHeader = "01df 0001 386d4344 000002c7 00000000 021c 0000";
  const std::string vpdHeader =
      "0000006f 00000000 d4e8e4d5c9e34040" + Zeros(9) + "e5d7c4 12ab34cd" + Zeros(5) + "f5f760e7404040" +
      "f5f181c2 f7404040 00000000 14000030 8040 d9f1 f1f9f9f9f1f2f3f1 f2f3f5f9f0f0" + Zeros(14) + "e5f5d9f4 f9404040" +
      Zeros(44) + "00000200 00000000 000000d0 00000000 00000000" + Zeros(44);
  const std::string ssdHeader = Zeros(32) + "978199a3 00000000 00 56 01 00 02 11 00" + Zeros(17);
  const std::string sectionHeader = kSectionName + Zeros(8) + "0000006f 00000258" + Zeros(12) + "00000020";
  EXPECT_EQ(Hex(folder.read("part.ruhx")),
            Hex(Raw(fileHeader + kAuxiliaryHeader + vpdHeader + ssdHeader + Zeros(240) + sectionHeader + lid)));
  EXPECT_EQ(Hex(folder.read("part.kesp")), Hex(Raw(lid)));
}

TEST(Output, TimeComesFromAHeaderThatReachesPastItsDateElseFromTheFile)
{
  const auto check = [](const std::string& lid, const std::string& stamp, const std::string& time, const char* zone) {
    SCOPED_TRACE(zone + (" " + lid));
    const Part folder(Raw(lid));
    ExpectRun(folder, kUsual, 0, kBoth + kDone, zone);
    EXPECT_EQ(Hex(folder.read("part.ruhx")), Output(stamp, PlainBlock(lid.size() / 2, time), lid));
  };
  const std::string date = "199912312359", version3 = kVersion3 + date;
  const std::string version2 = "02220002" + Zeros(4) + date + Zeros(10), rest = Zeros(76);
  const std::vector<std::string> undated = {"", version3 + Zeros(89), "0223" + version3.substr(4) + Zeros(90),
                                            version2 + "00000000" + rest, version2 + "0000000d" + rest};
  for (const std::string& lid : undated) check(lid, kModifiedStamp, kModifiedTime, "UTC0");
  const std::vector<std::string> dated = {version3 + Zeros(90), version3 + Zeros(91), version3 + Zeros(88) + "ffffaa",
                                          version2 + "0000000e" + rest, version2 + "ffffffff" + rest};
  for (const std::string& lid : dated) check(lid, "386d4344", "19991231235900", "UTC0");
  check(kVersion3 + "196912312359" + Zeros(90), "ffffffc4", "19691231235900", "UTC0");
  check(kVersion3 + "100001010000" + Zeros(90), "df7d0c80", "10000101000000", "UTC0");
  check(kVersion3 + "999912312359" + Zeros(90), "fff44144", "99991231235900", "UTC0");
  check(kVersion3 + "202302302460" + Zeros(90), "64014690", "20230303010000", "UTC0");
  const char* summerTime = "CET-1CEST,M3.5.0,M10.5.0/3";
  check(kVersion3 + "202407011200" + Zeros(90), "66827e20", "20240701120000", summerTime);
  check(kVersion3 + "202401151300" + Zeros(90), "65a51e40", "20240115130000", summerTime);
  check("02", kModifiedStamp, "20230722062640", summerTime);
  check("00", kModifiedStamp, "20230721185640", "XST9:30");
}

TEST(Output, SourcesChangeOnlyTheirOwnFields)
{
  const std::string absent = "absent", loadId = kBoth + "RU Load ID value in the RUVPD source file is ";
  using Change = std::pair<size_t, std::string>;  // an offset in the header block; the SSD header starts at 208
  const Change nameOffset = {240, "0000000000000200"}, longName = {512, "d39695876d9581948500"};
  const std::string empties = ":PRODUCTID.\n:SWRTYPE.\n:DEVELBY.\n:DEVELFOR.\n:DEVLABID.\n:VERLEVEL.\n:RELMODLVL.";
  struct Row {
    std::string text;
    std::vector<Change> changes;
    std::string info = {}, said = kBoth, source = "part.lidhdr";
  };
  std::vector<Row> rows = {
      {":RUNAME.long Name12", {{8, "d3d6d5c7d5c1d4c5"}}, ":RUDEST.x"},
      {":RUSLFLOD.Y\n:RUCHGLID.y\n:RUNAME\n::\n*\nRUDEST.x\n(*:RUDEST.x*)\n", {{56, "08"}}},
      {":NUCSEQCTL.x\n:rudest.x\n:RUDEST.x\n:RUDEST.*MCG", {{61, "80"}, {249, "40"}}, ":DEVELBY.N"},
      {":RUDEST.IOP4\n:LLBYPASS.Y\n:SWRTYPE.bad\n", {{248, "01"}}, ":SWRTYPE.LPP\n:DEVELBY."},
      {":RULOADID.1234567", {{28, "01234567"}, {59, "20"}}},
      {":RULOADID.123456", {}, "", loadId + "123456.\n"},
      {":RULOADID.1234567G", {}, "", loadId + "1234567G.\n"},
      {":PRODUCTID.A\0B\n:RUDEST\0.x\n"s, {{37, "c100c240404040"}}},
      {":PRODUCTID.\xE1\xC1\xFF\r\n\r:RUDEST.NUC1\r", {{37, "81c10740404040"}, {249, "01"}}, "\xFF"},
      {":RUFLASH.Y", {{44, Zeros(8)}, {56, "07"}}, absent, "vpdinfo File is part.vpdinfo\n", "part.vpdinfo"},
      {":RUDEST.NUC3", {{48, Zeros(4)}, {56, "01"}, {249, "0c"}}, absent, "", "part.SFGINFO"},
      {":RUDEST.NUC3", {{56, "02"}, {249, "0c"}}, ":RUDEST.x", kInfo, "part.pfginfo"},
      {":RUDEST.NUC3", {{61, "40"}, {249, "0c"}}, ":DEVELFOR.N", kInfo, "part"},
      {absent, {{61, "40"}}, ":DEVELFOR.N", kInfo, "part.text"},
      {absent, {{44, Zeros(8)}, {56, "03"}}, absent, "", "part.VPDINFO"},
      {":RULOADID.\n:RUPFGID.\n:RUSFGID.", {{44, "4040404040404040"}}, empties},
      {":RUNAME.\n:VPDINFONM.", {{8, Zeros(8)}, nameOffset, longName}, "", kLongRead, kLong},
      {":RUNAME.Part", {nameOffset, longName}, "", kLongRead, kLong}};
  for (const size_t blanks : {109U, 110U, 111U, 116U, 238U, 100000U}) {  // up to lines of 127, 128, 129, ... characters
    rows.push_back(
        {":PRODUCTID." + std::string(blanks, ' ') + "1234567\n:RUDEST.NUC1", {{37, "f1f2f3f4f5f6f7"}, {249, "01"}}});
  }
  for (const Row& row : rows) {
    SCOPED_TRACE(row.source + " " + row.text.substr(0, 300));
    const Part folder;
    if (row.text != absent) folder.write(row.source, row.text);
    folder.write("qel.vpdinfo", row.info);
    if (row.info == absent) fs::remove(folder / "qel.vpdinfo");
    ExpectRun(folder, {"-l", "part.kesp", "-r", row.source}, 0, row.said + kDone);
    std::string block = PlainBlock(5, kModifiedTime);
    for (const auto& [offset, hex] : row.changes) block.replace(2 * offset, hex.size(), hex);
    EXPECT_EQ(Hex(folder.read("part.ruhx")), Output(kModifiedStamp, block, "4142434445"));
  }
}

// The run ends with the code and the lines, and leaves the output's file as it was.
void ExpectFailure(const Part& folder, int status, const std::string& err, const std::string& source = "part.lidhdr",
                   const std::string& output = "part.ruhx")
{
  SCOPED_TRACE(std::to_string(status) + " " + output + " " + source);
  if (!fs::exists(folder / output)) folder.write(output, "old");
  const std::string before = folder.read(output);
  ExpectRun(folder, {"-l", "part.kesp", "-r", source, "-o", output}, status, err);
  EXPECT_EQ(folder.read(output), before);
}

TEST(Codes, ARefusedValueIsTheFirstInTheOrderOfTheKeywords)
{
  const std::string inSource = " value in the RUVPD source file", is = inSource + " is ";
  const std::string inInfo = " value in the VPDINFO source file.\n" + kFailed;
  const auto refused = [&](const std::string& field, const std::string& value) {
    return kBoth + field + value + ".\nInvalid " + field + inSource + ".\n" + kFailed;
  };
  const struct {
    int status;
    std::string source, info, lines;
  } rows[] = {
      {36, ":SSDMODEL.vant4\n:ALLOWBKP.y", "", refused("SSD Model", is + "vant4")},
      {37, ":ALLOWBKP.y\n:LLFLAG.X", "", refused("Allow Breakpoints", is + "y")},
      {39, ":RUDEST.nuc1\n:LLBYPASS.", "", refused("RU Destination", is + "nuc1")},
      {41, ":LLBYPASS.\n:DELETERU.no", "", refused("Link/loader Bypass", is)},
      {42, ":DELETERU.no\n:SSDMODEL.x", "", refused("Delete RU", is + "no")},
      {44, ":RUDEST.x\n:DEVELBY.n\n:SWRTYPE.mcg", "", kBoth + "Invalid Software Type" + inInfo},
      {45, "", ":DEVELFOR.no\n:DEVELBY.n", kBoth + "Invalid Developed By Velmor" + inInfo},
      {46, ":RUDEST.x", ":DEVELFOR.no", kBoth + "Invalid Developed For Velmor" + inInfo},
      {47, ":LLFLAG.X", "", refused("Online Link/Loadable Flag", " is X")},
  };
  for (const auto& row : rows) {
    const Part folder;
    folder.write("part.lidhdr", row.source);
    folder.write("qel.vpdinfo", row.info);
    ExpectFailure(folder, row.status, row.lines);
  }
}

TEST(Codes, AFileThatIsMissingOrUnfitEndsTheRun)
{
  const std::string noLid = "Error in reading object file.\n", noLength = "Error in getting file length of RU.\n";
  const std::string notOpened = "Unable to open RUVPD source file for input.\n" + kFailed;
  const std::string infoNotOpened = "Unable to open VPDINFO source file for input.\n" + kFailed;
  const std::string ruvpd = "File name is part.lidhdr.\n", info = kRead + "File name is qel.vpdinfo.\n";
  const std::string notRead = "Error reading RUVPD source file.\n" + kFailed;
  const std::string infoNotRead = "Error reading VPDINFO source file.\n" + kFailed;
  const std::tuple<int, std::string, std::string> rows[] = {
      {32, "truncate -s 4294966696 part.kesp", noLength},
      {33, "truncate -s 4294967296 part.kesp", noLid},
      {32, "ln -sf /dev/zero part.kesp", noLength},
      {33, "ln -sf /proc/self/mem part.kesp", noLid},  // opens, and does not read
      {50, "rm part.lidhdr", ruvpd + notOpened},
      {51, "ln -sf /proc/self/mem part.lidhdr", ruvpd + kRead + notRead},
      {60, "rm qel.vpdinfo", info + infoNotOpened},
      {61, "ln -sf /proc/self/mem qel.vpdinfo", info + kInfo + infoNotRead},
      {60, "echo :VPDINFONM.d/prod >part.lidhdr", kRead + "File name is d/prod.vpdinfo.\n" + infoNotOpened},
      {60, "printf ':VPDINFONM.part.kesp\\0x' >part.lidhdr",
       kRead + "File name is part.kesp\0x.vpdinfo.\n"s + infoNotOpened},
  };
  for (const auto& [status, change, lines] : rows) {
    const Part folder;
    EXPECT_EQ(std::system(("cd " + folder.path() + "; " + change).c_str()), 0) << change;
    ExpectFailure(folder, status, lines);
  }
  const Part folder;
  EXPECT_EQ(std::system(("cd " + folder.path() + "; rm part.kesp; mkfifo part.kesp").c_str()), 0);
  std::fstream pipe(folder / "part.kesp");  // both ends; the run need not wait for the end of the input
  pipe << "A" << std::flush;
  ExpectFailure(folder, 32, noLength);
}

TEST(Codes, NamesAndDatesThatCannotStandInTheHeaderEndTheRun)
{
  const Part folder;
  folder.write(kLong, "");
  ExpectFailure(folder, 48, kLongRead + "RUNAME value not assigned in header by Morvik.\n" + kFailed, kLong);
  for (const char* year : {"0000", "0999", "a000"}) {  // the last is 10000
    folder.write("part.kesp", Raw(kVersion3 + year + "01010000" + Zeros(90)));
    ExpectFailure(folder, 18, "Invalid date specified.\n" + kFailed);
  }
}

TEST(Codes, AnInputIsNoOutputUnderAnyName)
{
  for (const std::string input : {"part.kesp", "part.lidhdr", "qel.vpdinfo"}) {
    const Part folder;
    fs::create_symlink(input, folder / "symbolic");
    fs::create_hard_link(folder / input, folder / "hard");
    for (const std::string& output : {input, "symbolic"s, "hard"s}) {
      ExpectFailure(folder, 34, kBoth + "Error in writing output (.ruh) file.\n", "part.lidhdr", output);
    }
  }
}

}  // namespace
