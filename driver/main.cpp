#include "driver/Kelvra.h"
#include "foundation/ReturnCode.h"

int main(int argc, char** argv)
{
  Kelvra app;
  int code = app.parseParams(argc, argv);
  if (code != success) {
    app.printError(code);
    app.showUsage();
    return code;
  }
  code = app.execute();
  app.printError(code);
  return code;
}
