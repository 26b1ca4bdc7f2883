// A run's sources and LID through lint, beside the tool's own code: the first error's code is the tool's, and without
// an error the tool refuses nothing.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "driver/OutputFront.h"
#include "foundation/FileStreams.h"
#include "foundation/StandardStreams.h"
#include "fuzz/FuzzInput.h"
#include "headers/KespHeader.h"
#include "image/Json.h"
#include "image/Lint.h"
#include "image/Text.h"

namespace fs = std::filesystem;

static void Write(const string& name, const string& content) { std::ofstream(name, std::ios::binary) << content; }

// A folder in memory, removed at the end of the process.
struct Folder {
  Folder() : path("/dev/shm/lint-fuzz-" + std::to_string(::getpid()) + '/')
  {
    fs::create_directory(path);
    ::setenv("TZ", "UTC0", 1);
  }
  ~Folder() { fs::remove_all(path); }
  const string path;
};

static int ToolsCode(const Inputs& inputs)
{
  MessageCapture silence;
  const Kelvra run = MakeRun(inputs);
  ReadFileStream lid(run.lidFile, std::ios_base::in);
  ByteString begin;
  lid.getByteString(begin, sizeof(KESPHDR));
  OutputFront front;
  return BuildFront(run, lid.status(), begin, front);
}

static void CheckTexts(const Finding& finding)
{
  const string text = Text(finding);
  const auto isControl = [](char ch) { return (ch >= 0 && ch < ' ') || ch == 0x7F; };
  Require(std::none_of(text.begin(), text.end(), isControl), "no text steers a terminal");
  Require(finding.message.size() < 400, "no message grows with what it quotes");
}

void FuzzLint(FuzzInput input)
{
  static const Folder folder;
  static const char* const sources[] = {
      "part.lidhdr", "longer-name.lidhdr", "info.vpdinfo", "info.SFGINFO", "part.pfginfo", "part", ".lidhdr",
      "part.txt"};
  Inputs inputs = {.lid = folder.path + "part.kesp",
                   .source = folder.path + sources[input.byte() % std::size(sources)]};
  const unsigned int circumstances = input.byte();
  if (circumstances % 4 == 1) inputs.vpdinfo = folder.path + "given";
  if (circumstances % 16 == 2) inputs.timestamp = static_cast<std::int64_t>(circumstances) << 50;
  const string lid = input.take(circumstances / 4 % 2 == 0 ? 20 : 0);
  const std::size_t split = input.rest.find('\0');
  Write(inputs.lid, lid.empty() ? "" : "\x02\x22" + lid + string(100, '\0'));
  Write(inputs.source, input.rest.substr(0, split));
  const string vpdinfo = split < input.rest.size() ? input.rest.substr(split + 1) : "";
  for (const char* name : {"qel.vpdinfo", "given"}) Write(folder.path + name, vpdinfo);
  if (circumstances >= 240) fs::remove(inputs.source);
  if (circumstances % 32 == 31) fs::remove(folder.path + "qel.vpdinfo");

  const LintResult lint = Lint(inputs, {});
  int first = 0;
  for (const Finding& finding : lint.findings) {
    CheckTexts(finding);
    if (first == 0) first = finding.code;
  }
  if (UnreadVpdinfo(MakeRun(inputs))) {
    Require(lint.status == couldNot && lint.findings.empty(), "a VPDINFO source that is not read is refused");
    return;
  }
  Require(first == ToolsCode(inputs), "the first error's code is the tool's");
  Require(lint.status == 1 || first == 0, "an error is told by the status");
  Require(Json(lint).back() == '\n', "JSON can be made of all of it");
  fs::remove(inputs.source);
}
