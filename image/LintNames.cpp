#include "image/LintNames.h"

#include <fmt/format.h>

#include <cctype>
#include <cstdlib>
#include <cstring>

#include "driver/KeptFiles.h"
#include "image/KeywordSearch.h"
#include "image/ReplacedFile.h"

namespace {

constexpr const char* zoneFolder = "/usr/share/zoneinfo";

// The names of UTC itself, which mean it with or without a file.
constexpr std::string_view utcNames[] = {"UTC", "GMT", "UCT", "Universal", "Zulu", "Etc/UTC", "Etc/GMT"};

// Whether the output is a file that the tool keeps. The tool compares with a LID that is open; in place of another one
// stands an open source, since its name is compared anyway.
bool IsInput(const FileStatus& output, const Kelvra& run, const ReadFileStream& lid,
             const std::vector<SourceFile>& sources)
{
  if (!output.valid()) return false;
  if (lid.statusNow().valid()) return IsKept(output, run, lid, sources);
  const auto source = std::ranges::find_if(sources, [](const SourceFile& s) { return s.opened.isRegular(); });
  return source != sources.end() && IsKept(output, run, ReadFileStream(source->name, std::ios_base::in), sources);
}

// A zone given by its rule: a name of letters, or of any characters in <>, and the distance from UTC.
bool IsRule(std::string_view zone)
{
  std::size_t end = 0;
  if (zone.starts_with('<')) {
    end = std::min(zone.find('>'), zone.size() - 1) + 1;
  } else {
    while (end < zone.size() && std::isalpha(static_cast<unsigned char>(zone[end])) != 0) end++;
  }
  if (end < 3) return false;
  const std::string_view distance = zone.substr(end);
  const std::size_t sign = distance.find_first_not_of("+-");
  return sign <= 1 && std::isdigit(static_cast<unsigned char>(distance[sign])) != 0;
}

bool HasZoneFile(const std::string& zone)
{
  const char* folder = std::getenv("TZDIR");
  const std::string prefix = folder != nullptr && *folder != '\0' ? folder : zoneFolder;
  return FileStatus(ToString(zone.starts_with('/') ? zone : prefix + '/' + zone)).isRegular();
}

}  // namespace

void LintProbing(const std::string& given, const FileName& taken, const char* extension, Findings& findings)
{
  const FileName bare(ToString(given));
  if (given.empty() || !bare.getExtension().empty()) return;
  FileName completed = bare;
  completed.setExtension(extension);
  const bool isBare = taken.getExtension().empty();
  const FileName& other = isBare ? completed : bare;
  if (!FileStatus(other.getSource()).isRegular()) return;
  findings.add({.file = ToText(taken.getSource()),
                .rule = &Rule("other-file"),
                .message = fmt::format("{} is there too, and {}", Quoted(other.getSource()),
                                       isBare ? "not taken" : "cannot be opened")});
}

void LintSourceName(const FileName& source, Findings& findings)
{
  const std::string name = ToText(source.getSource());
  if (const int code = Morvik().morvikParse(source.getSource(), "20000101", "000000")) {
    findings.add({.file = name, .rule = &Rule("no-base-name"), .message = "the name has no base name", .code = code});
  }
  const String extension = source.getExtension();
  String upper = extension;
  upper.toUpper();
  if (extension.empty() || upper == SourceKindOf(upper).extension || !FileStatus(source.getSource()).valid()) return;
  findings.add({.file = name,
                .rule = &Rule("unusual-extension"),
                .message = fmt::format("the extension {} means nothing; were the file missing, it would silently "
                                       "count as empty",
                                       Quoted(extension))});
}

void LintOutput(const Kelvra& run, const ReadFileStream& lid, const std::vector<SourceFile>& sources,
                Findings& findings)
{
  const std::string name = ToText(run.outputFile.getSource());
  const FileStatus status(run.outputFile.getSource());
  const ReplacedFile output(name);
  if (const int error = run.outputFile.isValid() ? output.openError() : EISDIR) {
    findings.add({.file = name,
                  .rule = &Rule("unwritable-output"),
                  .message = fmt::format("cannot be opened for writing: {}", std::strerror(error)),
                  .code = outputNotWritten});
  } else if (IsInput(status, run, lid, sources)) {
    findings.add({.file = name,
                  .rule = &Rule("output-is-input"),
                  .message = "is the output and one of the inputs",
                  .code = outputNotWritten});
  }
}

void LintTimeZone(Findings& findings)
{
  const char* variable = std::getenv("TZ");
  if (variable == nullptr) return;
  std::string zone = variable;
  if (zone.starts_with(':')) zone.erase(0, 1);
  if (zone.empty() || IsRule(zone) || std::ranges::find(utcNames, zone) != std::end(utcNames) || HasZoneFile(zone)) {
    return;
  }
  findings.add(
      {.file = "TZ",
       .rule = &Rule("time-zone"),
       .message = fmt::format("the time zone {} is not on this machine and means UTC", Quoted(ToString(zone)))});
}
