// A code's message: tables of rows, and the line that a row becomes on standard error.
#pragma once

#include <span>

struct MessageRow {
  int code;
  const char* text;
};

// The text of the code's row, or null when the table has none.
const char* FindMessage(std::span<const MessageRow> table, int code);

// Writes the text and a full stop as one line to standard error.
void PrintMessage(const char* text);
