// One line of a source: white space removed, its label and value on demand. A statement begins with ":", "*" or "!";
// after runs of these, the label reaches to the first ".". The value follows the run of "." there, up to the line's
// end.
#pragma once

#include "foundation/String.h"

class SPASourceStmt {
 public:
  explicit SPASourceStmt(const String& line);

  // 1 or 0. A comment is an empty line or one that begins with "(*".
  int isStmt() const;
  int isComment() const;
  // Of a statement.
  String getLabel() const;
  String getValue() const;

 private:
  String text;  // without white space
};

// The text without its blanks and the bytes 0x09 to 0x0D.
String removeWS(const String& text);

// Each returns the index of the first character at or after `start` that it does not skip, or else the text's length.
unsigned int skipWS(const String& text, unsigned int start);      // skips white space
unsigned int skipbang(const String& text, unsigned int start);    // skips "!"
unsigned int skipstar(const String& text, unsigned int start);    // skips "*"
unsigned int skipcolon(const String& text, unsigned int start);   // skips ":"
unsigned int skipPeriod(const String& text, unsigned int start);  // skips "."
unsigned int skipLabel(const String& text, unsigned int start);   // skips all but "."
unsigned int skipValue(const String& text, unsigned int start);   // skips all but the newline
