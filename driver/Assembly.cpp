#include "driver/Assembly.h"

#include "foundation/Allocate.h"
#include "foundation/ReturnCode.h"
#include "headers/KespHeader.h"

int Assemble(const Kelvra& app, Assembly& assembly)
{
  auto& [lid, front, output] = assembly;
  if (lid.failure()) return lidNotRead;
  const FileStatus& lidStatus = lid.status();
  if (!lidStatus.valid()) return lidNotMeasured;
  if (lidStatus.size() > MaximumLength) return lidNotRead;
  const auto lidLength = static_cast<unsigned int>(lidStatus.size());
  const unsigned int frontLength = FrontLength(app);
  // Just below 4 GiB the end of the output has no 32-bit offset.
  if (lidLength > MaximumLength - frontLength) return lidNotMeasured;

  output.emplace(frontLength, lidLength);
  if (!output->valid()) return lidNotRead;
  const boolean whole = output->readLid(lid) == lidLength && lid.endOfFile();
  if (lid.failure()) return lidNotRead;
  if (!whole) return lidNotMeasured;

  if (const int code = BuildFront(app, lidStatus, output->lidBegin(sizeof(KESPHDR)), front)) return code;
  output->setFront(front.bytes);
  return success;
}
