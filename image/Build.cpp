#include "image/Build.h"

#include <algorithm>
#include <cerrno>

#include "driver/Assembly.h"
#include "driver/KeptFiles.h"
#include "foundation/Allocate.h"
#include "foundation/ReturnCode.h"
#include "foundation/StandardStreams.h"
#include "image/Deps.h"
#include "image/InputFile.h"
#include "image/ReplacedFile.h"

namespace {

// The file that made the tool's step end with the code; none when it was no file's fault.
std::optional<Reason> FileAtFault(int code, const Assembly& assembly, const Kelvra& run)
{
  switch (code) {
    case lidNotRead:
      if (assembly.lid.status().size() <= MaximumLength) return WhyNotRead(run.lidFile);
      return Reason{ToText(run.lidFile.getSource()), "cannot read", EFBIG};
    case lidNotMeasured:
      if (assembly.lid.status().size() > MaximumLength - FrontLength(run)) {
        return Reason{ToText(run.lidFile.getSource()), "cannot read", EFBIG};
      }
      return Reason{ToText(run.lidFile.getSource()), "its length cannot be told"};
    case badDate:
    case badTime:
      return Reason{ToText(run.lidFile.getSource()), "its build time is none that a header holds"};
    case ruvpdNotOpened:
    case ruvpdNotRead:
    case vpdinfoNotOpened:
    case vpdinfoNotRead:
      return WhyNotRead(assembly.front.sources.back().name);
    default:
      return std::nullopt;
  }
}

Reason NotMade(const std::string& image, const std::optional<Reason>& fault)
{
  if (!fault) return {image, "not made"};
  return {image, "not made: " + fault->file + ": " + fault->what, fault->error};
}

// The reason when the file is one that the run must not write.
std::optional<Reason> Kept(const ReplacedFile& file, const std::string& name, const Kelvra& run,
                           const Assembly& assembly)
{
  if (!IsKept(FileStatus(ToString(file.target())), run, assembly.lid, assembly.front.sources)) return std::nullopt;
  return Reason{name, "cannot write: it is an input, or the file behind standard output or standard error"};
}

std::vector<FileName> NamesOf(const std::vector<SourceFile>& sources)
{
  std::vector<FileName> names;
  names.reserve(sources.size());
  for (const SourceFile& source : sources) names.push_back(source.name);
  return names;
}

boolean IsMainSourceMissing(const std::vector<SourceFile>& sources)
{
  return !sources.empty() && !sources.front().isOpened;
}

std::vector<std::string> LinesOf(const MessageCapture& capture, bool all)
{
  std::vector<std::string> lines;
  for (const MessageCapture::Line& line : capture.lines()) {
    if (all || line.kind == MessageKind::value) lines.push_back(ToText(line.text));
  }
  return lines;
}

BuildResult CouldNot(const Reason& reason) { return {couldNot, {}, {}, {reason}}; }

// A run of build, after lint.
class Making {
 public:
  Making(const Inputs& inputs, const BuildOptions& chosen)
      : options(chosen), run(MakeRun(inputs)), assembly(run), output(ToText(run.outputFile.getSource()))
  {}

  BuildResult make();

 private:
  BuildResult ended(int code, const Reason& reason) const;
  BuildResult write();
  std::optional<Reason> openImage();
  std::optional<Reason> openDepfile();
  std::optional<Reason> placeBoth();

  const BuildOptions& options;
  const Kelvra run;
  Assembly assembly;
  const std::string output;
  DepsResult deps;
  std::optional<ReplacedFile> image;
  std::optional<ReplacedFile> depfile;
  MessageCapture capture;
};

BuildResult Making::make()
{
  if (const auto reason = UnreadVpdinfo(run)) return CouldNot(*reason);
  const int code = Assemble(run, assembly);
  const std::vector<SourceFile>& sources = assembly.front.sources;
  if (IsMainSourceMissing(sources)) return CouldNot(NotMade(output, WhyNotRead(sources.front().name)));
  if (code != success) return ended(code, NotMade(output, FileAtFault(code, assembly, run)));
  if (!options.depfile.empty()) {
    deps = DepsOf(run, NamesOf(sources));
    std::vector<Reason> reasons = NamesOutsideDepfiles(deps);
    if (!reasons.empty()) return {couldNot, {}, {}, std::move(reasons)};
  }
  return write();
}

// A step of the tool that failed.
BuildResult Making::ended(int code, const Reason& reason) const
{
  run.printError(code);
  return {code, {}, LinesOf(capture, true), {reason}};
}

BuildResult Making::write()
{
  if (const auto reason = openImage()) return ended(outputNotWritten, *reason);
  BuildResult result;
  auto reason = openDepfile();
  if (!reason) reason = placeBoth();
  if (reason) {
    result = CouldNot(*reason);
  } else {
    run.printError(success);
  }
  result.lines = LinesOf(capture, options.verbose);
  return result;
}

std::optional<Reason> Making::openImage()
{
  image.emplace(output);
  if (auto reason = Kept(*image, output, run, assembly)) return reason;
  return image->open();
}

std::optional<Reason> Making::openDepfile()
{
  if (options.depfile.empty()) return std::nullopt;
  depfile.emplace(options.depfile);
  if (depfile->hasPlaceOf(*image)) return Reason{options.depfile, "cannot write: it is the image"};
  if (auto reason = Kept(*depfile, options.depfile, run, assembly)) return reason;
  return depfile->open();
}

// Both are whole before the first takes its place. The image comes last: it is what tells a build that all is done.
std::optional<Reason> Making::placeBoth()
{
  std::optional<Reason> reason;
  if (depfile) {
    const std::string text = Depfile(deps);
    reason = depfile->write({reinterpret_cast<const unsigned char*>(text.data()), text.size()});
    if (!reason) reason = depfile->finish();
  }
  if (!reason) reason = image->write(assembly.output->bytes());
  if (!reason) reason = image->finish();
  if (!reason && depfile) reason = depfile->place();
  if (!reason) reason = image->place();
  return reason;
}

// What keeps lint from going first: it must not take away what the build is to read, nor hide why that cannot be.
std::optional<Reason> UnfitForLint(const Inputs& inputs)
{
  const Kelvra run = MakeRun(inputs);
  if (auto reason = UnreadVpdinfo(run)) return reason;
  if (auto reason = FindReadOnce(inputs)) return reason;
  const InputFile source(ToText(run.ruvpdFile.getSource()));
  if (source.reason()) return NotMade(ToText(run.outputFile.getSource()), source.reason());
  return std::nullopt;
}

}  // namespace

BuildResult Build(const Inputs& inputs, const BuildOptions& options)
{
  LintResult lint;
  if (options.lint) {
    if (const auto reason = UnfitForLint(inputs)) return CouldNot(*reason);
    lint = Lint(inputs, {});
  }
  const bool isRefused = std::ranges::any_of(
      lint.findings, [](const Finding& finding) { return finding.rule->severity == Severity::error; });
  if (isRefused) return {foundSomething, std::move(lint.findings), {}, {}};
  BuildResult result = Making(inputs, options).make();
  result.findings = std::move(lint.findings);
  return result;
}
