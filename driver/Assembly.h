// An output file that is put together in memory and not yet written.
#pragma once

#include <optional>

#include "driver/Kelvra.h"
#include "driver/OutputBuffer.h"
#include "driver/OutputFront.h"
#include "foundation/FileStreams.h"

struct Assembly {
  explicit Assembly(const Kelvra& app) : lid(app.lidFile, std::ios_base::in) {}

  ReadFileStream lid;
  OutputFront front;
  std::optional<OutputBuffer> output;  // set by Assemble
};

// Whether the LID was opened and can be laid into an output: 0, or 33 or 32 as for Assemble.
int CheckLid(const Kelvra& app, const ReadFileStream& lid);

// Reads the LID, has its front built, and lays both into the output. Returns 0, or the code of what stopped it: 33 LID
// not readable, 32 LID not measurable, or a code of BuildFront.
int Assemble(const Kelvra& app, Assembly& assembly);
