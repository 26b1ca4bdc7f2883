// One line of a source: white space removed, its label and value on demand. A statement begins with ":", "*" or "!";
// after runs of these, the label reaches to the first ".", and behind the run of "." there the value to the line's end.
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

// The index of the first character at or after `start` that is not white space, "!", "*", ":", "."; or that is a ".";
// or a newline; the text's length when there is none.
unsigned int skipWS(const String& text, unsigned int start);
unsigned int skipbang(const String& text, unsigned int start);
unsigned int skipstar(const String& text, unsigned int start);
unsigned int skipcolon(const String& text, unsigned int start);
unsigned int skipPeriod(const String& text, unsigned int start);
unsigned int skipLabel(const String& text, unsigned int start);
unsigned int skipValue(const String& text, unsigned int start);
