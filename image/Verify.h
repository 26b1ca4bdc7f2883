// verify: whether an image is whole, whether a LID is in it, and whether these inputs make it.
#pragma once

#include <vector>

#include "image/Checks.h"
#include "image/Inputs.h"

struct VerifyResult {
  int status = allWell;
  std::vector<CheckResult> checks;
  std::vector<Reason> reasons;
};

// The checks that need the image alone; with a LID the payload, with a source too the headers that these inputs make.
VerifyResult Verify(Image& image, const Inputs& inputs);
