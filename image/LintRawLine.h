// A line of a source as its writer sees it: with its white space.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "builder/Keywords.h"

// Without the white space around it.
std::string_view Trimmed(std::string_view text);
String Part(std::string_view text);
String InUpper(String text);

// Whether a carriage return stands before the last character that is no white space.
bool HoldsCarriageReturn(const String& raw);
// Whether the line's mark is followed by white space, as it is in a sentence.
bool HasBlankAfterMark(const String& raw);
// The line's value with its white space, but none around it.
std::string_view RawValue(const String& raw);

// A statement that begins after another one in its line.
struct SecondStatement {
  const KeywordRow& row;  // of the keyword that is given or meant
  std::string keyword;    // as it is written
  bool isInLabel;
};

// Looked for in the line's first few thousand characters.
std::optional<SecondStatement> FindSecond(const String& raw);
