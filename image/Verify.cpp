#include "image/Verify.h"

#include <fmt/format.h>

#include <algorithm>

#include "driver/BuildTime.h"
#include "driver/OutputFront.h"
#include "foundation/Allocate.h"
#include "foundation/ReturnCode.h"
#include "foundation/StandardStreams.h"
#include "headers/FileHdr.h"
#include "headers/KespHeader.h"
#include "image/BuildMoment.h"
#include "image/Payload.h"

namespace {

CheckResult CheckPayload(Image& image, InputFile& lid)
{
  CheckResult result = {&CheckOf(CheckId::payload), true, {}, {}};
  const Payload inImage = {image.file, image.file.layout().lidOffset()};
  const Payload inLid = {lid, 0};
  const auto difference = FirstDifference(inImage, inLid);
  if (!difference) return result;
  Failure failure;
  failure.record = &RecordOf(RecordId::lid);
  failure.offset = inImage.offset + *difference;
  failure.found = inImage.length();
  failure.expected = inLid.length();
  failure.message = fmt::format("the LID of {} bytes and the image's of {} differ from byte {} on", inLid.length(),
                                inImage.length(), *difference);
  result.failures.push_back(std::move(failure));
  return result;
}

// What building the headers anew came to.
struct MadeFront {
  ByteView bytes() const { return {front.bytes.getBytePointer(), front.bytes.length()}; }

  OutputFront front;
  int code = success;
  std::vector<std::string> lines;  // what the tool said
  bool tookImageTime = false;
};

// A source that the tool could not open.
std::optional<Reason> FindUnopened(const std::vector<SourceFile>& sources)
{
  for (const SourceFile& source : sources) {
    const InputFile file(ToText(source.name.getSource()));
    if (file.reason() && file.reason()->error != 0) return file.reason();
  }
  return std::nullopt;
}

std::int64_t StampOf(const Image& image)
{
  if (const auto moment = BuildMomentOf(image.file)) return moment->stamp;
  return static_cast<std::int64_t>(Number(image.file.bytes(offsetof(FILEHDR, timeDate), sizeof(FILEHDR::timeDate))));
}

// By the tool's own code. A LID without a header has no time of its own: without a given one the image's is taken.
MadeFront MakeFront(const Image& image, InputFile& lid, Kelvra& run)
{
  MadeFront made;
  std::vector<unsigned char> begin(std::min<std::uint64_t>(sizeof(KESPHDR), lid.size()));
  begin.resize(lid.read(0, begin));
  const ByteString lidBegin(begin.data(), static_cast<unsigned int>(begin.size()));
  if (!run.buildTime && !HoldsBuildTime(KespHeader(lidBegin))) {
    run.buildTime = StampOf(image);
    made.tookImageTime = true;
  }
  if (lid.size() > MaximumLength - FrontLength(run)) {
    made.code = lidNotMeasured;
    return made;
  }
  const MessageCapture capture;
  made.code = BuildFront(run, FileStatus(run.lidFile.getSource()), lidBegin, made.front);
  for (const MessageCapture::Line& line : capture.lines()) made.lines.push_back(ToText(line.text));
  return made;
}

// The fields of the image whose bytes are not those of the made front, where the records of both lie at other places
// when their names have other lengths.
void CompareFields(const Image& image, const MadeFront& made, CheckResult& result)
{
  const std::uint64_t madeLength = made.front.bytes.length();
  const std::uint64_t inImage = image.file.layout().lidOffset();
  for (const Record& record : image.records) {
    if (record.offset >= inImage) continue;
    const bool moves = record.row == &RecordOf(RecordId::sectionHeader);
    const std::uint64_t shift = moves ? madeLength - inImage : 0;
    for (const Field& field : record.fields) {
      const std::uint64_t begin = field.offset + shift;
      if (begin + field.length > madeLength || field.bytes.size() < field.length) continue;
      const ByteView expected = made.bytes().subspan(begin, field.length);
      if (Differ(*field.row, field.bytes, expected)) result.failures.push_back(FieldFailure(record, field, expected));
    }
  }
}

CheckResult CheckInputs(const Image& image, const MadeFront& made)
{
  CheckResult result = {&CheckOf(CheckId::inputs), true, {}, {}};
  if (made.tookImageTime)
    result.remarks.emplace_back("the LID has no header and no time was given: the image's is taken");
  const std::uint64_t length = made.front.bytes.length();
  const ByteView there = image.file.bytes(0, std::max(length, image.file.layout().lidOffset()));
  if (std::ranges::equal(there, made.bytes())) return result;
  CompareFields(image, made, result);
  if (length != image.file.layout().lidOffset()) {
    result.failures.push_back({&RecordOf(RecordId::lid), nullptr, length, image.file.layout().lidOffset(), length,
                               "the headers have another length: the base name is another"});
  }
  if (result.failures.empty()) {
    const auto at = std::ranges::mismatch(there, made.bytes()).in1 - there.begin();
    result.failures.push_back({nullptr, nullptr, static_cast<std::uint64_t>(at), {}, {}, "the headers differ"});
  }
  return result;
}

void CheckWithInputs(Image& image, const Inputs& inputs, VerifyResult& verified)
{
  Kelvra run = MakeRun(inputs);
  InputFile lid(ToText(run.lidFile.getSource()));
  if (!lid.reason()) verified.checks[static_cast<std::size_t>(CheckId::payload)] = CheckPayload(image, lid);
  if (!lid.reason() && !inputs.source.empty()) {
    const MadeFront made = MakeFront(image, lid, run);
    if (const auto unopened = FindUnopened(made.front.sources)) {
      verified.reasons.push_back(*unopened);
    } else if (made.code != success) {
      CheckResult refused = {&CheckOf(CheckId::inputs), true, {}, {}};
      Failure failure;
      failure.message = fmt::format("kelvra refuses them with code {}: {}", made.code, fmt::join(made.lines, " "));
      refused.failures.push_back(std::move(failure));
      verified.checks[static_cast<std::size_t>(CheckId::inputs)] = std::move(refused);
    } else {
      verified.checks[static_cast<std::size_t>(CheckId::inputs)] = CheckInputs(image, made);
    }
  }
  if (lid.reason()) verified.reasons.push_back(*lid.reason());
}

}  // namespace

VerifyResult Verify(Image& image, const Inputs& inputs)
{
  VerifyResult verified;
  if (!image.file.reason()) {
    verified.checks = CheckImage(image);
    verified.checks[static_cast<std::size_t>(CheckId::payload)].made = false;
    verified.checks[static_cast<std::size_t>(CheckId::inputs)].made = false;
    if (!inputs.lid.empty()) CheckWithInputs(image, inputs, verified);
  }
  if (image.file.reason()) verified.reasons.push_back(*image.file.reason());
  const bool fails = std::ranges::any_of(verified.checks, [](const CheckResult& c) { return !c.failures.empty(); });
  verified.status = !verified.reasons.empty() ? couldNot : fails ? foundSomething : allWell;
  return verified;
}
