// The kinds of main source, told apart by the file's extension.
#pragma once

#include "foundation/ReturnCode.h"
#include "foundation/String.h"

struct SourceKind {
  const char* extension;  // in upper case
  const char* bodyType;
  boolean readAlone;  // no VPDINFO source is read after it
  // The function groups of a source that gives none; null when the fields then stay zero.
  const char* primaryFunctionGroup;
  const char* secondaryFunctionGroup;
};

// The kind of a source with this extension, given in upper case. An extension that no kind has counts as "LIDHDR".
const SourceKind& SourceKindOf(const String& extension);

// A source whose reading and faults are reported, told by its extension in exactly this case. Any other one that cannot
// be opened or read counts as far as it was read.
struct ReportedSource {
  const char* extension;
  ReturnCode openError;
  ReturnCode readError;
  const char* readLine;
};

// Null for a source that is not reported.
const ReportedSource* FindReportedSource(const String& extension);
