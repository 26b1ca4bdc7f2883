#include "image/Text.h"

#include <fmt/format.h>

#include <iterator>

namespace {

constexpr std::size_t rawBytesShown = 16;

// A field's value as people read it.
std::string ValueText(const Field& field)
{
  if (std::holds_alternative<std::monostate>(field.value)) return "(cut)";
  if (field.row->kind == FieldKind::reserved && IsZero(field.bytes)) return "zeros";
  const std::vector<std::string> names = Names(*field.row, field.value);
  if (!names.empty()) return fmt::format("{}", fmt::join(names, ", "));
  if (const auto* number = std::get_if<std::uint64_t>(&field.value)) {
    return fmt::format("{}{}", *number, field.row->values.empty() ? "" : " (no name)");
  }
  if (const auto* flag = std::get_if<bool>(&field.value)) return *flag ? "true" : "false";
  const std::string& text = std::get<std::string>(field.value);
  return field.row->kind == FieldKind::digits || field.row->kind == FieldKind::reserved ? text : '"' + text + '"';
}

// The bytes of reserved fields that are not zero in full, of others at most the first 16.
std::string RawText(const Field& field)
{
  if (field.bytes.size() <= rawBytesShown) return Hexadecimal(field.bytes);
  if (field.row->kind == FieldKind::reserved) return {};
  return Hexadecimal(field.bytes.first(rawBytesShown - 1)) + "..";
}

void AppendField(std::string& text, const Field& field)
{
  auto out = std::back_inserter(text);
  fmt::format_to(out, "{:>8} {:>5}  {:<32}  {:<27} {}", field.offset, field.length, RawText(field), field.row->name,
                 ValueText(field));
  if (!field.remark.empty()) fmt::format_to(out, " ({})", field.remark);
  if (field.row->keyword != nullptr) fmt::format_to(out, "  {}", field.row->keyword);
  text += '\n';
}

void AppendRecord(std::string& text, const Record& record)
{
  auto out = std::back_inserter(text);
  fmt::format_to(out, "{}, {} bytes at {}", record.row->name, record.length, record.offset);
  if (record.held < record.length) fmt::format_to(out, ", of which {} are missing", record.length - record.held);
  text += '\n';
  for (const Field& field : record.fields) AppendField(text, field);
}

}  // namespace

std::string Text(const Finding& finding)
{
  std::string text = finding.file;
  if (finding.line != 0) text += fmt::format(":{}", finding.line);
  text += fmt::format(": {}: {}", SeverityName(finding.severity), finding.message);
  if (finding.code != 0) text += fmt::format(" (code {})", finding.code);
  return text + fmt::format(" [{}]", finding.rule);
}

std::string Text(const Image& image)
{
  std::string text;
  text.reserve(8192);
  auto out = std::back_inserter(text);
  fmt::format_to(out, "{}: {} bytes\n", image.file.name(), image.file.size());
  for (const Record& record : image.records) AppendRecord(text, record);
  if (image.file.size() < image.expectedSize) {
    fmt::format_to(out, "cut: {} bytes of {} are missing\n", image.expectedSize - image.file.size(),
                   image.expectedSize);
  } else if (image.file.size() > image.expectedSize) {
    fmt::format_to(out, "too long: {} bytes follow the LID\n", image.file.size() - image.expectedSize);
  }
  return text;
}

std::string Text(const ListRow& row, const Image& image)
{
  return fmt::format("{:<8}  {:<8}  {:<4}  {:<19}  {:>10}  {}\n", row.loadId, row.name, row.versionLevel, row.built,
                     row.lidSize, image.file.name());
}
