// The values that count in a run, from both sources.
#pragma once

#include <optional>

#include "foundation/ByteString.h"
#include "image/LintSource.h"

struct LintedSources {
  LintedSource main;
  std::optional<LintedSource> vpdinfo;  // none when the main source is read alone, or does not tell its name
};

// `lidNumber`, where the LID has one: the 4 bytes of its header. `namesVpdinfo`: whether VPDINFONM has an effect.
void LintValues(const LintedSources& sources, const std::optional<ByteString>& lidNumber, bool namesVpdinfo,
                Findings& findings);
