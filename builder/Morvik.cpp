#include "builder/Morvik.h"

#include <algorithm>

#include "builder/MorvikCreateHeader.h"
#include "foundation/FileStreams.h"
#include "foundation/MessageTable.h"
#include "foundation/StandardStreams.h"
#include "source/SPAOption.h"

namespace {

constexpr MessageRow messages[] = {
    {4, "Morvik process successful: Warning(s) encountered in source file"},
    {8, "Morvik process failed: Error(s) encountered in source file"},
    {12, "Morvik process failed: Severe error(s) encountered in source file"},
    {16, "Morvik process failed: Terminating error(s) encountered in source file"},
    {17, "Invalid filename specified"},
    {18, "Invalid date specified"},
    {19, "Invalid time specified"},
    {30, "Required parameter missing"},
    {31, "Too many parameters"},
    {32, "Error in getting file length of RU"},
    {35, "Invalid body alignment specified"},
    {36, "Invalid SSD Model value in the RUVPD source file"},
    {37, "Invalid Allow Breakpoints value in the RUVPD source file"},
    {38, "Invalid Nucleus Sequence Control value in the RUVPD source file"},
    {39, "Invalid RU Destination value in the RUVPD source file"},
    {40, "Invalid Code Boundary Requirement value in the RUVPD source file"},
    {41, "Invalid Link/loader Bypass value in the RUVPD source file"},
    {42, "Invalid Delete RU value in the RUVPD source file"},
    {43, "Invalid RUArea value in the RUVPD source file"},
    {44, "Invalid Software Type value in the VPDINFO source file"},
    {45, "Invalid Developed By Velmor value in the VPDINFO source file"},
    {46, "Invalid Developed For Velmor value in the VPDINFO source file"},
    {47, "Invalid Online Link/Loadable Flag value in the RUVPD source file"},
    {48, "RUNAME value not assigned in header by Morvik"},
    {50, "Unable to open RUVPD source file for input"},
    {51, "Error reading RUVPD source file"},
    {60, "Unable to open VPDINFO source file for input"},
    {61, "Error reading VPDINFO source file"},
    {90, "Out of memory"},
    {100, "Error writing VPD header to STDOUT"},
};
static_assert(std::size(messages) == 30);

// The sources whose faults and reading are reported, by their extension.
struct ReportedSource {
  const char* extension;
  int openError;
  int readError;
  const char* readLine;
};
constexpr ReportedSource reportedSources[] = {
    {"lidhdr", 50, 51, "ruvpd File is "},
    {"vpdinfo", 60, 61, "vpdinfo File is "},
};

const ReportedSource* FindReported(const FileName& file)
{
  const String extension = file.getExtension();
  const auto* row = std::find_if(std::begin(reportedSources), std::end(reportedSources),
                                 [&](const ReportedSource& source) { return extension == source.extension; });
  return row != std::end(reportedSources) ? row : nullptr;
}

boolean IsDigits(const String& text, unsigned int length)
{
  const char* characters = text;
  return text.length() == length &&
         std::all_of(characters, characters + length, [](char ch) { return ch >= '0' && ch <= '9'; });
}

void ReportUnusable(const FileName& file) { PrintErrorLine("File name is " + file.getSource() + '.'); }

}  // namespace

int Morvik::morvikParse(String source, String date, String time)
{
  systemName = "qel";
  const FileName name(source);
  memberName = name.getMember();
  if (memberName.empty()) return 17;
  sourceType = name.getExtension();
  if (sourceType.empty()) sourceType = "lidhdr";
  bodyAlignment = headerBodyAlignment;
  ruDate = date;
  if (!IsDigits(ruDate, 8)) return 18;
  ruTime = time;
  if (!IsDigits(ruTime, 6)) return 19;
  ruType = "LID";
  sourceType.toUpper();
  (isProductInformation() ? vpdinfoSource : ruvpdSource) = name;
  return 0;
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

// Whether the main source is read alone, as a source of product information.
boolean Morvik::isProductInformation() const { return sourceType == "VPDINFO" || sourceType == "SFGINFO"; }

// Beside the RUVPD source, under the name that it gives or the default one.
FileName Morvik::vpdinfoName() const
{
  const String given = SPAOption::StringValid("VPDINFONM") == 1 ? SPAOption::GetStringValue("VPDINFONM") : String();
  return Build(ruvpdSource.getLibrary(), String(), given.empty() ? systemName : given, "vpdinfo");
}

int Morvik::openSource(FileName& file, boolean& restricted)
{
  sourceProgram.reset();
  const ReportedSource* reported = FindReported(file);
  ReadFileStream stream(file, std::ios_base::in);
  sources.push_back({file, stream.failure() ? FileStatus(file.getSource()) : stream.status()});
  if (stream.failure()) {
    if (reported == nullptr) return 0;
    ReportUnusable(file);
    return reported->openError;
  }
  sourceProgram = std::make_unique<SPASourceProgram>();
  boolean restriction = restricted;
  const boolean failed = sourceProgram->read(stream, restriction) != 0;
  if (reported == nullptr) return 0;
  if (failed) ReportUnusable(file);
  PrintErrorLine(reported->readLine + file.getSource());
  return failed ? reported->readError : 0;
}

void Morvik::morvikPrintError(int code) const
{
  if (const char* message = FindMessage(messages, code)) PrintMessage(message);
}
