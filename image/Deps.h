// deps: the files that a run reads and writes.
#pragma once

#include <string>
#include <vector>

#include "image/Inputs.h"
#include "image/Reason.h"

struct DepsResult {
  int status = allWell;
  std::string output;
  std::vector<std::string> inputs;  // LID, sources; also those that do not exist
  std::vector<Reason> reasons;
};

DepsResult Deps(const Inputs& inputs);

// The result as a depfile that GNU make and Ninja read alike: one rule, and an empty rule for each input.
std::string Depfile(const DepsResult& deps);
