#include "image/LintValues.h"

#include <fmt/format.h>

#include "foundation/StandardStreams.h"
#include "headers/AsciiEbcdic.h"
#include "image/KeywordSearch.h"

namespace {

constexpr unsigned int shortName = sizeof(RUSSD::ruName);
constexpr unsigned int loadIdLength = sizeof(VPDHDR::ruLoadId);

// A value that counts.
struct Value {
  const KeywordRow& row;
  const LintedSource& source;
  const Given& given;

  const String& text() const { return given.value; }
  bool is(std::string_view keyword) const { return row.keyword == keyword; }
};

std::optional<Value> Find(const LintedSources& sources, const KeywordRow& row)
{
  for (const LintedSource* source : {sources.vpdinfo ? &*sources.vpdinfo : nullptr, &sources.main}) {
    if (source == nullptr) continue;
    if (const auto given = source->given.find(&row); given != source->given.end()) {
      return Value{row, *source, given->second};
    }
  }
  return std::nullopt;
}

std::optional<Value> Find(const LintedSources& sources, const char* keyword)
{
  return Find(sources, *FindKeyword(keyword));
}

Finding At(const Value& value, const LintRule& rule, const std::string& message)
{
  return {.file = value.source.name,
          .line = value.given.line,
          .rule = &rule,
          .message = message,
          .keyword = value.row.keyword};
}

// What the tool's own setter does with a value.
struct Reception {
  int code;       // success, or the value is refused
  bool reported;  // with a line about the value
};

Reception Receive(const KeywordRow& row, const String& value)
{
  MessageCapture capture;
  Headers headers;
  const int code = row.set(headers, value);
  return {code, !capture.lines().empty()};
}

std::string AllowedValues(const Value& value)
{
  constexpr std::size_t few = 2;
  if (value.row.values.size() == few) {
    return fmt::format("; it is {} or {}", value.row.values[0].value, value.row.values[1].value);
  }
  const std::string_view nearest = NearestValue(value.row.values, value.text());
  return nearest.empty() ? "" : fmt::format("; did you mean {}?", nearest);
}

// The first character of the text that an EBCDIC field cannot show, or nothing.
std::optional<unsigned char> OddCharacter(const String& text)
{
  for (const char ch : View(text)) {
    const auto code = static_cast<unsigned char>(ch);
    if (code < 0x20 || code >= 0x7F) return code;
  }
  return std::nullopt;
}

std::string OddCharacterText(unsigned char code)
{
  const unsigned char becomes = AsciiEbcdic::EbcdicToAscii(AsciiEbcdic::AsciiToEbcdic(code));
  if (becomes == code) return fmt::format("the character 0x{:02X} cannot be shown", code);
  return fmt::format("the character 0x{:02X} is not 7-bit ASCII and becomes 0x{:02X}", code, becomes);
}

// Whether a relative path leads out of the folder in which it begins.
bool LeadsOut(std::string_view path)
{
  int depth = 0;
  while (!path.empty() && depth >= 0) {
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view step = path.substr(0, end);
    if (step == "..") {
      depth--;
    } else if (!step.empty() && step != ".") {
      depth++;
    }
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return depth < 0;
}

class ValueLinter {
 public:
  ValueLinter(const LintedSources& s, const std::optional<ByteString>& number, bool names, Findings& f)
      : sources(s), lidNumber(number), namesVpdinfo(names), findings(f)
  {}

  void lintName() const;
  void lint(const Value& value) const;
  void lintOverridden(const KeywordRow& row) const;
  void lintDestination() const;

 private:
  void add(const Value& value, const LintRule& rule, const std::string& message) const
  {
    findings.add(At(value, rule, message));
  }
  void lintEmpty(const Value& value) const;
  void lintField(const Value& value) const;
  void lintText(const Value& value) const;
  void lintLoadId(const Value& value) const;
  void lintVpdinfoName(const Value& value) const;

  const LintedSources& sources;
  const std::optional<ByteString>& lidNumber;
  bool namesVpdinfo;
  Findings& findings;
};

// Of the base name, which stands in the headers too.
void ValueLinter::lintName() const
{
  const LintedSource& main = sources.main;
  const String baseName = main.file.name.getMember();
  if (main.code == success && baseName.length() > shortName && !Find(sources, "RUNAME")) {
    findings.add({.file = main.name,
                  .rule = &Rule("no-ru-name"),
                  .message = fmt::format("RUNAME is not given, and the base name {} has more than {} characters",
                                         Quoted(baseName), shortName),
                  .keyword = "RUNAME",
                  .code = noRuName});
  }
  if (const auto odd = OddCharacter(baseName)) {
    findings.add(
        {.file = main.name, .rule = &Rule("odd-character"), .message = "in the base name, " + OddCharacterText(*odd)});
  }
}

void ValueLinter::lint(const Value& value) const
{
  const bool names = value.is(vpdinfoNameKeyword) && namesVpdinfo;
  if (value.row.set == nullptr && !names) {
    add(value, Rule("no-effect"), fmt::format("{} has no effect", value.row.keyword));
  } else if (value.text().empty() && value.row.emptyValue == EmptyValue::ignored) {
    lintEmpty(value);
  } else if (names) {
    lintVpdinfoName(value);
  } else {
    lintField(value);
  }
}

void ValueLinter::lintEmpty(const Value& value) const
{
  const bool leavesZeros = value.is("RUNAME") && sources.main.file.name.getMember().length() > shortName;
  add(value, Rule("empty-value"),
      fmt::format("{} is empty and {}", value.row.keyword,
                  leavesZeros ? "so the RU name in the VPD header stays zeros" : "counts as not given"));
}

void ValueLinter::lintField(const Value& value) const
{
  const char* keyword = value.row.keyword;
  const String& text = value.text();
  const auto [code, reported] = Receive(value.row, text);
  const std::string quoted = text.empty() ? std::string("an empty value") : Quoted(text);
  if (code != success) {
    Finding refused =
        At(value, Rule("refused-value"), fmt::format("{} does not take {}{}", keyword, quoted, AllowedValues(value)));
    refused.code = code;
    findings.add(std::move(refused));
  } else if (!value.row.values.empty() && !CodeOf(value.row.values, text)) {
    add(value, Rule("ignored-value"), fmt::format("{} ignores {}{}", keyword, quoted, AllowedValues(value)));
  } else if (reported) {
    add(value, Rule("ignored-load-id"),
        fmt::format("{} ignores {}; it is 7 or more hexadecimal digits", keyword, quoted));
  } else if (value.row.width != 0) {
    lintText(value);
  } else if (value.is("RULOADID")) {
    lintLoadId(value);
  }
}

void ValueLinter::lintText(const Value& value) const
{
  const auto& [row, source, given] = value;
  const String& text = value.text();
  if (text.empty())
    return add(value, Rule("empty-value"), fmt::format("{} is empty and blanks its field", row.keyword));
  const String kept = text(0, row.width);
  String upper = kept;
  upper.toUpper();
  if (text.length() > row.width) {
    add(value, Rule("value-cut"),
        fmt::format("{} is cut to {} characters: {}", row.keyword, row.width,
                    Quoted(value.is("RUNAME") ? upper : kept)));
  }
  if (value.is("RUNAME") && upper != kept) {
    add(value, Rule("upper-cased"), fmt::format("{} is put into upper case: {}", row.keyword, Quoted(upper)));
  }
  if (const auto odd = OddCharacter(kept)) {
    add(value, Rule("odd-character"), fmt::format("in {}, {}", row.keyword, OddCharacterText(*odd)));
  }
}

void ValueLinter::lintLoadId(const Value& value) const
{
  const ByteString loadId = ByteString::FromHexString(value.text(), true)(0, loadIdLength);
  const std::string kept = ToText(loadId.toHexString());
  const unsigned int digits = value.text().length();
  if (digits % 2 == 1) {
    add(value, Rule("odd-load-id"),
        fmt::format("{} has {} digits and gets a 0 in front: {}", value.row.keyword, digits, kept));
  }
  if (digits > 2 * loadIdLength) {
    add(value, Rule("long-load-id"),
        fmt::format("{} has {} digits, of which {} count: {}", value.row.keyword, digits, 2 * loadIdLength, kept));
  }
  if (lidNumber && !loadId.equal(*lidNumber)) {
    add(value, Rule("other-load-id"),
        fmt::format("{} is {}, but the LID header's number is {}", value.row.keyword, kept,
                    ToText(lidNumber->toHexString())));
  }
}

void ValueLinter::lintVpdinfoName(const Value& value) const
{
  const std::string_view path = View(value.text());
  const char* fault = nullptr;
  if (path.starts_with('/')) fault = "begins with a / but is joined to the source's folder";
  if (LeadsOut(path)) fault = "leads out of the source's folder";
  if (fault == nullptr) return;
  const FileName joined = VpdinfoName(sources.main.file.name, value.text());
  add(value, Rule("vpdinfo-path"), fmt::format("{} {}: {}", value.row.keyword, fault, Quoted(joined.getSource())));
}

void ValueLinter::lintOverridden(const KeywordRow& row) const
{
  if (!sources.vpdinfo) return;
  const auto unit = sources.main.given.find(&row);
  const auto product = sources.vpdinfo->given.find(&row);
  if (unit == sources.main.given.end() || product == sources.vpdinfo->given.end()) return;
  if (unit->second.value == product->second.value) return;
  add({row, sources.main, unit->second}, Rule("overridden-value"),
      fmt::format("{} is {} instead, from {}:{}", row.keyword, Quoted(product->second.value), sources.vpdinfo->name,
                  product->second.line));
}

void ValueLinter::lintDestination() const
{
  const auto destination = Find(sources, "RUDEST");
  const auto bypass = Find(sources, "LLBYPASS");
  if (!destination || !bypass || bypass->text() != "Y") return;
  add(*destination, Rule("cleared-destination"), "RUDEST is cleared, because LLBYPASS is Y");
}

}  // namespace

void LintValues(const LintedSources& sources, const std::optional<ByteString>& lidNumber, bool namesVpdinfo,
                Findings& findings)
{
  const ValueLinter linter(sources, lidNumber, namesVpdinfo, findings);
  linter.lintName();
  for (const KeywordRow& row : KeywordRows()) {
    if (const auto value = Find(sources, row)) linter.lint(*value);
    linter.lintOverridden(row);
  }
  linter.lintDestination();
}
