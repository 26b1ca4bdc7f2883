// Apart from the rest of FileName, so that a program that needs no temporary names does not link tmpnam, which the
// linker warns of.
#include <cstdio>

#include "foundation/FileName.h"

FileName FileName::CreateTmpFileName()
{
  const char* name = std::tmpnam(nullptr);
  return name != nullptr ? FileName(name) : FileName();
}
