// The files that a run's output must not be: its inputs, and regular files behind standard output and standard error.
#pragma once

#include <vector>

#include "builder/Morvik.h"
#include "driver/Kelvra.h"
#include "foundation/FileStreams.h"

// Whether an output that is open, and holds what it held before, may be one of those files. They are compared by device
// and inode. An input's are those of its own open and those that its name leads to now: on an overlay file system the
// open of the output can give an input a new inode.
boolean IsKept(const FileStatus& output, const Kelvra& app, const ReadFileStream& lid,
               const std::vector<SourceFile>& sources);
