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
    {"file-length", "the file ends where its LID ends"},
    {"file-header", "the file header's constants, its end of file and its count of optional-header bytes"},
    {"auxiliary-header", "the auxiliary header's constants"},
    {"vpd-header", "the VPD header's constant, its offsets and its RU length"},
    {"ssd-header", "the SSD header's type option and its nucleus sequence control"},
    {"fill", "the zeros up to the VPD body"},
    {"long-name", "a base name of more than 8 characters: its offset, its length and its closing zero"},
    {"section-header", "the section header's name, size, offset and flags"},
    {"reserved-bytes", "zeros in the reserved bytes of the VPD and SSD headers"},
    {"date-time", "the RU date and time are a date and a time"},
    {"build-time", "the stamp and the local date and time are at most 16 hours apart"},
    {"codes", "each code stands for a value"},
    {"flags", "the flags that follow from other fields"},
    {"text-fields", "the texts consist of EBCDIC characters that kelvra writes"},
    {"payload", "the LID is the image's"},
    {"inputs", "the inputs make the image's headers"},
};
static_assert(std::size(checkRows) == static_cast<std::size_t>(CheckId::inputs) + 1);

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
    {CheckId::vpdHeader, RecordId::vpdHeader, "vpdConstant", Always<0xE5D7C4>},
    {CheckId::vpdHeader, RecordId::vpdHeader, "vpdBodyOffset", Always<headerBodyOffset>},
    {CheckId::vpdHeader, RecordId::vpdHeader, "ssdOffset", Always<sizeof(VPDHDR)>},
    {CheckId::ssdHeader, RecordId::ssdHeader, "nucleusSequenceControl", Always<0>},
    {CheckId::ssdHeader, RecordId::ssdHeader, "ruTypeOption", Always<2>},
    {CheckId::longName, RecordId::ssdHeader, "longName.reserved", Always<0>},
    {CheckId::longName, RecordId::ssdHeader, "longName.ruNameOffset", Always<headerBodyOffset>},
    {CheckId::longName, RecordId::longName, "terminator", Always<0>},
    {CheckId::sectionHeader, RecordId::sectionHeader, "name", Always<0x4BA385A7A3000000>},
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

// The checks over one image.
class Checker {
 public:
  explicit Checker(const Image& checked) : image(checked)
  {
    for (const CheckRow& row : checkRows) results.push_back({&row, true, {}, {}});
  }

  std::vector<CheckResult> run();

 private:
  std::vector<Failure>& failures(CheckId id) { return results[static_cast<std::size_t>(id)].failures; }
  void remark(CheckId id, std::string text)
  {
    results[static_cast<std::size_t>(id)].remarks.push_back(std::move(text));
  }
  void fail(CheckId id, RecordId record, const char* name, const char* message);
  std::pair<const Record*, const Field*> find(RecordId record, const char* name) const;
  std::uint64_t number(RecordId record, const char* name) const;

  void checkLength();
  void checkExpectations();
  void checkZeros(const Record& record, const Field& field);
  void checkTimes();
  void checkCode(const Record& record, const Field& field);
  void checkText(const Record& record, const Field& field);
  void checkRelations();

  const Image& image;
  std::vector<CheckResult> results;
};

// A failure of a field for which there is no one right value.
void Checker::fail(CheckId id, RecordId recordId, const char* name, const char* message)
{
  const auto [record, field] = find(recordId, name);
  if (field != nullptr) failures(id).push_back({record->row, field->row, field->offset, field->value, {}, message});
}

std::vector<CheckResult> Checker::run()
{
  checkLength();
  checkExpectations();
  for (const Record& record : image.records) {
    // What a LID says of itself is its own affair.
    if (record.row == &RecordOf(RecordId::lidHeader)) continue;
    for (const Field& field : record.fields) {
      if (field.bytes.size() < field.length) continue;
      checkZeros(record, field);
      checkCode(record, field);
      checkText(record, field);
    }
  }
  checkTimes();
  checkRelations();
  return std::move(results);
}

void Checker::checkLength()
{
  const std::uint64_t nameLength = image.file.layout().longNameLength();
  if (nameLength != 0 && nameLength <= longestShortName + 1) {
    fail(CheckId::longName, RecordId::longName, "baseName", "a name of at most 8 characters stands in the SSD header");
  }
  const std::uint64_t size = image.file.size();
  if (size == image.expectedSize) return;
  failures(CheckId::fileLength)
      .push_back({nullptr, nullptr, std::min(size, image.expectedSize), size, image.expectedSize,
                  size < image.expectedSize ? "the file is cut" : "bytes follow the LID"});
}

void Checker::checkExpectations()
{
  for (const Expectation& expectation : expectations) {
    const auto [record, field] = find(expectation.record, expectation.field);
    if (field == nullptr) continue;
    const std::uint64_t value = expectation.value(image.file.layout());
    std::array<unsigned char, 8> bytes = {};
    for (std::size_t i = 0; i < bytes.size(); i++) bytes[i] = static_cast<unsigned char>(value >> (56 - 8 * i));
    const ByteView expected = ByteView(bytes).last(field->bytes.size());
    const FieldValue right = field->row->bits.width != 0 ? FieldValue(value != 0) : Decode(*field->row, expected);
    if (field->value == right) continue;
    failures(expectation.check).push_back({record->row, field->row, field->offset, field->value, right, {}});
  }
}

void Checker::checkZeros(const Record& record, const Field& field)
{
  if (field.row->kind != FieldKind::reserved || record.row == &RecordOf(RecordId::longName)) return;
  if (std::string_view(field.row->name).starts_with("longName")) return;
  if (field.value == FieldValue(std::uint64_t{0})) return;
  const CheckId id = record.row == &RecordOf(RecordId::fill) ? CheckId::fill : CheckId::reservedBytes;
  failures(id).push_back({record.row, field.row, field.offset, field.value, std::uint64_t{0}, {}});
}

void Checker::checkTimes()
{
  const auto [record, date] = find(RecordId::vpdHeader, "ruDate");
  const auto [same, time] = find(RecordId::vpdHeader, "ruTime");
  if (date == nullptr || time == nullptr) return;
  const auto moment = BuildMomentOf(image.file);
  if (!moment) {
    failures(CheckId::dateTime)
        .push_back({record->row, date->row, date->offset, date->value, {}, "the date or the time is none"});
    return;
  }
  const std::int64_t offset = moment->local - moment->stamp;
  if (std::abs(offset) > longestOffset) {
    failures(CheckId::buildTime)
        .push_back({record->row,
                    date->row,
                    date->offset,
                    TimeText(moment->local),
                    {},
                    "the stamp is " + TimeText(moment->stamp) + " UTC"});
  } else {
    remark(CheckId::buildTime, "local time is UTC" + OffsetText(offset));
  }
}

void Checker::checkCode(const Record& record, const Field& field)
{
  if (field.row->kind != FieldKind::code || field.row->name == std::string_view("ruTypeOption")) return;
  const bool isNone =
      field.row->name == std::string_view("ruDestination") && field.value == FieldValue(std::uint64_t{0});
  if (isNone || !Names(*field.row, field.value).empty()) return;
  failures(CheckId::codes).push_back({record.row, field.row, field.offset, field.value, {}, "no value has this code"});
}

// A text is what the encoder makes of any characters, so that only bytes that it never makes are faults.
void Checker::checkText(const Record& record, const Field& field)
{
  if (field.row->kind != FieldKind::text && field.row->kind != FieldKind::name) return;
  if (record.row == &RecordOf(RecordId::sectionHeader)) return;
  const auto isWritten = [](unsigned char byte) {
    return AsciiEbcdic::AsciiToEbcdic(AsciiEbcdic::EbcdicToAscii(byte)) == byte;
  };
  if (!std::ranges::all_of(field.bytes, isWritten)) {
    failures(CheckId::textFields)
        .push_back({record.row, field.row, field.offset, field.value, {}, "not a text that kelvra writes"});
    return;
  }
  const std::string& text = std::get<std::string>(field.value);
  if (text.find("\\x") != std::string::npos || text.find(' ') != std::string::npos) {
    remark(CheckId::textFields, fmt::format("{} has odd characters: \"{}\"", FieldName(*record.row, *field.row), text));
  }
}

void Checker::checkRelations()
{
  const auto [vpd, present] = find(RecordId::vpdHeader, "flags1.loadIdPresent");
  if (present != nullptr) {
    const bool hasLoadId = number(RecordId::vpdHeader, "ruLoadId") != 0;
    if (present->value != FieldValue(hasLoadId)) {
      failures(CheckId::flags).push_back({vpd->row, present->row, present->offset, present->value, hasLoadId, {}});
    }
  }
  const auto [ssd, destination] = find(RecordId::ssdHeader, "ruDestination");
  if (destination != nullptr && number(RecordId::ssdHeader, "linkLoaderBypass") == 1 &&
      destination->value != FieldValue(std::uint64_t{0})) {
    failures(CheckId::flags)
        .push_back({ssd->row, destination->row, destination->offset, destination->value, std::uint64_t{0},
                    "a unit that bypasses the link/loader has no destination"});
  }
}

// The field where the file holds it whole, else nulls.
std::pair<const Record*, const Field*> Checker::find(RecordId id, const char* name) const
{
  for (const Record& record : image.records) {
    if (record.row != &RecordOf(id)) continue;
    for (const Field& field : record.fields) {
      if (field.bytes.size() == field.length && std::string_view(field.row->name) == name) return {&record, &field};
    }
  }
  return {nullptr, nullptr};
}

std::uint64_t Checker::number(RecordId id, const char* name) const
{
  const auto [record, field] = find(id, name);
  return field != nullptr ? Number(field->bytes) : 0;
}

}  // namespace

std::span<const CheckRow> CheckRows() { return checkRows; }

const CheckRow& CheckOf(CheckId id) { return checkRows[static_cast<std::size_t>(id)]; }

std::vector<CheckResult> CheckImage(const Image& image) { return Checker(image).run(); }

Failure FieldFailure(const Record& record, const Field& field, ByteView expected)
{
  Failure failure = {record.row, field.row, field.offset, field.value, Decode(*field.row, expected), {}};
  if (failure.found == failure.expected) {
    failure.found = Hexadecimal(field.bytes);
    failure.expected = Hexadecimal(expected);
  }
  return failure;
}

std::string FieldName(const RecordRow& record, const FieldRow& field)
{
  return std::string(record.name) + '.' + field.name;
}
