#include "source/SPASourceProgram.h"

#include <algorithm>

#include "source/SPAOption.h"
#include "source/SPASourceStmt.h"

namespace {

constexpr const char* vpdinfoLabels[] = {"PRODUCTID", "INSTRSET", "SWRTYPE",  "DEVELBY",
                                         "DEVELFOR",  "DEVLABID", "VERLEVEL", "RELMODLVL"};

}  // namespace

int SPASourceProgram::read(ReadStream& stream, boolean& restricted)
{
  String line;
  while (!stream.endOfFile()) {
    stream.getLine(line, '\n');
    const SPASourceStmt statement(line);
    if (statement.isStmt() == 0) continue;
    String label = statement.getLabel();
    if (!restricted || labelOk(label) == 1) SPAOption::SetStringValue(label, statement.getValue());
  }
  return stream.failure() ? 1 : 0;
}

int labelOk(String& label)
{
  return std::any_of(std::begin(vpdinfoLabels), std::end(vpdinfoLabels),
                     [&](const char* known) { return label == known; })
             ? 1
             : 0;
}
