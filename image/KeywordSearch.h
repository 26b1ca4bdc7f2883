// Looking for keywords and values, also for what a mistyped one may have meant.
#pragma once

#include <string_view>
#include <vector>

#include "builder/Keywords.h"

std::string_view View(const String& text);

// The row of the keyword, given exactly so, or null.
const KeywordRow* FindKeyword(const String& keyword);
// The row of the keyword with which the text begins, or null.
const KeywordRow* FindKeywordBefore(const String& text);
// The row of the keyword that is meant, or null: in upper case, and with at most two characters wrong.
const KeywordRow* NearestKeyword(const String& mistyped);
// The same among values; empty when none is near.
std::string_view NearestValue(std::span<const CodedValue> values, const String& mistyped);
