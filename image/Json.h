// What the commands found, as JSON for programs: one object with a line end, described by
// share/kelvra/kelvra-image.schema.json. Bytes that are no UTF-8 become U+FFFD.
#pragma once

#include <string>

#include "image/Deps.h"
#include "image/Diff.h"
#include "image/Lint.h"
#include "image/List.h"
#include "image/Verify.h"

// For the documents whose images come one by one: what begins them, an image, what ends them.
std::string JsonBegin(const char* command);
std::string JsonEnd();
std::string Json(const Image& image);
std::string Json(const ListRow& row, const Image& image);

std::string Json(const DepsResult& deps);
std::string Json(const LintResult& lint);
std::string Json(const VerifyResult& verified, const Image& image);
std::string Json(const DiffResult& diff, const Image& one, const Image& other);
std::string FieldsJson();
