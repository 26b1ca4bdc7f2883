// Bytes of unknown origin as text that a terminal can show.
#pragma once

#include <string>
#include <string_view>

// The bytes of the character in UTF-8 with which the text begins; 0 when it begins with none.
std::size_t Utf8Length(std::string_view text);

// The text with control characters, and bytes that are no UTF-8, as \xNN, so that none can steer a terminal.
std::string Escaped(std::string_view text);
