// build: the very image that the tool makes, put in its place whole or not at all.
#pragma once

#include <string>
#include <vector>

#include "image/Inputs.h"
#include "image/Lint.h"
#include "image/Reason.h"

struct BuildOptions {
  bool verbose = false;  // all lines of the tool, also when it succeeds
  bool lint = false;     // lint first; its errors stop the build
  std::string depfile;   // written with the image; none when empty
};

struct BuildResult {
  int status = allWell;  // the tool's code where its own step failed
  std::vector<Finding> findings;
  std::vector<std::string> lines;  // the tool's, in their order
  std::vector<Reason> reasons;
};

BuildResult Build(const Inputs& inputs, const BuildOptions& options);
