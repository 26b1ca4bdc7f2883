#include "source/SPAOption.h"

#include "source/MapStringString.h"

namespace {

MapStringString optionTable;

}  // namespace

void SPAOption::SetStringValue(const String& label, const String& value) { optionTable.put(label, value); }

String SPAOption::GetStringValue(const String& label) { return optionTable.get(label); }

int SPAOption::StringValid(const String& label) { return optionTable.includes(label); }

MapStringString& OptionTable() { return optionTable; }
