// What the commands found, as text for people.
#pragma once

#include <string>

#include "image/Diff.h"
#include "image/Lint.h"
#include "image/List.h"
#include "image/Verify.h"

// One finding in compilers' form, without a line end.
std::string Text(const Finding& finding);

// Every record and field of the image.
std::string Text(const Image& image);
// One line.
std::string Text(const ListRow& row, const Image& image);

// The checks that failed, and what was not checked; with `all`, every check.
std::string Text(const VerifyResult& verified, const std::string& file, bool all);
// Nothing for images that do not differ.
std::string Text(const DiffResult& diff);
// The layout, the keywords, the checks, the rules and the codes.
std::string FieldsText();
