#include "driver/KeptFiles.h"

#include <unistd.h>

#include <algorithm>

boolean IsKept(const FileStatus& output, const ReadFileStream& lid, const std::vector<SourceFile>& sources)
{
  const auto isSource = [&](const SourceFile& source) {
    return output.mayBeSameFile(source.opened) || output.mayBeSameFile(FileStatus(source.name.getSource()));
  };
  const auto isBehind = [&](int standardStream) {
    const FileStatus behind(standardStream);
    return behind.isRegular() && output.mayBeSameFile(behind);
  };
  return output.mayBeSameFile(lid.status()) || output.mayBeSameFile(lid.statusNow()) ||
         std::any_of(sources.begin(), sources.end(), isSource) || isBehind(STDOUT_FILENO) || isBehind(STDERR_FILENO);
}
