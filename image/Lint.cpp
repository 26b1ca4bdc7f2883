#include "image/Lint.h"

#include <algorithm>

#include "image/KeywordSearch.h"
#include "image/LintLid.h"
#include "image/LintNames.h"
#include "image/LintRules.h"
#include "image/LintValues.h"

namespace {

std::vector<Reason> UsageFaults(const Inputs& inputs, const std::vector<std::string>& disabled)
{
  std::vector<Reason> faults;
  if (inputs.lid.empty() && inputs.source.empty()) faults.push_back({"lint", "needs -l or -r"});
  for (const std::string& name : disabled) {
    if (std::ranges::find(lintRules, name, &LintRule::name) == std::end(lintRules)) {
      faults.push_back({name, "no such rule"});
    }
  }
  return faults;
}

// The VPDINFO source of a main source that is read and not alone; none when it is not known.
std::optional<FileName> VpdinfoOf(const Kelvra& run, const LintedSource& main, const SourceKind& kind)
{
  if (kind.readAlone) return std::nullopt;
  if (run.vpdinfoFile.isValid()) return run.vpdinfoFile;
  if (main.code != success) return std::nullopt;
  const auto given = main.given.find(FindKeyword(vpdinfoNameKeyword));
  if (given == main.given.end() || given->second.value.empty()) return VpdinfoName(run.ruvpdFile, defaultVpdinfoName);
  return VpdinfoName(run.ruvpdFile, given->second.value);
}

LintedSources LintSources(const Kelvra& run, const SourceKind& kind, Findings& findings)
{
  const String extension = run.ruvpdFile.getExtension();
  LintedSources sources = {LintSource(run.ruvpdFile, FindReportedSource(extension), false, findings), std::nullopt};
  if (const auto vpdinfo = VpdinfoOf(run, sources.main, kind)) {
    sources.vpdinfo = LintSource(*vpdinfo, FindReportedSource("vpdinfo"), true, findings);
  }
  return sources;
}

// In the order in which the tool meets its errors.
void LintRun(const Inputs& inputs, const Kelvra& run, Findings& findings)
{
  std::optional<LintedLid> lid;
  if (!inputs.lid.empty()) {
    lid.emplace(run.lidFile);
    LintProbing(inputs.lid, run.lidFile, lidExtension, findings);
    LintLid(run, *lid, findings);
    LintTimeZone(findings);
  }
  LintProbing(inputs.source, run.ruvpdFile, sourceExtension, findings);
  LintSourceName(run.ruvpdFile, findings);
  if (lid && lid->usable) LintBuildTime(run, *lid, findings);
  String extension = run.ruvpdFile.getExtension();
  const SourceKind& kind = SourceKindOf(extension.toUpper());
  const LintedSources sources = LintSources(run, kind, findings);
  LintValues(sources, lid ? lid->number : std::nullopt, !kind.readAlone, findings);
  if (!lid) return;
  std::vector<SourceFile> files = {sources.main.file};
  if (sources.vpdinfo) files.push_back(sources.vpdinfo->file);
  LintOutput(run, lid->stream, files, findings);
}

int StatusOf(const std::vector<Finding>& findings)
{
  const bool counts =
      std::ranges::any_of(findings, [](const Finding& f) { return f.rule->severity != Severity::note; });
  return counts ? foundSomething : allWell;
}

}  // namespace

const char* SeverityName(Severity severity)
{
  constexpr const char* names[] = {"note", "warning", "error"};
  return names[static_cast<int>(severity)];
}

LintResult Lint(const Inputs& inputs, const std::vector<std::string>& disabled)
{
  if (auto faults = UsageFaults(inputs, disabled); !faults.empty()) return {couldNot, {}, std::move(faults)};
  const Kelvra run = MakeRun(inputs);
  if (const auto reason = UnreadVpdinfo(run)) return {couldNot, {}, {*reason}};
  Findings findings(disabled);
  LintRun(inputs, run, findings);
  auto found = findings.take();
  return {StatusOf(found), std::move(found), {}};
}
