#include "driver/Assembly.h"

#include "foundation/ReturnCode.h"
#include "headers/KespHeader.h"

int CheckLid(const Kelvra& app, const ReadFileStream& lid)
{
  if (lid.failure()) return lidNotRead;
  const FileStatus& lidStatus = lid.status();
  if (!lidStatus.valid()) return lidNotMeasured;
  if (lidStatus.size() != Low32(lidStatus.size())) return lidNotRead;
  // Just below 4 GiB the end of the output has no 32-bit offset.
  const std::uint64_t end = lidStatus.size() + FrontLength(app);
  return end == Low32(end) ? success : lidNotMeasured;
}

int Assemble(const Kelvra& app, Assembly& assembly)
{
  auto& [lid, front, output] = assembly;
  if (const int code = CheckLid(app, lid)) return code;
  const auto lidLength = static_cast<unsigned int>(lid.status().size());
  output.emplace(FrontLength(app), lidLength);
  if (!output->valid()) return lidNotRead;
  const boolean whole = output->readLid(lid) == lidLength && lid.endOfFile();
  if (lid.failure()) return lidNotRead;
  if (!whole) return lidNotMeasured;

  if (const int code = BuildFront(app, lid.status(), output->lidBegin(sizeof(KESPHDR)), front)) return code;
  output->setFront(front.bytes);
  return success;
}
