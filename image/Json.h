// What the commands found, as JSON for programs: one object with a line end, described by
// docs/kelvra-image.schema.json. Bytes that are no UTF-8 become U+FFFD.
#pragma once

#include <string>

#include "image/Deps.h"
#include "image/Lint.h"

std::string Json(const DepsResult& deps);
std::string Json(const LintResult& lint);
