#include "image/Inputs.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <ctime>

#include "builder/SourceKind.h"
#include "image/InputFile.h"
#include "source/MapStringString.h"
#include "source/SPAOption.h"

std::optional<std::int64_t> SecondsOf(const std::string& text)
{
  const char* end = text.data() + text.size();
  std::int64_t seconds = 0;
  const auto [rest, error] = std::from_chars(text.data(), end, seconds);
  return rest == end && error == std::errc() ? std::optional(seconds) : std::nullopt;
}

std::optional<Reason> TakeSourceDateEpoch(Inputs& inputs)
{
  const char* epoch = std::getenv("SOURCE_DATE_EPOCH");
  if (epoch == nullptr || *epoch == '\0' || inputs.utc || inputs.timestamp) return std::nullopt;
  inputs.timestamp = SecondsOf(epoch);
  if (!inputs.timestamp) return Reason{"SOURCE_DATE_EPOCH", "not a number of seconds"};
  inputs.utc = true;
  return std::nullopt;
}

Kelvra MakeRun(const Inputs& inputs)
{
  if (inputs.utc) {
    ::setenv("TZ", "UTC0", 1);
    ::tzset();
  }
  OptionTable().clear();
  Kelvra run;
  run.lidFile.setSource(ToString(inputs.lid));
  run.ruvpdFile.setSource(ToString(inputs.source));
  run.outputFile.setSource(ToString(inputs.image));
  run.vpdinfoFile.setSource(ToString(inputs.vpdinfo));
  run.buildTime = inputs.timestamp;
  run.nameFiles();
  return run;
}

Reason WhyNotRead(const FileName& file)
{
  const std::string name = ToText(file.getSource());
  return WhyUnread(name).value_or(Reason{name, "cannot read", ENOMEM});
}

std::optional<Reason> FindUnopened(const std::vector<SourceFile>& sources)
{
  const auto source = std::ranges::find(sources, false, &SourceFile::isOpened);
  if (source == sources.end()) return std::nullopt;
  const std::string name = ToText(source->name.getSource());
  return WhyUnread(name).value_or(Reason{name, "cannot open"});
}

std::optional<Reason> UnreadVpdinfo(const Kelvra& run)
{
  String extension = run.ruvpdFile.getExtension();
  if (run.vpdinfoFile.getSource().empty() || !SourceKindOf(extension.toUpper()).readAlone) return std::nullopt;
  return Reason{ToText(run.vpdinfoFile.getSource()),
                "no place for a VPDINFO source: " + ToText(run.ruvpdFile.getSource()) + " is read alone"};
}
