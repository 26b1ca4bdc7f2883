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

FieldValue ByteAt(InputFile& file, std::uint64_t offset)
{
  unsigned char byte = 0;
  if (file.read(offset, {&byte, 1}) != 1) return {};
  return Hexadecimal({&byte, 1});
}

void CheckPayload(Image& image, InputFile& lid, CheckResult& result)
{
  result.made = true;
  const Payload inImage = {image.file, image.file.layout().lidOffset()};
  const Payload inLid = {lid, 0};
  const auto first = FirstDifference(inImage, inLid);
  if (!first) return;
  Failure failure;
  failure.record = &RecordOf(RecordId::lid);
  failure.offset = inImage.offset + *first;
  failure.found = ByteAt(image.file, failure.offset);
  failure.expected = ByteAt(lid, *first);
  failure.message = fmt::format("the image's LID of {} bytes and the LID of {} bytes differ from byte {} on",
                                inImage.length(), inLid.length(), *first);
  result.failures.push_back(std::move(failure));
}

// What building the headers anew came to.
struct MadeFront {
  ByteView bytes() const { return {front.bytes.getBytePointer(), front.bytes.length()}; }

  OutputFront front;
  int code = success;
  std::vector<std::string> lines;  // what the tool said
  bool tookImageTime = false;
};

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
    made.code = lid.size() > MaximumLength ? lidNotRead : lidNotMeasured;
    return made;
  }
  MessageCapture capture;
  made.code = BuildFront(run, lid.status(), lidBegin, made.front);
  for (const MessageCapture::Line& line : capture.lines()) made.lines.push_back(ToText(line.text));
  return made;
}

// The fields of the image whose bytes are not those of the made front. Where the base names have other lengths, the
// records after the fill lie at other places, and the fields of the name's form are left out.
void CompareFields(const Image& image, const MadeFront& made, CheckResult& result)
{
  const std::uint64_t madeLength = made.front.bytes.length();
  const std::uint64_t lidOffset = image.file.layout().lidOffset();
  for (const Record& record : image.records) {
    const bool isName = record.row == &RecordOf(RecordId::longName);
    if (record.offset >= lidOffset || (isName && madeLength != lidOffset)) continue;
    const bool moves = record.row == &RecordOf(RecordId::sectionHeader);
    const std::uint64_t shift = moves ? madeLength - lidOffset : 0;
    for (const Field& field : record.fields) {
      if (field.bytes.size() < field.length || (field.row->form != NameForm::any && madeLength != lidOffset)) continue;
      const ByteView expected = made.bytes().subspan(field.offset + shift, field.length);
      if (Differ(*field.row, field.bytes, expected)) result.failures.push_back(BytesFailure(record, field, expected));
    }
  }
}

// The image's own time stands for the LID's, so that a wrong stamp shows in the local time only.
void RemarkOnTime(CheckResult& result)
{
  result.remarks.emplace_back("the LID has no header and no time was given: the image's stamp is taken");
  const auto isLocal = [](const Failure& failure) {
    return failure.field == &FieldOf(RecordId::vpdHeader, "ruDate") ||
           failure.field == &FieldOf(RecordId::vpdHeader, "ruTime");
  };
  if (std::ranges::any_of(result.failures, isLocal)) {
    result.remarks.emplace_back("the stamp or the time zone is another one");
  }
}

void CheckInputs(const Image& image, const MadeFront& made, CheckResult& result)
{
  result.made = true;
  if (made.code != success) {
    Failure failure;
    const char* before = made.lines.empty() ? "" : ": ";
    failure.message =
        fmt::format("kelvra refuses them with code {}{}{}", made.code, before, fmt::join(made.lines, " "));
    result.failures.push_back(std::move(failure));
    return;
  }
  const std::uint64_t length = made.front.bytes.length();
  const std::uint64_t lidOffset = image.file.layout().lidOffset();
  const ByteView there = image.file.bytes(0, std::max(length, lidOffset));
  if (!std::ranges::equal(there, made.bytes())) {
    CompareFields(image, made, result);
    if (length != lidOffset) {
      result.failures.push_back(
          {&RecordOf(RecordId::lid), nullptr, lidOffset, lidOffset, length,
           fmt::format("the LID begins at {}, not {}: the base name has another length", lidOffset, length)});
    }
    if (result.failures.empty()) {
      const auto at = std::ranges::mismatch(there, made.bytes()).in1 - there.begin();
      result.failures.push_back({nullptr, nullptr, static_cast<std::uint64_t>(at), {}, {}, "the headers end early"});
    }
  }
  if (made.tookImageTime) RemarkOnTime(result);
}

// Why a source does not open or cannot be read to its end.
std::optional<Reason> FindUnread(const MadeFront& made)
{
  if (auto reason = FindUnopened(made.front.sources)) return reason;
  if (made.code != ruvpdNotRead && made.code != vpdinfoNotRead) return std::nullopt;
  return WhyNotRead(made.front.sources.back().name);
}

void CheckWithInputs(Image& image, const Inputs& inputs, VerifyResult& verified)
{
  const auto result = [&](CheckId id) -> CheckResult& { return verified.checks[static_cast<std::size_t>(id)]; };
  Kelvra run = MakeRun(inputs);
  InputFile lid(ToText(run.lidFile.getSource()));
  if (!lid.reason()) CheckPayload(image, lid, result(CheckId::payload));
  const auto unusedVpdinfo = inputs.source.empty() ? std::nullopt : UnreadVpdinfo(run);
  if (unusedVpdinfo) {
    verified.reasons.push_back(*unusedVpdinfo);
  } else if (!lid.reason() && !inputs.source.empty()) {
    const MadeFront made = MakeFront(image, lid, run);
    if (const auto unread = FindUnread(made)) {
      verified.reasons.push_back(*unread);
    } else {
      CheckInputs(image, made, result(CheckId::inputs));
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
    if (!inputs.lid.empty()) CheckWithInputs(image, inputs, verified);
  }
  if (image.file.reason()) verified.reasons.push_back(*image.file.reason());
  const bool fails = std::ranges::any_of(verified.checks, [](const CheckResult& c) { return !c.failures.empty(); });
  verified.status = !verified.reasons.empty() ? couldNot : fails ? foundSomething : allWell;
  return verified;
}
