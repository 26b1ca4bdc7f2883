#include "image/Lint.h"

const char* SeverityName(Severity severity)
{
  constexpr const char* names[] = {"note", "warning", "error"};
  return names[static_cast<int>(severity)];
}

std::span<const LintRule> LintRules() { return {}; }

LintResult Lint(const Inputs&, const std::vector<std::string>&) { return {}; }
