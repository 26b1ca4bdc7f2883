#include "image/LintLines.h"

#include <fmt/format.h>

#include "image/KeywordSearch.h"
#include "image/LintRawLine.h"
#include "image/LooksLike.h"
#include "source/SPASourceProgram.h"
#include "source/SPASourceStmt.h"

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsFalseMark(char ch) { return ch == '*' || ch == '!'; }

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
  const KeywordRow* row = FindKeyword(line.label);
  if (statement.isComment() != 0) {
    // Says nothing, but for what follows it.
  } else if (statement.isStmt() == 0) {
    noStatement(line);
  } else if (row != nullptr) {
    known(*row, line);
  } else {
    unknown(line);
  }
  afterComment(comments.take(number, View(squeezed)));
}

std::vector<Finding> LineLinter::finish()
{
  comments.finish();
  lintFile();
  std::vector<Finding> findings;
  for (auto& [finding, counts, place] : found) {
    const unsigned int begin = comments.beginAround(place);
    if (counts == (begin != 0 ? Counts::outside : Counts::inComment)) continue;
    if (counts == Counts::inComment) finding.message += fmt::format(" that begins in line {}", begin);
    findings.push_back(std::move(finding));
  }
  return findings;
}

void LineLinter::lintFile()
{
  const std::string_view text = View(beginning);
  number = 0;
  const char* fault = LooksLikeUtf16(text) ? "is UTF-16" : LooksLikeBinary(text);
  if (fault != nullptr) {
    // The lines of such a file say nothing, unless there are statements that the tool takes.
    if (given.empty()) found.clear();
    add(LooksLikeUtf16(text) ? Rule("utf-16") : Rule("not-text"), fault);
  } else if (text.starts_with(byteOrderMark)) {
    number = 1;
    add(Rule("byte-order-mark"), "begins with a byte order mark, which makes the first line no statement");
  }
}

void LineLinter::afterComment(std::string_view text)
{
  const SPASourceStmt rest(Part(text.substr(0, looksLikeLength)));
  if (rest.isStmt() == 0) return;
  const KeywordRow* row = FindKeyword(rest.getLabel());
  if (row == nullptr) return;
  addOutside(Rule("statement-after-comment"),
             fmt::format("{} after a comment in the same line is skipped", row->keyword), row->keyword);
}

void LineLinter::noStatement(const Line& line)
{
  if (number == 1 && View(line.squeezed).starts_with(byteOrderMark)) return;
  const KeywordRow* row = FindKeywordBefore(line.squeezed);
  const std::string_view text = Trimmed(View(line.raw)).substr(0, looksLikeLength);
  std::string message = fmt::format("{} is no statement and is skipped", Quoted(Part(text)));
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
  add(Counts::inComment, Rule("live-in-comment"), fmt::format("{} is set inside the comment", keyword), keyword);
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
  const auto second = FindSecond(line.raw);
  if (!second) return false;
  if (!line.broken) {
    addOutside(Rule("two-statements"),
               fmt::format("{} in the same line is part of the {} {}", second->keyword,
                           second->isInLabel ? "keyword" : "value of", Shortened(line.label)),
               second->row.keyword);
  }
  return true;
}

void LineLinter::knownText(const KeywordRow& row, const Line& line)
{
  const char* keyword = row.keyword;
  const bool holdsStatement = lintSecond(line);
  const bool isCommented = HoldsCommentSign(View(line.value));
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
  const String upper = InUpper(line.label);
  const char mark = line.squeezed[0];
  const bool means = FindKeywordBefore(upper) != nullptr || NearestKeyword(line.label) != nullptr;
  if (const KeywordRow* row = FindKeyword(upper)) {
    addOutside(
        Rule("keyword-case"),
        fmt::format("{} is not in upper case and is skipped; did you mean {}?", Shortened(line.label), row->keyword),
        row->keyword);
  } else if (View(line.squeezed).starts_with("*)")) {
    return addOutside(Rule("comment-like"), "*) ends no comment but begins a statement, which has no effect");
  } else if (IsFalseMark(mark) && (HasBlankAfterMark(line.raw) || !means)) {
    return addOutside(Rule("comment-like"),
                      fmt::format("{} begins no comment but a statement, which has no effect", mark));
  } else if (const auto second = FindSecond(line.raw); !second || !second->isInLabel) {
    unknownLabel(line, upper);
  }
  lintSecond(line);
}

void LineLinter::unknownLabel(const Line& line, const String& upper)
{
  const KeywordRow* before = FindKeywordBefore(upper);
  const KeywordRow* nearest = NearestKeyword(line.label);
  const std::string label = Shortened(line.label);
  if (View(line.squeezed).find('.') == std::string_view::npos) {
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
}

void LineLinter::add(const LintRule& rule, const std::string& message, const char* keyword)
{
  add(Counts::anywhere, rule, message, keyword);
}

void LineLinter::addOutside(const LintRule& rule, const std::string& message, const char* keyword)
{
  add(Counts::outside, rule, message, keyword);
}

void LineLinter::add(Counts counts, const LintRule& rule, const std::string& message, const char* keyword)
{
  if (counts == Counts::inComment && comments.place() == 0) return;
  found.push_back({{.file = file, .line = number, .rule = &rule, .message = message, .keyword = keyword},
                   counts,
                   comments.place()});
}
