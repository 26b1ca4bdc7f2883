#include "image/Text.h"

#include <fmt/format.h>

std::string Text(const Finding& finding)
{
  std::string text = finding.file;
  if (finding.line != 0) text += fmt::format(":{}", finding.line);
  text += fmt::format(": {}: {}", SeverityName(finding.severity), finding.message);
  if (finding.code != 0) text += fmt::format(" (code {})", finding.code);
  return text + fmt::format(" [{}]", finding.rule);
}
