// deps: the files that a run reads and writes.
#pragma once

#include <string>
#include <vector>

#include "image/Inputs.h"
#include "image/Reason.h"

struct DepsResult {
  std::string output;
  std::vector<std::string> inputs;  // LID, sources; also those that do not exist
  std::vector<Reason> reasons;      // why they are not known; then there is nothing else
};

// Reads the RUVPD source, which may name the VPDINFO source, and no other file.
DepsResult Deps(const Inputs& inputs);

// Those of a run whose sources are known.
DepsResult DepsOf(const Kelvra& run, const std::vector<FileName>& sources);

// The reason when one of them can be read once only, like a pipe.
std::optional<Reason> FindReadOnce(const Inputs& inputs);

// The names that GNU make or Ninja cannot read from a depfile.
std::vector<Reason> NamesOutsideDepfiles(const DepsResult& deps);

// The result, without such names, as a depfile that GNU make and Ninja read alike: one rule, and an empty rule for each
// input.
std::string Depfile(const DepsResult& deps);
