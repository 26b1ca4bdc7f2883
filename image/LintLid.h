// The LID of a run, and the time that it gives.
#pragma once

#include <optional>

#include "driver/BuildTime.h"
#include "driver/Kelvra.h"
#include "foundation/ByteString.h"
#include "foundation/FileStreams.h"
#include "image/LintRules.h"

struct LintedLid {
  // Of a file that is opened or not. What lint reads of it is its beginning and its end.
  explicit LintedLid(const FileName& file) : stream(file, std::ios_base::in), name(ToText(file.getSource())) {}

  ReadFileStream stream;
  std::string name;
  bool usable = false;  // what follows is known
  ByteString beginning;
  std::optional<ByteString> number;  // the header's, 4 bytes
  BuildTime built = {};
};

// What the tool looks at before the sources' names.
void LintLid(const Kelvra& run, LintedLid& lid, Findings& findings);
// What the tool makes of the build time after that.
void LintBuildTime(const Kelvra& run, const LintedLid& lid, Findings& findings);
