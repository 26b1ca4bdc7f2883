#include "source/SPASourceProgram.h"

#include <algorithm>

#include "source/SPAOption.h"
#include "source/SPASourceStmt.h"

namespace {

constexpr const char* vpdinfoLabels[] = {"PRODUCTID", "INSTRSET", "SWRTYPE",  "DEVELBY",
                                         "DEVELFOR",  "DEVLABID", "VERLEVEL", "RELMODLVL"};

void Store(const SPASourceStmt& statement, boolean restricted)
{
  if (statement.isStmt() == 0) return;
  String label = statement.getLabel();
  if (!restricted || labelOk(label) == 1) SPAOption::SetStringValue(label, statement.getValue());
}

}  // namespace

int SPASourceProgram::read(ReadStream& stream, boolean& restricted)
{
  return ReadLines(stream, [&](const String& line) { Store(SPASourceStmt(line), restricted); });
}

int labelOk(String& label)
{
  return std::any_of(std::begin(vpdinfoLabels), std::end(vpdinfoLabels),
                     [&](const char* known) { return label == known; })
             ? 1
             : 0;
}
