#include "image/Text.h"

#include <fmt/format.h>

#include <charconv>
#include <iterator>

#include "image/Tables.h"
#include "image/Utf8.h"

namespace {

constexpr std::size_t rawBytesShown = 16;

// The bytes of the field, of a long one the first and two dots; nothing of a long reserved one.
std::string RawText(const Field& field)
{
  if (field.bytes.size() <= rawBytesShown) return Hexadecimal(field.bytes);
  if (field.row->kind == FieldKind::reserved) return {};
  return Hexadecimal(field.bytes.first(rawBytesShown - 1)) + "..";
}

// Columns without the formatting library, which takes three times as long: a field is a row, an image has a hundred.
void AppendLeft(std::string& text, std::string_view value, std::size_t width)
{
  text += value;
  text.append(width > value.size() ? width - value.size() : 0, ' ');
}

void AppendRight(std::string& text, std::uint64_t number, std::size_t width)
{
  char digits[20];
  const char* end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  const auto length = static_cast<std::size_t>(end - digits);
  text.append(width > length ? width - length : 0, ' ');
  text.append(digits, length);
}

void AppendField(std::string& text, const Field& field)
{
  AppendRight(text, field.offset, 8);
  AppendRight(text, field.length, 6);
  text += "  ";
  AppendLeft(text, RawText(field), 2 * rawBytesShown);
  text += "  ";
  AppendLeft(text, field.row->name, 28);
  text += ValueText(*field.row, field.value);
  if (!field.remark.empty()) text.append(" (").append(field.remark).append(")");
  if (field.row->keyword != nullptr) text.append("  ").append(field.row->keyword);
  text += '\n';
}

void AppendRecord(std::string& text, const Record& record)
{
  text += fmt::format("{}, {} bytes at {}", record.row->name, record.length, record.offset);
  if (record.held < record.length) text += fmt::format(", of which {} are missing", record.length - record.held);
  text += '\n';
  for (const Field& field : record.fields) AppendField(text, field);
}

std::string ValueText(const Difference& difference, int side)
{
  return difference.offsets[side] ? ValueText(*difference.field, difference.values[side]) : "(none)";
}

void AppendValues(std::string& text, std::span<const CodedValue> values)
{
  for (const CodedValue& value : values) text += fmt::format(" {}={}", value.value, value.code);
}

}  // namespace

std::string Text(const Finding& finding)
{
  std::string text = Escaped(finding.file);
  if (finding.line != 0) text += fmt::format(":{}", finding.line);
  text += fmt::format(": {}: {}", SeverityName(finding.rule->severity), Escaped(finding.message));
  if (finding.code != 0) text += fmt::format(" (code {})", finding.code);
  return text + fmt::format(" [{}]", finding.rule->name);
}

std::string Text(const Image& image)
{
  std::string text;
  text.reserve(8192);
  text += fmt::format("{}: {} bytes\n", Escaped(image.file.name()), image.file.size());
  for (const Record& record : image.records) AppendRecord(text, record);
  if (image.file.size() < image.expectedSize) {
    text +=
        fmt::format("cut: {} bytes of {} are missing\n", image.expectedSize - image.file.size(), image.expectedSize);
  } else if (image.file.size() > image.expectedSize) {
    text += fmt::format("too long: {} bytes follow the LID\n", image.file.size() - image.expectedSize);
  }
  return text;
}

std::string Text(const ListRow& row, const Image& image)
{
  return fmt::format("{:<8}  {:<8}  {:<4}  {:<19}  {:>10}  {}\n", row.loadId, Escaped(row.name),
                     Escaped(row.versionLevel), row.built, row.lidSize, Escaped(image.file.name()));
}

std::string Text(const VerifyResult& verified, const std::string& name, bool all)
{
  std::string text;
  const auto say = [&](const CheckResult& result, const std::string& what) {
    text += fmt::format("{}: {}: {}\n", Escaped(name), result.check->name, Escaped(what));
  };
  std::vector<const char*> unchecked;
  for (const CheckResult& result : verified.checks) {
    for (const Failure& failure : result.failures) say(result, failure.message);
    if (!result.made) unchecked.push_back(result.check->name);
    if (all && result.made && result.failures.empty()) say(result, "ok");
    for (const std::string& remark : result.remarks) say(result, remark);
    if (!all) continue;
    for (const std::string& detail : result.details) say(result, detail);
  }
  if (!unchecked.empty()) text += fmt::format("{}: not checked: {}\n", Escaped(name), fmt::join(unchecked, ", "));
  return text;
}

std::string Text(const DiffResult& diff)
{
  std::string text;
  for (const Difference& difference : diff.differences) {
    text += fmt::format("{}: {} -> {}\n", FieldName(*difference.record, *difference.field), ValueText(difference, 0),
                        ValueText(difference, 1));
  }
  if (diff.payload) {
    text += fmt::format("LID: {} bytes -> {} bytes, different from byte {} on\n", diff.payload->lengths[0],
                        diff.payload->lengths[1], diff.payload->first);
  } else if (!diff.differences.empty()) {
    text += "LID: the same\n";
  }
  for (const std::string& note : diff.notes) text += fmt::format("note: {}\n", note);
  return text;
}

std::string FieldsText()
{
  std::string text;
  for (const RecordRow& record : RecordRows()) {
    text += fmt::format("record {} {}\n", record.name, record.length);
    for (const FieldRow& field : record.fields) {
      text += fmt::format("field {}.{} {} {} {}", record.name, field.name, FirstByte(field), ByteCount(field),
                          FieldKindName(field.kind));
      if (field.bits.width != 0) text += fmt::format(" bit {} width {}", field.bits.first % 8, field.bits.width);
      if (field.form != NameForm::any) text += field.form == NameForm::afterFill ? " long-name" : " short-name";
      if (field.keyword != nullptr) text += fmt::format(" {}", field.keyword);
      AppendValues(text, field.values);
      text += '\n';
    }
  }
  for (const KeywordRow& keyword : KeywordRows()) {
    text += fmt::format("keyword {} {}", keyword.keyword, MayStandInVpdinfo(keyword) ? "either" : "main");
    if (keyword.width != 0) text += fmt::format(" width {}", keyword.width);
    if (keyword.refusal != success) text += fmt::format(" code {}", static_cast<int>(keyword.refusal));
    if (keyword.whenNotGiven != nullptr) text += fmt::format(" default {}", keyword.whenNotGiven);
    AppendValues(text, keyword.values);
    text += fmt::format(": {}\n", keyword.effect);
  }
  for (const CheckRow& check : CheckRows()) text += fmt::format("check {}: {}\n", check.name, check.summary);
  for (const LintRule& rule : LintRules()) {
    text += fmt::format("rule {} {}: {}\n", rule.name, SeverityName(rule.severity), rule.summary);
  }
  for (const CodeRow& code : CodeRows()) text += fmt::format("code {}: {}\n", code.code, code.meaning);
  return text;
}
