// What stands in front of a load module in an output file: file header, auxiliary header, header block and section
// header, in file order.
#pragma once

#include <vector>

#include "builder/Morvik.h"
#include "driver/Kelvra.h"
#include "foundation/ByteString.h"
#include "foundation/FileStatus.h"

struct OutputFront {
  ByteString bytes;
  std::vector<SourceFile> sources;  // the sources that were named, also when the building failed
};

// Its length in bytes, which the RUVPD source's name decides.
unsigned int FrontLength(const Kelvra& app);

// Reads the sources and builds the front for a LID of this status, which begins with these bytes: sizeof(KESPHDR) of
// them, or all when it has fewer. The LID's size must fit in 32 bits. Returns 0; or badTime for a build time without
// text form; or a code of the header builder, whose message is then already printed. The option table must be empty.
int BuildFront(const Kelvra& app, const FileStatus& lidStatus, const ByteString& lidBegin, OutputFront& front);
