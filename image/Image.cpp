#include "image/Image.h"

#include <fmt/format.h>

#include <algorithm>

#include "headers/AsciiEbcdic.h"
#include "headers/KespHeader.h"
#include "image/BuildMoment.h"
#include "image/Utf8.h"

namespace {

constexpr unsigned char noCharacter = 0xFF;

ByteView WithoutPadding(ByteView bytes, unsigned char padding)
{
  while (!bytes.empty() && bytes.back() == padding) bytes = bytes.first(bytes.size() - 1);
  return bytes;
}

std::string FromAscii(ByteView bytes)
{
  bytes = WithoutPadding(bytes, 0);
  return std::string(bytes.begin(), bytes.end());
}

std::string Join(const std::vector<std::string>& names)
{
  std::string text = names.front();
  for (std::size_t i = 1; i < names.size(); i++) text.append(", ").append(names[i]);
  return text;
}

// Of a field that is held whole.
std::uint64_t BitsOf(const FieldRow& row, ByteView bytes)
{
  const std::uint64_t after = bytes.size() * 8 - row.bits.first % 8 - row.bits.width;
  return Number(bytes) >> after & row.bits.ones();
}

// "2026-03-14 09:26" for the twelve digits of a LID header's date and time.
std::string LidTimeText(const std::string& digits)
{
  const auto part = [&](std::size_t first, std::size_t count) { return digits.substr(first, count); };
  return fmt::format("{}-{}-{} {}:{}", part(0, 4), part(4, 2), part(6, 2), part(8, 2), part(10, 2));
}

// What a field of no fixed length takes: what the others of its record leave.
std::uint64_t Rest(const Record& record)
{
  std::uint64_t fixed = 0;
  for (const FieldRow& row : record.row->fields) fixed += row.length;
  return record.length > fixed ? record.length - fixed : 0;
}

std::string Remark(const FieldRow& row, const FieldValue& value)
{
  const auto* digits = std::get_if<std::string>(&value);
  const bool isLidTime = digits != nullptr && row.kind == FieldKind::digits && digits->size() == 12;
  return isLidTime ? LidTimeText(*digits) : std::string();
}

void TakeFields(const ImageFile& file, Record& record, bool longName)
{
  record.fields.reserve(record.row->fields.size());
  std::uint64_t shift = 0;  // after a field of no fixed length
  for (const FieldRow& row : record.row->fields) {
    if (!Applies(row, longName)) continue;
    const bool isFixed = row.length != 0;
    const std::uint64_t first = FirstByte(row) + shift;
    const std::uint64_t whole = isFixed ? ByteCount(row) : Rest(record);
    if (!isFixed) shift = whole;
    if (first >= record.length || whole == 0) continue;
    // A LID header of version 2 may end within a field.
    const std::uint64_t length = std::min(whole, record.length - first);
    Field field = {&row, record.offset + first, length, file.bytes(record.offset + first, length), {}, {}};
    if (field.bytes.size() == whole) field.value = Decode(row, field.bytes);
    if (record.row == &RecordOf(RecordId::lidHeader)) field.remark = Remark(row, field.value);
    record.fields.push_back(std::move(field));
  }
}

void AddRecord(Image& image, RecordId id, std::uint64_t length)
{
  const std::uint64_t offset = image.file.offsetOf(id);
  const std::uint64_t size = image.file.size();
  if (length == 0 && id != RecordId::lid) return;
  if (offset > size || (offset == size && length != 0)) return;
  Record record = {&RecordOf(id), offset, length, std::min(length, size - offset), {}};
  TakeFields(image.file, record, image.file.layout().longNameLength() != 0);
  image.records.push_back(std::move(record));
}

void Remark(Image& image, RecordId id, const char* name, const std::string& text)
{
  const FieldRow* row = &FieldOf(id, name);
  for (Record& record : image.records) {
    const auto field = std::ranges::find(record.fields, row, &Field::row);
    if (field != record.fields.end()) field->remark = text;
  }
}

void AddTimeRemarks(Image& image)
{
  const auto moment = BuildMomentOf(image.file);
  if (!moment) return;
  Remark(image, RecordId::fileHeader, "timeDate", TimeText(moment->stamp) + " UTC");
  Remark(image, RecordId::vpdHeader, "ruTime", "UTC" + OffsetText(moment->local - moment->stamp));
}

}  // namespace

Image::Image(const std::string& name) : file(name)
{
  if (file.reason()) return;
  const ImageLayout& layout = file.layout();
  expectedSize = layout.lidOffset() + layout.lidLength;
  records.reserve(RecordRows().size());
  for (int i = 0; i < static_cast<int>(RecordId::longName); i++) {
    AddRecord(*this, static_cast<RecordId>(i), RecordRows()[static_cast<std::size_t>(i)].length);
  }
  AddRecord(*this, RecordId::longName, layout.longNameLength());
  AddRecord(*this, RecordId::sectionHeader, RecordOf(RecordId::sectionHeader).length);
  AddRecord(*this, RecordId::lid, layout.lidLength);
  AddRecord(*this, RecordId::lidHeader, layout.lidHeaderLength);
  AddTimeRemarks(*this);
}

const Record* Image::find(RecordId id) const
{
  const auto record = std::ranges::find(records, &RecordOf(id), &Record::row);
  return record != records.end() ? &*record : nullptr;
}

const Field* Image::find(RecordId id, const FieldRow& row) const
{
  const Record* record = find(id);
  if (record == nullptr) return nullptr;
  const auto field = std::ranges::find(record->fields, &row, &Field::row);
  return field != record->fields.end() ? &*field : nullptr;
}

ExitStatus Image::status() const
{
  if (file.reason()) return couldNot;
  return file.size() == expectedSize ? allWell : foundSomething;
}

FieldValue Decode(const FieldRow& row, ByteView bytes)
{
  switch (row.kind) {
    case FieldKind::number:
    case FieldKind::stamp:
    case FieldKind::code:
      return Number(bytes);
    case FieldKind::flag: {
      const std::uint64_t bits = BitsOf(row, bytes);
      if (row.bits.width == 1) return bits != 0;
      return bits;
    }
    case FieldKind::text:
      return FromEbcdic(bytes, ebcdicBlankChar);
    case FieldKind::name:
      return FromEbcdic(bytes, 0);
    case FieldKind::ascii:
      return FromAscii(bytes);
    case FieldKind::digits:
      return Hexadecimal(bytes);
    case FieldKind::reserved:
      if (row.bits.width != 0) return BitsOf(row, bytes);
      return IsZero(bytes) ? FieldValue(std::uint64_t{0}) : FieldValue(Hexadecimal(bytes));
  }
  return {};
}

bool Differ(const FieldRow& row, ByteView one, ByteView other)
{
  const bool areWhole = one.size() == ByteCount(row) && other.size() == ByteCount(row);
  if (row.bits.width != 0 && areWhole) return BitsOf(row, one) != BitsOf(row, other);
  return !std::ranges::equal(one, other);
}

std::vector<std::string> Names(const FieldRow& row, const FieldValue& value)
{
  if (std::holds_alternative<std::monostate>(value)) return {};
  std::uint64_t code = 0;
  if (const auto* number = std::get_if<std::uint64_t>(&value)) {
    code = *number;
  } else if (const auto* flag = std::get_if<bool>(&value)) {
    code = *flag ? 1 : 0;
  }
  std::vector<std::string> names;
  for (const CodedValue& coded : row.values) {
    if (coded.code == code) names.emplace_back(coded.value);
  }
  return names;
}

std::string ValueText(const FieldRow& row, const FieldValue& value)
{
  if (std::holds_alternative<std::monostate>(value)) return "(cut)";
  if (!row.values.empty()) {
    if (const auto names = Names(row, value); !names.empty()) return Join(names);
  }
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
  if (const auto* number = std::get_if<std::uint64_t>(&value)) {
    if (row.kind == FieldKind::reserved && *number == 0) return "zeros";
    if (row.values.empty()) return std::to_string(*number);
    return std::to_string(*number) + (*number == 0 ? " (none)" : " (no name)");
  }
  const std::string& text = std::get<std::string>(value);
  return row.kind == FieldKind::digits || row.kind == FieldKind::reserved ? text : '"' + Escaped(text) + '"';
}

std::string Hexadecimal(ByteView bytes)
{
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const unsigned char byte : bytes) {
    text += digits[byte >> 4];
    text += digits[byte & 15];
  }
  return text;
}

bool IsZero(ByteView bytes)
{
  return std::ranges::all_of(bytes, [](unsigned char byte) { return byte == 0; });
}

std::string FromEbcdic(ByteView bytes, unsigned char padding)
{
  if (IsZero(bytes)) return {};
  std::string text;
  for (const unsigned char byte : WithoutPadding(bytes, padding)) {
    const unsigned char ascii = AsciiEbcdic::EbcdicToAscii(byte);
    text += static_cast<char>(AsciiEbcdic::AsciiToEbcdic(ascii) == byte ? ascii : noCharacter);
  }
  return text;
}
