#include "builder/SourceKind.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr SourceKind sourceKinds[] = {
    {"LIDHDR", "CODE", false, "5001", "0000"},
    {"PFGINFO", "PFGINFO", false, "5001", "0000"},
    {"SFGINFO", "SFGINFO", true, "5001", nullptr},
    {"VPDINFO", "VPDINFO", true, nullptr, nullptr},
};
constexpr const SourceKind& usualKind = sourceKinds[0];

constexpr ReportedSource reportedSources[] = {
    {"lidhdr", ruvpdNotOpened, ruvpdNotRead, "ruvpd File is "},
    {"vpdinfo", vpdinfoNotOpened, vpdinfoNotRead, "vpdinfo File is "},
};

}  // namespace

const SourceKind& SourceKindOf(const String& extension)
{
  const auto* kind = std::find_if(std::begin(sourceKinds), std::end(sourceKinds),
                                  [&](const SourceKind& row) { return extension == row.extension; });
  return kind != std::end(sourceKinds) ? *kind : usualKind;
}

const ReportedSource* FindReportedSource(const String& extension)
{
  const auto* row = std::find_if(std::begin(reportedSources), std::end(reportedSources),
                                 [&](const ReportedSource& source) { return extension == source.extension; });
  return row != std::end(reportedSources) ? row : nullptr;
}
