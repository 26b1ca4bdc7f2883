// Guesses at what a file is, from its first few thousand bytes.
#pragma once

#include <string_view>

// How much of a file is looked at.
inline constexpr unsigned int looksLikeLength = 4096;

bool LooksLikeImage(std::string_view beginning);
bool LooksLikeLid(std::string_view beginning);
// With or without a byte order mark.
bool LooksLikeUtf16(std::string_view beginning);
// A text with a statement that the tool would take, or with a comment.
bool LooksLikeSource(std::string_view beginning);
// What makes it anything but a text, in a few words; null for a text.
const char* LooksLikeBinary(std::string_view beginning);
