// The keywords of the sources: what each sets, which values it takes, and what its field gets when it is not given.
#pragma once

#include <span>

#include "builder/SourceKind.h"
#include "foundation/ReturnCode.h"
#include "headers/SSDHdrX.h"
#include "headers/VPDHdrX.h"

// The keyword that sets no field but names the VPDINFO source.
inline constexpr const char* vpdinfoNameKeyword = "VPDINFONM";

// The two records that the keywords fill.
struct Headers {
  VitalProductDataHeaderX vpd = VitalProductDataHeaderX(sizeof(VPDHDR));
  SystemSpecificDataHeaderX ssd = SystemSpecificDataHeaderX(sizeof(RUSSD));
};

enum class EmptyValue { ignored, passedOn };

struct KeywordRow {
  const char* keyword;
  const char* effect;  // what it sets, in a few words
  // Sets the field and returns success, or the code of a refused value; null when the keyword sets no field.
  int (*set)(Headers& headers, const String& value) = nullptr;
  EmptyValue emptyValue = EmptyValue::ignored;
  unsigned int width = 0;                   // characters that the field keeps; 0 when the value is not a text
  std::span<const CodedValue> values = {};  // the values that it takes; none when it takes any
  ReturnCode refusal = success;             // of any other value; success when that is ignored
  // The value of a keyword that is not given: the same for every source, or as its kind has it. Without one, the field
  // stays as it is.
  const char* whenNotGiven = nullptr;
  const char* SourceKind::*kindWhenNotGiven = nullptr;
};

// The rows are worked through from the top, and the first refused value ends the build: their order decides which of
// several faults is reported. A keyword that labelOk accepts may stand in either source, any other one only in the main
// source.
std::span<const KeywordRow> KeywordRows();
