// One source of a run, read as the tool reads it.
#pragma once

#include "builder/Morvik.h"
#include "image/LintLines.h"

struct LintedSource {
  SourceFile file;
  std::string name;
  int code = success;  // with which the tool refuses a source that it cannot open or read
  GivenValues given;
};

// The faults of a source are refused when it is reported, else a warning.
LintedSource LintSource(const FileName& file, const ReportedSource* reported, bool restricted, Findings& findings);

// Why a file does not open, or cannot be read, in the system's words after a colon; empty when there are none.
std::string ReadError(const FileName& file);
