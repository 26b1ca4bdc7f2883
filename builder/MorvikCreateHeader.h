// From the keywords in the option table to the header block: which keyword feeds which field, in which order, and what
// a field gets when its keyword is not given.
#pragma once

#include "foundation/String.h"

class Morvik;

// The VPD body begins at a multiple of this many bytes from the beginning of the header block.
inline constexpr unsigned int headerBodyAlignment = 256;
// With that alignment, after the two headers and their zero fill.
inline constexpr unsigned int headerBodyOffset = 512;

// Appends the header block to the builder's header. Returns 0, or the code of the first value that is refused, with
// nothing appended. To be called once, after the sources were read.
int MorvikCreateHeader(Morvik* builder);

// The bytes of the header block for a source with this base name: 512, and for a name of more than 8 characters the
// name and one byte.
unsigned int MorvikHeaderLength(const String& memberName);
