// What the commands found, as text for people.
#pragma once

#include <string>

#include "image/Lint.h"
#include "image/List.h"

// One finding in compilers' form, without a line end.
std::string Text(const Finding& finding);

// Every record and field of the image.
std::string Text(const Image& image);
// One line.
std::string Text(const ListRow& row, const Image& image);
