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

}  // namespace

const SourceKind& SourceKindOf(const String& extension)
{
  const auto* kind = std::find_if(std::begin(sourceKinds), std::end(sourceKinds),
                                  [&](const SourceKind& row) { return extension == row.extension; });
  return kind != std::end(sourceKinds) ? *kind : usualKind;
}
