#include "image/LintSource.h"

#include <climits>
#include <cstring>

#include "foundation/FileStreams.h"
#include "image/InputFile.h"
#include "source/SPASourceProgram.h"

namespace {

// A source's fault: refused when the source is reported, else with a silent outcome.
struct SourceFault {
  const LintRule& rule;
  ReturnCode ReportedSource::*code;
  std::string message;
  const char* outcome;
};

void AddFault(LintedSource& source, const ReportedSource* reported, const SourceFault& fault, Findings& findings)
{
  if (reported == nullptr) {
    return findings.add(
        {.file = source.name, .rule = &Rule("ignored-source"), .message = fault.message + fault.outcome});
  }
  source.code = reported->*fault.code;
  findings.add({.file = source.name, .rule = &fault.rule, .message = fault.message, .code = source.code});
}

}  // namespace

LintedSource LintSource(const FileName& file, const ReportedSource* reported, bool restricted, Findings& findings)
{
  ReadFileStream stream(file, std::ios_base::in);
  LintedSource source = {SourceFile(file, stream), ToText(file.getSource()(0, PATH_MAX)), success, {}};
  if (stream.failure()) {
    AddFault(source, reported,
             {Rule("missing-source"), &ReportedSource::openError, "cannot be opened" + ReadError(file),
              ", and silently counts as empty"},
             findings);
    return source;
  }
  LineLinter lines(source.name, restricted);
  const bool failed = ReadLines(stream, [&](const String& line) { lines.take(line); }) != 0;
  std::vector<Finding> found = lines.finish();
  if (failed) {
    AddFault(source, reported,
             {Rule("unreadable-source"), &ReportedSource::readError, "cannot be read to its end" + ReadError(file),
              ", and silently counts as far as it was read"},
             findings);
  }
  source.given = std::move(lines.given);
  findings.add(std::move(found));
  return source;
}

std::string ReadError(const FileName& file)
{
  const auto reason = WhyUnread(ToText(file.getSource()));
  return reason && reason->error != 0 ? std::string(": ") + std::strerror(reason->error) : "";
}
