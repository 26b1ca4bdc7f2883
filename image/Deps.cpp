#include "image/Deps.h"

#include <algorithm>

#include "builder/Morvik.h"
#include "foundation/ReturnCode.h"
#include "foundation/StandardStreams.h"

namespace {

bool IsControl(char ch) { return static_cast<unsigned char>(ch) < ' ' || ch == '\x7f'; }

// Whether one of the two readers would take the name, or a part of it, for something else, and knows no escape for it,
// or none that the other one reads too.
bool IsOutsideDepfiles(const std::string& name)
{
  if (std::ranges::any_of(name, IsControl) || name.find_first_of("=[*?|;\"'&<>^`") != std::string::npos) return true;
  for (const char* pair : {"\\#", "\\:", "\\$", "\\%"}) {
    if (name.find(pair) != std::string::npos) return true;
  }
  return name.starts_with('~') || name.ends_with('\\') || name.ends_with(' ') || name.ends_with(':') ||
         name.ends_with(')') || name == "define" || name == "undefine";
}

// Backslashes are themselves, but before a blank they are doubled.
std::string EscapedInput(const std::string& name)
{
  std::string text;
  std::size_t backslashes = 0;  // just before
  for (const char ch : name) {
    if (ch == ' ') text.append(backslashes, '\\');
    if (ch == ' ' || ch == '#' || ch == ':') text += '\\';
    if (ch == '$') text += '$';
    text += ch;
    backslashes = ch == '\\' ? backslashes + 1 : 0;
  }
  return text;
}

// In a target, "%" makes GNU make's rule a pattern, and "\%" stands for the character. Ninja has no such escape, but
// reads no target where the rule says "deps = gcc".
std::string EscapedOutput(const std::string& name)
{
  std::string text;
  for (const char ch : EscapedInput(name)) {
    if (ch == '%') text += '\\';
    text += ch;
  }
  return text;
}

// With "%" in the name it is a pattern rule, which takes the name too, but only with a recipe: an empty one. Ninja
// passes over the ";", while an input under any other name would be an error to it.
std::string EmptyRule(const std::string& name)
{
  return '\n' + EscapedInput(name) + (name.find('%') != std::string::npos ? ": ;\n" : ":\n");
}

// The reason when what the name stands for can be read once only.
std::optional<Reason> ReadOnce(const String& name)
{
  const FileStatus status(name);
  if (!status.valid() || status.isRegular() || status.isDirectory()) return std::nullopt;
  return Reason{ToText(name), "not a regular file, and to be read more than once"};
}

}  // namespace

DepsResult Deps(const Inputs& inputs)
{
  const Kelvra run = MakeRun(inputs);
  if (const auto reason = UnreadVpdinfo(run)) return {"", {}, {*reason}};
  Morvik builder;
  builder.setVpdinfoSource(run.vpdinfoFile);
  MessageCapture unsaid;
  // Any date and time: they name no file.
  if (builder.morvikParse(run.ruvpdFile.getSource(), "20000101", "000000") != success) {
    return {"", {}, {{ToText(run.ruvpdFile.getSource()), "not the name of a source"}}};
  }
  const std::vector<FileName> sources = builder.nameSources();
  // What it would say of the VPDINFO source is not known.
  if (const auto reason = FindUnopened(builder.sourceFiles())) return {"", {}, {*reason}};
  return DepsOf(run, sources);
}

DepsResult DepsOf(const Kelvra& run, const std::vector<FileName>& sources)
{
  DepsResult deps;
  deps.output = ToText(run.outputFile.getSource());
  deps.inputs.push_back(ToText(run.lidFile.getSource()));
  for (const FileName& source : sources) deps.inputs.push_back(ToText(source.getSource()));
  return deps;
}

std::optional<Reason> FindReadOnce(const Inputs& inputs)
{
  const Kelvra run = MakeRun(inputs);
  for (const FileName& name : {run.lidFile, run.ruvpdFile, run.vpdinfoFile}) {
    if (auto reason = ReadOnce(name.getSource())) return reason;
  }
  const DepsResult deps = Deps(inputs);  // the source may name one more
  for (const std::string& name : deps.inputs) {
    if (auto reason = ReadOnce(ToString(name))) return reason;
  }
  return std::nullopt;
}

std::vector<Reason> NamesOutsideDepfiles(const DepsResult& deps)
{
  std::vector<Reason> reasons;
  const auto check = [&](const std::string& name) {
    if (IsOutsideDepfiles(name)) reasons.push_back({name, "a depfile for make and Ninja cannot hold this name"});
  };
  check(deps.output);
  std::ranges::for_each(deps.inputs, check);
  return reasons;
}

std::string Depfile(const DepsResult& deps)
{
  std::string text = EscapedOutput(deps.output) + ':';
  for (const std::string& input : deps.inputs) text += ' ' + EscapedInput(input);
  text += '\n';
  for (const std::string& input : deps.inputs) text += EmptyRule(input);
  return text;
}
