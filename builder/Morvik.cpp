#include "builder/Morvik.h"

#include <algorithm>

#include "builder/Keywords.h"
#include "builder/MorvikCreateHeader.h"
#include "builder/SourceKind.h"
#include "foundation/FileStreams.h"
#include "foundation/MessageTable.h"
#include "foundation/ReturnCode.h"
#include "foundation/StandardStreams.h"
#include "source/SPAOption.h"

namespace {

constexpr MessageRow messages[] = {
    {warningsInSource, "Morvik process successful: Warning(s) encountered in source file"},
    {errorsInSource, "Morvik process failed: Error(s) encountered in source file"},
    {severeErrorsInSource, "Morvik process failed: Severe error(s) encountered in source file"},
    {terminatingErrorsInSource, "Morvik process failed: Terminating error(s) encountered in source file"},
    {badFileName, "Invalid filename specified"},
    {badDate, "Invalid date specified"},
    {badTime, "Invalid time specified"},
    {parameterMissing, "Required parameter missing"},
    {tooManyParameters, "Too many parameters"},
    {lidNotMeasured, "Error in getting file length of RU"},
    {badBodyAlignment, "Invalid body alignment specified"},
    {badSsdModel, "Invalid SSD Model value in the RUVPD source file"},
    {badAllowBreakpoints, "Invalid Allow Breakpoints value in the RUVPD source file"},
    {badNucleusSequenceControl, "Invalid Nucleus Sequence Control value in the RUVPD source file"},
    {badRuDestination, "Invalid RU Destination value in the RUVPD source file"},
    {badCodeBoundary, "Invalid Code Boundary Requirement value in the RUVPD source file"},
    {badLinkLoaderBypass, "Invalid Link/loader Bypass value in the RUVPD source file"},
    {badDeleteRu, "Invalid Delete RU value in the RUVPD source file"},
    {badRuArea, "Invalid RUArea value in the RUVPD source file"},
    {badSoftwareType, "Invalid Software Type value in the VPDINFO source file"},
    {badDevelopedBy, "Invalid Developed By Velmor value in the VPDINFO source file"},
    {badDevelopedFor, "Invalid Developed For Velmor value in the VPDINFO source file"},
    {badOnlineLLFlag, "Invalid Online Link/Loadable Flag value in the RUVPD source file"},
    {noRuName, "RUNAME value not assigned in header by Morvik"},
    {ruvpdNotOpened, "Unable to open RUVPD source file for input"},
    {ruvpdNotRead, "Error reading RUVPD source file"},
    {vpdinfoNotOpened, "Unable to open VPDINFO source file for input"},
    {vpdinfoNotRead, "Error reading VPDINFO source file"},
    {outOfMemory, "Out of memory"},
    {headerNotPrinted, "Error writing VPD header to STDOUT"},
};
static_assert(CodesAscend(messages));

boolean IsDigits(const String& text, unsigned int length)
{
  const char* characters = text;
  return text.length() == length &&
         std::all_of(characters, characters + length, [](char ch) { return ch >= '0' && ch <= '9'; });
}

void ReportUnusable(const FileName& file) { PrintErrorLine("File name is " + file.getSource() + '.'); }

}  // namespace

SourceFile::SourceFile(const FileName& file, const ReadFileStream& stream)
    : name(file), opened(stream.failure() ? FileStatus(file.getSource()) : stream.status()), isOpened(!stream.failure())
{}

std::span<const MessageRow> MorvikMessages() { return messages; }

int Morvik::morvikParse(String source, String date, String time)
{
  systemName = defaultVpdinfoName;
  const FileName name(source);
  memberName = name.getMember();
  if (memberName.empty()) return badFileName;
  sourceType = name.getExtension();
  if (sourceType.empty()) sourceType = "lidhdr";
  bodyAlignment = headerBodyAlignment;
  ruDate = date;
  if (!IsDigits(ruDate, 8)) return badDate;
  ruTime = time;
  if (!IsDigits(ruTime, 6)) return badTime;
  ruType = "LID";
  sourceType.toUpper();
  (isProductInformation() ? vpdinfoSource : ruvpdSource) = name;
  return success;
}

int Morvik::morvikExecute()
{
  boolean restricted = false;
  if (isProductInformation()) {
    if (const int code = openSource(vpdinfoSource, restricted)) return code;
  } else {
    if (const int code = openSource(ruvpdSource, restricted)) return code;
    vpdinfoSource = vpdinfoName();
    restricted = true;
    if (const int code = openSource(vpdinfoSource, restricted)) return code;
  }
  return MorvikCreateHeader(this);
}

boolean Morvik::isProductInformation() const { return SourceKindOf(sourceType).readAlone; }

FileName VpdinfoName(const FileName& ruvpdSource, const String& baseName)
{
  return Build(ruvpdSource.getLibrary(), String(), baseName, "vpdinfo");
}

std::vector<FileName> Morvik::nameSources()
{
  if (isProductInformation()) return {vpdinfoSource};
  if (!givenVpdinfo.isValid()) {
    boolean restricted = false;
    openSource(ruvpdSource, restricted);
  }
  return {ruvpdSource, vpdinfoName()};
}

// When none was given, the one with the base name that VPDINFONM gives, or else the default one.
FileName Morvik::vpdinfoName() const
{
  if (givenVpdinfo.isValid()) return givenVpdinfo;
  const String given =
      SPAOption::StringValid(vpdinfoNameKeyword) == 1 ? SPAOption::GetStringValue(vpdinfoNameKeyword) : String();
  return VpdinfoName(ruvpdSource, given.empty() ? systemName : given);
}

int Morvik::openSource(FileName& file, boolean& restricted)
{
  sourceProgram.reset();
  const boolean isGiven = restricted && givenVpdinfo.isValid();
  const ReportedSource* reported = FindReportedSource(isGiven ? String("vpdinfo") : file.getExtension());
  ReadFileStream stream(file, std::ios_base::in);
  sources.emplace_back(file, stream);
  if (stream.failure()) {
    if (reported == nullptr) return success;
    ReportUnusable(file);
    return reported->openError;
  }
  sourceProgram = std::make_unique<SPASourceProgram>();
  boolean restriction = restricted;
  const boolean failed = sourceProgram->read(stream, restriction) != 0;
  if (reported == nullptr) return success;
  if (failed) ReportUnusable(file);
  PrintErrorLine(reported->readLine + file.getSource());
  return failed ? reported->readError : success;
}

void Morvik::morvikPrintError(int code) const
{
  if (const char* message = FindMessage(messages, code)) PrintMessage(message);
}
