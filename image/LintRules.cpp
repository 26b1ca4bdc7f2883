#include "image/LintRules.h"

#include <map>

namespace {

constexpr unsigned int longestQuote = 60;

}  // namespace

std::span<const LintRule> LintRules() { return lintRules; }

void Findings::add(Finding finding)
{
  if (std::ranges::find(disabled, finding.rule->name) == disabled.end()) found.push_back(std::move(finding));
}

void Findings::add(std::vector<Finding> several)
{
  for (Finding& finding : several) add(std::move(finding));
}

std::vector<Finding> Findings::take()
{
  std::map<std::string, std::size_t> files;  // each with its place among the files
  for (const Finding& finding : found) files.emplace(finding.file, files.size());
  const auto rest = std::stable_partition(
      found.begin(), found.end(), [](const Finding& finding) { return finding.rule->severity == Severity::error; });
  std::stable_sort(rest, found.end(), [&](const Finding& a, const Finding& b) {
    return std::pair(files[a.file], a.line) < std::pair(files[b.file], b.line);
  });
  return std::move(found);
}

std::string Shortened(const String& text)
{
  return ToText(text(0, longestQuote)) + (text.length() > longestQuote ? "..." : "");
}

std::string Quoted(const String& text) { return '"' + Shortened(text) + '"'; }
