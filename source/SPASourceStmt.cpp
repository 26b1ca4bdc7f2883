#include "source/SPASourceStmt.h"

#include <algorithm>

#include "foundation/Allocate.h"

namespace {

boolean IsWhiteSpace(char ch) { return ch == ' ' || (ch >= 0x09 && ch <= 0x0D); }

template <class Test>
unsigned int SkipWhile(const String& text, unsigned int start, Test test)
{
  const char* characters = text;
  const char* end = characters + text.length();
  return static_cast<unsigned int>(std::find_if_not(characters + MIN(start, text.length()), end, test) - characters);
}

unsigned int LabelStart(const String& text) { return skipcolon(text, skipstar(text, skipbang(text, 0))); }

}  // namespace

SPASourceStmt::SPASourceStmt(const String& line) : text(removeWS(line)) {}

int SPASourceStmt::isStmt() const
{
  const char first = *static_cast<const char*>(text);
  return first == ':' || first == '*' || first == '!' ? 1 : 0;
}

int SPASourceStmt::isComment() const { return text.empty() || text(0, 2) == "(*" ? 1 : 0; }

String SPASourceStmt::getLabel() const
{
  const unsigned int start = LabelStart(text);
  return text(start, skipLabel(text, start) - start);
}

String SPASourceStmt::getValue() const
{
  return text(skipPeriod(text, skipLabel(text, LabelStart(text))), text.length());
}

String removeWS(const String& text)
{
  String squeezed(text.length());
  const char* characters = text;
  unsigned int start = 0;
  while (start < text.length()) {
    const unsigned int end = SkipWhile(text, start, [](char ch) { return !IsWhiteSpace(ch); });
    squeezed.append(characters + start, end - start);
    start = skipWS(text, end);
  }
  return squeezed;
}

unsigned int skipWS(const String& text, unsigned int start) { return SkipWhile(text, start, IsWhiteSpace); }

unsigned int skipbang(const String& text, unsigned int start)
{
  return SkipWhile(text, start, [](char ch) { return ch == '!'; });
}

unsigned int skipstar(const String& text, unsigned int start)
{
  return SkipWhile(text, start, [](char ch) { return ch == '*'; });
}

unsigned int skipcolon(const String& text, unsigned int start)
{
  return SkipWhile(text, start, [](char ch) { return ch == ':'; });
}

unsigned int skipPeriod(const String& text, unsigned int start)
{
  return SkipWhile(text, start, [](char ch) { return ch == '.'; });
}

unsigned int skipLabel(const String& text, unsigned int start)
{
  return SkipWhile(text, start, [](char ch) { return ch != '.'; });
}

unsigned int skipValue(const String& text, unsigned int start)
{
  return SkipWhile(text, start, [](char ch) { return ch != '\n'; });
}
