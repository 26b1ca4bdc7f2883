#include "driver/Kelvra.h"

int main(int argc, char** argv)
{
  Kelvra app;
  int code = app.parseParams(argc, argv);
  if (code != 0) {
    app.printError(code);
    app.showUsage();
    return code;
  }
  code = app.execute();
  app.printError(code);
  return code;
}
