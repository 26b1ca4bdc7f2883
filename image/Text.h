// What the commands found, as text for people.
#pragma once

#include <string>

#include "image/Lint.h"

// One finding in compilers' form, without a line end.
std::string Text(const Finding& finding);
