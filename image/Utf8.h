// Bytes of unknown origin as text that a terminal can show.
#pragma once

#include <string>
#include <string_view>

// The text with control characters, and bytes that are no UTF-8, as \xNN, so that none can steer a terminal.
std::string Escaped(std::string_view text);
