// The files and the circumstances of a run of the tool, as the options of several commands give them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "builder/Morvik.h"
#include "driver/Kelvra.h"
#include "foundation/StandardString.h"
#include "image/Reason.h"

struct Inputs {
  std::string lid = {};      // -l
  std::string source = {};   // -r; when empty, beside the LID
  std::string image = {};    // -o; when empty, beside the LID
  std::string vpdinfo = {};  // --vpdinfo; when empty, beside the RUVPD source
  // --timestamp: the build time of a LID without header, seconds since 1970.
  std::optional<std::int64_t> timestamp = {};
  bool utc = false;  // --utc
};

// The whole text as a decimal number of seconds.
std::optional<std::int64_t> SecondsOf(const std::string& text);

// Where neither --timestamp nor --utc was given, SOURCE_DATE_EPOCH gives both, unless it is empty. The reason when it
// is no number.
std::optional<Reason> TakeSourceDateEpoch(Inputs& inputs);

// The tool's run over the inputs, its names completed as the tool completes them. Sets the process's time zone where it
// is to be UTC, and empties the option table.
Kelvra MakeRun(const Inputs& inputs);

// What kept the tool from reading the file: what keeps it from that now, or else memory.
Reason WhyNotRead(const FileName& file);

// Why the first source that the tool could not open does not open; nothing when all were opened.
std::optional<Reason> FindUnopened(const std::vector<SourceFile>& sources);

// The reason why a run does not take the VPDINFO source that it was given: its main source is of a kind that is read
// alone.
std::optional<Reason> UnreadVpdinfo(const Kelvra& run);
