// lint: what the tool would silently skip, cut, default or refuse in a run's inputs.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "image/Inputs.h"
#include "image/Reason.h"

enum class Severity { note, warning, error };

// "note", "warning" or "error".
const char* SeverityName(Severity severity);

struct LintRule {
  const char* name;
  Severity severity;
  const char* summary;
};

std::span<const LintRule> LintRules();

struct Finding {
  std::string file;
  unsigned int line = 0;  // from 1; 0 when it is of the whole file
  const LintRule* rule = nullptr;
  std::string message;       // may quote bytes of hostile files as they are
  std::string keyword = {};  // none when empty
  int code = 0;              // the tool's, for what it refuses
};

struct LintResult {
  int status = allWell;  // foundSomething for an error or a warning
  // The errors in the order in which the tool would meet them, so that the first one's code is the tool's; then the
  // rest, by file and line.
  std::vector<Finding> findings;
  std::vector<Reason> reasons;
};

// With a LID, everything; without one, the sources alone. The rules that are disabled find nothing. Sources that are
// pipes are read, and then empty.
LintResult Lint(const Inputs& inputs, const std::vector<std::string>& disabled);
