#include "image/Text.h"

#include <fmt/format.h>

#include "image/Utf8.h"

std::string Text(const Finding& finding)
{
  std::string text = Escaped(finding.file);
  if (finding.line != 0) text += fmt::format(":{}", finding.line);
  text += fmt::format(": {}: {}", SeverityName(finding.rule->severity), Escaped(finding.message));
  if (finding.code != 0) text += fmt::format(" (code {})", finding.code);
  return text + fmt::format(" [{}]", finding.rule->name);
}
