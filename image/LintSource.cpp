#include "image/LintSource.h"

#include <unistd.h>

#include <cstring>

#include "foundation/FileStreams.h"
#include "source/SPASourceProgram.h"

namespace {

void AddFault(LintedSource& source, const LintRule& rule, const ReportedSource* reported,
              ReturnCode ReportedSource::*code, const std::string& message, Findings& findings)
{
  if (reported == nullptr) {
    return findings.add({.file = source.name,
                         .rule = &Rule("ignored-source"),
                         .message = message + "; the source silently counts as far as it was read"});
  }
  source.code = reported->*code;
  findings.add({.file = source.name, .rule = &rule, .message = message, .code = source.code});
}

}  // namespace

LintedSource LintSource(const FileName& file, const ReportedSource* reported, bool restricted, Findings& findings)
{
  ReadFileStream stream(file, std::ios_base::in);
  LintedSource source = {
      {file, stream.failure() ? FileStatus(file.getSource()) : stream.status()}, ToText(file.getSource()), success, {}};
  if (stream.failure()) {
    AddFault(source, Rule("missing-source"), reported, &ReportedSource::openError,
             "cannot be opened: " + WhyNotOpened(file), findings);
    return source;
  }
  LineLinter lines(source.name, restricted);
  const bool failed = ReadLines(stream, [&](const String& line) { lines.take(line); }) != 0;
  lines.finish();
  if (failed) {
    AddFault(source, Rule("unreadable-source"), reported, &ReportedSource::readError, "cannot be read to its end",
             findings);
  }
  source.given = std::move(lines.given);
  findings.add(std::move(lines.findings));
  return source;
}

std::string WhyNotOpened(const FileName& file)
{
  const String name = file.getSource();
  if (HoldsNul(name)) return std::strerror(ENOENT);
  if (::access(name, R_OK) != 0) return std::strerror(errno);
  return std::strerror(EISDIR);
}
