#include "driver/CreateHeader.h"

#include "driver/Assembly.h"
#include "driver/KeptFiles.h"
#include "foundation/ReturnCode.h"

int CreateHeader(Kelvra* app)
{
  Assembly assembly(*app);
  if (const int code = Assemble(*app, assembly)) return code;

  CautiousWriteFileStream out(app->outputFile);
  if (out.failure()) return outputNotWritten;
  if (!out.isNew()) {
    if (IsKept(out.status(), *app, assembly.lid, assembly.front.sources)) return outputNotWritten;
    out.empty();
    if (out.failure()) return outputNotWritten;
  }
  assembly.output->write(out);
  return success;
}
