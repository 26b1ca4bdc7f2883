#include "foundation/Time.h"

#include <cstring>

time_t currentTime() { return std::time(nullptr); }

String Time::formatString(const String& format) const
{
  const tm* local = std::localtime(&moment);
  if (local == nullptr) return String();
  char text[500];
  return String(text, static_cast<unsigned int>(std::strftime(text, sizeof text, format, local)));
}

String Time::toString() const
{
  const tm* local = std::localtime(&moment);
  const char* text = local != nullptr ? std::asctime(local) : nullptr;
  return text != nullptr ? String(text, static_cast<unsigned int>(std::strcspn(text, "\n"))) : String();
}
