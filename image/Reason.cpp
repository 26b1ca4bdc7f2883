#include "image/Reason.h"

#include <cstring>

#include "image/Utf8.h"

std::string ReasonText(const Reason& reason)
{
  std::string text = Escaped(reason.file) + ": " + Escaped(reason.what);
  if (reason.error != 0) text.append(": ").append(std::strerror(reason.error));
  return text;
}
