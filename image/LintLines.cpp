#include "image/LintLines.h"

#include <fmt/format.h>

#include "image/KeywordSearch.h"
#include "image/LooksLike.h"
#include "source/SPASourceProgram.h"
#include "source/SPASourceStmt.h"

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr std::string_view marks = ":*!";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

String Part(std::string_view text) { return String(text.data(), static_cast<unsigned int>(text.size())); }

bool IsFalseMark(char ch) { return ch == '*' || ch == '!'; }

// Whether a carriage return stands before the last character that is no white space.
bool HoldsCarriageReturn(const String& raw)
{
  const std::string_view line = View(raw);
  return line.substr(0, line.find_last_not_of(whiteSpace) + 1).find('\r') != std::string_view::npos;
}

// Whether the line's mark is followed by white space, as it is in a sentence.
bool HasBlankAfterMark(const String& raw)
{
  const std::string_view line = View(raw);
  const std::size_t mark = line.find_first_of(marks);
  const std::size_t next = line.find_first_not_of(marks, mark);
  return next != std::string_view::npos && whiteSpace.find(line[next]) != std::string_view::npos;
}

// The line's value with its white space, but none around it.
std::string_view RawValue(const String& raw)
{
  std::string_view value = View(raw);
  value.remove_prefix(std::min(value.find('.'), value.size()));
  value.remove_prefix(std::min(value.find_first_not_of(". \t\n\v\f\r"), value.size()));
  return value.substr(0, value.find_last_not_of(whiteSpace) + 1);
}

// The keyword of a statement, with its period, that begins inside the value; or null.
const KeywordRow* FindStatementIn(const String& value)
{
  const std::string_view text = View(value).substr(0, looksLikeLength);
  for (std::size_t i = text.find_first_of(marks); i < text.size(); i = text.find_first_of(marks, i + 1)) {
    const std::string_view rest = text.substr(i + 1);
    for (const KeywordRow& row : KeywordRows()) {
      if (rest.starts_with(row.keyword) && rest.substr(std::string_view(row.keyword).size()).starts_with('.')) {
        return &row;
      }
    }
  }
  return nullptr;
}

}  // namespace

void LineLinter::take(const String& raw)
{
  number++;
  if (beginning.length() < looksLikeLength) beginning += raw(0, looksLikeLength) + '\n';
  const String squeezed = removeWS(raw);
  if (squeezed.empty()) return;
  const SPASourceStmt statement(squeezed);
  const Line line = {raw, squeezed, statement.getLabel(), statement.getValue(), HoldsCarriageReturn(raw)};
  if (line.broken) {
    add(Rule("carriage-return"), "a carriage return alone ends no line; what follows belongs to this line");
  }
  if (statement.isComment() != 0) return comment(squeezed);
  const KeywordRow* row = FindKeyword(line.label);
  if (statement.isStmt() == 0) {
    noStatement(squeezed);
  } else if (row != nullptr) {
    known(*row, line);
  } else {
    unknown(line);
  }
  const std::string_view text = View(squeezed);
  const std::size_t end = text.find("*)");
  if (commentBegin == 0 || end >= text.find("(*")) return;  // two that are not found are equal
  closeComment(true);
  afterComment(text.substr(end + 2));
}

void LineLinter::finish()
{
  closeComment(false);
  const std::string_view text = View(beginning);
  number = 0;
  const char* fault = LooksLikeUtf16(text) ? "is UTF-16" : LooksLikeBinary(text);
  if (fault == nullptr) {
    if (!text.starts_with(byteOrderMark)) return;
    number = 1;
    return add(Rule("byte-order-mark"), "begins with a byte order mark, which makes the first line no statement");
  }
  // Of such a file the lines say nothing.
  findings.clear();
  add(LooksLikeUtf16(text) ? Rule("utf-16") : Rule("not-text"), fault);
}

void LineLinter::comment(const String& squeezed)
{
  closeComment(false);
  const std::size_t end = View(squeezed).find("*)", 2);
  if (end == std::string_view::npos) {
    commentBegin = number;
  } else {
    afterComment(View(squeezed).substr(end + 2));
  }
}

void LineLinter::afterComment(std::string_view text)
{
  const SPASourceStmt rest(Part(text));
  if (rest.isStmt() == 0) return;
  const KeywordRow* row = FindKeyword(rest.getLabel());
  if (row == nullptr) return;
  add(Rule("statement-after-comment"), fmt::format("{} after a comment in the same line is skipped", row->keyword),
      row->keyword);
}

void LineLinter::closeComment(bool closed)
{
  std::vector<Finding>& found = closed ? foundInside : foundOutside;
  findings.insert(findings.end(), std::make_move_iterator(found.begin()), std::make_move_iterator(found.end()));
  foundInside.clear();
  foundOutside.clear();
  commentBegin = 0;
}

void LineLinter::noStatement(const String& squeezed)
{
  if (number == 1 && View(squeezed).starts_with(byteOrderMark)) return;
  const KeywordRow* row = FindKeywordBefore(squeezed);
  std::string message = fmt::format("{} is no statement and is skipped", Quoted(squeezed));
  if (row != nullptr) message += fmt::format("; did you mean :{}?", row->keyword);
  addOutside(Rule("not-a-statement"), message, row != nullptr ? row->keyword : "");
}

void LineLinter::known(const KeywordRow& row, const Line& line)
{
  const char* keyword = row.keyword;
  String label = line.label;
  if (restricted && labelOk(label) == 0) {
    return addOutside(Rule("not-for-vpdinfo"), fmt::format("{} is not taken from a VPDINFO source", keyword), keyword);
  }
  const char mark = line.squeezed[0];
  if (commentBegin != 0) {
    foundInside.push_back(at(Rule("live-in-comment"),
                             fmt::format("{} is set inside the comment that begins in line {}", keyword, commentBegin),
                             keyword));
  }
  if (IsFalseMark(mark) && HasBlankAfterMark(line.raw)) {
    addOutside(Rule("comment-like"), fmt::format("{} begins no comment: {} is set", mark, keyword), keyword);
  } else if (IsFalseMark(mark)) {
    addOutside(Rule("unusual-mark"), fmt::format("{} begins a statement, as : does: {} is set", mark, keyword),
               keyword);
  }
  if (View(line.squeezed).find('.') == std::string_view::npos) {
    add(Rule("no-period"), fmt::format("{} has no period and so an empty value", keyword), keyword);
  }
  knownText(row, line);
  const auto [place, isNew] = given.try_emplace(&row);
  if (!isNew) {
    add(Rule("repeated-keyword"),
        fmt::format("{} was given in line {} already; this value counts", keyword, place->second.line), keyword);
  }
  place->second = {number, line.value};
}

bool LineLinter::lintSecond(const Line& line)
{
  const KeywordRow* second = FindStatementIn(line.value);
  if (second == nullptr) return false;
  if (!line.broken) {
    addOutside(Rule("two-statements"),
               fmt::format("{} in the same line is part of the value of {}", second->keyword, Shortened(line.label)),
               second->keyword);
  }
  return true;
}

void LineLinter::knownText(const KeywordRow& row, const Line& line)
{
  const char* keyword = row.keyword;
  const bool holdsStatement = lintSecond(line);
  const bool isCommented = View(line.value).find("(*") != std::string_view::npos;
  if (isCommented) {
    add(Rule("comment-in-value"),
        fmt::format("the comment is part of the value: {} is {}", keyword, Quoted(line.value)), keyword);
  }
  if (row.width == 0 && !(keyword == std::string_view(vpdinfoNameKeyword))) return;
  if (RawValue(line.raw) != View(line.value) && !isCommented && !holdsStatement) {
    add(Rule("white-space"), fmt::format("white space is dropped: {} is {}", keyword, Quoted(line.value)), keyword);
  }
  const std::string_view text = View(line.squeezed);
  if (text.substr(std::min(text.find('.'), text.size())).starts_with("..") && !line.value.empty()) {
    add(Rule("leading-periods"),
        fmt::format("periods at the beginning are dropped: {} is {}", keyword, Quoted(line.value)), keyword);
  }
}

void LineLinter::unknown(const Line& line)
{
  const char mark = line.squeezed[0];
  const bool hasPeriod = View(line.squeezed).find('.') != std::string_view::npos;
  String upper = line.label;
  upper.toUpper();
  const KeywordRow* sameInUpper = FindKeyword(upper);
  const KeywordRow* before = FindKeywordBefore(upper);
  const KeywordRow* nearest = NearestKeyword(line.label);
  const std::string label = Shortened(line.label);

  if (sameInUpper != nullptr) {
    addOutside(Rule("keyword-case"),
               fmt::format("{} is not in upper case and is skipped; did you mean {}?", label, sameInUpper->keyword),
               sameInUpper->keyword);
  } else if (IsFalseMark(mark) && (HasBlankAfterMark(line.raw) || (nearest == nullptr && before == nullptr))) {
    addOutside(Rule("comment-like"), fmt::format("{} begins no comment but a statement, which has no effect", mark));
  } else if (!hasPeriod) {
    std::string message = "the statement has no period and no effect";
    const KeywordRow* meant = before != nullptr ? before : nearest;
    if (meant != nullptr) message += fmt::format("; did you mean :{}.?", meant->keyword);
    addOutside(Rule("no-period"), message, meant != nullptr ? meant->keyword : "");
  } else if (nearest != nullptr || before != nullptr) {
    const char* meant = (nearest != nullptr ? nearest : before)->keyword;
    addOutside(Rule("unknown-keyword"), fmt::format("unknown keyword {}; did you mean {}?", label, meant), meant);
  } else if (label.empty()) {
    addOutside(Rule("unknown-keyword"), "a statement without a keyword");
  } else {
    addOutside(Rule("unknown-keyword"), fmt::format("unknown keyword {}", label));
  }
  lintSecond(line);
}

Finding LineLinter::at(const LintRule& rule, const std::string& message, const char* keyword) const
{
  return {.file = file, .line = number, .rule = &rule, .message = message, .keyword = keyword};
}

void LineLinter::add(const LintRule& rule, const std::string& message, const char* keyword)
{
  findings.push_back(at(rule, message, keyword));
}

void LineLinter::addOutside(const LintRule& rule, const std::string& message, const char* keyword)
{
  (commentBegin != 0 ? foundOutside : findings).push_back(at(rule, message, keyword));
}
