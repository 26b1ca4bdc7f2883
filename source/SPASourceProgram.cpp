#include "source/SPASourceProgram.h"

#include <algorithm>
#include <new>

#include "source/SPAOption.h"
#include "source/SPASourceStmt.h"

namespace {

constexpr const char* vpdinfoLabels[] = {"PRODUCTID", "INSTRSET", "SWRTYPE",  "DEVELBY",
                                         "DEVELFOR",  "DEVLABID", "VERLEVEL", "RELMODLVL"};

// In bytes: 1 GiB, so that a message that quotes a line stays below the length of a String.
constexpr unsigned int longestLine = 1U << 30;

void Store(const SPASourceStmt& statement, boolean restricted)
{
  if (statement.isStmt() == 0) return;
  String label = statement.getLabel();
  if (!restricted || labelOk(label) == 1) SPAOption::SetStringValue(label, statement.getValue());
}

}  // namespace

int SPASourceProgram::read(ReadStream& stream, boolean& restricted)
{
  try {
    String line;
    while (!stream.endOfFile()) {
      stream.getLine(line, '\n', longestLine);
      if (!stream.failure()) Store(SPASourceStmt(line), restricted);
    }
  } catch (const std::bad_alloc&) {  // a line or a source that memory cannot hold
    stream.setFailure();
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
