// fields: the tables behind the other commands.
#pragma once

#include <string>
#include <vector>

#include "builder/Keywords.h"

// A code with which kelvra ends.
struct CodeRow {
  int code;
  std::string meaning;  // what the closing line says, or the header builder where it says more
};

std::vector<CodeRow> CodeRows();

// Whether the keyword may stand in a VPDINFO source too.
bool MayStandInVpdinfo(const KeywordRow& keyword);
