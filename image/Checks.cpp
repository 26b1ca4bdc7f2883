#include "image/Checks.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "builder/MorvikCreateHeader.h"
#include "headers/AsciiEbcdic.h"
#include "headers/AuxillaryHdr.h"
#include "headers/FileHdr.h"
#include "headers/SSDHdrX.h"
#include "headers/ScnHdr.h"
#include "headers/VPDHdrX.h"
#include "image/BuildMoment.h"

namespace {

constexpr CheckRow checkRows[] = {
    {"file-length", "the file ends where its LID ends", RecordId::fileHeader},
    {"file-header", "the file header's constants, its end of file and its count of optional-header bytes",
     RecordId::fileHeader},
    {"auxiliary-header", "the auxiliary header's constants", RecordId::auxiliaryHeader},
    {"vpd-header", "the VPD header's constant, its offsets and its RU length", RecordId::vpdHeader},
    {"ssd-header", "the SSD header's type option and its nucleus sequence control", RecordId::ssdHeader},
    {"fill", "the zeros up to the VPD body", RecordId::fill},
    {"long-name", "a base name of more than 8 characters: its offset, its length and its closing zero",
     RecordId::sectionHeader},
    {"section-header", "the section header's name, size, offset and flags", RecordId::sectionHeader},
    {"reserved-bytes", "zeros in the reserved bytes of the VPD and SSD headers", RecordId::ssdHeader},
    {"date-time", "the RU date and time are a date and a time", RecordId::vpdHeader},
    {"build-time", "the stamp and the local date and time are at most 16 hours apart", RecordId::vpdHeader},
    {"codes", "each code stands for a value", RecordId::ssdHeader},
    {"flags", "the flags that follow from other fields", RecordId::ssdHeader},
    {"text-fields", "the texts consist of EBCDIC characters that kelvra writes", RecordId::sectionHeader},
    {"payload", "the LID is the image's", RecordId::lid},
    {"inputs", "the inputs make the image's headers", RecordId::lid},
};
static_assert(std::size(checkRows) == static_cast<std::size_t>(CheckId::inputs) + 1);

constexpr std::uint64_t vpdConstantNumber = 0xE5D7C4;  // "VPD" in EBCDIC
constexpr std::uint64_t lidTypeOption = 2;             // of "LID"
constexpr std::uint64_t longestShortName = sizeof(RUSSD::ruName);
constexpr std::int64_t longestOffset = 57'600;  // seconds, 16 hours

// A field that has one right value, which follows from where the records lie.
struct Expectation {
  CheckId check;
  RecordId record;
  const char* field;
  std::uint64_t (*value)(const ImageLayout& layout);
};

template <std::uint64_t number>
std::uint64_t Always(const ImageLayout&)
{
  return number;
}

std::uint64_t EndOfFile(const ImageLayout& layout)
{
  return static_cast<std::uint32_t>(layout.lidOffset() + layout.lidLength);
}
std::uint64_t OptionalLength(const ImageLayout& layout)
{
  return static_cast<std::uint16_t>(layout.blockLength + sizeof(AUXILLARYHDR));
}
std::uint64_t LidLength(const ImageLayout& layout) { return layout.lidLength; }
std::uint64_t LidOffset(const ImageLayout& layout) { return layout.lidOffset(); }

constexpr Expectation expectations[] = {
    {CheckId::fileHeader, RecordId::fileHeader, "magicNumber", Always<FileHdr::objectMagicNumber>},
    {CheckId::fileHeader, RecordId::fileHeader, "numberOfSections", Always<1>},
    {CheckId::fileHeader, RecordId::fileHeader, "symbolTableOffset", EndOfFile},
    {CheckId::fileHeader, RecordId::fileHeader, "numberOfSymbols", Always<0>},
    {CheckId::fileHeader, RecordId::fileHeader, "numberOfOptionalHeaderBytes", OptionalLength},
    {CheckId::fileHeader, RecordId::fileHeader, "flags", Always<0>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "magicNumber", Always<AuxillaryHdr::auxiliaryMagicNumber>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "versionStamp", Always<AuxillaryHdr::auxiliaryVersionStamp>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "textSize", Always<0>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "initialisedDataSize", Always<0>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "uninitialisedDataSize", Always<0>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "entryPoint", Always<0>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "textStart", Always<0>},
    {CheckId::auxiliaryHeader, RecordId::auxiliaryHeader, "dataStart", Always<0>},
    {CheckId::vpdHeader, RecordId::vpdHeader, "ruLength", LidLength},
    {CheckId::vpdHeader, RecordId::vpdHeader, "vpdConstant", Always<vpdConstantNumber>},
    {CheckId::vpdHeader, RecordId::vpdHeader, "vpdBodyOffset", Always<headerBodyOffset>},
    {CheckId::vpdHeader, RecordId::vpdHeader, "ssdOffset", Always<sizeof(VPDHDR)>},
    {CheckId::ssdHeader, RecordId::ssdHeader, "nucleusSequenceControl", Always<0>},
    {CheckId::ssdHeader, RecordId::ssdHeader, "ruTypeOption", Always<lidTypeOption>},
    {CheckId::longName, RecordId::ssdHeader, "longName.reserved", Always<0>},
    {CheckId::longName, RecordId::ssdHeader, "longName.ruNameOffset", Always<headerBodyOffset>},
    {CheckId::longName, RecordId::longName, "terminator", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "name", Always<sectionNameNumber>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "physicalAddress", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "virtualAddress", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "numberOfRawDataBytes", LidLength},
    {CheckId::sectionHeader, RecordId::sectionHeader, "offsetToRawData", LidOffset},
    {CheckId::sectionHeader, RecordId::sectionHeader, "relocationOffset", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "lineNumberOffset", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "numberOfRelocations", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "numberOfLineNumbers", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "flags", Always<ScnHdr::dataSectionFlag>},
    {CheckId::flags, RecordId::vpdHeader, "flags1.hardwareDependency", Always<0>},
    {CheckId::flags, RecordId::vpdHeader, "flags1.softwareDependency", Always<0>},
};

// A field with its record, where the file holds it whole; else nulls.
struct Place {
  const Record* record = nullptr;
  const Field* field = nullptr;
};

// The checks over one image.
class Checker {
 public:
  explicit Checker(const Image& checked) : image(checked)
  {
    for (const CheckRow& row : checkRows) results.push_back({&row, true, {}, {}, {}});
  }

  std::vector<CheckResult> run();

 private:
  CheckResult& result(CheckId id) { return results[static_cast<std::size_t>(id)]; }
  void fail(CheckId id, const Place& place, const FieldValue& expected, const std::string& reason = {});
  Place find(RecordId record, const char* name) const;
  std::uint64_t number(RecordId record, const char* name) const;

  void checkLength();
  void checkExpectations();
  void checkZeros(const Place& place);
  void checkCode(const Place& place);
  void checkText(const Place& place);
  void checkTimes();
  void checkRelations();
  void leaveOutWhatIsCut();

  const Image& image;
  std::vector<CheckResult> results;
};

std::vector<CheckResult> Checker::run()
{
  checkLength();
  checkExpectations();
  for (const Record& record : image.records) {
    // What a LID says of itself is its own affair.
    if (record.row == &RecordOf(RecordId::lidHeader)) continue;
    for (const Field& field : record.fields) {
      if (field.bytes.size() < field.length) continue;
      checkZeros({&record, &field});
      checkCode({&record, &field});
      checkText({&record, &field});
    }
  }
  checkTimes();
  checkRelations();
  leaveOutWhatIsCut();
  return std::move(results);
}

void Checker::checkLength()
{
  const std::uint64_t size = image.file.size();
  if (size == image.expectedSize) return;
  result(CheckId::fileLength)
      .failures.push_back({nullptr, nullptr, std::min(size, image.expectedSize), size, image.expectedSize,
                           fmt::format("the file has {} bytes and should have {}", size, image.expectedSize)});
}

void Checker::checkExpectations()
{
  for (const Expectation& expectation : expectations) {
    const Place place = find(expectation.record, expectation.field);
    if (place.field == nullptr) continue;
    const std::uint64_t value = expectation.value(image.file.layout());
    std::array<unsigned char, 8> bytes = {};
    for (std::size_t i = 0; i < bytes.size(); i++) bytes[i] = static_cast<unsigned char>(value >> (56 - 8 * i));
    const FieldRow& row = *place.field->row;
    const FieldValue right =
        row.bits.width != 0 ? FieldValue(value != 0) : Decode(row, ByteView(bytes).last(place.field->bytes.size()));
    if (place.field->value != right) fail(expectation.check, place, right);
  }
  const std::uint64_t nameLength = image.file.layout().longNameLength();
  const Place name = find(RecordId::longName, "baseName");
  if (name.field != nullptr && nameLength <= longestShortName + 1) {
    fail(CheckId::longName, name, {}, "which fits in the SSD header");
  }
}

void Checker::checkZeros(const Place& place)
{
  const auto& [record, field] = place;
  if (field->row->kind != FieldKind::reserved || field->row->form == NameForm::afterFill) return;
  if (record->row == &RecordOf(RecordId::longName) || field->value == FieldValue(std::uint64_t{0})) return;
  const CheckId id = record->row == &RecordOf(RecordId::fill) ? CheckId::fill : CheckId::reservedBytes;
  fail(id, place, std::uint64_t{0});
}

// 0 is a code that needs no name: no destination.
void Checker::checkCode(const Place& place)
{
  const Field& field = *place.field;
  if (field.row->kind != FieldKind::code || field.row->values.data() == std::data(ruTypeOptions)) return;
  if (field.value == FieldValue(std::uint64_t{0}) || !Names(*field.row, field.value).empty()) return;
  fail(CheckId::codes, place, {}, "no value has this code");
}

// A text is what the encoder makes of any characters, so that only bytes that it never makes are faults.
void Checker::checkText(const Place& place)
{
  const auto& [record, field] = place;
  if (field->row->kind != FieldKind::text && field->row->kind != FieldKind::name) return;
  if (record->row == &RecordOf(RecordId::sectionHeader)) return;
  const auto isWritten = [](unsigned char byte) {
    return AsciiEbcdic::AsciiToEbcdic(AsciiEbcdic::EbcdicToAscii(byte)) == byte;
  };
  if (!std::ranges::all_of(field->bytes, isWritten)) {
    return fail(CheckId::textFields, place, {}, "not a text that kelvra writes: " + Hexadecimal(field->bytes));
  }
  const auto isOdd = [](char ch) { return ch <= ' ' || ch > '~'; };
  if (std::ranges::any_of(std::get<std::string>(field->value), isOdd)) {
    result(CheckId::textFields)
        .remarks.push_back(fmt::format("{} has odd characters: {}", FieldName(*record->row, *field->row),
                                       ValueText(*field->row, field->value)));
  }
}

void Checker::checkTimes()
{
  const Place date = find(RecordId::vpdHeader, "ruDate");
  const Place time = find(RecordId::vpdHeader, "ruTime");
  if (date.field == nullptr || time.field == nullptr) return;
  if (!DaySeconds(date.field->bytes)) fail(CheckId::dateTime, date, {}, "which is no date");
  if (!TimeSeconds(time.field->bytes)) fail(CheckId::dateTime, time, {}, "which is no time");
  const auto moment = BuildMomentOf(image.file);
  if (!moment) {
    result(CheckId::buildTime).made = false;
    return;
  }
  const std::int64_t offset = moment->local - moment->stamp;
  if (std::abs(offset) > longestOffset) {
    fail(CheckId::buildTime, find(RecordId::fileHeader, "timeDate"), {},
         fmt::format("which is {} UTC; the local time {} is UTC{}", TimeText(moment->stamp), TimeText(moment->local),
                     OffsetText(offset)));
  } else {
    result(CheckId::buildTime).details.push_back("local time is UTC" + OffsetText(offset));
  }
}

void Checker::checkRelations()
{
  const Place present = find(RecordId::vpdHeader, "flags1.loadIdPresent");
  const FieldValue hasLoadId = number(RecordId::vpdHeader, "ruLoadId") != 0;
  if (present.field != nullptr && present.field->value != hasLoadId) fail(CheckId::flags, present, hasLoadId);

  const Place destination = find(RecordId::ssdHeader, "ruDestination");
  const FieldValue none = std::uint64_t{0};
  const bool isBypassed = number(RecordId::ssdHeader, "linkLoaderBypass") == 1;
  if (destination.field != nullptr && isBypassed && destination.field->value != none) {
    fail(CheckId::flags, destination, none, "as the unit bypasses the link/loader");
  }
}

void Checker::leaveOutWhatIsCut()
{
  for (CheckResult& each : results) {
    const Record* last = image.find(each.check->last);
    const bool isHeld = last != nullptr && last->held == last->length;
    if (each.failures.empty() && !isHeld) each.made = false;
  }
  for (const CheckId id : {CheckId::payload, CheckId::inputs}) result(id).made = false;
}

void Checker::fail(CheckId id, const Place& place, const FieldValue& expected, const std::string& reason)
{
  result(id).failures.push_back(FieldFailure(*place.record, *place.field, expected, reason));
}

Place Checker::find(RecordId id, const char* name) const
{
  const Field* field = image.find(id, FieldOf(id, name));
  if (field == nullptr || field->bytes.size() < field->length) return {};
  return {image.find(id), field};
}

std::uint64_t Checker::number(RecordId id, const char* name) const
{
  const Place place = find(id, name);
  return place.field != nullptr ? Number(place.field->bytes) : 0;
}

}  // namespace

std::span<const CheckRow> CheckRows() { return checkRows; }

std::vector<CheckResult> CheckImage(const Image& image) { return Checker(image).run(); }

Failure FieldFailure(const Record& record, const Field& field, const FieldValue& expected, const std::string& reason)
{
  std::string message = fmt::format("{} at {} is {}", FieldName(*record.row, *field.row), field.offset,
                                    ValueText(*field.row, field.value));
  if (!std::holds_alternative<std::monostate>(expected)) message += ", not " + ValueText(*field.row, expected);
  if (!reason.empty()) message += ", " + reason;
  return {record.row, field.row, field.offset, field.value, expected, message};
}

Failure BytesFailure(const Record& record, const Field& field, ByteView expected)
{
  const FieldValue right = Decode(*field.row, expected);
  if (right != field.value) return FieldFailure(record, field, right, {});
  Field padded = field;
  padded.value = Hexadecimal(field.bytes);
  return FieldFailure(record, padded, Hexadecimal(expected), "in bytes");
}

std::string FieldName(const RecordRow& record, const FieldRow& field)
{
  return std::string(record.name) + '.' + field.name;
}
