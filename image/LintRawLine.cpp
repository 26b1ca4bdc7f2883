#include "image/LintRawLine.h"

#include <algorithm>

#include "image/KeywordSearch.h"
#include "image/LooksLike.h"

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr std::string_view marks = ":*!";
constexpr std::string_view marksAndWhiteSpace = ":*! \t\n\v\f\r";
constexpr std::string_view periodsAndWhiteSpace = ". \t\n\v\f\r";
constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";

std::size_t Skip(std::string_view text, std::string_view characters, std::size_t from)
{
  return std::min(text.find_first_not_of(characters, from), text.size());
}

bool IsWhiteSpace(char ch) { return whiteSpace.find(ch) != std::string_view::npos; }

// The keyword that a word after a mark means, or null. A keyword and its period are a statement anywhere. One that is
// mistyped or has no period must at least stand apart, after white space.
const KeywordRow* SecondKeyword(std::string_view word, std::string_view rest, bool standsApart)
{
  rest = Trimmed(rest);
  const bool hasPeriod = rest.starts_with('.');
  const String label = Part(word);
  if (const KeywordRow* row = FindKeyword(label); row != nullptr && hasPeriod) return row;
  if (!standsApart) return nullptr;
  if (const KeywordRow* row = FindKeyword(InUpper(label))) return row;
  return hasPeriod || rest.starts_with('=') ? NearestKeyword(label) : nullptr;
}

}  // namespace

std::string_view Trimmed(std::string_view text)
{
  text.remove_prefix(Skip(text, whiteSpace, 0));
  return text.substr(0, text.find_last_not_of(whiteSpace) + 1);
}

String Part(std::string_view text) { return String(text.data(), static_cast<unsigned int>(text.size())); }

String InUpper(String text)
{
  text.toUpper();
  return text;
}

bool HoldsCarriageReturn(const String& raw)
{
  const std::string_view line = View(raw);
  return line.substr(0, line.find_last_not_of(whiteSpace) + 1).find('\r') != std::string_view::npos;
}

bool HasBlankAfterMark(const String& raw)
{
  const std::string_view line = Trimmed(View(raw));
  const std::size_t next = Skip(line, marks, 0);
  return next < line.size() && IsWhiteSpace(line[next]);
}

std::string_view RawValue(const String& raw)
{
  const std::string_view line = View(raw);
  const std::size_t period = std::min(line.find('.'), line.size());
  return Trimmed(line.substr(Skip(line, periodsAndWhiteSpace, period)));
}

std::optional<SecondStatement> FindSecond(const String& raw)
{
  const std::string_view line = View(raw).substr(0, looksLikeLength);
  const std::size_t period = line.find('.');
  std::size_t mark = line.find_first_of(marks, Skip(line, marksAndWhiteSpace, 0));
  while (mark < line.size()) {
    const std::size_t afterMarks = Skip(line, marks, mark);
    const std::size_t begin = Skip(line, whiteSpace, afterMarks);
    const std::size_t end = Skip(line, letters, begin);
    const std::string_view word = line.substr(begin, end - begin);
    const bool standsApart = IsWhiteSpace(line[mark - 1]) && begin == afterMarks;
    if (const KeywordRow* row = SecondKeyword(word, line.substr(end), standsApart)) {
      return SecondStatement{*row, std::string(word), mark < period};
    }
    mark = line.find_first_of(marks, end);
  }
  return std::nullopt;
}
