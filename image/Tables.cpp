#include "image/Tables.h"

#include <map>

#include "builder/Morvik.h"
#include "driver/Kelvra.h"
#include "source/SPASourceProgram.h"

std::vector<CodeRow> CodeRows()
{
  std::map<int, std::string> meanings;
  for (const MessageRow& row : KelvraMessages()) meanings[row.code] = row.text;
  for (const MessageRow& row : MorvikMessages()) meanings[row.code] = row.text;
  std::vector<CodeRow> rows;
  rows.reserve(meanings.size());
  for (const auto& [code, meaning] : meanings) rows.push_back({code, meaning});
  return rows;
}

bool MayStandInVpdinfo(const KeywordRow& keyword)
{
  String label = keyword.keyword;
  return labelOk(label) == 1;
}
