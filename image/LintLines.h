// The lines of one source: what each gives to the tool, and what is found in it.
#pragma once

#include <map>

#include "builder/Keywords.h"
#include "image/LintRules.h"

// The last statement with a keyword.
struct Given {
  unsigned int line = 0;
  String value;
};

// The keywords that the tool takes from a source.
using GivenValues = std::map<const KeywordRow*, Given>;

class LineLinter {
 public:
  // A source that is restricted gives only the keywords of a VPDINFO source.
  LineLinter(const std::string& fileName, bool isRestricted) : file(fileName), restricted(isRestricted) {}

  // Takes the next line.
  void take(const String& raw);
  // After the last line.
  void finish();

  GivenValues given;
  std::vector<Finding> findings;

 private:
  struct Line {
    const String& raw;
    const String& squeezed;
    String label;
    String value;
    bool broken;  // by a carriage return
  };

  void comment(const String& squeezed);
  void noStatement(const String& squeezed);
  void known(const KeywordRow& row, const Line& line);
  void knownText(const KeywordRow& row, const Line& line);
  void unknown(const Line& line);
  // Whether a second statement stands in the value.
  bool lintSecond(const Line& line);
  void afterComment(std::string_view text);
  void closeComment(bool closed);

  Finding at(const LintRule& rule, const std::string& message, const char* keyword = "") const;
  void add(const LintRule& rule, const std::string& message, const char* keyword = "");
  // For a line that may be in a comment: found when the comment turns out to end nowhere, or to end later.
  void addOutside(const LintRule& rule, const std::string& message, const char* keyword = "");

  const std::string file;
  const bool restricted;
  unsigned int number = 0;
  String beginning;  // of the file, as far as it is looked at whole

  // A comment of several lines is one that a later line ends. Until then what is found in its lines is kept twice.
  unsigned int commentBegin = 0;  // its line; 0 outside
  std::vector<Finding> foundInside;
  std::vector<Finding> foundOutside;
};
