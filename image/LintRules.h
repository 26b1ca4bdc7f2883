// The rules of lint, and the list of what they found.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "foundation/String.h"
#include "image/Lint.h"

// Errors are what the tool refuses, warnings what it does silently and nobody means, notes the rest.
inline constexpr LintRule lintRules[] = {
    {"unreadable-lid", Severity::error, "the LID cannot be opened, read or measured, or is too large"},
    {"no-build-time", Severity::error, "the build date or time has no form that the header can hold"},
    {"no-base-name", Severity::error, "the RUVPD source's name has no base name"},
    {"missing-source", Severity::error, "a source cannot be opened"},
    {"unreadable-source", Severity::error, "a source cannot be read to its end"},
    {"no-ru-name", Severity::error, "a base name of more than 8 characters without RUNAME"},
    {"refused-value", Severity::error, "a value that its keyword does not take"},
    {"output-is-input", Severity::error, "the output is one of the run's inputs"},
    {"unwritable-output", Severity::error, "the output cannot be opened for writing"},

    {"other-file", Severity::warning, "a name without extension could also mean another file that is there"},
    {"unusual-extension", Severity::warning, "a main source with an extension that means nothing"},
    {"ignored-source", Severity::warning, "a main source that is missing or cut short and silently counts as empty"},
    {"not-text", Severity::warning, "a source that does not read like text; are the options swapped?"},
    {"utf-16", Severity::warning, "a source in UTF-16, of which no statement is understood"},
    {"byte-order-mark", Severity::warning, "a byte order mark, which makes the first line no statement"},
    {"carriage-return", Severity::warning, "a line ended by a carriage return alone, which ends no line"},
    {"not-a-statement", Severity::warning, "a line that is neither a statement nor a comment is skipped"},
    {"no-period", Severity::warning, "a statement without the period between keyword and value"},
    {"unknown-keyword", Severity::warning, "a keyword that does not exist is skipped"},
    {"keyword-case", Severity::warning, "a keyword that is not in upper case is skipped"},
    {"not-for-vpdinfo", Severity::warning, "a keyword in the VPDINFO source that only the RUVPD source may give"},
    {"live-in-comment", Severity::warning, "a statement inside a comment of several lines counts"},
    {"statement-after-comment", Severity::warning, "a statement after a comment in the same line is skipped"},
    {"comment-like", Severity::warning, "a line that begins with * or ! reads like a comment and is a statement"},
    {"comment-in-value", Severity::warning, "a comment after a value becomes part of the value"},
    {"two-statements", Severity::warning, "a second statement in a line becomes part of the first one"},
    {"white-space", Severity::warning, "white space is dropped from a text"},
    {"leading-periods", Severity::warning, "periods at the beginning of a value are dropped"},
    {"repeated-keyword", Severity::warning, "a keyword is given twice in a source; the last value counts"},
    {"overridden-value", Severity::warning, "the VPDINFO source, read last, gives another value"},
    {"no-effect", Severity::warning, "a keyword that has no effect"},
    {"empty-value", Severity::warning, "an empty value does not do what it seems to"},
    {"value-cut", Severity::warning, "a text longer than its field is cut"},
    {"upper-cased", Severity::warning, "a text is put into upper case"},
    {"odd-character", Severity::warning, "a character outside 7-bit ASCII, or one that cannot be shown, in a text"},
    {"ignored-value", Severity::warning, "a value that is not one of those allowed is ignored"},
    {"ignored-load-id", Severity::warning, "a load ID that is not 7 or more hexadecimal digits is ignored"},
    {"odd-load-id", Severity::warning, "a load ID with an odd number of digits gets a 0 in front"},
    {"long-load-id", Severity::warning, "a load ID of more than 8 digits is cut"},
    {"other-load-id", Severity::warning, "a load ID that is not the LID header's number"},
    {"cleared-destination", Severity::warning, "LLBYPASS Y clears the destination that RUDEST gives"},
    {"vpdinfo-path", Severity::warning, "VPDINFONM is absolute or leads out of the source's folder"},
    {"empty-lid", Severity::warning, "the LID is empty"},
    {"image-as-lid", Severity::warning, "the LID is an image itself"},
    {"source-as-lid", Severity::warning, "the LID reads like a source; are the options swapped?"},
    {"lid-date", Severity::warning, "the LID header's date is none and becomes another one"},
    {"lid-length", Severity::warning, "the LID header's length is not the file's"},
    {"build-stamp", Severity::warning, "the build time does not fit in the image's 32 bits"},
    {"time-zone", Severity::warning, "TZ names a time zone that this machine does not have, and so means UTC"},

    {"no-lid-header", Severity::note, "the LID has no header, so that the build time is its modification time"},
    {"unusual-mark", Severity::note, "* or ! begins a statement, as : does"},
};

// The rule of this name. A name that no rule has does not compile.
consteval const LintRule& Rule(std::string_view name)
{
  for (const LintRule& rule : lintRules) {
    if (name == rule.name) return rule;
  }
  throw std::invalid_argument("no such rule");
}

class Findings {
 public:
  // The list of disabled rules must outlive the object.
  explicit Findings(const std::vector<std::string>& disabledRules) : disabled(disabledRules) {}

  // Errors are to be added in the tool's order. What a disabled rule finds is dropped.
  void add(Finding finding);
  void add(std::vector<Finding> several);
  // All of them, in the order of LintResult.
  std::vector<Finding> take();

 private:
  const std::vector<std::string>& disabled;
  std::vector<Finding> found;
};

// The text for a message, with a sign where a long one is cut; and in quotation marks.
std::string Shortened(const String& text);
std::string Quoted(const String& text);
