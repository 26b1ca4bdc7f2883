// The names of a run's files, and the time zone's.
#pragma once

#include "driver/Kelvra.h"
#include "foundation/FileStreams.h"
#include "image/LintRules.h"
#include "image/LintSource.h"

// A name as it was given, and the file that it was taken for: with this extension when it had none.
void LintProbing(const std::string& given, const FileName& taken, const char* extension, Findings& findings);
// The main source's, which must have a base name.
void LintSourceName(const FileName& source, Findings& findings);
// Nothing is written.
void LintOutput(const Kelvra& run, const ReadFileStream& lid, const std::vector<SourceFile>& sources,
                Findings& findings);
void LintTimeZone(Findings& findings);
