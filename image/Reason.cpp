#include "image/Reason.h"

#include <cstring>

std::string ReasonText(const Reason& reason)
{
  std::string text = reason.file + ": " + reason.what;
  if (reason.error != 0) text.append(": ").append(std::strerror(reason.error));
  return text;
}
