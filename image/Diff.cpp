#include "image/Diff.h"

#include <algorithm>

#include "image/BuildMoment.h"
#include "image/Payload.h"

namespace {

void CompareField(const RecordRow& record, const FieldRow& row, const Field* one, const Field* other,
                  std::vector<Difference>& differences)
{
  if (one == nullptr && other == nullptr) return;
  if (one != nullptr && other != nullptr && !Differ(row, one->bytes, other->bytes)) return;
  Difference difference = {&record, &row, {}, {}};
  const Field* fields[] = {one, other};
  for (int i = 0; i < 2; i++) {
    if (fields[i] == nullptr) continue;
    difference.offsets[i] = fields[i]->offset;
    difference.values[i] = fields[i]->value;
  }
  // Texts that differ in their padding only are told apart by their bytes.
  if (one != nullptr && other != nullptr && one->value == other->value) {
    for (int i = 0; i < 2; i++) difference.values[i] = Hexadecimal(fields[i]->bytes);
  }
  differences.push_back(std::move(difference));
}

void CompareRecords(const Image& one, const Image& other, std::vector<Difference>& differences)
{
  for (const RecordRow& row : RecordRows()) {
    const auto id = static_cast<RecordId>(&row - RecordRows().data());
    for (const FieldRow& field : row.fields) {
      CompareField(row, field, one.find(id, field), other.find(id, field), differences);
    }
  }
}

// What the time fields tell of how the two were made.
void AddNotes(const Image& one, const Image& other, std::vector<std::string>& notes)
{
  const auto oneMoment = BuildMomentOf(one.file);
  const auto otherMoment = BuildMomentOf(other.file);
  if (!oneMoment || !otherMoment) return;
  const std::int64_t offsets[] = {oneMoment->local - oneMoment->stamp, otherMoment->local - otherMoment->stamp};
  if (offsets[0] != offsets[1]) {
    notes.push_back("built in two time zones: UTC" + OffsetText(offsets[0]) + " and UTC" + OffsetText(offsets[1]));
  }
  const bool haveHeaders = one.file.layout().lidHeaderLength != 0 || other.file.layout().lidHeaderLength != 0;
  if (oneMoment->stamp != otherMoment->stamp && !haveHeaders) {
    notes.emplace_back("the LIDs have no header: the build time is that of the LID's last change, or was given");
  }
}

}  // namespace

DiffResult Diff(Image& one, Image& other)
{
  DiffResult result;
  for (const Image* image : {&one, &other}) {
    if (image->file.reason()) result.reasons.push_back(*image->file.reason());
  }
  if (result.reasons.empty()) {
    CompareRecords(one, other, result.differences);
    const Payload payloads[] = {{one.file, one.file.layout().lidOffset()},
                                {other.file, other.file.layout().lidOffset()}};
    if (const auto first = FirstDifference(payloads[0], payloads[1])) {
      result.payload = PayloadDifference{*first, {payloads[0].length(), payloads[1].length()}};
    }
    if (!result.differences.empty()) AddNotes(one, other, result.notes);
    for (const Image* image : {&one, &other}) {
      if (image->file.reason()) result.reasons.push_back(*image->file.reason());
    }
  }
  const bool same = result.differences.empty() && !result.payload;
  result.status = !result.reasons.empty() ? couldNot : same ? allWell : foundSomething;
  return result;
}
