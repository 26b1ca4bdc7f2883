// lint: each rule with its whole text, the clean example, and the errors beside the real tool's code.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "image/Json.h"
#include "image/Lint.h"
#include "image/Text.h"
#include "tests/TestSupport.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;  // "..."s keeps the NUL bytes of a literal

// A LID of 108 bytes with the number 81E00142 and this date.
std::string Lid(const std::string& date = "202603140926", const std::string& length = "0000006c")
{
  return Raw("0222 0003 81e00142" + date + "0000 00000000" + length + "0000006c 01010040" + std::string(128, '0') +
             "202603150000 0004 f0000000");
}

// The current folder, with a clean unit in it, in UTC.
struct UnitFolder : TemporaryFolder {
  UnitFolder()
  {
    ::setenv("TZ", "UTC0", 1);
    fs::current_path(path());
    write("part.kesp", Lid());
    write("part.lidhdr", ":RUNAME.CTRL01\n:RULOADID.81E0 0142\n");
    write("qel.vpdinfo", ":PRODUCTID.CTL2026\n");
  }
  ~UnitFolder() { fs::current_path("/"); }

  // A content that begins with @ is what a symbolic link leads to.
  void put(const std::string& name, const std::string& content) const
  {
    fs::remove(name);
    if (content.starts_with('@')) {
      fs::create_symlink(content.substr(1), name);
    } else {
      write(name, content);
    }
  }
};

std::string LintText(const Inputs& inputs, const std::vector<std::string>& disabled = {})
{
  std::string text;
  for (const Finding& finding : Lint(inputs, disabled).findings) text += Text(finding) + '\n';
  return text;
}

// One file of a clean unit, and what is found then.
struct Row {
  std::string file;
  std::string content;
  std::string found;
  Inputs inputs = {.lid = "part.kesp"};
};

const std::string kLongName(300, 'x');
const std::string kLong = "controller.lidhdr";
const std::string kNoHeader =
    "part.kesp: note: has no LID header: the build time is the file's modification time [no-lid-header]\n";
const std::string kNoVpdinfo = "cannot be opened: No such file or directory (code 60) [missing-source]\n";

// In a line of the RUVPD source.
const Row lineRows[] = {
    {"part.lidhdr", ":RUNAME.A\n\n :RUNMAE.X",
     "part.lidhdr:3: warning: unknown keyword RUNMAE; did you mean RUNAME? [unknown-keyword]\n"},
    {"part.lidhdr", ":FARAWAY.X\n:RUPFGIX.X\n:.X",
     "part.lidhdr:1: warning: unknown keyword FARAWAY [unknown-keyword]\n"
     "part.lidhdr:2: warning: unknown keyword RUPFGIX; did you mean RUPFGID? [unknown-keyword]\n"
     "part.lidhdr:3: warning: a statement without a keyword [unknown-keyword]\n"},
    {"part.lidhdr", ":ruflash.Y",
     "part.lidhdr:1: warning: ruflash is not in upper case and is skipped; did you mean RUFLASH? [keyword-case]\n"},
    {"part.lidhdr", "RUFLASH.Y",
     "part.lidhdr:1: warning: \"RUFLASH.Y\" is no statement and is skipped; did you mean :RUFLASH? "
     "[not-a-statement]\n"},
    {"part.lidhdr", ":RUFLASH=Y\n:RUFLASH Y",
     "part.lidhdr:1: warning: the statement has no period and no effect; did you mean :RUFLASH.? [no-period]\n"
     "part.lidhdr:2: warning: the statement has no period and no effect; did you mean :RUFLASH.? [no-period]\n"},
    {"part.lidhdr", "\xEF\xBB\xBF(* a\n:RUFLASH.Y\nb *)",
     "part.lidhdr:1: warning: begins with a byte order mark, which makes the first line no statement "
     "[byte-order-mark]\n"
     "part.lidhdr:2: warning: RUFLASH is set inside the comment that begins in line 1 [live-in-comment]\n"},
    {"part.lidhdr", "\xFF\xFE:\0A\0\n\0"s, "part.lidhdr: warning: is UTF-16 [utf-16]\n"},
    {"part.lidhdr", ":\0R\0U\0"s, "part.lidhdr: warning: is UTF-16 [utf-16]\n"},
    {"part.lidhdr", "\1\2\3\4\n",
     "part.lidhdr: warning: does not read like a text; are the options swapped? [not-text]\n"},
    {"part.lidhdr", "(* Ger\xE4t f\xFCr M\xFCller *)\n:RUNAME.A\n", ""},
    {"part.lidhdr", ":RUFLASH.X\n\0"s,
     "part.lidhdr:1: warning: RUFLASH ignores \"X\"; it is Y or N [ignored-value]\n"
     "part.lidhdr:2: warning: \"\\x00\" is no statement and is skipped [not-a-statement]\n"},
    {"part.lidhdr", ":RUFLASH.X\n\0\0\0\0"s,
     "part.lidhdr: warning: does not read like a text; are the options swapped? [not-text]\n"
     "part.lidhdr:1: warning: RUFLASH ignores \"X\"; it is Y or N [ignored-value]\n"
     "part.lidhdr:2: warning: \"\\x00\\x00\\x00\\x00\" is no statement and is skipped [not-a-statement]\n"},
    {"part.lidhdr", Lid(), "part.lidhdr: warning: is a LID, not a source; are the options swapped? [not-text]\n"},
    {"part.lidhdr", ":RUFLASH.Y :LLFLAG.N",
     "part.lidhdr:1: warning: LLFLAG in the same line is part of the value of RUFLASH [two-statements]\n"
     "part.lidhdr:1: warning: RUFLASH ignores \"Y:LLFLAG.N\"; it is Y or N [ignored-value]\n"},
    {"part.lidhdr", ":RUNAME :RUFLASH.Y\n:FARAWAY.A !rudest.X\n:FARAWAY.A :RUFLSH=Y\n:FARAWAY.A *RUFLASH Y",
     "part.lidhdr:1: warning: RUFLASH in the same line is part of the keyword RUNAME:RUFLASH [two-statements]\n"
     "part.lidhdr:2: warning: unknown keyword FARAWAY [unknown-keyword]\n"
     "part.lidhdr:2: warning: rudest in the same line is part of the value of FARAWAY [two-statements]\n"
     "part.lidhdr:3: warning: unknown keyword FARAWAY [unknown-keyword]\n"
     "part.lidhdr:3: warning: RUFLSH in the same line is part of the value of FARAWAY [two-statements]\n"
     "part.lidhdr:4: warning: unknown keyword FARAWAY [unknown-keyword]\n"
     "part.lidhdr:4: warning: RUFLASH in the same line is part of the value of FARAWAY [two-statements]\n"},
    {"part.lidhdr", ":DEVLABID.A\r \r\n(* a *)\r:RUFLASH.Y\r",
     "part.lidhdr:2: warning: a carriage return alone ends no line; what follows belongs to this line "
     "[carriage-return]\n"
     "part.lidhdr:2: warning: RUFLASH after a comment in the same line is skipped [statement-after-comment]\n"},
    {"part.lidhdr", "(* This text\n goes on:\n:RUFLASH.Y\n* more\n*)\nend",
     "part.lidhdr:3: warning: RUFLASH is set inside the comment that begins in line 1 [live-in-comment]\n"
     "part.lidhdr:6: warning: \"end\" is no statement and is skipped [not-a-statement]\n"},
    {"part.lidhdr", "(* not for now:\n:RUFLASH.Y\n(* the destination *)\n:RUDEST.NUC1\n*)\n*)",
     "part.lidhdr:2: warning: RUFLASH is set inside the comment that begins in line 1 [live-in-comment]\n"
     "part.lidhdr:4: warning: RUDEST is set inside the comment that begins in line 1 [live-in-comment]\n"
     "part.lidhdr:6: warning: *) ends no comment but begins a statement, which has no effect [comment-like]\n"},
    {"part.lidhdr", ":RUDEST.NUC1 (* a\nb *) (* c *) (* d\n:RUFLASH.Y\n*) :RUNAME.A",
     "part.lidhdr:1: error: RUDEST does not take \"NUC1(*a\" (code 39) [refused-value]\n"
     "part.lidhdr:1: warning: the comment is part of the value: RUDEST is \"NUC1(*a\" [comment-in-value]\n"
     "part.lidhdr:3: warning: RUFLASH is set inside the comment that begins in line 2 [live-in-comment]\n"
     "part.lidhdr:4: warning: RUNAME after a comment in the same line is skipped [statement-after-comment]\n"},
    {"part.lidhdr", "(* not ended\n:RUFLASH.Y (* a *)\n(* other *)",
     "part.lidhdr:2: warning: the comment is part of the value: RUFLASH is \"Y(*a*)\" [comment-in-value]\n"
     "part.lidhdr:2: warning: RUFLASH ignores \"Y(*a*)\"; it is Y or N [ignored-value]\n"},
    {"part.lidhdr", "* RUFLASH.Y\n! all units\n*LLFLAG.N",
     "part.lidhdr:1: warning: * begins no comment: RUFLASH is set [comment-like]\n"
     "part.lidhdr:2: warning: ! begins no comment but a statement, which has no effect [comment-like]\n"
     "part.lidhdr:3: note: * begins a statement, as : does: LLFLAG is set [unusual-mark]\n"},
    {"part.lidhdr", ":RUNAME.C 1\n:RULOADID.81E0 0142",
     "part.lidhdr:1: warning: white space is dropped: RUNAME is \"C1\" [white-space]\n"},
    {"part.lidhdr", ":DEVLABID...A",
     "part.lidhdr:1: warning: periods at the beginning are dropped: DEVLABID is \"A\" [leading-periods]\n"},
    {"part.lidhdr", ":RUFLASH.Y\n:RUFLASH.N",
     "part.lidhdr:2: warning: RUFLASH was given in line 1 already; this value counts [repeated-keyword]\n"},
    {"part.lidhdr", ":RUNAME.Controller",
     "part.lidhdr:1: warning: RUNAME is cut to 8 characters: \"CONTROLL\" [value-cut]\n"
     "part.lidhdr:1: warning: RUNAME is put into upper case: \"CONTROLL\" [upper-cased]\n"},
    {"part.lidhdr", ":DEVLABID.\xC4\n:VERLEVEL.\x1B[m",
     "part.lidhdr:1: warning: in DEVLABID, the character 0xC4 is not 7-bit ASCII and becomes 0x44 [odd-character]\n"
     "part.lidhdr:2: warning: in VERLEVEL, the character 0x1B cannot be shown [odd-character]\n"},
    {"part.lidhdr", ":BASELOAD.y", "part.lidhdr:1: warning: BASELOAD ignores \"y\"; it is Y or N [ignored-value]\n"},
    {"part.lidhdr", ":RUNAME.\n:RUPFGID.",
     "part.lidhdr:1: warning: RUNAME is empty and counts as not given [empty-value]\n"
     "part.lidhdr:2: warning: RUPFGID is empty and blanks its field [empty-value]\n"},
    {"part.lidhdr", ":NUCSEQCTL.1", "part.lidhdr:1: warning: NUCSEQCTL has no effect [no-effect]\n"},
    {"part.lidhdr", ":RUDEST.*MCG\n:LLBYPASS.Y",
     "part.lidhdr:1: warning: RUDEST is cleared, because LLBYPASS is Y [cleared-destination]\n"},
    {"part.lidhdr", ":RULOADID.12345G",
     "part.lidhdr:1: warning: RULOADID ignores \"12345G\"; it is 7 or more hexadecimal digits [ignored-load-id]\n"},
    {"part.lidhdr", ":RULOADID.81E001421",
     "part.lidhdr:1: warning: RULOADID has 9 digits and gets a 0 in front: 081e0014 [odd-load-id]\n"
     "part.lidhdr:1: warning: RULOADID has 9 digits, of which 8 count: 081e0014 [long-load-id]\n"
     "part.lidhdr:1: warning: RULOADID is 081e0014, but the LID header's number is 81e00142 [other-load-id]\n"},
    {"part.lidhdr", ":VPDINFONM.x/../../qel",
     "x/../../qel.vpdinfo: error: cannot be opened: No such file or directory (code 60) [missing-source]\n"
     "part.lidhdr:1: warning: VPDINFONM leads out of the source's folder: \"x/../../qel.vpdinfo\" [vpdinfo-path]\n"},
    {"part.lidhdr",
     ":VPDINFONM./qel",
     "./part.lidhdr:1: warning: VPDINFONM begins with a / but is joined to the source's folder: \".//qel.vpdinfo\" "
     "[vpdinfo-path]\n",
     {.lid = "part.kesp", .source = "./part.lidhdr"}},
};

// Of both sources, and refused.
const Row valueRows[] = {
    {"qel.vpdinfo", ":RUNAME.X\n:VERLEVEL.12345",
     "qel.vpdinfo:1: warning: RUNAME is not taken from a VPDINFO source [not-for-vpdinfo]\n"
     "qel.vpdinfo:2: warning: VERLEVEL is cut to 4 characters: \"1234\" [value-cut]\n"},
    {"part.lidhdr", ":PRODUCTID.OTHER",
     "part.lidhdr:1: warning: PRODUCTID is \"CTL2026\" instead, from qel.vpdinfo:1 [overridden-value]\n"},
    {"part.lidhdr", ":LLFLAG.\n:SSDMODEL.harm\n:SWRTYPE.X",
     "part.lidhdr:3: error: SWRTYPE does not take \"X\"; it is MCG or LPP (code 44) [refused-value]\n"
     "part.lidhdr:2: error: SSDMODEL does not take \"harm\"; did you mean HARN? (code 36) [refused-value]\n"
     "part.lidhdr:1: error: LLFLAG does not take an empty value; it is Y or N (code 47) [refused-value]\n"},
};

// Of the LID, the names and the output.
const Row fileRows[] = {
    {"part.kesp", "", "part.kesp: warning: is empty [empty-lid]\n" + kNoHeader},
    {"part.kesp", Raw("01df0001") + std::string(16, '\0'),
     "part.kesp: warning: is an image, not a LID [image-as-lid]\n" + kNoHeader},
    {"part.kesp", "text\n:RUFLASH.Y\n",
     "part.kesp: warning: reads like a source; are the options swapped? [source-as-lid]\n" + kNoHeader},
    {"part.kesp", "text", "", {.lid = "part.kesp", .timestamp = 0}},
    {"part.kesp", Lid("202602300000"),
     "part.kesp: warning: the LID header's date 2026-02-30 00:00 does not exist and becomes 2026-03-02 00:00 "
     "[lid-date]\n"},
    {"part.kesp", Lid("210602070629"),
     "part.kesp: warning: the build time, 4294967340 seconds since 1970, does not fit in 32 bits and becomes 44 "
     "[build-stamp]\n"},
    {"part.kesp", Lid("202603140926", "0000006b"),
     "part.kesp: warning: the LID header says 107 bytes, the file has 108 [lid-length]\n"},
    {"part.kesp", Lid("000000000000"),
     "part.kesp: error: the LID header's date is 0000-00-00 00:00: the build's year is outside 1000 to 9999 (code 18) "
     "[no-build-time]\n"},
    {"part.kesp", "@/dev/zero",
     "part.kesp: error: has a size that is not known, not true, or too large (code 32) [unreadable-lid]\n"},
    {"part.kesp", "@/proc/self/mem",
     "part.kesp: error: cannot be read: Input/output error (code 33) [unreadable-lid]\n"},
    {"part.kesp",
     "@.",
     "part.kesp: error: cannot be opened: Is a directory (code 33) [unreadable-lid]\n"
     "part.lidhdr: error: is the output and one of the inputs (code 34) [output-is-input]\n",
     {.lid = "part.kesp", .image = "part.lidhdr"}},
    {"part", Lid(), "part: warning: \"part.kesp\" is there too, and not taken [other-file]\n", {.lid = "part"}},
    {"part.txt",
     "",
     "part.txt: warning: the extension \"txt\" means nothing; were the file missing, it would silently count as empty "
     "[unusual-extension]\n",
     {.lid = "part.kesp", .source = "part.txt"}},
    {"",
     "",
     "none.vpd: warning: cannot be opened: No such file or directory, and silently counts as empty [ignored-source]\n",
     {.lid = "part.kesp", .source = "none.vpd"}},
    {"part.lidhdr", "@none",
     "part.lidhdr: error: cannot be opened: No such file or directory (code 50) [missing-source]\n"},
    {"qel.vpdinfo", "@.", "qel.vpdinfo: error: cannot be opened: Is a directory (code 60) [missing-source]\n"},
    {"qel.vpdinfo", "@/proc/self/mem",
     "qel.vpdinfo: error: cannot be read to its end: Input/output error (code 61) [unreadable-source]\n"},
    {".lidhdr",
     "",
     ".lidhdr: error: the name has no base name (code 17) [no-base-name]\n",
     {.lid = "part.kesp", .source = ".lidhdr"}},
    {kLong,
     "",
     kLong + ": error: RUNAME is not given, and the base name \"controller\" has more than 8 characters (code 48) "
             "[no-ru-name]\n",
     {.source = kLong}},
    {kLong,
     ":RUNAME.",
     kLong + ":1: warning: RUNAME is empty and so the RU name in the VPD header stays zeros [empty-value]\n",
     {.source = kLong}},
    {"out",
     "@qel.vpdinfo",
     "out: error: is the output and one of the inputs (code 34) [output-is-input]\n",
     {.lid = "part.kesp", .image = "out"}},
    {"",
     "",
     "none/out: error: cannot be opened for writing: No such file or directory (code 34) [unwritable-output]\n",
     {.lid = "part.kesp", .image = "none/out"}},
    {"",
     "",
     kLongName + ": error: cannot be opened for writing: File name too long (code 34) [unwritable-output]\n",
     {.lid = "part.kesp", .image = kLongName}},
    {"", "", "other.vpdinfo: error: " + kNoVpdinfo, {.lid = "part.kesp", .vpdinfo = "other.vpdinfo"}},
    {"other",
     ":SWRTYPE.X",
     "other:1: error: SWRTYPE does not take \"X\"; it is MCG or LPP (code 44) [refused-value]\n",
     {.lid = "part.kesp", .vpdinfo = "other"}},
};

std::vector<Row> AllRows()
{
  std::vector<Row> rows(std::begin(lineRows), std::end(lineRows));
  rows.insert(rows.end(), std::begin(valueRows), std::end(valueRows));
  rows.insert(rows.end(), std::begin(fileRows), std::end(fileRows));
  return rows;
}

const std::string kZone =
    "TZ: warning: the time zone \"Nowhere/Else\" is not on this machine and means UTC [time-zone]\n";

TEST(Lint, FindsThisInEachFileAndNothingElse)
{
  for (const Row& row : AllRows()) {
    SCOPED_TRACE(row.file + ": " + row.content);
    const UnitFolder folder;
    if (!row.file.empty()) folder.put(row.file, row.content);
    EXPECT_EQ(LintText(row.inputs), row.found);
  }
}

TEST(Lint, EachRuleIsInATableAndCanBeSilenced)
{
  std::string all = kZone;
  for (const Row& row : AllRows()) all += row.found;
  for (const LintRule& rule : LintRules()) {
    const std::size_t place = all.find(" ["s + rule.name + "]\n");
    ASSERT_NE(place, std::string::npos) << rule.name;
    const std::string line = all.substr(all.rfind('\n', place) + 1, place);
    EXPECT_NE(line.find(": "s + SeverityName(rule.severity) + ": "), std::string::npos) << rule.name;
  }
  const UnitFolder folder;
  folder.put("part.lidhdr", ":RUFLASH.y\n:RUDEST.X");
  EXPECT_EQ(LintText({.lid = "part.kesp"}, {"ignored-value", "refused-value"}), "");
  EXPECT_EQ(Lint({.lid = "part.kesp"}, {"ignored-values"}).status, couldNot);
}

TEST(Lint, TheExampleIsClean)
{
  ::setenv("TZ", "UTC0", 1);
  fs::current_path(KELVRA_EXAMPLES);
  const LintResult result = Lint({.lid = "part.kesp", .image = "/dev/null"}, {});
  EXPECT_EQ(result.status, allWell);
  EXPECT_TRUE(result.findings.empty());
}

TEST(Lint, StatusTellsTheWorstFinding)
{
  const UnitFolder folder;
  EXPECT_EQ(Lint({.lid = "part.kesp"}, {}).status, allWell);
  folder.put("part.lidhdr", "*RUFLASH.Y");
  EXPECT_EQ(Lint({.lid = "part.kesp"}, {}).status, allWell);
  folder.put("part.lidhdr", "RUFLASH.Y");
  EXPECT_EQ(Lint({.lid = "part.kesp"}, {}).status, foundSomething);
  EXPECT_EQ(Lint({}, {}).status, couldNot);
}

TEST(Lint, AZoneIsARuleOrAFile)
{
  const UnitFolder folder;
  folder.put("Zone", "");
  ::setenv("TZDIR", folder.path().c_str(), 1);
  for (const char* zone : {"", "UTC", "CET-1CEST,M3.5.0,M10.5.0/3", "<+05>-5", "EST5EDT", "Zone", ":Zone"}) {
    ::setenv("TZ", zone, 1);
    EXPECT_EQ(LintText({.lid = "part.kesp"}), "") << zone;
  }
  ::setenv("TZ", "Nowhere/Else", 1);
  EXPECT_EQ(LintText({.lid = "part.kesp"}), kZone);
  EXPECT_EQ(LintText({.lid = "part.kesp", .utc = true}), "");
  ::unsetenv("TZDIR");
}

// The first error's code is the tool's, with all faults that stand before it taken away one by one.
TEST(Lint, ErrorsStandInTheToolsOrder)
{
  const UnitFolder folder;
  folder.put(kLong, ":LLFLAG.X\n:ALLOWBKP.X\n:SSDMODEL.X\n:DELETERU.X\n:LLBYPASS.X\n:RUDEST.X\n:VPDINFONM.prod");
  folder.put("prod.vpdinfo", ":SWRTYPE.X\n:DEVELBY.X\n:DEVELFOR.X");
  const std::vector<std::string> words = {"-l", "part.kesp", "-r", kLong, "-o", "none/out"};
  const Inputs inputs = {.lid = "part.kesp", .source = kLong, .image = "none/out"};
  const auto codes = [&] {
    std::vector<int> found;
    for (const Finding& finding : Lint(inputs, {}).findings) {
      if (finding.code != 0) found.push_back(finding.code);
    }
    ExpectRun(folder, words, found.empty() ? 0 : found[0], std::nullopt);
    return found;
  };
  folder.put("part.kesp", Lid("000000000000"));
  EXPECT_EQ(codes(), (std::vector{18, 48, 44, 45, 46, 39, 41, 42, 36, 37, 47, 34}));
  folder.put("part.kesp", Lid());
  EXPECT_EQ(codes()[0], 48);
  folder.put(kLong, ":RUNAME.A\n" + folder.read(kLong));
  EXPECT_EQ(codes()[0], 44);
  folder.put("prod.vpdinfo", ":DEVELBY.X\n:DEVELFOR.X");
  EXPECT_EQ(codes()[0], 45);
  folder.put("prod.vpdinfo", ":DEVELFOR.X");
  EXPECT_EQ(codes(), (std::vector{46, 39, 41, 42, 36, 37, 47, 34}));
  folder.put("prod.vpdinfo", "");
  for (std::string text = folder.read(kLong); text.find(".X") != std::string::npos;) {
    text.replace(text.rfind(".X"), 2, "._");
    folder.put(kLong, text);
    EXPECT_FALSE(codes().empty());
  }
  folder.put("prod.vpdinfo", "@none");
  EXPECT_EQ(codes()[0], 60);
  fs::remove(kLong);
  EXPECT_EQ(codes()[0], 50);
  fs::remove("part.kesp");
  EXPECT_EQ(codes(), (std::vector{33, 50, 34}));
}

TEST(Lint, MessagesCannotSteerATerminal)
{
  const UnitFolder folder;
  folder.put("part.lidhdr", "\x1B[2J\xC2\x9B\xE2\x80\xAE \xC3\xA4 \xFF" + std::string(1000, 'x'));
  const std::string text = LintText({.lid = "part.kesp"});
  EXPECT_EQ(text, "part.lidhdr:1: warning: \"\\x1B[2J\\xC2\\x9B\\xE2\\x80\\xAE \xC3\xA4 \\xFF" + std::string(46, 'x') +
                      "...\" is no statement and is skipped [not-a-statement]\n");
}

TEST(Lint, JsonHoldsTheSame)
{
  const UnitFolder folder;
  folder.put("part.lidhdr", ":RUDEST.\x01\nThe unit's name\xFF");
  EXPECT_EQ(Json(Lint({.lid = "part.kesp"}, {})),
            R"({"kelvraImage":1,"command":"lint","findings":[{"file":"part.lidhdr","line":1,"severity":"error",)"
            R"("rule":"refused-value","message":"RUDEST does not take \"\u0001\"","keyword":"RUDEST","code":39},)"
            R"({"file":"part.lidhdr","line":2,"severity":"warning","rule":"not-a-statement",)"
            "\"message\":\"\\\"The unit's name\xEF\xBF\xBD\\\" is no statement and is skipped\"}]}\n");
}

}  // namespace
