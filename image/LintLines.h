// The lines of one source: what each gives to the tool, and what is found in it.
#pragma once

#include <map>

#include "builder/Keywords.h"
#include "image/LintComments.h"
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
  // After the last line: all that was found.
  std::vector<Finding> finish();

  GivenValues given;

 private:
  struct Line {
    const String& raw;
    const String& squeezed;
    String label;
    String value;
    bool broken;  // by a carriage return
  };

  // Where a finding counts. Whether a line is in a comment of several lines is known when all lines are.
  enum class Counts { anywhere, inComment, outside };
  struct Found {
    Finding finding;
    Counts counts;
    std::size_t place;  // among the comments
  };

  void noStatement(const Line& line);
  void known(const KeywordRow& row, const Line& line);
  void knownText(const KeywordRow& row, const Line& line);
  void unknown(const Line& line);
  // Of a label that is no keyword in upper case either.
  void unknownLabel(const Line& line, const String& upper);
  // Whether a second statement stands in the line.
  bool lintSecond(const Line& line);
  void afterComment(std::string_view text);
  void lintFile();

  void add(const LintRule& rule, const std::string& message, const char* keyword = "");
  void addOutside(const LintRule& rule, const std::string& message, const char* keyword = "");
  void add(Counts counts, const LintRule& rule, const std::string& message, const char* keyword);

  const std::string file;
  const bool restricted;
  unsigned int number = 0;
  String beginning;  // of the file, as far as it is looked at whole

  LongComments comments;
  std::vector<Found> found;
};
