#include "foundation/MessageTable.h"

#include <algorithm>

#include "foundation/StandardStreams.h"

const char* FindMessage(std::span<const MessageRow> table, int code)
{
  const auto row = std::find_if(table.begin(), table.end(), [code](const MessageRow& r) { return r.code == code; });
  return row != table.end() ? row->text : nullptr;
}

void PrintMessage(const char* text) { PrintErrorLine(text + String(".")); }
