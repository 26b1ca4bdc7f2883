#include "image/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iterator>
#include <sstream>

#include "foundation/StandardStreams.h"
#include "image/Build.h"
#include "image/Deps.h"
#include "image/Diff.h"
#include "image/Extract.h"
#include "image/Json.h"
#include "image/Lint.h"
#include "image/Output.h"
#include "image/Text.h"
#include "image/Utf8.h"
#include "image/Verify.h"

namespace {

struct Arguments {
  std::vector<std::string> files;
  Inputs inputs;
  BuildOptions build;
  std::vector<std::string> disabled;
  bool json = false;
  bool verbose = false;
  bool takesTimes = false;  // whether SOURCE_DATE_EPOCH has a meaning
  Output out;
};

void PrintReason(const Reason& reason) { PrintErrorLine("kelvra-image: " + ToString(ReasonText(reason))); }

void PrintReasons(const std::vector<Reason>& reasons) { std::ranges::for_each(reasons, PrintReason); }

// A file's option; the last one counts, as in kelvra.
CLI::Option* AddFile(CLI::App& app, const char* option, std::string& file, const char* description)
{
  const auto isNamed = [](const std::string& name) { return std::string(name.empty() ? "an empty file name" : ""); };
  return app.add_option(option, file, description)->type_name("FILE")->take_last()->check(isNamed, "");
}

// -l, -r, -o and --vpdinfo.
CLI::Option* AddFiles(CLI::App& app, Inputs& inputs)
{
  AddFile(app, "-r,--source", inputs.source, "the RUVPD source; else the LID's name with .lidhdr");
  AddFile(app, "-o,--output", inputs.image, "the image; else the LID's name with .ruhx");
  AddFile(app, "--vpdinfo", inputs.vpdinfo, "the VPDINFO source, in place of the one beside the RUVPD source");
  return AddFile(app, "-l,--lid", inputs.lid, "the LID file");
}

void AddTimes(CLI::App& app, Arguments& arguments)
{
  arguments.takesTimes = true;
  const auto take = [&arguments](const std::string& text) {
    arguments.inputs.timestamp = SecondsOf(text);
    if (!arguments.inputs.timestamp) throw CLI::ValidationError("--timestamp", "not a number of seconds: " + text);
  };
  app.add_option_function<std::string>("--timestamp", take,
                                       "the build time of a LID without a header, seconds since 1970")
      ->type_name("SECONDS");
  app.add_flag("--utc", arguments.inputs.utc, "the time zone is UTC");
}

void AddJson(CLI::App& app, Arguments& arguments) { app.add_flag("--json", arguments.json, "print JSON"); }

void BuildCommandOptions(CLI::App& app, Arguments& arguments)
{
  AddFiles(app, arguments.inputs)->required();
  AddTimes(app, arguments);
  app.add_flag("--lint", arguments.build.lint, "lint first; errors stop the build");
  AddFile(app, "--depfile", arguments.build.depfile, "write what deps prints to this file");
  app.add_flag("--verbose", arguments.build.verbose, "print all the lines that kelvra prints");
}

int RunBuild(Arguments& arguments)
{
  const BuildResult result = Build(arguments.inputs, arguments.build);
  for (const Finding& finding : result.findings) PrintErrorLine(ToString(Text(finding)));
  for (const std::string& line : result.lines) PrintErrorLine(ToString(line));
  PrintReasons(result.reasons);
  return result.status;
}

void DepsOptions(CLI::App& app, Arguments& arguments)
{
  AddFiles(app, arguments.inputs)->required();
  AddJson(app, arguments);
}

int RunDeps(Arguments& arguments)
{
  DepsResult result = Deps(arguments.inputs);
  if (result.reasons.empty() && !arguments.json) result.reasons = NamesOutsideDepfiles(result);
  PrintReasons(result.reasons);
  if (!result.reasons.empty()) return couldNot;
  arguments.out.add(arguments.json ? Json(result) : Depfile(result));
  return allWell;
}

void LintOptions(CLI::App& app, Arguments& arguments)
{
  AddFiles(app, arguments.inputs);
  AddTimes(app, arguments);
  app.add_option("--disable", arguments.disabled, "silence a rule")->type_name("RULE");
  AddJson(app, arguments);
}

int RunLint(Arguments& arguments)
{
  const LintResult result = Lint(arguments.inputs, arguments.disabled);
  PrintReasons(result.reasons);
  if (!result.reasons.empty()) return result.status;
  if (arguments.json) {
    arguments.out.add(Json(result));
  } else {
    for (const Finding& finding : result.findings) arguments.out.add(Text(finding) + '\n');
  }
  return result.status;
}

void AddImages(CLI::App& app, Arguments& arguments)
{
  app.add_option("images", arguments.files, "the images")->required()->type_name("IMAGE");
}

void ImagesOptions(CLI::App& app, Arguments& arguments)
{
  AddImages(app, arguments);
  AddJson(app, arguments);
}

// Calls `print`, which adds what is to be said of an image to the output and returns the status, for each of the
// images.
template <class Print>
int ForEachImage(Arguments& arguments, const char* command, Print print)
{
  int status = allWell;
  const char* before = "";
  if (arguments.json) arguments.out.add(JsonBegin(command));
  for (const std::string& file : arguments.files) {
    Image image(file);
    if (arguments.json) arguments.out.add(before);
    before = ",";
    status = std::max<int>(status, print(image));
  }
  if (arguments.json) arguments.out.add(JsonEnd());
  return status;
}

int RunShow(Arguments& arguments)
{
  return ForEachImage(arguments, "show", [&](const Image& image) {
    if (image.file.reason()) PrintReason(*image.file.reason());
    if (arguments.json) {
      arguments.out.add(Json(image));
    } else if (image.status() != couldNot) {
      arguments.out.add(Text(image));
    }
    return image.status();
  });
}

int RunList(Arguments& arguments)
{
  return ForEachImage(arguments, "list", [&](const Image& image) {
    if (image.file.reason()) PrintReason(*image.file.reason());
    if (arguments.json) {
      arguments.out.add(Json(List(image), image));
    } else if (image.status() != couldNot) {
      arguments.out.add(Text(List(image), image));
      if (image.status() != allWell) PrintReason({image.file.name(), "not whole; verify tells more"});
    }
    return image.status();
  });
}

void VerifyOptions(CLI::App& app, Arguments& arguments)
{
  AddImages(app, arguments);
  CLI::Option* lid = AddFile(app, "-l,--lid", arguments.inputs.lid, "is this LID in the image");
  CLI::Option* source =
      AddFile(app, "-r,--source", arguments.inputs.source, "do the LID and this RUVPD source make the image")
          ->needs(lid);
  AddFile(app, "--vpdinfo", arguments.inputs.vpdinfo, "the VPDINFO source, in place of the one beside the RUVPD source")
      ->needs(source);
  AddTimes(app, arguments);
  app.add_flag("--verbose", arguments.verbose, "print all checks");
  AddJson(app, arguments);
}

int RunVerify(Arguments& arguments)
{
  if (arguments.files.size() > 1 && !arguments.inputs.source.empty()) {
    if (const auto reason = FindReadOnce(arguments.inputs)) {
      PrintReason(*reason);
      return couldNot;
    }
  }
  return ForEachImage(arguments, "verify", [&](Image& image) {
    const VerifyResult result = Verify(image, arguments.inputs);
    arguments.out.add(arguments.json ? Json(result, image) : Text(result, image.file.name(), arguments.verbose));
    PrintReasons(result.reasons);
    return result.status;
  });
}

void DiffOptions(CLI::App& app, Arguments& arguments)
{
  app.add_option("images", arguments.files, "the two images")->required()->expected(2)->type_name("IMAGE");
  AddJson(app, arguments);
}

int RunDiff(Arguments& arguments)
{
  Image one(arguments.files[0]);
  Image other(arguments.files[1]);
  const DiffResult result = Diff(one, other);
  arguments.out.add(arguments.json ? Json(result, one, other) : Text(result));
  PrintReasons(result.reasons);
  return result.status;
}

void ExtractOptions(CLI::App& app, Arguments& arguments)
{
  app.add_option("image", arguments.files, "the image")->required()->expected(1)->type_name("IMAGE");
  AddFile(app, "-o,--output", arguments.inputs.lid, "the LID to be written")->required();
}

int RunExtract(Arguments& arguments)
{
  const ExtractResult result = Extract(arguments.files[0], arguments.inputs.lid);
  PrintReasons(result.reasons);
  return result.status;
}

int RunFields(Arguments& arguments)
{
  arguments.out.add(arguments.json ? FieldsJson() : FieldsText());
  return allWell;
}

struct Command {
  const char* name;
  const char* summary;
  const char* example;
  void (*options)(CLI::App& app, Arguments& arguments);
  int (*run)(Arguments& arguments);
};

constexpr Command commands[] = {
    {"build", "Make an image, whole or not at all", "kelvra-image build -l part.kesp -o part.ruhx --utc",
     BuildCommandOptions, RunBuild},
    {"deps", "Print the files that a run reads and writes, as a depfile", "kelvra-image deps -l part.kesp", DepsOptions,
     RunDeps},
    {"lint", "Tell what kelvra would silently skip, cut, default or refuse", "kelvra-image lint -l part.kesp",
     LintOptions, RunLint},
    {"show", "Show every byte of the headers, named and decoded", "kelvra-image show part.ruhx", ImagesOptions,
     RunShow},
    {"list", "Print a line about each image", "kelvra-image list *.ruhx", ImagesOptions, RunList},
    {"diff", "Tell in which fields two images differ", "kelvra-image diff old.ruhx new.ruhx", DiffOptions, RunDiff},
    {"verify", "Prove an image, alone or with its inputs", "kelvra-image verify part.ruhx -l part.kesp -r part.lidhdr",
     VerifyOptions, RunVerify},
    {"extract", "Take the LID out of an image", "kelvra-image extract part.ruhx -o part.kesp", ExtractOptions,
     RunExtract},
    {"fields", "Print the layout, keywords, checks, rules and codes", "kelvra-image fields --json", AddJson, RunFields},
};

// The command that the first argument names, or null.
const Command* FindCommand(int argc, char** argv)
{
  if (argc < 2) return nullptr;
  const std::string_view name = argv[1];
  const auto* found = std::ranges::find_if(commands, [&](const Command& command) { return name == command.name; });
  return found != std::end(commands) ? found : nullptr;
}

// The parser takes "[a,b]" for a list of two. As "./[a,b]" it is the one file that it names.
std::vector<std::string> PlainWords(int argc, char** argv)
{
  std::vector<std::string> words;
  for (int i = argc - 1; i >= 0; i--) {  // it takes them in reverse order
    const std::string_view word = argv[i];
    words.push_back((word.starts_with('[') && word.ends_with(']') ? "./" : "") + std::string(word));
  }
  return words;
}

void AddVersion(CLI::App& app) { app.set_version_flag("--version", "kelvra-image " KELVRA_VERSION); }

// A command has a parser of its own, which is all that it sets up: that is a good part of the time of a small build.
void ParseFor(const Command& command, CLI::App& app, Arguments& arguments, int argc, char** argv)
{
  app.description(command.summary);
  app.name(std::string("kelvra-image ") + command.name);
  app.footer(std::string("Example: ") + command.example);
  AddVersion(app);
  command.options(app, arguments);
  app.parse(PlainWords(argc - 2, argv + 2));
}

// Without a command there is only help, the version, or a mistake to be told of.
void ParseAlone(CLI::App& app, int argc, char** argv)
{
  app.name("kelvra-image");
  app.description("Makes, shows, proves, compares and checks the images that kelvra makes.");
  app.footer("Example: kelvra-image show part.ruhx");
  AddVersion(app);
  app.require_subcommand(1);
  for (const Command& command : commands) app.add_subcommand(command.name, command.summary);
  if (argc > 1 && argv[1][0] != '-') throw CLI::ValidationError(argv[1], "no such command");
  app.parse(PlainWords(argc - 1, argv + 1));
}

}  // namespace

int RunCommandLine(int argc, char** argv)
{
  Arguments arguments;
  CLI::App app;
  int status = couldNot;
  try {
    if (const Command* command = FindCommand(argc, argv)) {
      ParseFor(*command, app, arguments, argc, argv);
      const auto reason = arguments.takesTimes ? TakeSourceDateEpoch(arguments.inputs) : std::nullopt;
      if (reason) {
        PrintReason(*reason);
      } else {
        status = command->run(arguments);
      }
    } else {
      ParseAlone(app, argc, argv);
    }
  } catch (const CLI::ParseError& error) {
    // Help and version are such errors too.
    std::ostringstream text;
    std::ostringstream complaint;
    status = app.exit(error, text, complaint) == 0 ? allWell : couldNot;
    arguments.out.add(text.str());
    if (status != allWell) PrintErrorLine("kelvra-image: " + ToString(Escaped(error.what())) + "; --help tells more");
  }
  if (const auto reason = arguments.out.finish()) {
    PrintReason(*reason);
    status = couldNot;
  }
  return status;
}
