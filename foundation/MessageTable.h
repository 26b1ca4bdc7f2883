// A code's message: tables of rows, and the line that a row becomes on standard error.
#pragma once

#include <cstddef>
#include <span>

#include "foundation/BasicTypes.h"

struct MessageRow {
  int code;
  const char* text;
};

// Whether each row's code is greater than the code of the row before, so that none has two texts.
constexpr boolean CodesAscend(std::span<const MessageRow> table)
{
  for (std::size_t i = 1; i < table.size(); i++) {
    if (table[i - 1].code >= table[i].code) return false;
  }
  return true;
}

// The text of the code's row, or null when the table has none.
const char* FindMessage(std::span<const MessageRow> table, int code);

// Writes the text and a full stop as one line to standard error.
void PrintMessage(const char* text);
