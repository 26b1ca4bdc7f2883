// The apply step: reads the LID, has the header block built, and writes the output file: file header, auxiliary header,
// header block, section header, and the LID's bytes unchanged.
#pragma once

class Kelvra;

// Returns 0, or the code of what stopped the step, in which case nothing was written: 33 LID not readable, 32 LID not
// measurable, 19 build time without text form, 34 output not writable, or a code of the header builder, whose message
// is then already printed. The input files are only read.
int CreateHeader(Kelvra* app);
