#include "driver/KeptFiles.h"

#include <unistd.h>

#include <algorithm>

boolean IsKept(const FileStatus& output, const Kelvra& app, const ReadFileStream& lid,
               const std::vector<SourceFile>& sources)
{
  const auto isNamed = [&](const FileName& name) { return output.mayBeSameFile(FileStatus(name.getSource())); };
  const auto isSource = [&](const SourceFile& source) {
    return output.mayBeSameFile(source.opened) || isNamed(source.name);
  };
  const auto isBehind = [&](int standardStream) {
    const FileStatus behind(standardStream);
    return behind.isRegular() && output.mayBeSameFile(behind);
  };
  return output.mayBeSameFile(lid.status()) || output.mayBeSameFile(lid.statusNow()) || isNamed(app.lidFile) ||
         std::any_of(sources.begin(), sources.end(), isSource) ||
         std::any_of(app.passedOver.begin(), app.passedOver.end(), isNamed) || isBehind(STDOUT_FILENO) ||
         isBehind(STDERR_FILENO);
}
