// The kinds of main source, told apart by the file's extension.
#pragma once

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
